// What every backend's Present does with the finished pixels: copies one area of them,
// unblended, to the same place on the surface that shows the window. The area is in device
// pixels; the pixels may carry the editor's scale, which the copy undoes, so that each
// device pixel lands on one pixel of the window.
#pragma once

#include "base/WinTypes.h"

#include <cairo.h>

namespace native {

inline void CopyArea(cairo_surface_t* pixels, const RECT& area, cairo_surface_t* shown) {
    cairo_t* cr = cairo_create(shown);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(cr, area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_clip(cr);
    double scaleX = 1.0;
    double scaleY = 1.0;
    cairo_surface_get_device_scale(pixels, &scaleX, &scaleY);
    cairo_scale(cr, scaleX, scaleY);
    cairo_set_source_surface(cr, pixels, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
}

} // namespace native
