// The level fader: a slot it runs in and a cap. The panel pastes the cap one pixel in from
// the slot's left edge and cuts off whatever passes the right edge, so the cap's body sits
// in its leftmost columns to come out centred over the slot.

#include "editor/PanelGeometry.h"
#include "resources/artwork/Artwork.h"

namespace {

constexpr int kSlotWidth = 4;
constexpr int kCapLeftInset = 1; // where the panel pastes the cap
constexpr int kCapWidth = 14;

int SliderWidth() {
    return layout::kSliders[0].Width();
}

} // namespace

Canvas DrawSliderBackground() {
    const Palette& p = kPalette;
    const int width = SliderWidth();
    const int height = layout::kSliders[0].Height();
    Canvas canvas(width, height);
    cairo_t* cr = canvas.Context();
    FillPixels(cr, 0, 0, width, height, p.plate);

    const int slotLeft = (width - kSlotWidth) / 2;
    const int slotTop = 3;
    const int slotHeight = height - 2 * slotTop;
    FillPixels(cr, slotLeft, slotTop, kSlotWidth, slotHeight, p.well);
    SunkenBezel(cr, slotLeft, slotTop, kSlotWidth, slotHeight);
    return canvas;
}

Canvas DrawSliderThumb() {
    const Palette& p = kPalette;
    const int width = SliderWidth();
    const int height = p.thumbHeight;
    Canvas canvas(width, height);
    cairo_t* cr = canvas.Context();
    FillPixels(cr, 0, 0, width, height, p.plate);

    const int capLeft = (width - kCapWidth) / 2 - kCapLeftInset;
    cairo_pattern_t* body = cairo_pattern_create_linear(0.0, 0.0, 0.0, height);
    cairo_pattern_add_color_stop_rgb(body, 0.0, p.thumbTop.r, p.thumbTop.g, p.thumbTop.b);
    cairo_pattern_add_color_stop_rgb(body, 1.0, p.thumbBottom.r, p.thumbBottom.g, p.thumbBottom.b);
    RoundedRectPath(cr, capLeft, 0.0, kCapWidth, height, 1.5);
    cairo_set_source(cr, body);
    cairo_fill(cr);
    cairo_pattern_destroy(body);
    RoundedRectPath(cr, capLeft + 0.5, 0.5, kCapWidth - 1.0, height - 1.0, 1.0);
    SetColour(cr, p.knobEdge);
    cairo_set_line_width(cr, 1.0);
    cairo_stroke(cr);

    // Grip grooves either side of the index line, which marks the fader's value.
    const int middle = height / 2;
    FillPixels(cr, capLeft + 2, middle - 3, kCapWidth - 4, 1, Mix(p.thumbBottom, p.knobEdge, 0.5));
    FillPixels(cr, capLeft + 2, middle + 3, kCapWidth - 4, 1, Mix(p.thumbBottom, p.knobEdge, 0.5));
    FillPixels(cr, capLeft + 1, middle, kCapWidth - 2, 1, p.thumbLine);
    return canvas;
}
