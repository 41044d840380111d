// Small pictures for the control tests: strips of solid frames in colours that say which
// frame they are, and the pixels of a DC's off-screen image.
#pragma once

#include "editor/CQMTBitmap.h"
#include "tests/toolkit/TestImages.h"
#include "toolkit/CDC.h"

// A width × (height × colours) bitmap of solid frames, top to bottom (colours 0xRRGGBB).
inline void MakeFrames(CQMTBitmap& bitmap, int width, int height,
                       const std::vector<std::uint32_t>& colours) {
    bitmap.AttachImage(BandsImage(width, height, colours));
}

// The frame colour that names frame k of a 61-frame knob strip.
inline std::uint32_t KnobFrameColour(int frame) {
    return static_cast<std::uint32_t>(frame) << 8 | 0x000040u;
}

// 0xRRGGBB of a DC's off-screen image at (x, y); 0 where nothing was drawn.
inline std::uint32_t PixelIn(CDC& dc, int x, int y) {
    return PixelOf(dc.GetBitmapSurface(), x, y);
}
inline std::uint8_t AlphaIn(CDC& dc, int x, int y) {
    return AlphaOf(dc.GetBitmapSurface(), x, y);
}
