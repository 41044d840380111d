// Helpers shared by the engine tests: stream formats, settings and guarded output buffers.
#pragma once

#include "dsp/CMultiEqualizer.h"
#include "tests/support/ReferenceEqualizer.h"

#include <gtest/gtest.h>

#include <vector>

namespace enginetest {

inline tWAVEFORMATEX Format(uint16_t channels, uint32_t rate) {
    const uint16_t frameBytes = static_cast<uint16_t>(4 * channels);
    return {kWaveFormatIeeeFloat, channels, rate, rate * frameBytes, frameBytes, 32, 0};
}

constexpr int kDb = 65536;
constexpr int kHz = 65536;

struct Settings {
    int inputLevel, outputLevel;
    reference::Band band[2];
};

inline const Settings kDefaults = {0, 0, {{0, 0, 1000 * kHz, 65536}, {0, 0, 1000 * kHz, 65536}}};

inline void Apply(CMultiEqualizer& engine, const Settings& s) {
    engine.set_InputLevel(s.inputLevel);
    engine.set_OutputLevel(s.outputLevel);
    for (int b = 0; b < 2; ++b) {
        engine.set_Type(b, s.band[b].type);
        engine.set_Gain(b, s.band[b].gain);
        engine.set_Freq(b, s.band[b].freq);
        engine.set_Q(b, s.band[b].q);
    }
}

inline reference::Channel ReferenceChannel(float fs, const Settings& s) {
    return reference::Channel(fs, s.inputLevel, s.outputLevel, s.band[0], s.band[1]);
}

// Output channels with sentinel zones before and after each buffer.
class GuardedOutput {
public:
    static constexpr int kGuard = 16;
    static constexpr float kSentinel = -999.0f;

    GuardedOutput(int channels, int length, float fill = kSentinel)
        : m_length(length), m_storage(channels, std::vector<float>(length + 2 * kGuard, fill)) {
        for (auto& channel : m_storage) {
            std::fill_n(channel.begin(), kGuard, kSentinel);
            std::fill_n(channel.end() - kGuard, kGuard, kSentinel);
            m_pointers.push_back(channel.data() + kGuard);
        }
    }

    float* const* pointers() { return m_pointers.data(); }
    std::vector<float> Samples(int channel) const {
        const auto begin = m_storage[channel].begin() + kGuard;
        return {begin, begin + m_length};
    }
    void ExpectGuardsIntact() const {
        for (const auto& channel : m_storage) {
            for (int i = 0; i < kGuard; ++i) {
                EXPECT_EQ(channel[i], kSentinel) << "written before the buffer";
                EXPECT_EQ(channel[kGuard + m_length + i], kSentinel) << "written after it";
            }
        }
    }

private:
    int m_length;
    std::vector<std::vector<float>> m_storage;
    std::vector<float*> m_pointers;
};

// Runs one block of the given channels through the engine and returns what it wrote.
inline std::vector<std::vector<float>> TransformBlock(CMultiEqualizer& engine,
                                                      const std::vector<const float*>& in,
                                                      int count, int outChannels) {
    GuardedOutput out(outChannels, count);
    int produced = -1;
    EXPECT_TRUE(engine.Transform(in.data(), count, out.pointers(), &produced));
    EXPECT_EQ(produced, count);
    out.ExpectGuardsIntact();
    std::vector<std::vector<float>> result;
    for (int c = 0; c < outChannels; ++c) {
        result.push_back(out.Samples(c));
    }
    return result;
}

} // namespace enginetest
