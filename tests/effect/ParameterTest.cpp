// The parameter model: the three conversions, what the host reads about each parameter,
// and what each of the three setters stores, tells the engine, the panel and the host.
#include "CMultiEqualizer.h"
#include "EffectTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct EngineValue {
    int index;
    float normalised;
    uint32_t engine;
};

class NormalisedToEngine : public testing::TestWithParam<EngineValue> {};

TEST_P(NormalisedToEngine, GivesTheFixedPointOrStepValue) {
    EXPECT_EQ(NormalizeValToDWValue(GetParam().index, GetParam().normalised), GetParam().engine);
}

INSTANTIATE_TEST_SUITE_P(
    Table, NormalisedToEngine,
    testing::Values(EngineValue{5, 0.0f, 1310720}, EngineValue{5, 1.0f, 1310720000},
                    EngineValue{4, 0.5f, 0}, EngineValue{4, 0.0f, uint32_t(-786432)},
                    EngineValue{1, 1.0f, 393216}, EngineValue{1, 0.49975f, 0},
                    EngineValue{2, 0.0f, uint32_t(-3918705)}, EngineValue{6, 2.0f, 655360},
                    EngineValue{3, 0.5f, 1}, EngineValue{3, 0.74f, 1}, EngineValue{3, 0.75f, 2},
                    EngineValue{3, -0.3f, 2}, // unsigned limit: negative becomes the maximum
                    EngineValue{7, 2.0f, 2}, EngineValue{0, 0.4f, 0}, EngineValue{0, 1.0f, 1},
                    EngineValue{11, 0.5f, 0}, EngineValue{5, NAN, 1310720},
                    EngineValue{3, 1e30f, 2}));

TEST(ParameterConversion, InternalToNormalised) {
    EXPECT_EQ(ValToNormalizeValue(3, 2.0f), 1.0f);
    EXPECT_EQ(ValToNormalizeValue(3, 5.0f), 2.5f) << "stepped values are not clamped";
    EXPECT_NEAR(ValToNormalizeValue(5, 1000.0f), 0.049049f, 1e-6);
    EXPECT_EQ(ValToNormalizeValue(5, 30000.0f), 1.0f);
    EXPECT_EQ(ValToNormalizeValue(6, 0.0f), 0.0f);
    EXPECT_NEAR(ValToNormalizeValue(1, 1.0f), 0.49975f, 1e-6);
    EXPECT_NEAR(ValToNormalizeValue(6, 1.0f), 0.072165f, 1e-6);
    EXPECT_EQ(ValToNormalizeValue(11, 5.0f), 0.0f);
}

TEST(ParameterConversion, NormalisedToInternalUsesSixDecibelsPerDoubling) {
    EXPECT_EQ(NormalizeValToInternalVal(1, 1.0f), 6.0f);
    EXPECT_NEAR(NormalizeValToInternalVal(2, 0.0f), -59.794706f, 1e-5);
    EXPECT_EQ(NormalizeValToInternalVal(3, 0.75f), 2.0f);
    EXPECT_EQ(NormalizeValToInternalVal(5, 0.5f), 10010.0f);
}

TEST(ParameterConversion, EntryLimitsAreInDecibelsForTheLevels) {
    float min = 0.0f, max = 0.0f;
    GetParamMinMax(1, &min, &max);
    EXPECT_NEAR(min, -59.794706f, 1e-5);
    EXPECT_EQ(max, 6.0f);
    GetParamMinMax(2, &min, &max);
    EXPECT_NEAR(min, -59.794706f, 1e-5);
    EXPECT_EQ(max, 0.0f);
    GetParamMinMax(9, &min, &max);
    EXPECT_EQ(min, 20.0f);
    EXPECT_EQ(max, 20000.0f);
}

TEST(ParameterTexts, NamesAndLabels) {
    AZephyra effect(nullptr);
    const char* names[] = {"ON/OFF", "Output", "Input", "Type1", "Gain1", "Freq1",
                           "Q1",     "Type2",  "Gain2", "Freq2", "Q2"};
    const char* labels[] = {"", "dB", "dB", "", "dB", "Hz", "", "", "dB", "Hz", ""};
    for (int index = 0; index < kNumParams; ++index) {
        char name[9] = "x", label[9] = "x";
        effect.getParameterName(index, name);
        effect.getParameterLabel(index, label);
        EXPECT_STREQ(name, names[index]);
        EXPECT_STREQ(label, labels[index]) << names[index];
    }
    for (const int outside : {11, 200}) {
        char text[9] = "kept";
        effect.getParameterName(outside, text);
        effect.getParameterLabel(outside, text);
        effect.getParameterDisplay(outside, text);
        EXPECT_STREQ(text, "kept");
    }
}

struct DisplayCase {
    int index;
    float normalised;
    const char* text;
};

class ParameterDisplay : public testing::TestWithParam<DisplayCase> {};

TEST_P(ParameterDisplay, ShowsTheHostText) {
    AZephyra effect(nullptr);
    effect.setParameter(GetParam().index, GetParam().normalised);
    char text[9] = {};
    effect.getParameterDisplay(GetParam().index, text);
    EXPECT_STREQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Table, ParameterDisplay,
                         testing::Values(DisplayCase{1, 0.49975f, "0.0"},
                                         DisplayCase{1, 1.0f, "6.0"}, DisplayCase{1, 0.0f, "-59.8"},
                                         DisplayCase{2, 1.0f, "0.0"}, DisplayCase{0, 1.0f, "ON"},
                                         DisplayCase{0, 0.99f, "OFF"}, DisplayCase{3, 0.0f, "LOW"},
                                         DisplayCase{3, 0.5f, "PEAK"}, DisplayCase{7, 1.0f, "Hi"},
                                         DisplayCase{7, -0.3f, "Hi"}, DisplayCase{4, 0.0f, "-12.0"},
                                         DisplayCase{5, 1.0f, "20000.0"},
                                         DisplayCase{9, 0.049049f, "1000.0"},
                                         DisplayCase{10, 1.0f, "10.0"}));

TEST(ParameterDisplayTyped, OnlyTheLevelsCorrectMinusZero) {
    AZephyra effect(nullptr);
    effect.setParameterFromDiaplay(4, -0.04f);
    effect.setParameterFromDiaplay(1, -0.04f);
    char gain[9] = {}, output[9] = {};
    effect.getParameterDisplay(4, gain);
    effect.getParameterDisplay(1, output);
    EXPECT_STREQ(gain, "-0.0");
    EXPECT_STREQ(output, "0.0");
}

TEST(ParameterDisplayTyped, AHugeTypedValueStaysWithinTheHostsEightBytes) {
    AZephyra effect(nullptr);
    effect.setParameterFromDiaplay(5, 1e30f);
    char text[16];
    std::memset(text, '#', sizeof(text));
    effect.getParameterDisplay(5, text);
    EXPECT_LT(std::strlen(text), 8u);
}

TEST(ParameterProperties, DescribeIntegerRangesAndSteps) {
    AZephyra effect(nullptr);
    struct Expected {
        int index;
        int32_t flags, min, max;
        const char* label;
    } const table[] = {
        {0, 11, 0, 1, ""},  {1, 10, 0, 2, "dB"},      {2, 10, 0, 1, "dB"},
        {3, 11, 0, 2, ""},  {4, 10, -12, 12, "dB"},   {5, 10, 20, 20000, "Hz"},
        {6, 10, 0, 10, ""}, {9, 10, 20, 20000, "Hz"}, {10, 10, 0, 10, ""},
    };
    for (const Expected& expected : table) {
        VstParameterProperties properties;
        std::memset(&properties, 0xA5, sizeof(properties));
        EXPECT_TRUE(effect.getParameterProperties(expected.index, &properties));
        EXPECT_EQ(properties.flags, expected.flags) << expected.index;
        EXPECT_EQ(properties.minInteger, expected.min) << expected.index;
        EXPECT_EQ(properties.maxInteger, expected.max) << expected.index;
        EXPECT_STREQ(properties.label, expected.label);
        EXPECT_EQ(properties.stepInteger, 128);
        EXPECT_EQ(properties.largeStepInteger, 256);
        EXPECT_EQ(properties.displayIndex, expected.index);
        EXPECT_EQ(properties.stepFloat, 0.0f) << "the rest of the record is zeroed";
        EXPECT_EQ(properties.categoryLabel[0], 0);
    }
    VstParameterProperties outside;
    effect.getParameterProperties(11, &outside); // harmless, whatever it answers
}

TEST(ParameterSetters, HostAutomationStoresAppliesAndMovesTheControl) {
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback, MakePanelEditor);
    host.calls.clear();
    effect.setParameter(4, 0.75f);

    EXPECT_EQ(effect.getParameter(4), 0.75f);
    EXPECT_EQ(CurrentRecord(effect).param[4], 0.75f);
    int gain = 0;
    effect.GetEngine()->get_Gain(0, &gain);
    EXPECT_EQ(gain, 393216);
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(4, 0.75f));
    EXPECT_TRUE(host.calls.empty()) << "automation is not echoed back to the host";

    effect.setParameter(12, 0.3f);
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(12, 0.3f));
    EXPECT_EQ(effect.getParameter(12), 0.0f);
}

TEST(ParameterSetters, AControlMoveTellsTheHostButNotThePanel) {
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback, MakePanelEditor);
    const size_t controlsBefore = PanelOf(effect).controls.size();
    host.calls.clear();
    effect.setParameterFormUI(9, 0.5f);
    effect.setParameterFormUI(20, 0.25f); // unknown: stored nowhere, still reported

    EXPECT_EQ(effect.getParameter(9), 0.5f);
    int freq = 0;
    effect.GetEngine()->get_Freq(1, &freq);
    EXPECT_EQ(freq, 10010 * 65536);
    EXPECT_EQ(PanelOf(effect).controls.size(), controlsBefore);
    ASSERT_EQ(host.calls.size(), 2u);
    EXPECT_EQ(host.calls[0].opcode, 0);
    EXPECT_EQ(host.calls[0].index, 9);
    EXPECT_EQ(host.calls[0].opt, 0.5f);
    EXPECT_EQ(host.calls[1].index, 20);
}

TEST(ParameterSetters, ATypedValueConvertsRefreshesAndSendsALoneEndEdit) {
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback, MakePanelEditor);
    host.calls.clear();
    effect.setParameterFromDiaplay(5, 30000.0f);

    EXPECT_EQ(effect.getParameter(5), 1.0f);
    char text[9] = {};
    effect.getParameterDisplay(5, text);
    EXPECT_STREQ(text, "30000.0") << "the display keeps what was typed";
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(5, 1.0f));
    ASSERT_EQ(host.calls.size(), 2u);
    EXPECT_EQ(host.calls[0].opcode, 0);
    EXPECT_EQ(host.calls[0].opt, 1.0f);
    EXPECT_EQ(host.calls[1].opcode, 44);
    EXPECT_EQ(host.calls[1].index, 5);
}

TEST(ParameterSetters, TypedLevelsBecomeFactorsWithinTheirRange) {
    AZephyra effect(nullptr);
    effect.setParameterFromDiaplay(1, 0.0f);
    EXPECT_EQ(effect.getParameter(1), ValToNormalizeValue(1, 1.0f));
    effect.setParameterFromDiaplay(1, -200.0f);
    EXPECT_EQ(effect.getParameter(1), 0.0f);
    effect.setParameterFromDiaplay(2, 12.0f);
    EXPECT_EQ(effect.getParameter(2), 1.0f);
    effect.setParameterFromDiaplay(2, NAN);
    EXPECT_EQ(effect.getParameter(2), 0.0f);
}

TEST(ParameterSetters, ATypedSwitchOrTypeGoesOnUnconverted) {
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback, MakePanelEditor);
    const float before = effect.getParameter(3);
    host.calls.clear();
    effect.setParameterFromDiaplay(3, 2.0f);
    EXPECT_EQ(effect.getParameter(3), before);
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(3, 2.0f));
    ASSERT_FALSE(host.calls.empty());
    EXPECT_EQ(host.calls[0].opt, 2.0f);
}

TEST(ParameterDisplayValue, RoundsHalfADecimalAwayFromZero) {
    AZephyra effect(nullptr);
    effect.setParameterFromDiaplay(4, 6.0f);
    effect.setParameterFromDiaplay(8, -3.0f);
    effect.setParameter(7, 0.5f);
    effect.setParameter(0, 0.25f);
    EXPECT_EQ(effect.getParameterDisplayVal(4), 6.0f + 0.05f);
    EXPECT_EQ(effect.getParameterDisplayVal(8), -3.0f - 0.05f);
    EXPECT_EQ(effect.getParameterDisplayVal(7), 1.0f);
    EXPECT_EQ(effect.getParameterDisplayVal(0), 0.25f);
    EXPECT_EQ(effect.getParameterDisplayVal(1), 0.05f);
}

} // namespace
