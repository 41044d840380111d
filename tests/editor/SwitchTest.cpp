// The two-state switch as the panel makes it (neither latching, masked nor disabled): which
// frame it shows and where it takes a press; the panel's switches check what it tells.
#include "editor/CQMTBitmapSwitch2DC.h"
#include "tests/editor/ControlFixture.h"

namespace {

constexpr std::uint32_t kOffReleased = 0x101010, kOffPressed = 0x202020;
constexpr std::uint32_t kOnReleased = 0xC08000, kOnPressed = 0xA06000;

class Switch : public ControlTest {
protected:
    void SetUp() override {
        MakeFrames(off, 14, 12, {kOffReleased, kOffPressed});
        MakeFrames(on, 14, 12, {kOnReleased, kOnPressed});
        control.Make(CRect(10, 20, 24, 32), &parent, &off, &on, 110, CRect(), false, nullptr,
                     Record, this);
    }

    std::uint32_t Shown() {
        control.DrawSwitch(&image);
        return PixelIn(image, 15, 25);
    }

    CQMTBitmap off, on;
    CQMTBitmapSwitch2DC control;
};

TEST_F(Switch, ShowsTheFrameOfItsStateAndPressWithinItsRectangle) {
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
    EXPECT_TRUE(control.PtInSwitch(CPoint(10, 20)));
    EXPECT_FALSE(control.PtInSwitch(CPoint(24, 20))) << "nor hit beyond it";
}

} // namespace
