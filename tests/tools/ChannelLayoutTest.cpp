// Which signals a plug-in can take, and how: directly, a mono signal duplicated onto a
// stereo plug-in, or one mono instance per channel.
#include "tools/PluginRack.h"
#include "tools/ToolError.h"

#include <gtest/gtest.h>

namespace {

struct LayoutCase {
    const char* name;
    int signalChannels, inputs, outputs;
    int instances, outputChannels;
    bool duplicateInput;
};

class ChannelLayoutFits : public testing::TestWithParam<LayoutCase> {};

TEST_P(ChannelLayoutFits, ChoosesInstancesAndRouting) {
    const LayoutCase& scenario = GetParam();
    const ChannelLayout layout =
        chooseLayout(scenario.signalChannels, scenario.inputs, scenario.outputs);
    EXPECT_EQ(layout.instances, scenario.instances);
    EXPECT_EQ(layout.outputChannels, scenario.outputChannels);
    EXPECT_EQ(layout.duplicateInput, scenario.duplicateInput);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, ChannelLayoutFits,
    testing::Values(LayoutCase{"StereoIntoStereo", 2, 2, 2, 1, 2, false},
                    LayoutCase{"MonoIntoMono", 1, 1, 1, 1, 1, false},
                    LayoutCase{"MonoIntoStereoComesBackStereo", 1, 2, 2, 1, 2, true},
                    LayoutCase{"StereoIntoMonoRunsTwice", 2, 1, 1, 2, 2, false},
                    LayoutCase{"SixChannelsIntoMonoRunSixTimes", 6, 1, 1, 6, 6, false},
                    LayoutCase{"FourIntoFour", 4, 4, 4, 1, 4, false}),
    [](const testing::TestParamInfo<LayoutCase>& info) { return std::string(info.param.name); });

struct MismatchCase {
    const char* name;
    int signalChannels, inputs, outputs;
};

class ChannelLayoutMismatch : public testing::TestWithParam<MismatchCase> {};

TEST_P(ChannelLayoutMismatch, IsRefusedWithTheCounts) {
    const MismatchCase& scenario = GetParam();
    try {
        chooseLayout(scenario.signalChannels, scenario.inputs, scenario.outputs);
        FAIL() << "accepted";
    } catch (const ToolError& error) {
        const std::string expected = "the plug-in has " + std::to_string(scenario.inputs) +
                                     " inputs and " + std::to_string(scenario.outputs) +
                                     " outputs; a " + std::to_string(scenario.signalChannels) +
                                     "-channel signal cannot feed it";
        EXPECT_EQ(error.what(), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Tool, ChannelLayoutMismatch,
                         testing::Values(MismatchCase{"ThreeChannelsIntoStereo", 3, 2, 2},
                                         MismatchCase{"StereoIntoAnInstrument", 2, 0, 2},
                                         MismatchCase{"MonoIntoOneInTwoOut", 1, 1, 2},
                                         MismatchCase{"StereoIntoTwoInOneOut", 2, 2, 1}),
                         [](const testing::TestParamInfo<MismatchCase>& info) {
                             return std::string(info.param.name);
                         });

} // namespace
