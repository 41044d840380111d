#include "tools/RackBenchmark.h"

#include "tools/WhiteNoise.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr int kChannels = 2;
constexpr double kNoiseLevel = 0.25; // -12 dBFS peaks: busy, but nowhere near clipping

} // namespace

RackBenchmark::RackBenchmark(PluginRack& rack, int sampleRate, int blockSize, bool useDouble,
                             int64_t framesPerRun)
    : rack(rack), blockSize(blockSize), useDouble(useDouble), framesPerRun(framesPerRun) {
    // A second of noise at most, a whole number of blocks so no block wraps round.
    const int64_t wanted = std::min<int64_t>(framesPerRun, sampleRate);
    const int64_t length = std::max<int64_t>(blockSize, wanted / blockSize * blockSize);
    std::mt19937_64 generator(2024);
    floatNoise.assign(kChannels, std::vector<float>(length));
    doubleNoise.assign(kChannels, std::vector<double>(length));
    for (int64_t frame = 0; frame < length; ++frame) {
        for (int channel = 0; channel < kChannels; ++channel) {
            const double sample = kNoiseLevel * uniformNoise(generator);
            floatNoise[channel][frame] = static_cast<float>(sample);
            doubleNoise[channel][frame] = sample;
        }
    }
    floatOutput.assign(rack.outputChannels(), std::vector<float>(blockSize));
    doubleOutput.assign(rack.outputChannels(), std::vector<double>(blockSize));
}

template <typename Sample>
double RackBenchmark::runWith(std::vector<std::vector<Sample>>& noise,
                              std::vector<std::vector<Sample>>& output) {
    const int64_t length = static_cast<int64_t>(noise[0].size());
    std::vector<Sample*> inputs(kChannels);
    std::vector<Sample*> outputs;
    for (auto& channel : output) {
        outputs.push_back(channel.data());
    }
    int64_t position = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int64_t done = 0; done < framesPerRun;) {
        const int frames = static_cast<int>(std::min<int64_t>(blockSize, framesPerRun - done));
        for (int channel = 0; channel < kChannels; ++channel) {
            inputs[channel] = noise[channel].data() + position;
        }
        rack.process(inputs.data(), outputs.data(), frames);
        done += frames;
        position = (position + frames) % length;
    }
    const auto elapsed = std::chrono::steady_clock::now() - start;
    return std::chrono::duration<double, std::nano>(elapsed).count() /
           static_cast<double>(framesPerRun);
}

double RackBenchmark::run() {
    return useDouble ? runWith(doubleNoise, doubleOutput) : runWith(floatNoise, floatOutput);
}

TimingSummary summarise(std::vector<double> nanosecondsPerFrame) {
    std::sort(nanosecondsPerFrame.begin(), nanosecondsPerFrame.end());
    const std::size_t count = nanosecondsPerFrame.size();
    const double median =
        count % 2 == 1
            ? nanosecondsPerFrame[count / 2]
            : 0.5 * (nanosecondsPerFrame[count / 2 - 1] + nanosecondsPerFrame[count / 2]);
    return {median, nanosecondsPerFrame.front()};
}
