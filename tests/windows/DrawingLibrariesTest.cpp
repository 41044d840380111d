// The static Pango of the Windows edition, with its win32 font backend, puts a line's ink inside
// the extents it reports and nowhere else (the window tests read Cairo's fills off the screen).
#include <cairo.h>
#include <pango/pangocairo.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

constexpr int width = 200;
constexpr int height = 60;
constexpr std::uint32_t white = 0xffffffff;
// Where the text's layout box starts.
constexpr int textX = 60, textY = 12;

TEST(Drawing, TextInkStaysInsideTheExtentsPangoReports) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    PangoLayout* layout = pango_cairo_create_layout(cr);
    PangoFontDescription* font = pango_font_description_from_string("Sans 20px");
    pango_layout_set_font_description(layout, font);
    pango_font_description_free(font);
    pango_layout_set_text(layout, "Zephyra", -1);

    PangoRectangle ink, logical;
    pango_layout_get_pixel_extents(layout, &ink, &logical);
    ASSERT_GT(ink.width, 20);
    ASSERT_GT(ink.height, 8);
    ASSERT_GT(logical.width, 20);
    const int inkLeft = textX + ink.x, inkTop = textY + ink.y;
    const int inkRight = inkLeft + ink.width, inkBottom = inkTop + ink.height;
    ASSERT_GE(inkLeft, 0);
    ASSERT_GE(inkTop, 0);
    ASSERT_LE(inkRight, width);
    ASSERT_LE(inkBottom, height);

    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, textX, textY);
    pango_cairo_show_layout(cr, layout);
    ASSERT_EQ(cairo_status(cr), CAIRO_STATUS_SUCCESS);
    cairo_surface_flush(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    const auto pixel = [&](int x, int y) {
        return *reinterpret_cast<const std::uint32_t*>(data + y * stride + x * 4);
    };

    // Ink inside, including pixels the glyphs cover fully; antialiasing may spill a
    // pixel past the reported extents, but never further.
    constexpr int spill = 2;
    int inked = 0, dark = 0, outside = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t p = pixel(x, y);
            if (x >= inkLeft && x < inkRight && y >= inkTop && y < inkBottom) {
                inked += p != white;
                dark += (p & 0xff) < 0x40;
            }
            const bool near = x >= inkLeft - spill && x < inkRight + spill && y >= inkTop - spill &&
                              y < inkBottom + spill;
            outside += !near && p != white;
        }
    }
    EXPECT_GT(inked, ink.width * ink.height / 10);
    EXPECT_GT(dark, 20);
    EXPECT_EQ(outside, 0);
    g_object_unref(layout);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
}

} // namespace
