// One biquad section on its own: the kept handling of an unknown type, and counts of no
// samples. Its designs and block splits are checked bit for bit by the exactness tests.
#include "dsp/CBiquadFilter.h"
#include "tests/support/ReferenceEqualizer.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

void ExpectSameCoefficients(const BiquadCoefficients& got, const reference::Biquad& want) {
    EXPECT_EQ(got.a0, want.a0);
    EXPECT_EQ(got.a1, want.a1);
    EXPECT_EQ(got.a2, want.a2);
    EXPECT_EQ(got.b0, want.b0);
    EXPECT_EQ(got.b1, want.b1);
    EXPECT_EQ(got.b2, want.b2);
}

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

// The history too stays as it was: the block that follows is the plain evaluation's first.
TEST(BiquadFilter, NonPositiveCountTouchesNeitherOutputNorHistory) {
    const auto signal = reference::Noise(16, 5);
    CBiquadFilter filter;
    filter.CalcCoefficients(44100, 1000, 12, 1, 1);
    for (int count : {0, -1, -4}) {
        std::vector<float> guard(4, -777.0f);
        filter.OperateFilter(signal.data(), guard.data(), count);
        EXPECT_EQ(guard, std::vector<float>(4, -777.0f)) << "count " << count;
    }

    std::vector<float> output(signal.size());
    filter.OperateFilter(signal.data(), output.data(), static_cast<int>(signal.size()));
    reference::Biquad want = reference::Design(44100, 1000, 12, 1, 1);
    for (size_t n = 0; n < output.size(); ++n) {
        ASSERT_EQ(output[n], reference::Step(want, signal[n])) << "sample " << n;
    }
}

} // namespace
