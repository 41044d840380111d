// What the pictures must show: knob pointer and arc, meter grading, lamp states, switch
// travel and read-out wells that black digits stand out on.
#include "tests/resources/ArtworkImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

constexpr int kKnob = 34;

// A frame of the knob strip, as the panel cuts it out.
Pixel KnobPixel(const ArtworkImage& strip, int frame, int x, int y) {
    return strip.At(x, frame * kKnob + y);
}

TEST(KnobStrip, MiddleFramePointsStraightUp) {
    const ArtworkImage strip(5001);
    ASSERT_TRUE(strip.Loaded());
    // Inside the value arc everything is pointer and cap: mirror-symmetric when the pointer
    // stands straight up.
    const double centre = kKnob / 2.0;
    for (int y = 0; y < kKnob; ++y) {
        for (int x = 0; x < kKnob / 2; ++x) {
            if (std::hypot(x + 0.5 - centre, y + 0.5 - centre) > 12.0)
                continue;
            EXPECT_LE(KnobPixel(strip, 30, x, y).Distance(KnobPixel(strip, 30, kKnob - 1 - x, y)),
                      2.0 / 255.0)
                << "at " << x << "," << y;
        }
    }
    // And the pointer is bright above the centre and absent below it.
    EXPECT_GT(KnobPixel(strip, 30, 16, 9).Luma(), KnobPixel(strip, 30, 16, 25).Luma() + 0.3);
}

// Whether the value arc covers the rim at the given angle, clockwise from straight down.
bool ArcLitAt(const ArtworkImage& strip, int frame, double degreesFromDown) {
    const double angle = (90.0 + degreesFromDown) * M_PI / 180.0;
    // Frame 0 shows the bare track; any lit arc differs from it.
    for (double radius = 13.0; radius <= 16.0; radius += 0.5) {
        const int x = static_cast<int>(kKnob / 2.0 + radius * std::cos(angle));
        const int y = static_cast<int>(kKnob / 2.0 + radius * std::sin(angle));
        if (KnobPixel(strip, frame, x, y).Distance(KnobPixel(strip, 0, x, y)) > 0.25)
            return true;
    }
    return false;
}

TEST(KnobStrip, ValueArcGrowsClockwiseFromSevenOClock) {
    const ArtworkImage strip(5001);
    ASSERT_TRUE(strip.Loaded());
    // The pointer at 60, 130, 180 and 300 degrees and at the maximum, against which of
    // 9, 12 and 3 o'clock the arc covers.
    const std::pair<int, std::vector<bool>> cases[] = {{6, {false, false, false}},
                                                       {20, {true, false, false}},
                                                       {30, {true, true, false}},
                                                       {54, {true, true, true}},
                                                       {60, {true, true, true}}};
    for (const auto& [frame, lit] : cases) {
        EXPECT_EQ((std::vector<bool>{ArcLitAt(strip, frame, 80.0), ArcLitAt(strip, frame, 170.0),
                                     ArcLitAt(strip, frame, 260.0)}),
                  lit)
            << "frame " << frame;
    }
}

enum class Hue { Red, Amber, Green };

Hue HueOf(const Pixel& p) {
    if (p.g > p.r)
        return Hue::Green;
    return p.g > 0.45 * p.r ? Hue::Amber : Hue::Red;
}

TEST(Meter, LitColumnIsGradedRedAmberGreenDownToTheFloor) {
    const ArtworkImage meter(5009);
    ASSERT_TRUE(meter.Loaded());
    const int half = meter.Width() / 2;
    const int middle = half + half / 2;
    // Rows are 3 per dB with 0 dB at row 19; each row is the top of the segment for one dB.
    const struct {
        int row;
        Hue hue;
        const char* level;
    } cases[] = {{1, Hue::Red, "+6 dB"},     {16, Hue::Red, "+1 dB"},   {19, Hue::Amber, "0 dB"},
                 {34, Hue::Amber, "-5 dB"},  {37, Hue::Green, "-6 dB"}, {100, Hue::Green, "-27 dB"},
                 {130, Hue::Green, "-37 dB"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.level);
        const Pixel lit = meter.At(middle, c.row);
        EXPECT_EQ(HueOf(lit), c.hue);
        EXPECT_GT(lit.Luma(), 0.35);
        EXPECT_GT(lit.Luma(), meter.At(half / 2, c.row).Luma() + 0.25) << "brighter than unlit";
    }
}

TEST(Meter, UnlitColumnStaysDark) {
    const ArtworkImage meter(5009);
    ASSERT_TRUE(meter.Loaded());
    EXPECT_LT(meter.MeanLuma(0, 0, meter.Width() / 2, meter.Height()), 0.12);
    for (int y = 0; y < meter.Height(); ++y)
        for (int x = 0; x < meter.Width() / 2; ++x)
            ASSERT_LT(meter.At(x, y).Luma(), 0.25) << "at " << x << "," << y;
}

TEST(ProgramLamp, EditedFrameIsPlainlyLit) {
    const ArtworkImage lamp(5013);
    ASSERT_TRUE(lamp.Loaded());
    const double stored = lamp.MeanLuma(0, 0, 43, 16);
    EXPECT_LT(stored, 0.2);
    EXPECT_GT(lamp.MeanLuma(0, 16, 43, 16), stored + 0.3);
}

// The switches' pressed frame shows the released face one pixel lower.
TEST(Switches, PressedFrameIsTheReleasedFaceOnePixelLower) {
    for (int id : {5002, 5003, 5004, 5005, 5011}) {
        SCOPED_TRACE("bitmap " + std::to_string(id));
        const ArtworkImage bitmap(id);
        ASSERT_TRUE(bitmap.Loaded());
        const int frame = bitmap.Height() / 2;
        double differing = 0.0;
        // The rounded corners meet the drop shadow differently; compare the face's middle.
        for (int y = 0; y + 2 < frame; ++y) {
            for (int x = 3; x < bitmap.Width() - 3; ++x) {
                EXPECT_LE(bitmap.At(x, y).Distance(bitmap.At(x, frame + y + 1)), 2.0 / 255.0)
                    << "at " << x << "," << y;
                differing = std::max(differing, bitmap.At(x, y).Distance(bitmap.At(x, frame + y)));
            }
        }
        EXPECT_GT(differing, 0.1) << "the frames must not be identical";
    }
}

TEST(ReadoutWells, AreLightAndEmptySoBlackDigitsStandOut) {
    const ArtworkImage background(5000);
    ASSERT_TRUE(background.Loaded());
    struct Well {
        int left, top, right, bottom;
    } const wells[] = {{165, 91, 213, 107},  {236, 91, 284, 107},  {307, 91, 355, 107},
                       {165, 175, 213, 191}, {236, 175, 284, 191}, {307, 175, 355, 191},
                       {14, 184, 48, 200},   {404, 184, 438, 200}};
    for (const Well& w : wells) {
        SCOPED_TRACE("well at " + std::to_string(w.left) + "," + std::to_string(w.top));
        EXPECT_GT(background.MeanLuma(w.left, w.top, w.right - w.left, w.bottom - w.top), 0.7);
        // Past a one-pixel shade along the top and left edges the well is one flat tone:
        // nothing printed where the panel writes the value.
        const Pixel face = background.At(w.left + 2, w.top + 2);
        for (int y = w.top + 1; y < w.bottom; ++y)
            for (int x = w.left + 1; x < w.right; ++x)
                ASSERT_LE(background.At(x, y).Distance(face), 1.0 / 255.0)
                    << "at " << x << "," << y;
    }
}

} // namespace
