// Sample rates and block sizes no audio system uses are refused: the output equals that of an
// effect that never received them.
#include "tests/validation/support/PluginChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Limits = std::numeric_limits<float>;

constexpr float kValidRate = 48000.0f;
constexpr int32_t kValidBlock = 512;

const HostRequest kHostileSettings[] = {
    {"RateZero", effSetSampleRate, 0, 0.0f},
    {"RateNegative", effSetSampleRate, 0, -44100.0f},
    {"RateNaN", effSetSampleRate, 0, Limits::quiet_NaN()},
    {"RateInfinite", effSetSampleRate, 0, Limits::infinity()},
    {"RateBelowOneHertz", effSetSampleRate, 0, 0.5f},
    {"RateHuge", effSetSampleRate, 0, 1e30f},
    {"BlockZero", effSetBlockSize, 0, 0.0f},
    {"BlockNegative", effSetBlockSize, -1, 0.0f},
    {"BlockLargestInt", effSetBlockSize, std::numeric_limits<int32_t>::max(), 0.0f},
    {"BlockBeyond32Bits", effSetBlockSize, static_cast<intptr_t>(1) << 40, 0.0f},
    {"BothThroughTheCombinedRequest", effSetBlockSizeAndSampleRate, -1, Limits::quiet_NaN()}};

// Settings under which the sample rate matters: a boost and a cut near both ends.
void shapeTheSound(HostedPlugin& plugin) {
    plugin.SetParameter(kParamType1, 0.5f); // peaking
    plugin.SetParameter(kParamGain1, 1.0f);
    plugin.SetParameter(kParamFreq1, 0.4f);
    plugin.SetParameter(kParamQ1, 0.8f);
    plugin.SetParameter(kParamType2, 1.0f); // high shelf
    plugin.SetParameter(kParamGain2, 0.0f);
    plugin.SetParameter(kParamFreq2, 0.1f);
}

template <typename Sample> void expectSameOutput(HostedPlugin& plugin, HostedPlugin& reference) {
    Noise noise(5);
    for (int block = 0; block < 8; ++block) {
        const int frames = block == 0 ? 1 : kValidBlock - block;
        GuardedStereo<Sample> input(frames), expected(frames), output(frames);
        input.Fill(noise, 1.0f);
        reference.Process(input.Channels(), expected.Channels(), frames);
        plugin.Process(input.Channels(), output.Channels(), frames);
        ASSERT_TRUE(output.AllFinite() && output.GuardsIntact());
        for (int c = 0; c < 2; ++c) {
            ASSERT_TRUE(
                std::equal(output.Channel(c), output.Channel(c) + frames, expected.Channel(c)));
        }
    }
}

class HostileStreamSetting : public testing::TestWithParam<HostRequest> {};

TEST_P(HostileStreamSetting, KeepsTheLastValidSetting) {
    HostedPlugin plugin, reference;
    for (HostedPlugin* p : {&plugin, &reference}) {
        p->Start(kValidRate, kValidBlock);
        shapeTheSound(*p);
    }
    plugin.Dispatch(GetParam());
    expectSameOutput<float>(plugin, reference);
    expectSameOutput<double>(plugin, reference);
}

INSTANTIATE_TEST_SUITE_P(NumericSafety, HostileStreamSetting, testing::ValuesIn(kHostileSettings),
                         [](const testing::TestParamInfo<HostRequest>& info) {
                             return info.param.name;
                         });

// Every valid rate the effect accepts, with the bands at the ends of their ranges: the
// filters stay stable, so a second of audio-range noise comes out finite and bounded.
class ValidRate : public testing::TestWithParam<float> {};

TEST_P(ValidRate, ExtremeBandsStayStable) {
    const float rate = GetParam();
    // Each band's type, gain, frequency and Q at the ends and the middle of their ranges.
    for (int combination = 0; combination < 36; ++combination) {
        const float settings[4] = {0.5f * static_cast<float>(combination % 3),
                                   0.5f * static_cast<float>(combination / 3 % 3),
                                   static_cast<float>(combination / 9 % 2),
                                   static_cast<float>(combination / 18)};
        HostedPlugin plugin;
        plugin.Start(rate, 4096);
        for (int i = 0; i < 4; ++i) {
            plugin.SetParameter(kParamType1 + i, settings[i]);
            plugin.SetParameter(kParamType2 + i, settings[i]);
        }
        plugin.SetParameter(kParamOutput, 1.0f);
        Noise noise(17);
        float peak = 0.0f;
        for (int block = 0; block < 48; ++block) {
            GuardedStereo<float> input(4096), output(4096);
            input.Fill(noise, 1.0f);
            plugin.Process(input.Channels(), output.Channels(), 4096);
            peak = std::max(peak, output.Peak(4096));
        }
        // Far above what stable filters make of this noise (two bands at +12 dB and the
        // output at +6 dB), far below what any growth reaches.
        EXPECT_LT(peak, 256.0f) << "rate " << rate << ", type, gain, freq and q "
                                << testing::PrintToString(settings);
    }
}

INSTANTIATE_TEST_SUITE_P(NumericSafety, ValidRate,
                         testing::Values(1.0f, 8000.0f, 22050.0f, 44100.0f, 96000.0f, 192000.0f,
                                         384000.0f, 768000.0f, 10000000.0f),
                         [](const testing::TestParamInfo<float>& info) {
                             return "Rate" + std::to_string(static_cast<long>(info.param));
                         });

} // namespace
