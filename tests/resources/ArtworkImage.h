// Reads the artwork the build generated, by resource number, or a picture loaded elsewhere,
// for pixel checks.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>

struct Pixel {
    double r, g, b; // 0 to 1

    // Perceived brightness of the stored (gamma-encoded) values.
    double Luma() const { return 0.2126 * r + 0.7152 * g + 0.0722 * b; }
    double Distance(const Pixel& other) const;
};

class ArtworkImage {
public:
    // Loads bmpNNNNN.png from the build's artwork folder; Loaded() tells whether that worked.
    explicit ArtworkImage(int resourceId);
    // Takes over a picture loaded elsewhere; not Loaded() when it is null.
    explicit ArtworkImage(cairo_surface_t* surface) : surface_(surface) {}

    bool Loaded() const { return surface_ != nullptr; }
    int Width() const;
    int Height() const;
    Pixel At(int x, int y) const;
    unsigned Alpha(int x, int y) const { return Word(x, y) >> 24; }
    double MeanLuma(int left, int top, int width, int height) const;

private:
    std::uint32_t Word(int x, int y) const;

    struct SurfaceRelease {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    std::unique_ptr<cairo_surface_t, SurfaceRelease> surface_;
};
