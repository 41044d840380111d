// The slider: its decade-curve track, reversed and snapping tracks, when it tells its
// owner, and where it draws its thumb.
#include "CQMTBitmapSliderDC.h"
#include "FramePictures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr std::uint32_t kTrackColour = 0x202428;
constexpr std::uint32_t kThumbColour = 0xE0E0E0;
constexpr std::uint32_t kFillColour = 0x30A0F0;

bool Record(int, float value, void* user) {
    static_cast<std::vector<float>*>(user)->push_back(value);
    return true;
}

// A 16-pixel-wide track whose thumb (11 pixels high) travels 100 pixels, placed at (40, 20)
// on the panel.
class Slider : public ::testing::Test {
protected:
    static constexpr int kLeft = 40;
    static constexpr int kTop = 20;
    static constexpr int kBottomEnd = 105;
    static constexpr int kTopEnd = 5;

    void SetUp() override {
        MakeFrames(track, 16, 110, {kTrackColour});
        MakeFrames(thumb, 16, 11, {kThumbColour});
        MakeFrames(fill, 100, 11, {kFillColour});
        MakeVertical(true, false, false);
        image.CreateBitmapDC(200, 200);
    }

    void MakeVertical(bool logarithmic, bool reversed, bool snap) {
        const CPoint minimumEnd(0, reversed ? kTopEnd : kBottomEnd);
        const CPoint maximumEnd(0, reversed ? kBottomEnd : kTopEnd);
        slider.Make(CRect(kLeft, kTop, kLeft + 16, kTop + 110), CRect(), &parent, &track, nullptr,
                    &thumb, 0.0f, 1.0f, minimumEnd, maximumEnd, 106, 1, logarithmic, reversed,
                    false, snap, Record, &reports);
    }

    // A value from a press at this height in the slider's own coordinates.
    float ValueAt(int y) {
        slider.SetValueByPoint(CPoint(kLeft + 8, kTop + y));
        return slider.GetValue();
    }

    float ValueAtX(int x) {
        slider.SetValueByPoint(CPoint(x, 5));
        return slider.GetValue();
    }

    // The panel row at which the drawn thumb starts.
    int ThumbTop() {
        for (int y = kTop; y < kTop + 110; ++y) {
            if (PixelIn(image, kLeft + 8, y) == kThumbColour)
                return y;
        }
        return -1;
    }

    CWnd parent;
    CQMTBitmap track;
    CQMTBitmap thumb;
    CQMTBitmap fill;
    CQMTBitmapSliderDC slider;
    std::vector<float> reports;
    CDC image;
};

TEST_F(Slider, ADecadeCurveRunsAlongTheTrack) {
    struct Case {
        int y;
        float value;
    };
    const Case cases[] = {
        {kBottomEnd, 0.0f},
        {kBottomEnd + 3, 0.0f}, // below the track
        {kTopEnd, 1.0f},
        {0, 1.0f}, // above the track
        {55, (std::sqrt(10.0f) - 1.0f) / 9.0f},
        {80, (std::pow(10.0f, 0.25f) - 1.0f) / 9.0f},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(ValueAt(c.y), c.value, 1e-6) << "y = " << c.y;
}

TEST_F(Slider, TheThumbIsDrawnWhereThePointerPutsIt) {
    for (const int y : {kBottomEnd, 90, 55, 30, kTopEnd}) {
        ValueAt(y);
        slider.DrawSlider(&image);
        EXPECT_NEAR(ThumbTop(), kTop + y - 5, 1) << "y = " << y;
    }
}

TEST_F(Slider, ALinearTrackIsEven) {
    MakeVertical(false, false, false);
    EXPECT_FLOAT_EQ(ValueAt(55), 0.5f);
    EXPECT_FLOAT_EQ(ValueAt(30), 0.75f);
    // Half of the odd thumb's height is taken exactly and the sum cut, so the thumb at the
    // minimum starts one row higher than on the curved track.
    slider.SetValue(0.0f, &image, false);
    EXPECT_EQ(ThumbTop(), kTop + kBottomEnd - 6);
}

TEST_F(Slider, AReversedTrackHasItsMinimumAtTheTop) {
    MakeVertical(true, true, false);
    EXPECT_FLOAT_EQ(ValueAt(kTopEnd), 0.0f);
    EXPECT_FLOAT_EQ(ValueAt(0), 0.0f);
    EXPECT_FLOAT_EQ(ValueAt(kBottomEnd + 4), 1.0f);
}

TEST_F(Slider, ASnappingSliderReportsOnlyItsEnds) {
    slider.Make(CRect(0, 0, 100, 11), CRect(), &parent, &fill, nullptr, &thumb, 0.0f, 1.0f,
                CPoint(0, 0), CPoint(100, 0), 107, 0, false, false, false, true, Record, &reports);
    EXPECT_FLOAT_EQ(ValueAtX(49), 0.0f);
    EXPECT_FLOAT_EQ(ValueAtX(50), 1.0f) << "the midpoint goes to the maximum";
    EXPECT_FLOAT_EQ(ValueAtX(70), 1.0f);
    EXPECT_EQ(reports, (std::vector<float>{1.0f}))
        << "the first press left the value at its minimum";
}

TEST_F(Slider, AHorizontalTrackIsLinearEvenWhenAskedForACurve) {
    slider.Make(CRect(0, 0, 100, 11), CRect(), &parent, &fill, nullptr, &thumb, 0.0f, 1.0f,
                CPoint(0, 0), CPoint(100, 0), 107, 0, true, false, false, false, Record, &reports);
    EXPECT_FLOAT_EQ(ValueAtX(25), 0.25f);
    EXPECT_FLOAT_EQ(ValueAtX(130), 1.0f);
}

TEST_F(Slider, AHorizontalFillRunsFromTheLeftEdgeToTheThumb) {
    CQMTBitmap lit;
    MakeFrames(lit, 100, 11, {0xF0A030});
    slider.Make(CRect(0, 0, 100, 11), CRect(), &parent, &fill, &lit, &thumb, 0.0f, 1.0f,
                CPoint(0, 0), CPoint(100, 0), 107, 0, false, false, false, false, Record, &reports);
    slider.SetValue(0.5f, &image, false);
    EXPECT_EQ(PixelIn(image, 10, 5), 0xF0A030u);
    EXPECT_EQ(PixelIn(image, 50, 5), kThumbColour) << "the thumb is centred on its value";
    EXPECT_EQ(PixelIn(image, 80, 5), kFillColour);
}

TEST_F(Slider, OnlyRealChangesAreReported) {
    EXPECT_TRUE(slider.SetValueByPoint(CPoint(kLeft, kTop + 55)));
    EXPECT_FALSE(slider.SetValueByPoint(CPoint(kLeft + 3, kTop + 55)));
    slider.SetValue(slider.GetValue(), &image, true);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_NE(ThumbTop(), -1) << "an unchanged value is still drawn";
    slider.SetValue(0.9f, nullptr, true);
    EXPECT_EQ(reports.size(), 2u);
}

TEST_F(Slider, ADragCapturesTheMouseUntilTheRelease) {
    ASSERT_TRUE(slider.PtInSwitch(CPoint(kLeft + 1, kTop + 1)));
    EXPECT_EQ(CWnd::GetCapture(), &parent);
    slider.OnMouseMove(CPoint(kLeft + 1, kTop + 55), &image);
    slider.OnLButtonUp(CPoint(kLeft + 1, kTop + kTopEnd), &image);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_FLOAT_EQ(slider.GetValue(), 1.0f);
    EXPECT_EQ(ThumbTop(), kTop);
    slider.OnMouseMove(CPoint(kLeft + 1, kTop + 55), &image);
    EXPECT_FLOAT_EQ(slider.GetValue(), 1.0f);
}

TEST_F(Slider, ADisabledSliderIgnoresTheMouseAndDrawsNothing) {
    slider.Enable(false);
    EXPECT_FALSE(slider.PtInSwitch(CPoint(kLeft + 1, kTop + 1)));
    EXPECT_FALSE(slider.SetValueByPoint(CPoint(kLeft + 1, kTop + 55)));
    slider.DrawSlider(&image);
    EXPECT_EQ(PixelIn(image, kLeft + 8, kTop + 50), 0u);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Slider, OutsideValuesAreClampedAndNonNumbersCountAsTheMinimum) {
    slider.SetValue(2.0f, nullptr, false);
    EXPECT_FLOAT_EQ(slider.GetValue(), 1.0f);
    slider.SetValue(std::nanf(""), &image, false);
    EXPECT_FLOAT_EQ(slider.GetValue(), 0.0f);
    EXPECT_EQ(ThumbTop(), kTop + kBottomEnd - 5);
}

} // namespace
