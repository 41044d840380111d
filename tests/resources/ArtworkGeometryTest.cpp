// The generated bitmaps against the places the panel draws them: sizes, frames and seams.

#include "tests/resources/ArtworkImage.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

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
    int frames;   // how many frames of the rectangle's size the bitmap holds
    int frameTop; // source row of the frame the panel shows
    int x, y, width, height;
};

// Where the panel pastes bitmaps over the background without blending: knobs (a 61-frame
// strip), type, power and copy switches (released and pressed), the save button, the lamp
// (stored and edited) and the fader slots.
const std::vector<Placement> kPlacements = {
    {5001, 61, 0, 172, 54, 34, 34},  {5001, 61, 0, 243, 54, 34, 34},
    {5001, 61, 0, 314, 54, 34, 34},  {5001, 61, 0, 172, 138, 34, 34},
    {5001, 61, 0, 243, 138, 34, 34}, {5001, 61, 0, 314, 138, 34, 34},
    {5004, 2, 0, 110, 61, 14, 12},   {5005, 2, 0, 110, 61, 14, 12},
    {5005, 2, 0, 110, 78, 14, 12},   {5005, 2, 0, 110, 95, 14, 12},
    {5005, 2, 0, 110, 145, 14, 12},  {5005, 2, 0, 110, 162, 14, 12},
    {5004, 2, 0, 110, 179, 14, 12},  {5002, 2, 0, 18, 8, 29, 20},
    {5003, 2, 20, 18, 8, 29, 20},    {5010, 2, 0, 59, 11, 29, 17},
    {5011, 2, 17, 59, 11, 29, 17},   {5012, 1, 0, 265, 11, 43, 16},
    {5013, 2, 0, 211, 11, 43, 16},   {5013, 2, 16, 211, 11, 43, 16},
    {5007, 1, 0, 48, 45, 16, 133},   {5007, 1, 0, 403, 45, 16, 133}};

TEST(ArtworkGeometry, PastedControlsFillTheirRectanglesAndJoinTheBackgroundWithoutASeam) {
    const ArtworkImage background(5000);
    ASSERT_TRUE(background.Loaded());
    for (const Placement& place : kPlacements) {
        SCOPED_TRACE("bitmap " + std::to_string(place.id) + " at " + std::to_string(place.x) + "," +
                     std::to_string(place.y));
        const ArtworkImage bitmap(place.id);
        ASSERT_TRUE(bitmap.Loaded());
        ASSERT_EQ(bitmap.Width(), place.width);
        ASSERT_EQ(bitmap.Height(), place.frames * place.height);
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
