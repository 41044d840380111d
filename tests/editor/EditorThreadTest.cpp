// The hand-over of the effect's news to the panel (latest values once each, the program state)
// and the editor under the host's two threads: automation and audio run on their own thread
// while the user-interface thread opens, idles and closes it.
#include "editor/PendingPanelUpdates.h"
#include "tests/editor/EditorHost.h"
#include "tests/support/RecordingPanel.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

namespace {

// On/off and Q2 are the first and the last parameter: a hand-over that starts one late or
// stops one short loses one.
TEST(PendingPanelUpdates, EachParameterArrivesOnceWithItsLatestValueAndClearForgetsTheRest) {
    PendingPanelUpdates pending;
    pending.UpdateControl(kParamQ2, 0.1f);
    pending.UpdateControl(kParamOnOff, 1.0f);
    pending.UpdateControl(kParamQ2, 0.7f);
    pending.UpdateModify();
    RecordingPanel panel;
    pending.Deliver(panel);
    const std::vector<std::pair<int, float>> expected{{kParamOnOff, 1.0f}, {kParamQ2, 0.7f}};
    EXPECT_EQ(panel.controls, expected);
    EXPECT_EQ(panel.modifies, 1);

    pending.Deliver(panel);
    EXPECT_EQ(panel.controls.size(), 2u) << "delivered news is gone";
    pending.UpdateControl(kParamGain1, 0.3f);
    pending.UpdateModify();
    pending.Clear();
    pending.Deliver(panel);
    EXPECT_EQ(panel.controls.size(), 2u) << "Clear forgets the rest";
    EXPECT_EQ(panel.modifies, 1);
}

// An automation thread writes rising values while the panel takes them: the panel never
// sees a value go back, and the last one written always arrives.
TEST(PendingPanelUpdates, AWriterOnAnotherThreadNeverLosesItsLatestValue) {
    PendingPanelUpdates pending;
    constexpr int kWrites = 200000;
    std::atomic<bool> done{false};
    std::thread automation([&] {
        for (int step = 1; step <= kWrites; ++step)
            pending.UpdateControl(kParamFreq2, static_cast<float>(step));
        done = true;
    });
    RecordingPanel panel;
    while (!done)
        pending.Deliver(panel);
    automation.join();
    pending.Deliver(panel);

    ASSERT_FALSE(panel.controls.empty());
    EXPECT_EQ(panel.controls.back().second, static_cast<float>(kWrites));
    for (std::size_t i = 1; i < panel.controls.size(); ++i)
        ASSERT_LE(panel.controls[i - 1].second, panel.controls[i].second);
}

class EditorThreads : public EditorHost {};

TEST_F(EditorThreads, AutomationWhileTheEditorOpensAndClosesNeverReachesAClosedPanel) {
    std::atomic<bool> stop{false};
    std::thread audio([this, &stop] {
        std::vector<float> left(64, 0.5f), right(64, 0.5f), outLeft(64), outRight(64);
        float* inputs[] = {left.data(), right.data()};
        float* outputs[] = {outLeft.data(), outRight.data()};
        // Counted in whole steps: summed hundredths would creep past 1.
        for (int step = 0; !stop; step = (step + 1) % 101) {
            const float value = static_cast<float>(step) / 100.0f;
            effect.setParameter(kParamGain1, value);
            effect.setParameter(kParamType1, value);
            effect.processReplacing(inputs, outputs, 64);
        }
    });
    for (int round = 0; round < 25; ++round) {
        Open();
        Idle();
        Dispatch(effEditClose);
    }
    stop = true;
    audio.join();

    Open();
    EXPECT_FLOAT_EQ(Panel().Knob(0).GetValue(), effect.getParameter(kParamGain1));
}

} // namespace
