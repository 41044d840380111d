#include "toolkit/CDC.h"
#include "toolkit/CairoColour.h"

#include <algorithm>
#include <cmath>

namespace {

// A rectangle whose corners are quarter circles; a radius of 0 or less gives the plain
// rectangle.
void RoundRectPath(cairo_t* cr, double left, double top, double width, double height,
                   double radius) {
    if (radius <= 0.0) {
        cairo_rectangle(cr, left, top, width, height);
        return;
    }
    radius = std::min({radius, width / 2.0, height / 2.0});
    const double right = left + width;
    const double bottom = top + height;
    cairo_new_sub_path(cr);
    cairo_arc(cr, right - radius, top + radius, radius, -M_PI / 2.0, 0.0);
    cairo_arc(cr, right - radius, bottom - radius, radius, 0.0, M_PI / 2.0);
    cairo_arc(cr, left + radius, bottom - radius, radius, M_PI / 2.0, M_PI);
    cairo_arc(cr, left + radius, top + radius, radius, M_PI, 1.5 * M_PI);
    cairo_close_path(cr);
}

} // namespace

void CDC::FillSolidRect(const RECT& rect, COLORREF color) {
    FillRoundRect(rect, 0.0, color);
}

void CDC::FillRoundRect(const RECT& rect, double radius, COLORREF color) {
    cairo_t* cr = GetSafeContext();
    if (!cr)
        return;
    const CRect box(rect);
    cairo_save(cr);
    SetCairoSourceColour(cr, color);
    RoundRectPath(cr, box.left, box.top, box.Width(), box.Height(), radius);
    cairo_fill(cr);
    cairo_restore(cr);
    Touch(box);
}

// The outline runs on the pixel centres just inside the rectangle, so it stays crisp.
void CDC::FrameRoundRect(const RECT& rect, double radius, COLORREF color, double lineWidth) {
    cairo_t* cr = GetSafeContext();
    if (!cr)
        return;
    const CRect box(rect);
    const double inset = lineWidth / 2.0;
    cairo_save(cr);
    SetCairoSourceColour(cr, color);
    cairo_set_line_width(cr, lineWidth);
    RoundRectPath(cr, box.left + inset, box.top + inset, box.Width() - lineWidth,
                  box.Height() - lineWidth, radius);
    cairo_stroke(cr);
    cairo_restore(cr);
    Touch(box);
}

void CDC::DrawLine(double x1, double y1, double x2, double y2, COLORREF color, double lineWidth) {
    cairo_t* cr = GetSafeContext();
    if (!cr)
        return;
    cairo_save(cr);
    SetCairoSourceColour(cr, color);
    cairo_set_line_width(cr, lineWidth);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(cr, x1, y1);
    cairo_line_to(cr, x2, y2);
    cairo_stroke(cr);
    cairo_restore(cr);
    const int grow = static_cast<int>(std::ceil(lineWidth)) + 1;
    CRect box(static_cast<int>(std::min(x1, x2)), static_cast<int>(std::min(y1, y2)),
              static_cast<int>(std::max(x1, x2)), static_cast<int>(std::max(y1, y2)));
    box.InflateRect(grow, grow);
    Touch(box);
}

void CDC::FillPolygon(const POINT* points, int count, COLORREF color) {
    cairo_t* cr = GetSafeContext();
    if (!cr || !points || count < 3)
        return;
    cairo_save(cr);
    SetCairoSourceColour(cr, color);
    CRect box(points[0].x, points[0].y, points[0].x, points[0].y);
    for (int i = 0; i < count; ++i) {
        if (i == 0)
            cairo_move_to(cr, points[i].x, points[i].y);
        else
            cairo_line_to(cr, points[i].x, points[i].y);
        box.UnionRect(box, CRect(points[i].x, points[i].y, points[i].x + 1, points[i].y + 1));
    }
    cairo_close_path(cr);
    cairo_fill(cr);
    cairo_restore(cr);
    Touch(box);
}
