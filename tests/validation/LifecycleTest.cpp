// Set-up requests in every order, repeated or left out, and closing from any state: after
// each request the parameter texts and the audio stay sound.
#include "tests/validation/support/PluginChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// What a host may send before and between blocks. Every order of the first six is tried;
// the last changes nothing in this effect and only joins the repeated sequences.
const HostRequest kSteps[] = {{"open", effOpen, 0, 0.0f},
                              {"mains-on", effMainsChanged, 1, 0.0f},
                              {"mains-off", effMainsChanged, 0, 0.0f},
                              {"start-process", effStartProcess, 0, 0.0f},
                              {"sample-rate", effSetSampleRate, 0, 96000.0f},
                              {"block-size", effSetBlockSize, 256, 0.0f},
                              {"stop-process", effStopProcess, 0, 0.0f}};
constexpr int kOrderedSteps = 6;
constexpr int kFrames = 64;

std::string describe(const std::vector<int>& order) {
    std::string text;
    for (const int step : order) {
        text += std::string(text.empty() ? "" : ", ") + kSteps[step].name;
    }
    return text;
}

// Runs the steps in order, checking the effect before the first and after each, then
// closes it. Answers the first problem, if any.
std::string runSession(const std::vector<int>& order, Noise& noise) {
    HostedPlugin plugin;
    std::string problem = EffectProblem(plugin, noise, kFrames, false);
    for (const int step : order) {
        if (!problem.empty()) {
            break;
        }
        plugin.Dispatch(kSteps[step]);
        problem = EffectProblem(plugin, noise, kFrames, step % 2 == 0);
    }
    return problem.empty() ? problem : problem + " after " + describe(order);
}

// A default bank file for open to read, written by the effect itself.
void saveDefaultBank() {
    HostedPlugin plugin;
    plugin.Start(44100.0f, 256);
    plugin.SetParameter(kParamGain1, 0.9f);
    plugin.Effect().SaveProgram(3, "Saved");
}

class Lifecycle : public testing::Test {
protected:
    void SetUp() override { saveDefaultBank(); }
    void TearDown() override { HostFolders::Get().RemoveBankFiles(); }
};

TEST_F(Lifecycle, EveryOrderOfTheSetUpRequests) {
    std::vector<int> order(kOrderedSteps);
    for (int i = 0; i < kOrderedSteps; ++i) {
        order[i] = i;
    }
    Noise noise(31);
    do {
        ASSERT_EQ(runSession(order, noise), "");
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Lifecycle, RepeatedAndMissingRequests) {
    const std::vector<std::vector<int>> orders = {
        {},                       // closed right after it was made
        {0},                      // opened, never switched on
        {0, 0, 1, 1},             // opened and switched on twice
        {1, 2, 1, 2, 1, 2},       // switched on and off without ever being opened
        {0, 1, 3, 3, 6, 6, 2, 2}, // processing started and stopped twice
        {0, 1, 4, 5, 4, 5, 2, 1}, // the stream changed while switched on
    };
    Noise noise(37);
    for (const std::vector<int>& order : orders) {
        EXPECT_EQ(runSession(order, noise), "");
    }
}

} // namespace
