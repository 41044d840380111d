// Finding the normalised value that displays a wanted text, against displays shaped like
// those of real plug-ins: linear and logarithmic numbers, rising and falling, and words.
#include "tools/DisplayValueSearch.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

DisplayFunction numberDisplay(const char* format, std::function<double(float)> valueAt) {
    return [format, valueAt](float normalised) {
        char text[64];
        std::snprintf(text, sizeof text, format, valueAt(normalised));
        return std::string(text);
    };
}

const DisplayFunction kGainDb = numberDisplay("%.1f", [](float v) { return 24.0 * v - 12.0; });
const DisplayFunction kFrequencyLinear =
    numberDisplay("%.1f", [](float v) { return 19980.0 * v + 20.0; });
const DisplayFunction kFrequencyLogarithmic =
    numberDisplay("%.0f Hz", [](float v) { return 20.0 * std::pow(1000.0, v); });
const DisplayFunction kAttenuationFalling =
    numberDisplay("%.0f", [](float v) { return 100.0 - 100.0 * v; });
// A three-way switch that rounds to the nearest step, as equalisers' band types do.
const DisplayFunction kBandType = [](float v) {
    const int step = static_cast<int>(std::floor(v * 2.0f + 0.5f));
    return std::string(step == 0 ? "LOW" : step == 1 ? "PEAK" : "Hi");
};
// On only at exactly 1.
const DisplayFunction kPower = [](float v) { return std::string(v == 1.0f ? "ON" : "OFF"); };

struct SearchCase {
    const char* name;
    const DisplayFunction* display;
    const char* wanted;
    const char* label;
    double expected; // negative: no value displays it
    double tolerance;
};

class DisplayValueSearch : public testing::TestWithParam<SearchCase> {};

TEST_P(DisplayValueSearch, FindsTheValueOrReportsThereIsNone) {
    const SearchCase& scenario = GetParam();
    const std::optional<float> found =
        findNormalisedValue(*scenario.display, scenario.wanted, scenario.label);
    if (scenario.expected < 0.0) {
        EXPECT_FALSE(found.has_value()) << *found;
        return;
    }
    ASSERT_TRUE(found.has_value());
    EXPECT_NEAR(*found, scenario.expected, scenario.tolerance);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, DisplayValueSearch,
    testing::Values(SearchCase{"SignedNumberInTheMiddleOfItsStep", &kGainDb, "+6", "dB", 0.75, 0.0},
                    SearchCase{"NumberWithItsUnit", &kGainDb, "-3 dB", "dB", 0.375, 1e-6},
                    SearchCase{"BottomOfTheRangeIsExactlyZero", &kGainDb, "-12", "dB", 0.0, 0.0},
                    SearchCase{"TopOfTheRangeIsExactlyOne", &kGainDb, "12.0", "dB", 1.0, 0.0},
                    SearchCase{"BeyondTheRange", &kGainDb, "13", "dB", -1.0, 0.0},
                    SearchCase{"StepNarrowerThanTheSearchGrid", &kFrequencyLinear, "2000", "Hz",
                               1980.0 / 19980.0, 1e-6},
                    SearchCase{"LogarithmicScale", &kFrequencyLogarithmic, "1000", "Hz",
                               std::log(50.0) / std::log(1000.0), 1e-3},
                    SearchCase{"FallingScale", &kAttenuationFalling, "25", "", 0.75, 2e-3},
                    SearchCase{"WordInTheMiddleIsARoundNumber", &kBandType, "PEAK", "", 0.5, 0.0},
                    SearchCase{"WordIgnoresCase", &kBandType, "peak", "", 0.5, 0.0},
                    SearchCase{"WordAtTheTopIsOne", &kBandType, "Hi", "", 1.0, 0.0},
                    SearchCase{"WordAtTheBottomIsZero", &kBandType, "LOW", "", 0.0, 0.0},
                    SearchCase{"WordNeverShown", &kBandType, "MID", "", -1.0, 0.0},
                    SearchCase{"NumberOnAWordDisplay", &kBandType, "1", "", -1.0, 0.0},
                    SearchCase{"StateShownAtOnePointOnly", &kPower, "ON", "", 1.0, 0.0},
                    SearchCase{"StateShownEverywhereElse", &kPower, "OFF", "", 0.0, 0.0}),
    [](const testing::TestParamInfo<SearchCase>& info) { return std::string(info.param.name); });

} // namespace
