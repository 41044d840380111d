// The two-state switch: which frame it shows, when it changes and tells, and what latching
// and disabling hold back.
#include "editor/CQMTBitmapSwitch2DC.h"
#include "tests/editor/ControlFixture.h"

namespace {

constexpr std::uint32_t kOffReleased = 0x101010, kOffPressed = 0x202020;
constexpr std::uint32_t kOnReleased = 0xC08000, kOnPressed = 0xA06000;
constexpr std::uint32_t kDisabledColour = 0x505050;

class Switch : public ControlTest {
protected:
    void SetUp() override {
        MakeFrames(off, 14, 12, {kOffReleased, kOffPressed});
        MakeFrames(on, 14, 12, {kOnReleased, kOnPressed});
        MakeFrames(disabled, 14, 12, {kDisabledColour});
        Make(false);
    }

    void Make(bool latching, CQMTBitmap* mask = nullptr) {
        control.Make(CRect(10, 20, 24, 32), &parent, &off, &on, 110, CRect(), latching, mask,
                     Record, this);
    }

    std::uint32_t Shown() {
        control.DrawSwitch(&image);
        return PixelIn(image, 15, 25);
    }

    CQMTBitmap off, on, disabled;
    CQMTBitmapSwitch2DC control;
};

TEST_F(Switch, ShowsTheFrameOfItsStateAndPress) {
    EXPECT_EQ(Shown(), kOffReleased);
    control.LButtonDown(&image);
    EXPECT_EQ(PixelIn(image, 15, 25), kOffPressed) << "a press redraws at once";
    control.LButtonUp(&image);
    EXPECT_EQ(PixelIn(image, 15, 25), kOffReleased);
    control.SetValue(1, false);
    EXPECT_EQ(Shown(), kOnReleased);
    control.RButtonDown(&image);
    EXPECT_EQ(PixelIn(image, 15, 25), kOnPressed) << "the right button presses too";
    EXPECT_TRUE(control.IsDown());
    control.RButtonUp(&image);
    control.LButtonDblClk(&image);
    EXPECT_TRUE(control.IsDown()) << "so does a double click";
    EXPECT_EQ(PixelIn(image, 10, 20), kOnPressed);
    EXPECT_EQ(PixelIn(image, 24, 25), 0u) << "nothing beyond the draw rectangle";
}

TEST_F(Switch, SetValueTellsOnlyRealChanges) {
    control.SetValue(1, true);
    control.SetValue(1, true);
    control.SetValue(0, false);
    control.SetValue(1, true);
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0].id, 110);
    EXPECT_FLOAT_EQ(reports[0].value, 1.0f);
}

TEST_F(Switch, ALatchedSwitchStaysOnAndCannotBePressed) {
    Make(true);
    control.SetValue(1, false);
    control.SetValue(0, true);
    EXPECT_TRUE(control.GetValue());
    control.LButtonDown(&image);
    EXPECT_FALSE(control.IsDown());
    EXPECT_TRUE(reports.empty());
}

// Hit, but held: it shows its disabled picture, or without one its released off frame.
TEST_F(Switch, ADisabledSwitchIsHitButIgnoresEverythingElse) {
    control.SetValue(1, false);
    control.Enable(false);
    EXPECT_TRUE(control.PtInSwitch(CPoint(10, 20)));
    EXPECT_FALSE(control.PtInSwitch(CPoint(24, 20)));
    control.SetValue(0, true);
    control.LButtonDown(&image);
    EXPECT_TRUE(control.GetValue());
    EXPECT_FALSE(control.IsDown());
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(Shown(), kOffReleased);
    control.SetDisableBmp(&disabled);
    EXPECT_EQ(Shown(), kDisabledColour);
}

TEST_F(Switch, AMaskedSwitchDrawsItsFrameOverThePanel) {
    CQMTBitmap mask;
    MakeFrames(mask, 14, 12, {0x000000, 0x000000});
    Make(false, &mask);
    control.SetValue(1, false);
    EXPECT_EQ(Shown(), kOnReleased);
}

} // namespace
