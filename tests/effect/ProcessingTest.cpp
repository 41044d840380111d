// The audio path as the host drives it: the input meter factor, the block counter, empty
// blocks and the host's configuration calls (the validation suite sends the hostile values).
#include "dsp/CMultiEqualizer.h"
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A stereo block with a different signal on each channel.
struct Block {
    explicit Block(int frames)
        : out{std::vector<float>(frames, 7.0f), std::vector<float>(frames, 7.0f)} {
        for (int i = 0; i < frames; ++i) {
            in[0].push_back(0.8f * std::sin(0.05f * static_cast<float>(i)));
            in[1].push_back(-0.3f * std::cos(0.21f * static_cast<float>(i)));
        }
    }
    void Run(AZephyra& effect, int frames) {
        float* inputs[2] = {in[0].data(), in[1].data()};
        float* outputs[2] = {out[0].data(), out[1].data()};
        effect.processReplacing(inputs, outputs, frames);
    }
    std::vector<float> in[2], out[2];
};

float peak(const std::vector<float>& samples) {
    float level = 0.0f;
    for (const float sample : samples) {
        level = std::max(level, std::fabs(sample));
    }
    return level;
}

std::vector<float> meters(AZephyra& effect) {
    std::vector<float> m(4);
    effect.GetVU(&m[0], &m[1], &m[2], &m[3]);
    return m;
}

TEST(Processing, InputMeterFactorStaysBetweenOneThousandthAndOne) {
    const struct {
        float typedDb, factor;
    } table[] = {{0.0f, 1.0f}, {-6.0f, 0.5f}, {10.0f, 1.0f}, {-200.0f, 0.001f}, {NAN, 1.0f}};
    for (const auto& row : table) {
        AZephyra effect(nullptr);
        effect.setParameterFromDiaplay(2, row.typedDb);
        Block block(64);
        block.Run(effect, 64);
        EXPECT_EQ(meters(effect)[0], peak(block.in[0]) * row.factor) << row.typedDb;
    }
}

TEST(Processing, EmptyBlocksTouchNoSampleZeroTheMetersAndStillCount) {
    AZephyra effect(nullptr);
    Block block(64);
    block.Run(effect, 64);
    EXPECT_EQ(effect.GetProcessCounter(), 0) << "the first block makes it 0";
    for (const int frames : {0, -5}) {
        Block empty(4);
        empty.Run(effect, frames);
        EXPECT_EQ(empty.out[0], std::vector<float>(4, 7.0f));
        EXPECT_EQ(meters(effect), std::vector<float>(4, 0.0f));
    }
    for (int i = 0; i < 65533; ++i) {
        block.Run(effect, 0);
    }
    EXPECT_EQ(effect.GetProcessCounter(), 65535);
    block.Run(effect, 0);
    EXPECT_EQ(effect.GetProcessCounter(), 0);
}

TEST(Processing, DoublePrecisionGivesTheFloatPathsSamples) {
    for (const int frames : {1, 1000}) { // 1000 is longer than the announced block
        AZephyra single(nullptr), twin(nullptr);
        single.setParameter(3, 0.5f);
        twin.setParameter(3, 0.5f);
        Block block(frames);
        block.Run(single, frames);
        std::vector<double> in[2] = {{block.in[0].begin(), block.in[0].end()},
                                     {block.in[1].begin(), block.in[1].end()}};
        std::vector<double> out[2] = {std::vector<double>(frames), std::vector<double>(frames)};
        double* inputs[2] = {in[0].data(), in[1].data()};
        double* outputs[2] = {out[0].data(), out[1].data()};
        twin.processDoubleReplacing(inputs, outputs, frames);
        for (int c = 0; c < 2; ++c) {
            EXPECT_EQ(out[c], std::vector<double>(block.out[c].begin(), block.out[c].end()));
        }
    }
}

TEST(HostConfiguration, MainsSwitchOverridesTheUsersChoiceButNotTheProgram) {
    AZephyra effect(nullptr, MakePanelEditor);
    effect.setParameter(0, 0.0f);
    effect.resume();
    EXPECT_EQ(effect.getParameter(0), 1.0f);
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(0, 1.0f));
    EXPECT_EQ(CurrentRecord(effect).param[0], 0.0f);
    effect.suspend();
    EXPECT_EQ(effect.getParameter(0), 0.0f);
    EXPECT_EQ(PanelOf(effect).controls.back(), std::make_pair(0, 0.0f));
}

TEST(Processing, OnOffSwitchesLikeItsTruncation) {
    AZephyra effect(nullptr);
    const struct {
        float value;
        bool on;
    } table[] = {{1.0f, true},  {0.99f, false}, {-0.5f, false},   {-2.5f, true},
                 {1e30f, true}, {NAN, true},    {-INFINITY, true}};
    for (const auto& row : table) {
        effect.setParameter(0, row.value);
        effect.setParameter(4, row.value);
        bool on = !row.on;
        effect.GetEngine()->get_Activate(1, &on);
        EXPECT_EQ(on, row.on) << row.value;
    }
}

TEST(Identity, FlagsFollowTheEditorAndCapabilitiesAnswerExactly) {
    AZephyra effect(nullptr);
    EXPECT_EQ(effect.getAeffect()->flags, 0x38) << "no editor wired in: none advertised";
    EXPECT_EQ(AZephyra(nullptr, MakePanelEditor).getAeffect()->flags, 0x39);
    // "bypass" is answered although setBypass refuses.
    const char* const texts[] = {"bypass",
                                 "sendVstEvents",
                                 "sendVstMidiEvent",
                                 "receiveVstEvents",
                                 "receiveVstMidiEvent",
                                 "receiveVstTimeInfo",
                                 "offline",
                                 "midiProgramNames",
                                 "Bypass",
                                 "bypass ",
                                 ""};
    std::vector<int32_t> answers;
    for (const char* text : texts) {
        answers.push_back(effect.canDo(const_cast<char*>(text)));
    }
    EXPECT_EQ(answers, (std::vector<int32_t>{1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0}));
}

} // namespace
