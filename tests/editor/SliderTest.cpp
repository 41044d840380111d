// The slider: its decade-curve track, reversed and snapping tracks, when it tells its
// owner, and where it draws its thumb.
#include "editor/CQMTBitmapSliderDC.h"
#include "tests/editor/ControlFixture.h"

#include <cmath>

namespace {

constexpr std::uint32_t kTrackColour = 0x202428, kThumbColour = 0xE0E0E0, kFillColour = 0x30A0F0;

enum class Track { Curved, Linear, Reversed, HorizontalAskedForACurve, Snapping };

// A 16-pixel-wide track whose thumb (11 pixels high) travels 100 pixels, placed at (40, 20)
// on the panel; horizontal tracks are 100 pixels long at the origin.
class Slider : public ControlTest {
protected:
    // The panel's place of the track, and the thumb's ends of travel in the track.
    static constexpr int kLeft = 40, kTop = 20, kBottomEnd = 105, kTopEnd = 5;

    void SetUp() override {
        MakeFrames(track, 16, 110, {kTrackColour});
        MakeFrames(thumb, 16, 11, {kThumbColour});
        MakeFrames(fill, 100, 11, {kFillColour});
        Make(Track::Curved);
    }

    void Make(Track kind) {
        if (kind == Track::HorizontalAskedForACurve || kind == Track::Snapping) {
            slider.Make(CRect(0, 0, 100, 11), CRect(), &parent, &fill, nullptr, &thumb, 0.0f, 1.0f,
                        CPoint(0, 0), CPoint(100, 0), 107, 0, kind != Track::Snapping, false, false,
                        kind == Track::Snapping, Record, this);
            return;
        }
        const bool reversed = kind == Track::Reversed;
        const CPoint minimumEnd(0, reversed ? kTopEnd : kBottomEnd);
        const CPoint maximumEnd(0, reversed ? kBottomEnd : kTopEnd);
        slider.Make(CRect(kLeft, kTop, kLeft + 16, kTop + 110), CRect(), &parent, &track, nullptr,
                    &thumb, 0.0f, 1.0f, minimumEnd, maximumEnd, 106, 1, kind != Track::Linear,
                    reversed, false, false, Record, this);
    }

    // The panel row at which the drawn thumb starts.
    int ThumbTop() {
        for (int y = kTop; y < kTop + 110; ++y) {
            if (PixelIn(image, kLeft + 8, y) == kThumbColour)
                return y;
        }
        return -1;
    }

    CQMTBitmap track, thumb, fill;
    CQMTBitmapSliderDC slider;
};

// A press at a place along the track: vertical places are heights in the slider's own
// coordinates, horizontal ones panel columns.
TEST_F(Slider, EachKindOfTrackMapsThePointerToItsValue) {
    const struct {
        const char* what;
        Track kind;
        int at;
        float value;
    } cases[] = {
        {"curved, bottom end", Track::Curved, kBottomEnd, 0.0f},
        {"curved, below the track", Track::Curved, kBottomEnd + 3, 0.0f},
        {"curved, top end", Track::Curved, kTopEnd, 1.0f},
        {"curved, above the track", Track::Curved, 0, 1.0f},
        {"curved, half way", Track::Curved, 55, (std::sqrt(10.0f) - 1.0f) / 9.0f},
        {"curved, a quarter", Track::Curved, 80, (std::pow(10.0f, 0.25f) - 1.0f) / 9.0f},
        {"linear, half way", Track::Linear, 55, 0.5f},
        {"linear, three quarters", Track::Linear, 30, 0.75f},
        {"reversed, top end", Track::Reversed, kTopEnd, 0.0f},
        {"reversed, above", Track::Reversed, 0, 0.0f},
        {"reversed, below", Track::Reversed, kBottomEnd + 4, 1.0f},
        {"horizontal stays linear", Track::HorizontalAskedForACurve, 25, 0.25f},
        {"horizontal, beyond", Track::HorizontalAskedForACurve, 130, 1.0f},
        {"snapping, below the midpoint", Track::Snapping, 49, 0.0f},
        {"snapping, the midpoint goes to the maximum", Track::Snapping, 50, 1.0f},
        {"snapping, above", Track::Snapping, 70, 1.0f},
    };
    for (const auto& c : cases) {
        Make(c.kind);
        const bool horizontal =
            c.kind == Track::HorizontalAskedForACurve || c.kind == Track::Snapping;
        slider.SetValueByPoint(horizontal ? CPoint(c.at, 5) : CPoint(kLeft + 8, kTop + c.at));
        EXPECT_NEAR(slider.GetValue(), c.value, 1e-6) << c.what;
    }
}

// Half of the odd thumb's height is taken exactly and the sum cut on a linear track, so its
// thumb at the minimum starts one row higher than on the curved track.
TEST_F(Slider, TheThumbIsDrawnAtItsValueAndOutsideValuesAreClamped) {
    for (const int y : {kBottomEnd, 90, 55, 30, kTopEnd}) {
        slider.SetValueByPoint(CPoint(kLeft + 8, kTop + y));
        slider.DrawSlider(&image);
        EXPECT_NEAR(ThumbTop(), kTop + y - 5, 1) << "y = " << y;
    }
    slider.SetValue(2.0f, nullptr, false);
    EXPECT_FLOAT_EQ(slider.GetValue(), 1.0f);
    slider.SetValue(std::nanf(""), &image, false);
    EXPECT_FLOAT_EQ(slider.GetValue(), 0.0f) << "not a number counts as the minimum";
    EXPECT_EQ(ThumbTop(), kTop + kBottomEnd - 5);
    Make(Track::Linear);
    slider.SetValue(0.0f, &image, false);
    EXPECT_EQ(ThumbTop(), kTop + kBottomEnd - 6);
}

TEST_F(Slider, OnlyRealChangesAreReported) {
    EXPECT_TRUE(slider.SetValueByPoint(CPoint(kLeft, kTop + 55)));
    EXPECT_FALSE(slider.SetValueByPoint(CPoint(kLeft + 3, kTop + 55)));
    slider.SetValue(slider.GetValue(), &image, true);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_NE(ThumbTop(), -1) << "an unchanged value is still drawn";
    slider.SetValue(0.9f, nullptr, true);
    EXPECT_EQ(reports.size(), 2u);
    Make(Track::Snapping);
    reports.clear();
    slider.SetValueByPoint(CPoint(49, 5));
    EXPECT_TRUE(reports.empty()) << "a snapping press left at its minimum";
}

} // namespace
