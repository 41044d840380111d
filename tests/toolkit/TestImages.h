// Small PNG images made with Cairo for the resource loaders, and pixel reading helpers.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <vector>

// A width × (bandHeight × colours) image of horizontal bands, one per colour (0xRRGGBB), top
// to bottom; the caller owns it. The same encoded as PNG.
cairo_surface_t* BandsImage(int width, int bandHeight, const std::vector<std::uint32_t>& colours);
std::vector<unsigned char> BandsPng(int width, int bandHeight,
                                    const std::vector<std::uint32_t>& colours);
// The pixel at (x, y) as 0xRRGGBB, alpha dropped.
std::uint32_t PixelOf(cairo_surface_t* surface, int x, int y);
std::uint8_t AlphaOf(cairo_surface_t* surface, int x, int y);
// The last row that holds a pixel darker than mid grey; -1 when none.
int LastInkRow(cairo_surface_t* surface);
