#include "tests/toolkit/TestImages.h"

namespace {

cairo_status_t Append(void* closure, const unsigned char* data, unsigned int length) {
    auto* bytes = static_cast<std::vector<unsigned char>*>(closure);
    bytes->insert(bytes->end(), data, data + length);
    return CAIRO_STATUS_SUCCESS;
}

const std::uint32_t* Row(cairo_surface_t* surface, int y) {
    cairo_surface_flush(surface);
    return reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface) +
                                                  y * cairo_image_surface_get_stride(surface));
}

bool IsInk(std::uint32_t pixel) {
    const unsigned luminance = ((pixel >> 16) & 0xFF) + ((pixel >> 8) & 0xFF) + (pixel & 0xFF);
    return luminance < 3 * 128;
}

} // namespace

cairo_surface_t* BandsImage(int width, int bandHeight, const std::vector<std::uint32_t>& colours) {
    const int height = bandHeight * static_cast<int>(colours.size());
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const std::uint32_t c = colours[i];
        cairo_set_source_rgb(cr, ((c >> 16) & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0,
                             (c & 0xFF) / 255.0);
        cairo_rectangle(cr, 0, static_cast<double>(i) * bandHeight, width, bandHeight);
        cairo_fill(cr);
    }
    cairo_destroy(cr);
    return surface;
}

std::vector<unsigned char> BandsPng(int width, int bandHeight,
                                    const std::vector<std::uint32_t>& colours) {
    cairo_surface_t* surface = BandsImage(width, bandHeight, colours);
    std::vector<unsigned char> png;
    cairo_surface_write_to_png_stream(surface, Append, &png);
    cairo_surface_destroy(surface);
    return png;
}

std::uint32_t PixelOf(cairo_surface_t* surface, int x, int y) {
    return Row(surface, y)[x] & 0xFFFFFF;
}

std::uint8_t AlphaOf(cairo_surface_t* surface, int x, int y) {
    return static_cast<std::uint8_t>(Row(surface, y)[x] >> 24);
}

int LastInkRow(cairo_surface_t* surface) {
    for (int y = cairo_image_surface_get_height(surface) - 1; y >= 0; --y) {
        for (int x = 0; x < cairo_image_surface_get_width(surface); ++x) {
            if (IsInk(Row(surface, y)[x]))
                return y;
        }
    }
    return -1;
}
