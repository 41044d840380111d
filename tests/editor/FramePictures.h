// Small pictures for the control tests: strips of solid frames in colours that say which
// frame they are, and a DC to draw them into and read back.
#pragma once

#include "toolkit/CDC.h"
#include "editor/CQMTBitmap.h"

#include <cairo.h>
#include <cstdint>
#include <vector>

// A width × (height × colours) bitmap of solid frames, top to bottom (colours 0xRRGGBB).
inline void MakeFrames(CQMTBitmap& bitmap, int width, int height,
                       const std::vector<std::uint32_t>& colours) {
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width,
                                                        height * static_cast<int>(colours.size()));
    cairo_t* cr = cairo_create(image);
    for (std::size_t frame = 0; frame < colours.size(); ++frame) {
        const std::uint32_t colour = colours[frame];
        cairo_set_source_rgb(cr, ((colour >> 16) & 0xFF) / 255.0, ((colour >> 8) & 0xFF) / 255.0,
                             (colour & 0xFF) / 255.0);
        cairo_rectangle(cr, 0, height * static_cast<double>(frame), width, height);
        cairo_fill(cr);
    }
    cairo_destroy(cr);
    bitmap.AttachImage(image);
}

// The frame colour that names frame k of a 61-frame knob strip.
inline std::uint32_t KnobFrameColour(int frame) {
    return static_cast<std::uint32_t>(frame) << 8 | 0x000040u;
}

// The 0xAARRGGBB word of an image surface at (x, y).
inline std::uint32_t SurfacePixel(cairo_surface_t* surface, int x, int y) {
    cairo_surface_flush(surface);
    const unsigned char* row =
        cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
    return reinterpret_cast<const std::uint32_t*>(row)[x];
}

// 0xRRGGBB of a DC's off-screen image at (x, y); 0 where nothing was drawn.
inline std::uint32_t PixelIn(CDC& dc, int x, int y) {
    return SurfacePixel(dc.GetBitmapSurface(), x, y) & 0xFFFFFF;
}

inline std::uint8_t AlphaIn(CDC& dc, int x, int y) {
    return static_cast<std::uint8_t>(SurfacePixel(dc.GetBitmapSurface(), x, y) >> 24);
}
