#include "tests/resources/ArtworkImage.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

double Pixel::Distance(const Pixel& other) const {
    return std::max({std::fabs(r - other.r), std::fabs(g - other.g), std::fabs(b - other.b)});
}

ArtworkImage::ArtworkImage(int resourceId) {
    char name[32];
    std::snprintf(name, sizeof name, "/bmp%05d.png", resourceId);
    const std::string path = std::string(ZEPHYRA_ARTWORK_DIR) + name;
    cairo_surface_t* surface = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS)
        surface_.reset(surface);
    else
        cairo_surface_destroy(surface);
}

int ArtworkImage::Width() const {
    return cairo_image_surface_get_width(surface_.get());
}

int ArtworkImage::Height() const {
    return cairo_image_surface_get_height(surface_.get());
}

std::uint32_t ArtworkImage::Word(int x, int y) const {
    const unsigned char* row = cairo_image_surface_get_data(surface_.get()) +
                               y * cairo_image_surface_get_stride(surface_.get());
    std::uint32_t value;
    std::memcpy(&value, row + 4 * x, sizeof value);
    return value;
}

Pixel ArtworkImage::At(int x, int y) const {
    // Opaque images only, so the stored values need no un-premultiplying.
    const std::uint32_t value = Word(x, y);
    return {((value >> 16) & 0xff) / 255.0, ((value >> 8) & 0xff) / 255.0, (value & 0xff) / 255.0};
}

double ArtworkImage::MeanLuma(int left, int top, int width, int height) const {
    double sum = 0.0;
    for (int y = top; y < top + height; ++y)
        for (int x = left; x < left + width; ++x)
            sum += At(x, y).Luma();
    return sum / (width * height);
}
