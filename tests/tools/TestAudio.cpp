#include "tests/tools/TestAudio.h"

#include <cmath>
#include <random>
#include <sndfile.h>
#include <stdexcept>

TestAudio makeTestSignal(int channels, int sampleRate, int64_t frames) {
    TestAudio audio{channels, sampleRate, std::vector<float>(channels * frames)};
    std::mt19937 generator(7);
    std::uniform_real_distribution<float> noise(-0.1f, 0.1f);
    for (int64_t frame = 0; frame < frames; ++frame) {
        const double time = static_cast<double>(frame) / sampleRate;
        for (int channel = 0; channel < channels; ++channel) {
            const double tones = 0.2 * std::sin(2.0 * M_PI * (110.0 + 50.0 * channel) * time) +
                                 0.2 * std::sin(2.0 * M_PI * 3000.0 * time);
            audio.samples[frame * channels + channel] =
                static_cast<float>(tones) + noise(generator);
        }
    }
    return audio;
}

void writeAudio(const std::string& path, const TestAudio& audio) {
    SF_INFO info{};
    info.channels = audio.channels;
    info.samplerate = audio.sampleRate;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (file == nullptr) {
        throw std::runtime_error("cannot write test audio " + path);
    }
    sf_writef_float(file, audio.samples.data(), audio.frames());
    sf_close(file);
}

TestAudio readAudio(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr) {
        throw std::runtime_error("cannot read test audio " + path);
    }
    TestAudio audio{info.channels, info.samplerate,
                    std::vector<float>(static_cast<std::size_t>(info.channels * info.frames))};
    sf_readf_float(file, audio.samples.data(), info.frames);
    sf_close(file);
    return audio;
}

double rmsLevel(const TestAudio& audio, int channel, int64_t first, int64_t count) {
    double sum = 0.0;
    for (int64_t frame = first; frame < first + count; ++frame) {
        sum += static_cast<double>(audio.at(frame, channel)) * audio.at(frame, channel);
    }
    return std::sqrt(sum / static_cast<double>(count));
}
