// The toolkit's colours (COLORREF, red in the low byte) as Cairo's opaque source.
#pragma once

#include "base/WinTypes.h"

#include <cairo.h>

inline void SetCairoSourceColour(cairo_t* cr, COLORREF colour) {
    cairo_set_source_rgb(cr, GetRValue(colour) / 255.0, GetGValue(colour) / 255.0,
                         GetBValue(colour) / 255.0);
}
