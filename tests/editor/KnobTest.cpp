// The rotary knob: where the pointer's direction puts it, its end guards, when it tells
// its owner, and which frame of its strip it shows.
#include "editor/CQMTNewBitmapTumamiDC.h"
#include "tests/editor/ControlFixture.h"

#include <cmath>

namespace {

// A 34 × 34 knob at the panel's origin, 0..1 over 30..330 degrees in 61 frames, as the
// panel makes its knobs.
class Knob : public ControlTest {
protected:
    static constexpr int kSize = 34;

    void SetUp() override {
        std::vector<std::uint32_t> colours;
        for (int frame = 0; frame < 61; ++frame)
            colours.push_back(KnobFrameColour(frame));
        MakeFrames(strip, kSize, kSize, colours);
        knob.Make(CRect(0, 0, kSize, kSize), CRect(), &parent, &strip, 0.0f, 1.0f, 100, 61, 30.0f,
                  330.0f, 8, false, Record, this);
    }

    // The point at this offset from the knob's centre.
    static CPoint Offset(int dx, int dy) { return CPoint(kSize / 2 + dx, kSize / 2 + dy); }

    CQMTBitmap strip;
    CQMTNewBitmapTumamiDC knob;
};

TEST_F(Knob, AValueFromOutsideIsClampedAndOnlyAChangeDrawsAndTells) {
    knob.SetValue(0.75f, &image, true);
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].id, 100);
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(45));
    CDC fresh;
    fresh.CreateBitmapDC(kSize, kSize);
    knob.SetValue(0.75f, &fresh, true);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_EQ(PixelIn(fresh, 5, 5), 0u) << "the same value again draws nothing";

    knob.SetValue(3.0f, nullptr, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 1.0f);
    knob.SetValue(-3.0f, nullptr, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f);
    knob.SetValue(0.5f, nullptr, false);
    knob.SetValue(std::nanf(""), &image, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f) << "not a number counts as the minimum";
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(0));
}

// Degrees clockwise from straight down: left is 90, up 180, right 270; the arc runs from 30
// to 330 over the whole range. A knob at one end does not jump to the other end when the
// pointer crosses the gap below it; the other half of the circle moves it as usual.
TEST_F(Knob, FollowsThePointersDirectionAndHoldsAnEndAcrossTheGapBelow) {
    const struct {
        const char* where;
        float start;
        int dx, dy;
        float value;
        bool told;
    } cases[] = {
        {"straight up", 0.5f, 0, -17, 0.5f, true},
        {"down and left", 0.5f, -10, 10, 0.05f, true},
        {"down and right", 0.5f, 10, 10, 0.95f, true},
        {"up and left", 0.5f, -10, -10, 0.35f, true},
        {"far beyond the knob, still up", 0.5f, 0, -400, 0.5f, true},
        {"minimum, pointer just right of the gap", 0.0f, 5, 15, 0.0f, true},
        {"minimum, pointer straight down", 0.0f, 0, 10, 0.0f, true},
        {"minimum, pointer to the left", 0.0f, -17, 0, 0.2f, true},
        {"maximum, pointer just left of the gap", 1.0f, -5, 15, 1.0f, true},
        {"maximum, pointer straight down", 1.0f, 0, 10, 1.0f, true},
        {"maximum, pointer to the right", 1.0f, 17, 0, 0.8f, true},
        {"middle, pointer straight down", 0.3f, 0, 10, 0.0f, true},
        {"the centre gives no direction", 0.3f, 0, 0, 0.3f, false},
        // Kept as it always was: a point whose vertical offset equals the half width while
        // its horizontal offset passes the half height is ignored too.
        {"the ignored corner", 0.3f, 18, 17, 0.3f, false},
    };
    for (const auto& c : cases) {
        knob.SetValue(c.start, nullptr, false);
        reports.clear();
        knob.SetValue(Offset(c.dx, c.dy));
        EXPECT_NEAR(knob.GetValue(), c.value, 1e-6) << c.where;
        EXPECT_EQ(reports.size(), c.told ? 1u : 0u) << c.where;
    }
}

// What a drag tells is checked on the panel; here, what the press and the release hold.
// Released at the minimum, a new press just right of the gap jumps there.
TEST_F(Knob, ADragHoldsTheMouseAndItsReleaseLiftsTheEndGuards) {
    knob.SetValue(0.0f, nullptr, false);
    ASSERT_TRUE(knob.PtInTumami(Offset(0, 10)));
    EXPECT_EQ(CWnd::GetCapture(), &parent);
    knob.OnLButtonUp(Offset(0, 10), &image);
    ASSERT_FLOAT_EQ(knob.GetValue(), 0.0f);
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(0)) << "drawn at the release";
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_FALSE(knob.IsDragging());
    knob.OnMouseMove(Offset(17, 0), &image);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f) << "moves after the release are not the knob's";
    ASSERT_TRUE(knob.PtInTumami(Offset(5, 15)));
    knob.OnMouseMove(Offset(5, 15), &image);
    EXPECT_GT(knob.GetValue(), 0.9f);
}

TEST_F(Knob, ShowsTheNearestFrameButCountsItsIndexUpwards) {
    const struct {
        float value;
        int frame;
        unsigned index;
    } cases[] = {{0.0f, 0, 0}, {0.5f, 30, 30}, {0.508f, 30, 31}, {0.509f, 31, 31}, {1.0f, 60, 60}};
    for (const auto& c : cases) {
        knob.SetValue(c.value, &image, false);
        EXPECT_EQ(PixelIn(image, 20, 20), KnobFrameColour(c.frame)) << c.value;
        EXPECT_EQ(knob.GetIndexValue(), c.index) << c.value;
    }
}

} // namespace
