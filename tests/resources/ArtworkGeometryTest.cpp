// The generated bitmaps against the places the panel draws them.

#include "tests/resources/ArtworkImage.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct ExpectedSize {
    int id;
    int width, height;
    const char* what;
};

// Sizes that follow from the panel's rectangles and from the frame counts.
const std::vector<ExpectedSize> kFixedSizes = {
    {5001, 34, 34 * 61, "knob strip, 61 frames of 34 x 34"},
    {5002, 29, 2 * 20, "power switch lit, two 29 x 20 frames"},
    {5003, 29, 2 * 20, "power switch dark"},
    {5004, 14, 2 * 12, "type switch lit, two 14 x 12 frames"},
    {5005, 14, 2 * 12, "type switch dark"},
    {5007, 16, 133, "fader slot, the slider rectangle"},
    {5010, 29, 2 * 17, "copy button lit, two 29 x 17 frames"},
    {5011, 29, 2 * 17, "copy button dark"},
    {5012, 43, 16, "save button"},
    {5013, 43, 2 * 16, "program lamp, stored and edited frames"}};

TEST(ArtworkGeometry, EveryControlBitmapHasTheSizeOfItsRectangle) {
    for (const ExpectedSize& expected : kFixedSizes) {
        SCOPED_TRACE(expected.what);
        const ArtworkImage image(expected.id);
        ASSERT_TRUE(image.Loaded());
        EXPECT_EQ(image.Width(), expected.width);
        EXPECT_EQ(image.Height(), expected.height);
    }
}

TEST(ArtworkGeometry, MeterAndFaderCapFitTheirTracks) {
    const ArtworkImage meter(5009);
    ASSERT_TRUE(meter.Loaded());
    EXPECT_EQ(meter.Height(), 133) << "-38 dB must land exactly on the bottom edge";
    EXPECT_EQ(meter.Width() % 2, 0) << "unlit and lit halves side by side";
    // The two meters of a side stand 9 pixels apart.
    EXPECT_LE(meter.Width() / 2, 9);

    const ArtworkImage thumb(5008);
    ASSERT_TRUE(thumb.Loaded());
    EXPECT_EQ(thumb.Width(), 16);
    EXPECT_EQ(thumb.Height() % 2, 1) << "the track's ends must fall on the cap's middle row";
    EXPECT_LE(thumb.Height(), 15);
}

struct Placement {
    int id;
    int frameTop; // source row of the frame the panel shows
    int x, y, width, height;
};

// Where the panel pastes bitmaps over the background without blending.
const std::vector<Placement> kPlacements = {
    {5001, 0, 172, 54, 34, 34},  {5001, 0, 243, 54, 34, 34},  {5001, 0, 314, 54, 34, 34},
    {5001, 0, 172, 138, 34, 34}, {5001, 0, 243, 138, 34, 34}, {5001, 0, 314, 138, 34, 34},
    {5004, 0, 110, 61, 14, 12},  {5005, 0, 110, 61, 14, 12},  {5005, 0, 110, 78, 14, 12},
    {5005, 0, 110, 95, 14, 12},  {5005, 0, 110, 145, 14, 12}, {5005, 0, 110, 162, 14, 12},
    {5004, 0, 110, 179, 14, 12}, {5002, 0, 18, 8, 29, 20},    {5003, 20, 18, 8, 29, 20},
    {5010, 0, 59, 11, 29, 17},   {5011, 17, 59, 11, 29, 17},  {5012, 0, 265, 11, 43, 16},
    {5013, 0, 211, 11, 43, 16},  {5013, 16, 211, 11, 43, 16}, {5007, 0, 48, 45, 16, 133},
    {5007, 0, 403, 45, 16, 133}};

TEST(ArtworkGeometry, PastedControlsJoinTheBackgroundWithoutASeam) {
    const ArtworkImage background(5000);
    ASSERT_TRUE(background.Loaded());
    for (const Placement& place : kPlacements) {
        SCOPED_TRACE("bitmap " + std::to_string(place.id) + " at " + std::to_string(place.x) + "," +
                     std::to_string(place.y));
        const ArtworkImage bitmap(place.id);
        ASSERT_TRUE(bitmap.Loaded());
        for (int corner = 0; corner < 4; ++corner) {
            const int dx = corner % 2 == 0 ? 0 : place.width - 1;
            const int dy = corner < 2 ? 0 : place.height - 1;
            const Pixel own = bitmap.At(dx, place.frameTop + dy);
            const Pixel behind = background.At(place.x + dx, place.y + dy);
            EXPECT_LE(own.Distance(behind), 2.0 / 255.0) << "corner " << corner;
        }
    }
}

} // namespace
