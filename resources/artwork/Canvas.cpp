#include "resources/artwork/Canvas.h"

#include <pango/pangocairo.h>

#include <cmath>

namespace {
double g_scale = 1.0;
} // namespace

void Canvas::SetScale(double scale) {
    g_scale = scale;
}

Canvas::Canvas(int width, int height)
    : width_(width), height_(height),
      // No alpha: the panel copies bitmaps without blending, so every pixel must be final.
      surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                          static_cast<int>(std::lround(width * g_scale)),
                                          static_cast<int>(std::lround(height * g_scale)))) {
    cairo_surface_set_device_scale(surface_, g_scale, g_scale);
    cr_ = cairo_create(surface_);
}

Canvas::~Canvas() {
    if (cr_)
        cairo_destroy(cr_);
    if (surface_)
        cairo_surface_destroy(surface_);
}

Canvas::Canvas(Canvas&& other) noexcept
    : width_(other.width_), height_(other.height_), surface_(other.surface_), cr_(other.cr_) {
    other.surface_ = nullptr;
    other.cr_ = nullptr;
}

bool Canvas::WritePng(const std::string& path) const {
    cairo_surface_flush(surface_);
    return cairo_surface_write_to_png(surface_, path.c_str()) == CAIRO_STATUS_SUCCESS;
}

void SetColour(cairo_t* cr, Rgb colour, double alpha) {
    cairo_set_source_rgba(cr, colour.r, colour.g, colour.b, alpha);
}

Rgb Mix(Rgb from, Rgb to, double share) {
    return {from.r + (to.r - from.r) * share, from.g + (to.g - from.g) * share,
            from.b + (to.b - from.b) * share};
}

void FillPixels(cairo_t* cr, int x, int y, int width, int height, Rgb colour) {
    SetColour(cr, colour);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
}

void FillHeader(cairo_t* cr, int panelTop, int width, int height) {
    const Palette& p = kPalette;
    cairo_pattern_t* shade =
        cairo_pattern_create_linear(0.0, -panelTop, 0.0, p.headerHeight - panelTop);
    cairo_pattern_add_color_stop_rgb(shade, 0.0, p.headerTop.r, p.headerTop.g, p.headerTop.b);
    cairo_pattern_add_color_stop_rgb(shade, 1.0, p.headerBottom.r, p.headerBottom.g,
                                     p.headerBottom.b);
    cairo_rectangle(cr, 0, 0, width, height);
    cairo_set_source(cr, shade);
    cairo_fill(cr);
    cairo_pattern_destroy(shade);
}

void RoundedRectPath(cairo_t* cr, double x, double y, double width, double height, double radius) {
    const double quarter = M_PI / 2.0;
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + width - radius, y + radius, radius, -quarter, 0.0);
    cairo_arc(cr, x + width - radius, y + height - radius, radius, 0.0, quarter);
    cairo_arc(cr, x + radius, y + height - radius, radius, quarter, 2.0 * quarter);
    cairo_arc(cr, x + radius, y + radius, radius, 2.0 * quarter, 3.0 * quarter);
    cairo_close_path(cr);
}

void SunkenBezel(cairo_t* cr, int x, int y, int width, int height) {
    FillPixels(cr, x - 1, y - 1, width + 2, 1, kPalette.bevelDark);
    FillPixels(cr, x - 1, y, 1, height, kPalette.bevelDark);
    FillPixels(cr, x - 1, y + height, width + 2, 1, kPalette.bevelLight);
    FillPixels(cr, x + width, y, 1, height, kPalette.bevelLight);
}

void ButtonFace(cairo_t* cr, int width, int height, bool pressed, Rgb top, Rgb bottom,
                Rgb outline) {
    const double faceTop = pressed ? 2.0 : 1.0;
    const double faceHeight = height - 3.0;
    const double radius = kPalette.buttonCorner;
    if (!pressed) {
        RoundedRectPath(cr, 1.0, 2.0, width - 2.0, faceHeight, radius);
        SetColour(cr, kPalette.bevelDark, 0.9);
        cairo_fill(cr);
    }
    cairo_pattern_t* body = cairo_pattern_create_linear(0.0, faceTop, 0.0, faceTop + faceHeight);
    cairo_pattern_add_color_stop_rgb(body, 0.0, top.r, top.g, top.b);
    cairo_pattern_add_color_stop_rgb(body, 1.0, bottom.r, bottom.g, bottom.b);
    RoundedRectPath(cr, 1.0, faceTop, width - 2.0, faceHeight, radius);
    cairo_set_source(cr, body);
    cairo_fill(cr);
    cairo_pattern_destroy(body);

    RoundedRectPath(cr, 1.5, faceTop + 0.5, width - 3.0, faceHeight - 1.0, radius - 0.5);
    SetColour(cr, outline);
    cairo_set_line_width(cr, 1.0);
    cairo_stroke(cr);
    // The lit upper edge, shorter than the face so the corners stay round.
    SetColour(cr, Mix(top, Hex(0xffffff), 0.25), 0.8);
    cairo_rectangle(cr, 1.0 + radius, faceTop + 1.0, width - 2.0 - 2.0 * radius, 1.0);
    cairo_fill(cr);
}

namespace {

PangoLayout* MakeLayout(cairo_t* cr, const char* text, const TypeStyle& style) {
    PangoLayout* layout = pango_cairo_create_layout(cr);
    // Fixed rendering options, so the build's output does not depend on the desktop's
    // font settings.
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    PangoContext* context = pango_layout_get_context(layout);
    pango_cairo_context_set_font_options(context, options);
    pango_layout_context_changed(layout);
    cairo_font_options_destroy(options);

    PangoFontDescription* font = pango_font_description_new();
    pango_font_description_set_family(font, kPalette.fontFamily);
    pango_font_description_set_weight(font, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(font, style.pixelSize * PANGO_SCALE);
    pango_layout_set_font_description(layout, font);
    pango_font_description_free(font);

    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_letter_spacing_new(static_cast<int>(
                                           std::lround(style.tracking * PANGO_SCALE))));
    pango_layout_set_attributes(layout, attributes);
    pango_attr_list_unref(attributes);
    pango_layout_set_text(layout, text, -1);
    return layout;
}

} // namespace

void DrawText(cairo_t* cr, const char* text, const TypeStyle& style, double x, double baseline,
              Align align) {
    PangoLayout* layout = MakeLayout(cr, text, style);
    PangoRectangle ink;
    pango_layout_get_extents(layout, &ink, nullptr);
    const double inkLeft = static_cast<double>(ink.x) / PANGO_SCALE;
    const double inkWidth = static_cast<double>(ink.width) / PANGO_SCALE;
    double originX = x - inkLeft;
    if (align == Align::Centre)
        originX -= inkWidth / 2.0;
    else if (align == Align::Right)
        originX -= inkWidth;
    const double originY =
        baseline - static_cast<double>(pango_layout_get_baseline(layout)) / PANGO_SCALE;
    // Whole-pixel origins keep hinted stems on the pixel grid.
    cairo_move_to(cr, std::round(originX), std::round(originY));
    SetColour(cr, style.colour);
    pango_cairo_show_layout(cr, layout);
    g_object_unref(layout);
}

void DrawTextMiddled(cairo_t* cr, const char* text, const TypeStyle& style, double x,
                     double middleY, Align align) {
    // The sans face's capitals stand 0.73 em tall.
    const double capHeight = 0.73 * style.pixelSize;
    DrawText(cr, text, style, x, std::round(middleY + capHeight / 2.0), align);
}
