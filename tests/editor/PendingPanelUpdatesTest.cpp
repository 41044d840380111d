// The hand-over of the effect's news to the panel: latest values once each, the program
// state, and nothing outside the parameter list.
#include "editor/PendingPanelUpdates.h"
#include "tests/support/RecordingPanel.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace {

TEST(PendingPanelUpdates, EachParameterArrivesOnceWithItsLatestValueAndClearForgetsTheRest) {
    PendingPanelUpdates pending;
    pending.UpdateControl(kParamGain1, 0.1f);
    pending.UpdateControl(kParamOnOff, 1.0f);
    pending.UpdateControl(kParamGain1, 0.7f);
    pending.UpdateModify();
    RecordingPanel panel;
    pending.Deliver(panel);
    const std::vector<std::pair<int, float>> expected{{kParamOnOff, 1.0f}, {kParamGain1, 0.7f}};
    EXPECT_EQ(panel.controls, expected);
    EXPECT_EQ(panel.modifies, 1);

    pending.Deliver(panel);
    EXPECT_EQ(panel.controls.size(), 2u) << "delivered news is gone";
    pending.UpdateControl(kParamQ2, 0.3f);
    pending.UpdateModify();
    pending.Clear();
    pending.Deliver(panel);
    EXPECT_EQ(panel.controls.size(), 2u) << "Clear forgets the rest";
    EXPECT_EQ(panel.modifies, 1);
}

} // namespace
