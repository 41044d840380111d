// The knob: 61 frames stacked top to bottom, shared by all six knobs of the panel.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

#include <cmath>

namespace {

constexpr double kDegree = M_PI / 180.0;

// Cairo measures angles clockwise from 3 o'clock; the knob clockwise from 6 o'clock.
double CairoAngle(double degreesFromDown) {
    return (90.0 + degreesFromDown) * kDegree;
}

// Every colour change is vertical only, so a pointer straight up gives a mirror-image frame.
void DrawKnobFrame(cairo_t* cr, int frame) {
    const Palette& p = kPalette;
    const double c = layout::kKnobSize / 2.0;
    const double first = layout::kKnobFirstAngle;
    const double last = first + layout::kKnobAngleStep * (layout::kKnobFrames - 1);
    const double pointer = first + layout::kKnobAngleStep * frame;

    FillPixels(cr, 0, 0, layout::kKnobSize, layout::kKnobSize, p.plate);

    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_width(cr, p.knobArcWidth);
    SetColour(cr, p.knobTrack);
    cairo_arc(cr, c, c, p.knobArcRadius, CairoAngle(first), CairoAngle(last));
    cairo_stroke(cr);
    if (frame > 0) {
        SetColour(cr, p.accent);
        cairo_arc(cr, c, c, p.knobArcRadius, CairoAngle(first), CairoAngle(pointer));
        cairo_stroke(cr);
    }

    // A soft shadow under the cap, falling straight down.
    cairo_pattern_t* shadow = cairo_pattern_create_radial(c, c + 1.5, p.knobCapRadius - 1.0, c,
                                                          c + 1.5, p.knobCapRadius + 2.5);
    cairo_pattern_add_color_stop_rgba(shadow, 0.0, 0.0, 0.0, 0.0, 0.75);
    cairo_pattern_add_color_stop_rgba(shadow, 1.0, 0.0, 0.0, 0.0, 0.0);
    cairo_set_source(cr, shadow);
    cairo_arc(cr, c, c + 1.5, p.knobCapRadius + 2.5, 0.0, 2.0 * M_PI);
    cairo_fill(cr);
    cairo_pattern_destroy(shadow);

    cairo_pattern_t* cap =
        cairo_pattern_create_linear(0.0, c - p.knobCapRadius, 0.0, c + p.knobCapRadius);
    cairo_pattern_add_color_stop_rgb(cap, 0.0, p.knobCapTop.r, p.knobCapTop.g, p.knobCapTop.b);
    cairo_pattern_add_color_stop_rgb(cap, 1.0, p.knobCapBottom.r, p.knobCapBottom.g,
                                     p.knobCapBottom.b);
    cairo_arc(cr, c, c, p.knobCapRadius, 0.0, 2.0 * M_PI);
    cairo_set_source(cr, cap);
    cairo_fill_preserve(cr);
    cairo_pattern_destroy(cap);
    SetColour(cr, p.knobEdge);
    cairo_set_line_width(cr, 1.0);
    cairo_stroke(cr);

    // The machined top face, a little smaller and flatter than the skirt.
    cairo_pattern_t* face = cairo_pattern_create_linear(0.0, c - 8.0, 0.0, c + 8.0);
    const Rgb faceTop = Mix(p.knobCapTop, p.knobCapBottom, 0.25);
    const Rgb faceBottom = Mix(p.knobCapTop, p.knobCapBottom, 0.6);
    cairo_pattern_add_color_stop_rgb(face, 0.0, faceTop.r, faceTop.g, faceTop.b);
    cairo_pattern_add_color_stop_rgb(face, 1.0, faceBottom.r, faceBottom.g, faceBottom.b);
    cairo_arc(cr, c, c, p.knobCapRadius - 2.5, 0.0, 2.0 * M_PI);
    cairo_set_source(cr, face);
    cairo_fill(cr);
    cairo_pattern_destroy(face);

    const double angle = CairoAngle(pointer);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(cr, 2.0);
    SetColour(cr, p.knobPointer);
    cairo_move_to(cr, c + 3.5 * std::cos(angle), c + 3.5 * std::sin(angle));
    cairo_line_to(cr, c + (p.knobCapRadius - 1.0) * std::cos(angle),
                  c + (p.knobCapRadius - 1.0) * std::sin(angle));
    cairo_stroke(cr);
}

} // namespace

Canvas DrawKnobStrip() {
    Canvas canvas(layout::kKnobSize, layout::kKnobSize * layout::kKnobFrames);
    cairo_t* cr = canvas.Context();
    for (int frame = 0; frame < layout::kKnobFrames; ++frame) {
        cairo_save(cr);
        cairo_translate(cr, 0.0, static_cast<double>(frame * layout::kKnobSize));
        cairo_rectangle(cr, 0, 0, layout::kKnobSize, layout::kKnobSize);
        cairo_clip(cr);
        DrawKnobFrame(cr, frame);
        cairo_restore(cr);
    }
    return canvas;
}
