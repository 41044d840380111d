// The level meters' scale: six dB per doubling, its limits, and the rows lit (the top row at
// +6 dB, nothing at the floor, and the fall to it: the panel's meters).
#include "editor/MeterScale.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(MeterScale, PeaksReadSixDbPerDoublingWithinTheMetersRange) {
    const struct {
        const char* what;
        float peak, level;
    } cases[] = {
        {"full scale", 1.0f, 0.0f},
        {"half", 0.5f, -6.0f},
        {"silence", 0.0f, -38.0f},
        {"below the floor", 1e-3f, -38.0f},
        {"not a number", std::numeric_limits<float>::quiet_NaN(), -38.0f},
        {"infinite", std::numeric_limits<float>::infinity(), 6.0f},
    };
    for (const auto& c : cases)
        EXPECT_FLOAT_EQ(MeterLevelOfPeak(c.peak), c.level) << c.what;
}

TEST(MeterScale, ThreeRowsPerDbWithZeroDbNineteenRowsDown) {
    EXPECT_EQ(MeterLitTop(0.0f), 19);
    EXPECT_EQ(MeterLitTop(-6.0f), 37);
    EXPECT_EQ(MeterLitTop(-0.2f), 19) << "part of a row is not lit";
}

} // namespace
