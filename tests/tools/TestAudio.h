// Audio files for the tests, read and written with libsndfile directly (not through the
// tool's own code).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct TestAudio {
    int channels = 0;
    int sampleRate = 0;
    std::vector<float> samples; // interleaved

    int64_t frames() const { return static_cast<int64_t>(samples.size()) / channels; }
    float at(int64_t frame, int channel) const { return samples[frame * channels + channel]; }
};

// Noise and two tones, different in every channel, at moderate level.
TestAudio makeTestSignal(int channels, int sampleRate, int64_t frames);

// A WAV file of 32-bit floats.
void writeAudio(const std::string& path, const TestAudio& audio);
TestAudio readAudio(const std::string& path);

// Root-mean-square level of one channel over a range of frames.
double rmsLevel(const TestAudio& audio, int channel, int64_t first, int64_t count);
