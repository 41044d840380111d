// Which signals a plug-in can take, and how: directly, a mono signal duplicated onto a
// stereo plug-in, or one mono instance per channel.
#include "tools/PluginRack.h"
#include "tools/ToolError.h"

#include <gtest/gtest.h>

namespace {

TEST(ChannelLayout, ChoosesInstancesAndRouting) {
    const struct {
        int signalChannels, inputs, outputs;
        int instances, outputChannels;
        bool duplicateInput;
    } cases[] = {{2, 2, 2, 1, 2, false}, {1, 1, 1, 1, 1, false}, {1, 2, 2, 1, 2, true},
                 {2, 1, 1, 2, 2, false}, {6, 1, 1, 6, 6, false}, {4, 4, 4, 1, 4, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.signalChannels) + " channels into " +
                     std::to_string(c.inputs) + " in, " + std::to_string(c.outputs) + " out");
        const ChannelLayout layout = chooseLayout(c.signalChannels, c.inputs, c.outputs);
        EXPECT_EQ(layout.instances, c.instances);
        EXPECT_EQ(layout.outputChannels, c.outputChannels);
        EXPECT_EQ(layout.duplicateInput, c.duplicateInput);
    }
}

TEST(ChannelLayout, AMismatchIsRefusedWithTheCounts) {
    const struct {
        int signalChannels, inputs, outputs;
    } cases[] = {{3, 2, 2}, {2, 0, 2}, {1, 1, 2}, {2, 2, 1}};
    for (const auto& c : cases) {
        const std::string expected = "the plug-in has " + std::to_string(c.inputs) +
                                     " inputs and " + std::to_string(c.outputs) + " outputs; a " +
                                     std::to_string(c.signalChannels) +
                                     "-channel signal cannot feed it";
        try {
            chooseLayout(c.signalChannels, c.inputs, c.outputs);
            ADD_FAILURE() << "accepted: " << expected;
        } catch (const ToolError& error) {
            EXPECT_EQ(error.what(), expected);
        }
    }
}

} // namespace
