// Push switches: the power switch, the filter-type switches and the copy-program button.
// Each bitmap holds a released frame above a pressed one; the panel picks the lit or the
// dark bitmap by the switch's state.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

#include <cmath>

namespace {

template <typename DrawFrame> Canvas TwoFrames(int width, int frameHeight, DrawFrame drawFrame) {
    Canvas canvas(width, 2 * frameHeight);
    cairo_t* cr = canvas.Context();
    for (int pressed = 0; pressed < 2; ++pressed) {
        cairo_save(cr);
        cairo_translate(cr, 0.0, static_cast<double>(pressed * frameHeight));
        cairo_rectangle(cr, 0, 0, width, frameHeight);
        cairo_clip(cr);
        drawFrame(cr, pressed == 1);
        cairo_restore(cr);
    }
    return canvas;
}

// The middle of a button's face, which drops by a pixel while pressed.
double FaceMiddle(int frameHeight, bool pressed) {
    return (pressed ? 2.0 : 1.0) + (frameHeight - 3.0) / 2.0;
}

void Glow(cairo_t* cr, double x, double y, double radius, Rgb colour, double strength) {
    cairo_pattern_t* glow = cairo_pattern_create_radial(x, y, 0.0, x, y, radius);
    cairo_pattern_add_color_stop_rgba(glow, 0.0, colour.r, colour.g, colour.b, strength);
    cairo_pattern_add_color_stop_rgba(glow, 1.0, colour.r, colour.g, colour.b, 0.0);
    cairo_set_source(cr, glow);
    cairo_arc(cr, x, y, radius, 0.0, 2.0 * M_PI);
    cairo_fill(cr);
    cairo_pattern_destroy(glow);
}

void PowerGlyph(cairo_t* cr, double x, double y, Rgb colour) {
    const double radius = 4.5;
    const double gap = 50.0 * M_PI / 180.0;
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(cr, 1.5);
    SetColour(cr, colour);
    cairo_arc(cr, x, y, radius, -M_PI / 2.0 + gap, 3.0 * M_PI / 2.0 - gap);
    cairo_stroke(cr);
    cairo_move_to(cr, x, y - radius - 1.0);
    cairo_line_to(cr, x, y - 0.5);
    cairo_stroke(cr);
}

} // namespace

Canvas DrawPowerSwitch(bool lit) {
    const PixelRect& rect = layout::kPowerSwitch;
    return TwoFrames(rect.Width(), rect.Height(), [&](cairo_t* cr, bool pressed) {
        const Palette& p = kPalette;
        FillHeader(cr, rect.top, rect.Width(), rect.Height());
        ButtonFace(cr, rect.Width(), rect.Height(), pressed, p.buttonTop, p.buttonBottom,
                   lit ? Mix(p.buttonOutline, p.accent, 0.5) : p.buttonOutline);
        const double x = rect.Width() / 2.0;
        const double y = FaceMiddle(rect.Height(), pressed) + 0.5;
        if (lit) {
            Glow(cr, x, y, 8.0, p.accent, 0.45);
            PowerGlyph(cr, x, y, p.accentGlow);
        } else {
            PowerGlyph(cr, x, y, p.legendOff);
        }
    });
}

Canvas DrawTypeSwitch(bool lit) {
    return TwoFrames(
        layout::kTypeSwitchWidth, layout::kTypeSwitchHeight, [&](cairo_t* cr, bool pressed) {
            const Palette& p = kPalette;
            FillPixels(cr, 0, 0, layout::kTypeSwitchWidth, layout::kTypeSwitchHeight, p.plate);
            if (lit)
                ButtonFace(cr, layout::kTypeSwitchWidth, layout::kTypeSwitchHeight, pressed,
                           p.accentGlow, p.accent, Mix(p.accent, p.bevelDark, 0.4));
            else
                ButtonFace(cr, layout::kTypeSwitchWidth, layout::kTypeSwitchHeight, pressed,
                           p.buttonTop, p.buttonBottom, p.buttonOutline);
        });
}

Canvas DrawCopyButton(bool lit) {
    const PixelRect& rect = layout::kCopyButton;
    return TwoFrames(rect.Width(), rect.Height(), [&](cairo_t* cr, bool pressed) {
        const Palette& p = kPalette;
        FillHeader(cr, rect.top, rect.Width(), rect.Height());
        ButtonFace(cr, rect.Width(), rect.Height(), pressed || lit, p.buttonTop, p.buttonBottom,
                   lit ? Mix(p.buttonOutline, p.accent, 0.5) : p.buttonOutline);
        TypeStyle legend = p.buttonLegend;
        legend.colour = lit ? p.accentGlow : p.label;
        DrawTextMiddled(cr, kLabels.copy, legend, rect.Width() / 2.0,
                        FaceMiddle(rect.Height(), pressed || lit), Align::Centre);
    });
}
