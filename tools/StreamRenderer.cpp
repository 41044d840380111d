#include "tools/StreamRenderer.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// The output counts as silent below -120 dBFS ...
constexpr double kSilence = 1e-6;
// ... for this long without a break ...
constexpr double kSilentStretchSeconds = 0.05;
// ... and the tail never runs longer than this, whatever the plug-in keeps producing.
constexpr double kLongestTailSeconds = 10.0;

template <typename Sample> class BlockBuffers {
public:
    BlockBuffers(int inputChannels, int outputChannels, int blockSize)
        : inputChannels(inputChannels), outputChannels(outputChannels),
          interleavedIn(static_cast<std::size_t>(inputChannels) * blockSize),
          interleavedOut(static_cast<std::size_t>(outputChannels) * blockSize),
          planarIn(inputChannels, std::vector<Sample>(blockSize)),
          planarOut(outputChannels, std::vector<Sample>(blockSize)) {
        for (auto& channel : planarIn) {
            inputPointers.push_back(channel.data());
        }
        for (auto& channel : planarOut) {
            outputPointers.push_back(channel.data());
        }
    }

    double* input() { return interleavedIn.data(); }
    void silenceInput() { std::fill(interleavedIn.begin(), interleavedIn.end(), 0.0); }

    // Deinterleaves, processes and interleaves one block; returns the block's output peak.
    double process(PluginRack& rack, int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            for (int channel = 0; channel < inputChannels; ++channel) {
                planarIn[channel][frame] =
                    static_cast<Sample>(interleavedIn[frame * inputChannels + channel]);
            }
        }
        rack.process(inputPointers.data(), outputPointers.data(), frames);
        double peak = 0.0;
        for (int frame = 0; frame < frames; ++frame) {
            for (int channel = 0; channel < outputChannels; ++channel) {
                const double value = static_cast<double>(planarOut[channel][frame]);
                interleavedOut[frame * outputChannels + channel] = value;
                peak = std::max(peak, std::fabs(value));
            }
        }
        return peak;
    }

    const double* output() const { return interleavedOut.data(); }

private:
    int inputChannels;
    int outputChannels;
    std::vector<double> interleavedIn, interleavedOut;
    std::vector<std::vector<Sample>> planarIn, planarOut;
    std::vector<Sample*> inputPointers, outputPointers;
};

template <typename Sample>
int64_t renderWith(SignalSource& source, PluginRack& rack, int blockSize, const TailPolicy& tail,
                   const FrameSink& sink, const ProgressReport& progress) {
    BlockBuffers<Sample> buffers(source.channels(), rack.outputChannels(), blockSize);
    int64_t produced = 0;
    int64_t consumed = 0;
    for (;;) {
        const int64_t frames = source.read(buffers.input(), blockSize);
        if (frames <= 0) {
            break;
        }
        buffers.process(rack, static_cast<int>(frames));
        sink(buffers.output(), frames);
        produced += frames;
        consumed += frames;
        progress(consumed);
    }

    buffers.silenceInput();
    const double rate = source.sampleRate();
    const int64_t longest =
        tail.fixedFrames >= 0 ? tail.fixedFrames : static_cast<int64_t>(kLongestTailSeconds * rate);
    const int64_t silentStretch = static_cast<int64_t>(kSilentStretchSeconds * rate);
    int64_t tailFrames = 0;
    int64_t silentFrames = 0;
    while (tailFrames < longest && (tail.fixedFrames >= 0 || silentFrames < silentStretch)) {
        const int frames = static_cast<int>(std::min<int64_t>(blockSize, longest - tailFrames));
        const double peak = buffers.process(rack, frames);
        sink(buffers.output(), frames);
        silentFrames = peak < kSilence ? silentFrames + frames : 0;
        tailFrames += frames;
    }
    return produced + tailFrames;
}

} // namespace

int64_t renderStream(SignalSource& source, PluginRack& rack, int blockSize, bool useDouble,
                     const TailPolicy& tail, const FrameSink& sink,
                     const ProgressReport& progress) {
    return useDouble ? renderWith<double>(source, rack, blockSize, tail, sink, progress)
                     : renderWith<float>(source, rack, blockSize, tail, sink, progress);
}
