// The module carries the artwork: the compiled-in table gives back the very pictures the
// build drew, each fully opaque since the panel pastes them without blending.

#include "resources/artwork/PanelArtwork.h"
#include "tests/resources/ArtworkImage.h"
#include "toolkit/BitmapResources.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kBundle = "test.artwork";

class EmbeddedArtwork : public ::testing::Test {
protected:
    void SetUp() override { RegisterPanelArtwork(kBundle); }
    void TearDown() override { AfxUnregisterResources(kBundle); }
};

TEST_F(EmbeddedArtwork, EveryBitmapLoadsByNumberWithTheDrawnPixels) {
    for (int id = 5000; id <= 5013; ++id) {
        SCOPED_TRACE("bitmap " + std::to_string(id));
        const ArtworkImage drawn(id);
        ASSERT_TRUE(drawn.Loaded());
        const ArtworkImage embedded(LoadBitmap0(id, kBundle));
        ASSERT_TRUE(embedded.Loaded());
        ASSERT_EQ(embedded.Width(), drawn.Width());
        ASSERT_EQ(embedded.Height(), drawn.Height());
        int differing = 0;
        for (int y = 0; y < drawn.Height(); ++y) {
            for (int x = 0; x < drawn.Width(); ++x)
                differing += embedded.Alpha(x, y) != 0xff ||
                             embedded.At(x, y).Distance(drawn.At(x, y)) > 0.0;
        }
        EXPECT_EQ(differing, 0);
    }
}

TEST_F(EmbeddedArtwork, NumbersOutsideTheArtworkFindNothing) {
    EXPECT_EQ(LoadBitmap0(4999, kBundle), nullptr);
    EXPECT_EQ(LoadBitmap0(5014, kBundle), nullptr);
}

} // namespace
