// The module carries the artwork: the compiled-in table gives back the very pictures the
// build drew, each fully opaque since the panel pastes them without blending.

#include "resources/artwork/PanelArtwork.h"
#include "tests/resources/ArtworkImage.h"
#include "toolkit/BitmapResources.h"

#include <gtest/gtest.h>

#include <cstring>

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
        ImageRef embedded = LoadBitmap0(id, kBundle);
        ASSERT_NE(embedded, nullptr);
        ASSERT_EQ(cairo_image_surface_get_width(embedded), drawn.Width());
        ASSERT_EQ(cairo_image_surface_get_height(embedded), drawn.Height());
        const unsigned char* data = cairo_image_surface_get_data(embedded);
        const int stride = cairo_image_surface_get_stride(embedded);
        int differing = 0;
        for (int y = 0; y < drawn.Height(); ++y) {
            for (int x = 0; x < drawn.Width(); ++x) {
                std::uint32_t value;
                std::memcpy(&value, data + y * stride + 4 * x, sizeof value);
                const Pixel loaded{((value >> 16) & 0xff) / 255.0, ((value >> 8) & 0xff) / 255.0,
                                   (value & 0xff) / 255.0};
                if ((value >> 24) != 0xff || loaded.Distance(drawn.At(x, y)) > 0.0)
                    ++differing;
            }
        }
        EXPECT_EQ(differing, 0);
        cairo_surface_destroy(embedded);
    }
}

TEST_F(EmbeddedArtwork, NumbersOutsideTheArtworkFindNothing) {
    EXPECT_EQ(LoadBitmap0(4999, kBundle), nullptr);
    EXPECT_EQ(LoadBitmap0(5014, kBundle), nullptr);
}

} // namespace
