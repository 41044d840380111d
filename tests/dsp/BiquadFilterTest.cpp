// One biquad section against the plain formulas, bit for bit: its designs at the ends of the
// ranges, the Nyquist limit, block splits, and the kept handling of an unknown type.
#include "dsp/CBiquadFilter.h"
#include "tests/support/ReferenceEqualizer.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

struct Design {
    const char* name;
    float sampleRate, freq, gainDb, q;
    int type;
};

void PrintTo(const Design& d, std::ostream* os) {
    *os << d.name;
}

void ExpectSameCoefficients(const BiquadCoefficients& got, const reference::Biquad& want) {
    EXPECT_EQ(got.a0, want.a0);
    EXPECT_EQ(got.a1, want.a1);
    EXPECT_EQ(got.a2, want.a2);
    EXPECT_EQ(got.b0, want.b0);
    EXPECT_EQ(got.b1, want.b1);
    EXPECT_EQ(got.b2, want.b2);
}

// Runs the filter over signal in consecutive blocks of the given sizes, leaving a guard
// zone after each block that must survive.
std::vector<float> RunInBlocks(CBiquadFilter& filter, const std::vector<float>& signal,
                               const std::vector<int>& blocks) {
    constexpr float kGuard = -777.0f;
    std::vector<float> output;
    size_t position = 0;
    for (int size : blocks) {
        std::vector<float> block(size + 4, kGuard);
        filter.OperateFilter(signal.data() + position, block.data(), size);
        for (int i = size; i < size + 4; ++i) {
            EXPECT_EQ(block[i], kGuard) << "written past a block of " << size;
        }
        output.insert(output.end(), block.begin(), block.begin() + size);
        position += size;
    }
    return output;
}

// Compares each output sample with the plain evaluation fed the same input.
void ExpectSameOutput(const std::vector<float>& output, reference::Biquad& want,
                      const float* input) {
    for (size_t n = 0; n < output.size(); ++n) {
        ASSERT_EQ(output[n], reference::Step(want, input[n])) << "sample " << n;
    }
}

class BiquadDesign : public testing::TestWithParam<Design> {};

TEST_P(BiquadDesign, MatchesPlainEvaluationBitForBitWhateverTheBlockSplit) {
    const Design d = GetParam();
    reference::Biquad want = reference::Design(d.sampleRate, d.freq, d.gainDb, d.q, d.type);
    CBiquadFilter filter;
    filter.CalcCoefficients(d.sampleRate, d.freq, d.gainDb, d.q, d.type);
    ExpectSameCoefficients(filter.GetCoefficients(), want);

    const std::vector<int> blocks = {1, 2, 3, 64, 256, 64, 64, 128, 1, 1};
    const auto signal = reference::Noise(std::accumulate(blocks.begin(), blocks.end(), 0), 7);
    ExpectSameOutput(RunInBlocks(filter, signal, blocks), want, signal.data());
}

INSTANTIATE_TEST_SUITE_P(
    ResponsesAndExtremes, BiquadDesign,
    testing::Values(Design{"LowShelfDefault", 44100, 1000, 0, 1, 0},
                    Design{"LowShelfBoost20HzQ03", 44100, 20, 12, 0.3f, 0},
                    Design{"LowShelfCutQ10", 48000, 250, -12, 10, 0},
                    Design{"PeakBoost1k", 44100, 1000, 12, 1, 1},
                    Design{"PeakFlat", 44100, 3000, 0, 4, 1},
                    Design{"PeakCut20HzQ10", 44100, 20, -12, 10, 1},
                    Design{"PeakAboveLimitQ03", 44100, 30000, 12, 0.3f, 1},
                    Design{"HighShelfBoostQ10", 96000, 8000, 12, 10, 2},
                    Design{"HighShelfCutAboveLimit", 44100, 21000, -12, 0.3f, 2},
                    Design{"HighShelfJustAboveLimit", 44100, 20948, 6, 1, 2}),
    [](const testing::TestParamInfo<Design>& info) { return std::string(info.param.name); });

TEST(BiquadFilter, UnknownTypeDividesTheStoredCoefficientsByA0AgainOnEachCall) {
    const reference::Biquad peak = reference::Design(44100, 1000, 12, 1, 1);
    ASSERT_NE(peak.a0, 1.0f);
    CBiquadFilter filter;
    filter.CalcCoefficients(44100, 1000, 12, 1, 1);
    reference::Biquad want = peak;
    for (int call = 0; call < 2; ++call) {
        filter.CalcCoefficients(44100, 5000, -3, 2, 3);
        for (float* c : {&want.a1, &want.a2, &want.b0, &want.b1, &want.b2}) {
            *c /= peak.a0;
        }
        ExpectSameCoefficients(filter.GetCoefficients(), want);
    }
}

TEST(BiquadFilter, NonPositiveCountTouchesNeitherOutputNorHistory) {
    const auto signal = reference::Noise(16, 5);
    CBiquadFilter filter;
    filter.CalcCoefficients(44100, 1000, 12, 1, 1);
    for (int count : {0, -1, -4}) {
        std::vector<float> guard(4, -777.0f);
        filter.OperateFilter(signal.data(), guard.data(), count);
        EXPECT_EQ(guard, std::vector<float>(4, -777.0f)) << "count " << count;
    }

    reference::Biquad want = reference::Design(44100, 1000, 12, 1, 1);
    ExpectSameOutput(RunInBlocks(filter, signal, {16}), want, signal.data());
}

} // namespace
