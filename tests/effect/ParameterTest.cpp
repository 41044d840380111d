// The parameter model: the conversions, what the host reads about each parameter, and
// what each of the three setters stores and tells the engine, the panel and the host.
#include "dsp/CMultiEqualizer.h"
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct EngineValue {
    int index;
    float normalised;
    uint32_t engine;
};

class NormalisedToEngine : public testing::TestWithParam<EngineValue> {};

TEST_P(NormalisedToEngine, GivesTheFixedPointOrStep) {
    EXPECT_EQ(NormalizeValToDWValue(GetParam().index, GetParam().normalised), GetParam().engine);
}

INSTANTIATE_TEST_SUITE_P(
    Table, NormalisedToEngine,
    testing::Values(EngineValue{5, 0.0f, 1310720}, EngineValue{5, 1.0f, 1310720000},
                    EngineValue{4, 0.5f, 0}, EngineValue{4, 0.0f, uint32_t(-786432)},
                    EngineValue{1, 1.0f, 393216}, EngineValue{1, 0.49975f, 0},
                    EngineValue{2, 0.0f, uint32_t(-3918705)}, EngineValue{6, 2.0f, 655360},
                    EngineValue{3, 0.5f, 1}, EngineValue{3, 0.74f, 1}, EngineValue{3, 0.75f, 2},
                    EngineValue{3, -0.3f, 2}, // kept: a negative step becomes the maximum
                    EngineValue{0, 0.4f, 0}, EngineValue{11, 0.5f, 0}, EngineValue{5, NAN, 1310720},
                    EngineValue{3, 1e30f, 2}));

TEST(ParameterConversion, InternalValuesAndEntryLimits) {
    EXPECT_EQ(ValToNormalizeValue(3, 2.0f), 1.0f);
    EXPECT_EQ(ValToNormalizeValue(3, 5.0f), 2.5f) << "stepped values are not clamped";
    EXPECT_NEAR(ValToNormalizeValue(5, 1000.0f), 0.049049f, 1e-6);
    EXPECT_EQ(ValToNormalizeValue(5, 30000.0f), 1.0f);
    EXPECT_NEAR(ValToNormalizeValue(1, 1.0f), 0.49975f, 1e-6);
    EXPECT_EQ(NormalizeValToInternalVal(1, 1.0f), 6.0f) << "6 dB per doubling";
    EXPECT_EQ(NormalizeValToInternalVal(5, 0.5f), 10010.0f);
    float min = 0.0f, max = 0.0f;
    GetParamMinMax(1, &min, &max);
    EXPECT_NEAR(min, -59.794706f, 1e-5);
    EXPECT_EQ(max, 6.0f);
    GetParamMinMax(2, &min, &max);
    EXPECT_EQ(max, 0.0f);
}

// Names, labels and most display texts are read through the module in its own test.
// The validation suite checks that no display overflows the host's eight bytes.
TEST(ParameterDisplayTyped, OnlyTheLevelsCorrectMinusZeroAndOutsideIndicesWriteNothing) {
    AZephyra effect(nullptr);
    const struct {
        int index;
        const char* display;
    } rows[] = {{4, "-0.0"}, {1, "0.0"}, {2, "0.0"}};
    for (const auto& row : rows) {
        effect.setParameterFromDiaplay(row.index, -0.04f);
        char display[9] = {};
        effect.getParameterDisplay(row.index, display);
        EXPECT_STREQ(display, row.display) << row.index;
    }
    char text[9] = "kept";
    effect.getParameterName(11, text);
    effect.getParameterLabel(11, text);
    effect.getParameterDisplay(200, text);
    EXPECT_STREQ(text, "kept");
}

class ParameterSetters : public testing::Test {
protected:
    RecordingHost host;
    AZephyra effect{RecordingHost::Callback, MakePanelEditor};
    RecordingPanel& panel = PanelOf(effect);
    int EngineGain(int band) {
        int gain = 0;
        effect.GetEngine()->get_Gain(band, &gain);
        return gain;
    }
};

TEST_F(ParameterSetters, HostAutomationMovesTheControlWithoutEchoingToTheHost) {
    effect.setParameter(4, 0.75f);
    effect.setParameter(12, 0.3f);
    EXPECT_EQ(effect.getParameter(4), 0.75f);
    EXPECT_EQ(CurrentRecord(effect).param[4], 0.75f);
    EXPECT_EQ(EngineGain(0), 393216);
    EXPECT_EQ(panel.controls.end()[-2], std::make_pair(4, 0.75f));
    EXPECT_EQ(panel.controls.back(), std::make_pair(12, 0.3f)) << "refreshed before the check";
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(ParameterSetters, AControlMoveTellsTheHostButNotThePanel) {
    const size_t controls = panel.controls.size();
    effect.setParameterFormUI(8, 0.25f);
    effect.setParameterFormUI(20, 0.5f); // stored nowhere, still reported
    EXPECT_EQ(effect.getParameter(8), 0.25f);
    EXPECT_EQ(CurrentRecord(effect).param[8], 0.25f);
    EXPECT_EQ(EngineGain(1), -393216);
    EXPECT_EQ(panel.controls.size(), controls);
    ASSERT_EQ(host.calls.size(), 2u);
    EXPECT_EQ(host.calls[0].opcode, 0);
    EXPECT_EQ(host.calls[0].index, 8);
    EXPECT_EQ(host.calls[0].opt, 0.25f);
    EXPECT_EQ(host.calls[1].index, 20);
}

TEST_F(ParameterSetters, ATypedValueConvertsRefreshesAndSendsALoneEndEdit) {
    effect.setParameterFromDiaplay(5, 30000.0f);
    EXPECT_EQ(effect.getParameter(5), 1.0f);
    char text[9] = {};
    effect.getParameterDisplay(5, text);
    EXPECT_STREQ(text, "30000.0") << "the display keeps what was typed";
    EXPECT_EQ(panel.controls.back(), std::make_pair(5, 1.0f));
    ASSERT_EQ(host.calls.size(), 2u);
    EXPECT_EQ(host.calls[0].opcode, 0);
    EXPECT_EQ(host.calls[0].opt, 1.0f);
    EXPECT_EQ(host.calls[1].opcode, 44);
    EXPECT_EQ(host.calls[1].index, 5);

    const float type = effect.getParameter(3);
    effect.setParameterFromDiaplay(3, 2.0f); // not converted: goes on as it is
    EXPECT_EQ(effect.getParameter(3), type);
    EXPECT_EQ(panel.controls.back(), std::make_pair(3, 2.0f));
    EXPECT_EQ(host.calls[2].opt, 2.0f);
    EXPECT_EQ(host.Count(43), 0u) << "nothing ever begins an edit";
}

TEST_F(ParameterSetters, TypedLevelsBecomeFactorsWithinTheirRange) {
    const struct {
        int index;
        float typed, normalised;
    } table[] = {{1, 0.0f, 0.999f / 1.999f},
                 // 6 dB per halving: factors 0.5 and 0.25 (not 10^(dB/20)), pinned by hand
                 {1, -6.0f, 0.499f / 1.999f},
                 {2, -12.0f, 0.249f / 0.999f},
                 {1, -200.0f, 0.0f},
                 {2, 12.0f, 1.0f},
                 {2, NAN, 0.0f}};
    for (const auto& row : table) {
        effect.setParameterFromDiaplay(row.index, row.typed);
        EXPECT_NEAR(effect.getParameter(row.index), row.normalised, 1e-6) << row.typed;
    }
}

} // namespace
