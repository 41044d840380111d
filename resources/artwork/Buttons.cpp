// The header's single-frame pictures: the save button and the program-edited lamp, plus
// the one bitmap the panel loads without drawing.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

namespace {

// A lamp window sunk into the header: dark glass when off, a lit legend plate when on.
void DrawLampFrame(cairo_t* cr, int width, int height, bool lit) {
    const Palette& p = kPalette;
    FillHeader(cr, layout::kProgramLamp.top, width, height);
    const double radius = p.buttonCorner;
    RoundedRectPath(cr, 0.5, 0.5, width - 1.0, height - 1.0, radius);
    SetColour(cr, p.bevelDark);
    cairo_fill(cr);

    cairo_pattern_t* glass = cairo_pattern_create_linear(0.0, 1.0, 0.0, height - 1.0);
    const Rgb top = lit ? p.lampLitCore : Hex(0x17191c);
    const Rgb bottom = lit ? p.lampLit : Hex(0x0f1012);
    cairo_pattern_add_color_stop_rgb(glass, 0.0, top.r, top.g, top.b);
    cairo_pattern_add_color_stop_rgb(glass, 1.0, bottom.r, bottom.g, bottom.b);
    RoundedRectPath(cr, 1.0, 1.0, width - 2.0, height - 2.0, radius - 0.5);
    cairo_set_source(cr, glass);
    cairo_fill(cr);
    cairo_pattern_destroy(glass);
    // Light catching the lower rim of the opening.
    FillPixels(cr, 2, height - 1, width - 4, 1, p.bevelLight);

    TypeStyle legend = p.buttonLegend;
    legend.colour = lit ? p.lampLegendLit : p.legendOff;
    DrawTextMiddled(cr, kLabels.edited, legend, width / 2.0, height / 2.0, Align::Centre);
}

} // namespace

Canvas DrawSaveButton() {
    const PixelRect& rect = layout::kSaveButton;
    const Palette& p = kPalette;
    Canvas canvas(rect.Width(), rect.Height());
    cairo_t* cr = canvas.Context();
    FillHeader(cr, rect.top, rect.Width(), rect.Height());
    ButtonFace(cr, rect.Width(), rect.Height(), false, p.buttonTop, p.buttonBottom,
               p.buttonOutline);
    TypeStyle legend = p.buttonLegend;
    legend.colour = p.label;
    DrawTextMiddled(cr, kLabels.save, legend, rect.Width() / 2.0, 1.0 + (rect.Height() - 3) / 2.0,
                    Align::Centre);
    return canvas;
}

Canvas DrawProgramLamp() {
    const PixelRect& rect = layout::kProgramLamp;
    Canvas canvas(rect.Width(), 2 * rect.Height());
    cairo_t* cr = canvas.Context();
    for (int edited = 0; edited < 2; ++edited) {
        cairo_save(cr);
        cairo_translate(cr, 0.0, static_cast<double>(edited * rect.Height()));
        cairo_rectangle(cr, 0, 0, rect.Width(), rect.Height());
        cairo_clip(cr);
        DrawLampFrame(cr, rect.Width(), rect.Height(), edited == 1);
        cairo_restore(cr);
    }
    return canvas;
}

Canvas DrawUnusedBitmap() {
    Canvas canvas(1, 1);
    FillPixels(canvas.Context(), 0, 0, 1, 1, kPalette.plate);
    return canvas;
}
