#include "toolkit/TextLayout.h"

#include <cmath>

namespace {

// Unhinted metrics, so that a text measures the same on every surface it is drawn on.
void UseUnhintedMetrics(PangoContext* context) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

PangoContext* MeasuringContext() {
    static PangoContext* context = [] {
        PangoContext* made = pango_font_map_create_context(pango_cairo_font_map_get_default());
        UseUnhintedMetrics(made);
        return made;
    }();
    return context;
}

} // namespace

TextLayout::TextLayout(cairo_t* cr, const FontFace& face, int pixelSize, const char* utf8,
                       int length) {
    if (cr) {
        m_layout = pango_cairo_create_layout(cr);
        UseUnhintedMetrics(pango_layout_get_context(m_layout));
        pango_layout_context_changed(m_layout);
    } else {
        m_layout = pango_layout_new(MeasuringContext());
    }
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, face.family.c_str());
    pango_font_description_set_absolute_size(description, pixelSize * PANGO_SCALE);
    pango_layout_set_font_description(m_layout, description);
    pango_font_description_free(description);
    pango_layout_set_single_paragraph_mode(m_layout, TRUE);
    // Bytes that are not UTF-8 (a Shift-JIS name, say) show as replacement characters.
    gchar* valid = g_utf8_make_valid(utf8 ? utf8 : "", utf8 ? length : 0);
    pango_layout_set_text(m_layout, valid, -1);
    g_free(valid);
}

TextLayout::~TextLayout() {
    g_object_unref(m_layout);
}

CSize TextLayout::Extent() const {
    PangoRectangle logical;
    pango_layout_get_extents(m_layout, nullptr, &logical);
    return CSize(static_cast<int>(std::ceil(static_cast<double>(logical.width) / PANGO_SCALE)),
                 static_cast<int>(std::ceil(static_cast<double>(logical.height) / PANGO_SCALE)));
}

double TextLayout::Baseline() const {
    return static_cast<double>(pango_layout_get_baseline(m_layout)) / PANGO_SCALE;
}

void TextLayout::Draw(cairo_t* cr, double x, double baselineY) const {
    cairo_move_to(cr, x, baselineY - Baseline());
    pango_cairo_show_layout(cr, m_layout);
}
