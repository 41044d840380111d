// Reads the artwork the build generated, by resource number, for pixel checks.
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

    bool Loaded() const { return surface_ != nullptr; }
    int Width() const;
    int Height() const;
    Pixel At(int x, int y) const;
    double MeanLuma(int left, int top, int width, int height) const;

private:
    struct SurfaceRelease {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    std::unique_ptr<cairo_surface_t, SurfaceRelease> surface_;
};
