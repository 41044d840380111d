#include "toolkit/CDC.h"
#include "toolkit/CairoColour.h"
#include "toolkit/FontCatalog.h"
#include "toolkit/TextLayout.h"

#include <cstring>

namespace {

// Text without a selected font is set in the default face at 12 pixels.
constexpr int kDefaultTextSize = 12;

} // namespace

const FontFace& CDC::TextFace(int* pixelSize) const {
    if (m_pSelectedFont && m_pSelectedFont->GetFace()) {
        *pixelSize = m_pSelectedFont->GetPointSize();
        return *m_pSelectedFont->GetFace();
    }
    *pixelSize = kDefaultTextSize;
    return DefaultFontFace();
}

bool CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text,
                     const int* spacing) {
    return ExtTextOut(x, y, options, rect, text.GetString(), text.GetLength(), spacing);
}

bool CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, int length,
                     const int*) {
    cairo_t* cr = GetSafeContext();
    if ((options & ETO_OPAQUE) && rect && cr) {
        const CRect fill(*rect);
        cairo_save(cr);
        SetCairoSourceColour(cr, m_bkColor);
        cairo_rectangle(cr, fill.left, fill.top, fill.Width(), fill.Height());
        cairo_fill(cr);
        cairo_restore(cr);
        Touch(fill);
    }
    if (!text || length <= 0 || !cr)
        return true;

    int pixelSize = 0;
    const FontFace& face = TextFace(&pixelSize);
    // The ascent that places the baseline: the selected font's (two pixels short of the
    // face's, by design), or the default face's own at its default size.
    const double ascent = m_pSelectedFont ? m_ascent
                                          : DefaultFontFace().ascender /
                                                DefaultFontFace().unitsPerEm * kDefaultTextSize;
    TextLayout layout(cr, face, pixelSize, text, length);
    const double baseline = y + ascent;
    cairo_save(cr);
    if ((options & ETO_CLIPPED) && rect) {
        const CRect clip(*rect);
        cairo_rectangle(cr, clip.left, clip.top, clip.Width(), clip.Height());
        cairo_clip(cr);
    }
    SetCairoSourceColour(cr, m_textColor);
    layout.Draw(cr, x, baseline);
    cairo_restore(cr);
    const CSize extent = layout.Extent();
    const int top = static_cast<int>(baseline - layout.Baseline());
    Touch(CRect(x, top, x + extent.cx + 1, top + extent.cy + 1));
    return true;
}

CSize CDC::GetTextExtent(const CString& text) const {
    return GetTextExtent(text.GetString(), text.GetLength());
}

CSize CDC::GetTextExtent(const char* text, int length) const {
    int pixelSize = 0;
    const FontFace& face = TextFace(&pixelSize);
    return TextLayout(nullptr, face, pixelSize, text, length).Extent();
}

int CDC::DrawText(const CString& text, const RECT& rect, UINT format) {
    cairo_t* cr = GetSafeContext();
    if (!cr)
        return 0;
    int pixelSize = 0;
    const FontFace& face = TextFace(&pixelSize);
    TextLayout layout(cr, face, pixelSize, text.GetString(), text.GetLength());
    const CRect box(rect);
    const CSize extent = layout.Extent();
    double left = box.left;
    if (format & DT_CENTER)
        left = box.left + (box.Width() - extent.cx) / 2.0;
    else if (format & DT_RIGHT)
        left = box.right - extent.cx;
    double top = box.top;
    if (format & DT_VCENTER)
        top = box.top + (box.Height() - extent.cy) / 2.0;
    cairo_save(cr);
    cairo_rectangle(cr, box.left, box.top, box.Width(), box.Height());
    cairo_clip(cr);
    SetCairoSourceColour(cr, m_textColor);
    layout.Draw(cr, static_cast<int>(left), static_cast<int>(top) + layout.Baseline());
    cairo_restore(cr);
    Touch(box);
    return extent.cy;
}
