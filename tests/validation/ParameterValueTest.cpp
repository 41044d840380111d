// Every kind of float through each of the three ways a value enters the effect: the
// host's automation, a control on the panel, and a number typed in display units.
#include "tests/validation/support/PluginChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace {

using Limits = std::numeric_limits<float>;

struct Entry {
    const char* name;
    std::function<void(HostedPlugin&, int32_t, float)> set;
};

const Entry kEntries[] = {
    {"HostAutomation", [](HostedPlugin& p, int32_t i, float v) { p.SetParameter(i, v); }},
    {"PanelControl",
     [](HostedPlugin& p, int32_t i, float v) { p.Effect().setParameterFormUI(i, v); }},
    {"TypedValue",
     [](HostedPlugin& p, int32_t i, float v) { p.Effect().setParameterFromDiaplay(i, v); }}};

const float kSignalingNaN = Limits::signaling_NaN(), kAboveOne = std::nextafter(1.0f, 2.0f);
const float kHostileValues[] = {NAN,       -NAN,        kSignalingNaN, INFINITY,     -INFINITY,
                                FLT_MAX,   -FLT_MAX,    1e30f,         -1e30f,       2.0f,
                                kAboveOne, -1.0f,       -0.0f,         FLT_TRUE_MIN, -FLT_TRUE_MIN,
                                FLT_MIN,   16777217.0f, -6.0e9f};

const int32_t kOutsideIndices[] = {
    -1, 11, 64, 1000, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()};

// A setting inside every range, so the output depends on it.
float ordinaryValue(int32_t index) {
    return index == kParamOnOff ? 1.0f : 0.3f;
}

class EveryFloat : public testing::TestWithParam<Entry> {};

// Every hostile value keeps the texts printable and the audio finite; an ordinary value
// that follows leaves the effect exactly where the ordinary value alone puts it: nothing of
// the bad value lingers in the engine.
TEST_P(EveryFloat, KeepsTextsAndAudioSoundAndLeavesNoTraceOnceAnOrdinaryValueFollows) {
    for (int32_t index = 0; index < kNumParams; ++index) {
        HostedPlugin reference;
        reference.Start(44100.0f, 512);
        GetParam().set(reference, index, ordinaryValue(index));
        GuardedStereo<float> input(512), expected(512);
        Noise noise(11);
        input.Fill(noise, 1.0f);
        reference.Process(input.Channels(), expected.Channels(), 512);

        for (const float value : kHostileValues) {
            HostedPlugin plugin;
            plugin.Start(44100.0f, 512);
            GetParam().set(plugin, index, value);
            Noise hostileNoise(7);
            EXPECT_EQ(EffectProblem(plugin, hostileNoise, 512, false), "")
                << "parameter " << index << " set to " << value;
            EXPECT_EQ(AudioProblem(plugin, hostileNoise, 512, true), "")
                << "parameter " << index << " set to " << value;
            GetParam().set(plugin, index, ordinaryValue(index));
            plugin.Dispatch(effStartProcess); // the hostile blocks' history goes
            GuardedStereo<float> output(512);
            plugin.Process(input.Channels(), output.Channels(), 512);
            for (int channel = 0; channel < 2; ++channel) {
                ASSERT_TRUE(std::equal(expected.Channel(channel), expected.Channel(channel) + 512,
                                       output.Channel(channel)))
                    << "parameter " << index << " after " << value << ", channel " << channel;
            }
            EXPECT_EQ(plugin.GetParameter(index), reference.GetParameter(index));
        }
    }
}

TEST_P(EveryFloat, IndicesOutsideTheListChangeNothing) {
    HostedPlugin plugin;
    plugin.Start(44100.0f, 512);
    const auto parameters = [&plugin] {
        std::vector<float> values;
        for (int32_t index = 0; index < kNumParams; ++index) {
            values.push_back(plugin.GetParameter(index));
        }
        return values;
    };
    const std::vector<float> before = parameters();
    for (const int32_t index : kOutsideIndices) {
        for (const float value : kHostileValues) {
            GetParam().set(plugin, index, value);
            EXPECT_EQ(plugin.GetParameter(index), 0.0f) << "index " << index;
        }
    }
    EXPECT_EQ(parameters(), before);
    Noise noise(3);
    EXPECT_EQ(EffectProblem(plugin, noise, 256, false), "");
}

INSTANTIATE_TEST_SUITE_P(ParameterValues, EveryFloat, testing::ValuesIn(kEntries),
                         [](const testing::TestParamInfo<Entry>& info) { return info.param.name; });

} // namespace
