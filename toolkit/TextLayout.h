// Text set in one line with Pango, in a face at a pixel size, measured and drawn the same
// way whether a window or an off-screen image receives it.
#pragma once

#include "base/CSize.h"
#include "toolkit/FontCatalog.h"

#include <cairo.h>
#include <pango/pangocairo.h>

class TextLayout {
public:
    // Measures only when cr is null.
    TextLayout(cairo_t* cr, const FontFace& face, int pixelSize, const char* utf8, int length);
    ~TextLayout();
    TextLayout(const TextLayout&) = delete;
    TextLayout& operator=(const TextLayout&) = delete;

    // Width and height of the line's logical box, rounded up to whole pixels.
    CSize Extent() const;
    // Distance from the top of the logical box to the baseline, in pixels.
    double Baseline() const;
    // Draws with the baseline's left end at (x, baselineY) in the current source colour.
    void Draw(cairo_t* cr, double x, double baselineY) const;

private:
    PangoLayout* m_layout = nullptr;
};
