// The rotary knob: where the pointer's direction puts it, its end guards, when it tells
// its owner, and which frame of its strip it shows.
#include "CQMTNewBitmapTumamiDC.h"
#include "FramePictures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace {

struct Report {
    int id;
    float value;
};

bool Record(int id, float value, void* user) {
    static_cast<std::vector<Report>*>(user)->push_back({id, value});
    return true;
}

// A 34 × 34 knob at the panel's origin, 0..1 over 30..330 degrees in 61 frames, as the
// panel makes its knobs.
class Knob : public ::testing::Test {
protected:
    static constexpr int kSize = 34;
    static constexpr int kCentre = kSize / 2;

    void SetUp() override {
        std::vector<std::uint32_t> colours;
        for (int frame = 0; frame < 61; ++frame)
            colours.push_back(KnobFrameColour(frame));
        MakeFrames(strip, kSize, kSize, colours);
        Make(false);
        image.CreateBitmapDC(kSize, kSize);
    }

    void Make(bool logarithmic, float min = 0.0f, float max = 1.0f) {
        knob.Make(CRect(0, 0, kSize, kSize), CRect(), &parent, &strip, min, max, 100, 61, 30.0f,
                  330.0f, 8, logarithmic, Record, &reports);
    }

    // The point at this offset from the knob's centre.
    CPoint Offset(int dx, int dy) const { return CPoint(kCentre + dx, kCentre + dy); }

    CWnd parent;
    CQMTBitmap strip;
    CQMTNewBitmapTumamiDC knob;
    std::vector<Report> reports;
    CDC image;
};

TEST_F(Knob, StartsAtTheMiddleOfItsRangeWithoutTelling) {
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.5f);
    Make(false, -12.0f, 12.0f);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Knob, SettingTheSameValueAgainDrawsAndTellsNothing) {
    knob.SetValue(0.75f, &image, true);
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].id, 100);
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(45));

    CDC fresh;
    fresh.CreateBitmapDC(kSize, kSize);
    knob.SetValue(0.75f, &fresh, true);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_EQ(PixelIn(fresh, 5, 5), 0u) << "nothing drawn";
}

TEST_F(Knob, OutsideValuesAreClampedAndNonNumbersCountAsTheMinimum) {
    knob.SetValue(3.0f, nullptr, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 1.0f);
    knob.SetValue(-3.0f, nullptr, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f);
    knob.SetValue(0.5f, nullptr, false);
    knob.SetValue(std::nanf(""), &image, false);
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.0f);
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(0));
}

TEST_F(Knob, FollowsThePointersDirectionRoundItsCentre) {
    struct Case {
        const char* where;
        int dx, dy;
        float value;
    };
    // Degrees clockwise from straight down: left is 90, up 180, right 270; the arc runs
    // from 30 to 330 over the whole range.
    const Case cases[] = {
        {"straight up", 0, -17, 0.5f},
        {"left", -17, 0, 0.2f},
        {"right", 17, 0, 0.8f},
        {"down and left", -10, 10, 0.05f},
        {"down and right", 10, 10, 0.95f},
        {"up and left", -10, -10, 0.35f},
        {"far beyond the knob, still up", 0, -400, 0.5f},
    };
    for (const Case& c : cases) {
        knob.SetValue(0.5f, nullptr, false);
        knob.SetValue(Offset(c.dx, c.dy));
        EXPECT_NEAR(knob.GetValue(), c.value, 1e-6) << c.where;
    }
}

// A knob at one end does not jump to the other end when the pointer crosses the gap below
// it; the other half of the circle moves it as usual.
TEST_F(Knob, AKnobAtAnEndHoldsItAcrossTheGapBelow) {
    struct Case {
        const char* what;
        float start;
        int dx, dy;
        float value;
    };
    const Case cases[] = {
        {"minimum, pointer just right of the gap", 0.0f, 5, 15, 0.0f},
        {"minimum, pointer straight down", 0.0f, 0, 10, 0.0f},
        {"minimum, pointer to the left", 0.0f, -17, 0, 0.2f},
        {"maximum, pointer just left of the gap", 1.0f, -5, 15, 1.0f},
        {"maximum, pointer straight down", 1.0f, 0, 10, 1.0f},
        {"maximum, pointer to the right", 1.0f, 17, 0, 0.8f},
        {"middle, pointer straight down", 0.3f, 0, 10, 0.0f},
    };
    for (const Case& c : cases) {
        knob.SetValue(c.start, nullptr, false);
        knob.SetValue(Offset(c.dx, c.dy));
        EXPECT_NEAR(knob.GetValue(), c.value, 1e-6) << c.what;
    }
}

TEST_F(Knob, ReleasingLiftsTheEndGuards) {
    knob.SetValue(0.0f, nullptr, false);
    ASSERT_TRUE(knob.PtInTumami(Offset(0, 10)));
    knob.OnLButtonUp(Offset(0, 10), &image);
    ASSERT_FLOAT_EQ(knob.GetValue(), 0.0f);
    // A new press just right of the gap now jumps there.
    ASSERT_TRUE(knob.PtInTumami(Offset(5, 15)));
    knob.OnMouseMove(Offset(5, 15), &image);
    EXPECT_GT(knob.GetValue(), 0.9f);
}

TEST_F(Knob, PointsThatGiveNoDirectionChangeNothing) {
    knob.SetValue(0.3f, nullptr, false);
    knob.SetValue(Offset(0, 0));
    // Kept as it always was: a point whose vertical offset equals the half width while its
    // horizontal offset passes the half height is ignored too.
    knob.SetValue(Offset(18, 17));
    EXPECT_FLOAT_EQ(knob.GetValue(), 0.3f);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Knob, ADragReportsEveryMoveAndTheRelease) {
    ASSERT_TRUE(knob.PtInTumami(Offset(-17, 0)));
    EXPECT_EQ(CWnd::GetCapture(), &parent);
    knob.OnMouseMove(Offset(-17, 0), &image);
    knob.OnMouseMove(Offset(-17, 0), &image);
    knob.OnMouseMove(Offset(0, -17), &image);
    knob.OnLButtonUp(Offset(0, -17), &image);
    ASSERT_EQ(reports.size(), 4u);
    EXPECT_NEAR(reports[0].value, 0.2f, 1e-6);
    EXPECT_NEAR(reports[1].value, 0.2f, 1e-6) << "unchanged, told again";
    EXPECT_NEAR(reports[3].value, 0.5f, 1e-6);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_FALSE(knob.IsDragging());
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(30));

    knob.OnMouseMove(Offset(17, 0), &image);
    EXPECT_EQ(reports.size(), 4u) << "moves after the release are not the knob's";
}

TEST_F(Knob, ShowsTheNearestFrameButCountsItsIndexUpwards) {
    struct Case {
        float value;
        int frame;
        unsigned index;
    };
    const Case cases[] = {
        {0.0f, 0, 0}, {0.5f, 30, 30}, {0.508f, 30, 31}, {0.509f, 31, 31}, {1.0f, 60, 60},
    };
    for (const Case& c : cases) {
        knob.SetValue(c.value, &image, false);
        EXPECT_EQ(PixelIn(image, 20, 20), KnobFrameColour(c.frame)) << c.value;
        EXPECT_EQ(knob.GetIndexValue(), c.index) << c.value;
    }
}

TEST_F(Knob, ALogarithmicKnobFollowsADecadeCurveOverItsArc) {
    Make(true);
    knob.SetValue(Offset(0, -17));
    const float halfWay = (std::sqrt(10.0f) - 1.0f) / 9.0f;
    EXPECT_NEAR(knob.GetValue(), halfWay, 1e-6);
    knob.Draw(&image);
    EXPECT_EQ(PixelIn(image, 5, 5), KnobFrameColour(30)) << "half the arc, the middle frame";
}

} // namespace
