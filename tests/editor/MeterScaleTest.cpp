// The level meters' scale: six dB per doubling, limits, the fall, and the rows lit.
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
        {"one doubling over", 2.0f, 6.0f},
        {"half", 0.5f, -6.0f},
        {"silence", 0.0f, -38.0f},
        {"below the floor", 1e-3f, -38.0f},
        {"not a number", std::numeric_limits<float>::quiet_NaN(), -38.0f},
        {"infinite", std::numeric_limits<float>::infinity(), 6.0f},
        {"negative", -1.0f, -38.0f},
    };
    for (const auto& c : cases)
        EXPECT_FLOAT_EQ(MeterLevelOfPeak(c.peak), c.level) << c.what;
}

// The quarter dB per tick from the top is checked on the panel's meters; here, the floor.
TEST(MeterScale, AMeterFallsNoFurtherThanTheFloor) {
    EXPECT_FLOAT_EQ(FallenMeterLevel(-37.9f), -38.0f);
    EXPECT_FLOAT_EQ(FallenMeterLevel(-38.0f), -38.0f);
}

TEST(MeterScale, ThreeRowsPerDbWithZeroDbNineteenRowsDown) {
    EXPECT_EQ(MeterLitTop(6.0f), 1);
    EXPECT_EQ(MeterLitTop(0.0f), 19);
    EXPECT_EQ(MeterLitTop(-6.0f), 37);
    EXPECT_EQ(MeterLitTop(-38.0f), 133) << "nothing lit on a 133-row meter";
    EXPECT_EQ(MeterLitTop(-0.2f), 19) << "part of a row is not lit";
}

} // namespace
