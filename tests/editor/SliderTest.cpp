// The slider as the panel makes it (vertical, on the decade curve): where a press puts it,
// when it tells its owner, and where it draws its thumb.
#include "editor/CQMTBitmapSliderDC.h"
#include "tests/editor/ControlFixture.h"

#include <cmath>

namespace {

constexpr std::uint32_t kTrackColour = 0x202428, kThumbColour = 0xE0E0E0;

// A 16-pixel-wide track whose thumb (11 pixels high) travels 100 pixels, placed at (40, 20)
// on the panel.
class Slider : public ControlTest {
protected:
    // The panel's place of the track, and the thumb's ends of travel in the track.
    static constexpr int kLeft = 40, kTop = 20, kBottomEnd = 105, kTopEnd = 5;

    void SetUp() override {
        MakeFrames(track, 16, 110, {kTrackColour});
        MakeFrames(thumb, 16, 11, {kThumbColour});
        slider.Make(CRect(kLeft, kTop, kLeft + 16, kTop + 110), CRect(), &parent, &track, nullptr,
                    &thumb, 0.0f, 1.0f, CPoint(0, kBottomEnd), CPoint(0, kTopEnd), 106, 1, true,
                    false, false, false, Record, this);
    }

    // The panel row at which the drawn thumb starts.
    int ThumbTop() {
        for (int y = kTop; y < kTop + 110; ++y) {
            if (PixelIn(image, kLeft + 8, y) == kThumbColour)
                return y;
        }
        return -1;
    }

    CQMTBitmap track, thumb;
    CQMTBitmapSliderDC slider;
};

// A press at a height in the slider's own coordinates: the decade curve between the ends,
// the nearer end beyond them.
TEST_F(Slider, APressMapsItsHeightOntoTheDecadeCurve) {
    const struct {
        const char* what;
        int at;
        float value;
    } cases[] = {
        {"bottom end", kBottomEnd, 0.0f},
        {"below the track", kBottomEnd + 3, 0.0f},
        {"top end", kTopEnd, 1.0f},
        {"above the track", 0, 1.0f},
        {"half way", 55, (std::sqrt(10.0f) - 1.0f) / 9.0f},
        {"a quarter", 80, (std::pow(10.0f, 0.25f) - 1.0f) / 9.0f},
    };
    for (const auto& c : cases) {
        slider.SetValueByPoint(CPoint(kLeft + 8, kTop + c.at));
        EXPECT_NEAR(slider.GetValue(), c.value, 1e-6) << c.what;
    }
}

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

} // namespace
