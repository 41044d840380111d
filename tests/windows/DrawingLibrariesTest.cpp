// The static Cairo and Pango of the Windows edition draw into an image surface: a filled
// rectangle lands where it should in the exact colour, and a line of text laid out by
// Pango (with the win32 font backend) puts ink inside the extents Pango reports for it
// and nowhere else.
#include <cairo.h>
#include <pango/pangocairo.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

constexpr int width = 200;
constexpr int height = 60;
constexpr std::uint32_t white = 0xffffffff;
constexpr std::uint32_t red = 0xffff0000;

// The rectangle, and where the text's layout box starts (right of the rectangle).
constexpr int rectX = 10, rectY = 10, rectWidth = 30, rectHeight = 40;
constexpr int textX = 60, textY = 12;

struct SurfaceDeleter {
    void operator()(cairo_surface_t *surface) const { cairo_surface_destroy(surface); }
};
struct ContextDeleter {
    void operator()(cairo_t *cr) const { cairo_destroy(cr); }
};
struct ObjectDeleter {
    void operator()(void *object) const { g_object_unref(object); }
};
struct FontDeleter {
    void operator()(PangoFontDescription *font) const { pango_font_description_free(font); }
};

class Drawing : public ::testing::Test {
protected:
    void SetUp() override
    {
        surface.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
        ASSERT_EQ(cairo_surface_status(surface.get()), CAIRO_STATUS_SUCCESS);
        cr.reset(cairo_create(surface.get()));
        cairo_set_source_rgb(cr.get(), 1, 1, 1);
        cairo_paint(cr.get());
    }

    std::uint32_t pixel(int x, int y)
    {
        cairo_surface_flush(surface.get());
        const unsigned char *data = cairo_image_surface_get_data(surface.get());
        const int stride = cairo_image_surface_get_stride(surface.get());
        return *reinterpret_cast<const std::uint32_t *>(data + y * stride + x * 4);
    }

    std::unique_ptr<cairo_surface_t, SurfaceDeleter> surface;
    std::unique_ptr<cairo_t, ContextDeleter> cr;
};

TEST_F(Drawing, FilledRectangleHasItsColourInsideAndBackgroundOutside)
{
    cairo_set_source_rgb(cr.get(), 1, 0, 0);
    cairo_rectangle(cr.get(), rectX, rectY, rectWidth, rectHeight);
    cairo_fill(cr.get());
    ASSERT_EQ(cairo_status(cr.get()), CAIRO_STATUS_SUCCESS);

    EXPECT_EQ(pixel(rectX + rectWidth / 2, rectY + rectHeight / 2), red);
    EXPECT_EQ(pixel(rectX, rectY), red);
    EXPECT_EQ(pixel(rectX + rectWidth - 1, rectY + rectHeight - 1), red);
    EXPECT_EQ(pixel(rectX - 1, rectY + rectHeight / 2), white);
    EXPECT_EQ(pixel(rectX + rectWidth, rectY + rectHeight / 2), white);
    EXPECT_EQ(pixel(rectX + rectWidth / 2, rectY - 1), white);
    EXPECT_EQ(pixel(rectX + rectWidth / 2, rectY + rectHeight), white);
    EXPECT_EQ(pixel(0, 0), white);
    EXPECT_EQ(pixel(width - 1, height - 1), white);
}

TEST_F(Drawing, TextInkStaysInsideTheExtentsPangoReports)
{
    std::unique_ptr<PangoLayout, ObjectDeleter> layout(pango_cairo_create_layout(cr.get()));
    std::unique_ptr<PangoFontDescription, FontDeleter> font(
        pango_font_description_from_string("Sans 20px"));
    pango_layout_set_font_description(layout.get(), font.get());
    pango_layout_set_text(layout.get(), "Zephyra", -1);

    PangoRectangle ink, logical;
    pango_layout_get_pixel_extents(layout.get(), &ink, &logical);
    ASSERT_GT(ink.width, 20);
    ASSERT_GT(ink.height, 8);
    ASSERT_GT(logical.width, 20);
    const int inkLeft = textX + ink.x, inkTop = textY + ink.y;
    const int inkRight = inkLeft + ink.width, inkBottom = inkTop + ink.height;
    ASSERT_GE(inkLeft, 0);
    ASSERT_GE(inkTop, 0);
    ASSERT_LE(inkRight, width);
    ASSERT_LE(inkBottom, height);

    cairo_set_source_rgb(cr.get(), 0, 0, 0);
    cairo_move_to(cr.get(), textX, textY);
    pango_cairo_show_layout(cr.get(), layout.get());
    ASSERT_EQ(cairo_status(cr.get()), CAIRO_STATUS_SUCCESS);

    // Ink inside, including pixels the glyphs cover fully; antialiasing may spill a
    // pixel past the reported extents, but never further.
    int inked = 0, dark = 0;
    for (int y = inkTop; y < inkBottom; ++y) {
        for (int x = inkLeft; x < inkRight; ++x) {
            const std::uint32_t p = pixel(x, y);
            inked += p != white;
            dark += (p & 0xff) < 0x40;
        }
    }
    EXPECT_GT(inked, ink.width * ink.height / 10);
    EXPECT_GT(dark, 20);

    constexpr int spill = 2;
    int outside = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool near = x >= inkLeft - spill && x < inkRight + spill &&
                              y >= inkTop - spill && y < inkBottom + spill;
            outside += !near && pixel(x, y) != white;
        }
    }
    EXPECT_EQ(outside, 0);
}

} // namespace
