#include "toolkit/CDC.h"

#include "base/Diagnostic.h"
#include "toolkit/CWnd.h"
#include "toolkit/DisplayScale.h"
#include "toolkit/PostedMessageRing.h"

#include <algorithm>

namespace {
constexpr int kDisplayDCSize = 1024;
} // namespace

CDC::CDC() = default;

CDC::~CDC() {
    DeleteDC();
}

void CDC::BindToWindow(CWnd* wnd) {
    m_pWnd = wnd;
    if (!wnd)
        return;
    wnd->GetClientRect(&m_clipRect);
    m_size = m_clipRect.Size();
}

bool CDC::CreateBitmapDC(int width, int height) {
    DeleteDC();
    if (width <= 0 || height <= 0)
        return false;
    // Drawn in layout pixels at the device's density, like the views it is copied to.
    const double scale = DeviceScale();
    cairo_surface_t* surface = cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, ToDevice(width, scale), ToDevice(height, scale));
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return false;
    }
    cairo_surface_set_device_scale(surface, scale, scale);
    m_bitmapSurface = surface;
    m_bitmapContext = cairo_create(surface);
    m_clipRect = CRect(0, 0, width, height);
    m_size = CSize(width, height);
    return true;
}

bool CDC::CreateCompatibleDC(CDC* other) {
    if (other) {
        m_lineHeight = other->m_lineHeight;
        m_ascent = other->m_ascent;
    }
    return true;
}

bool CDC::CreateDC(const char*, const char*, const char*, const void*) {
    if (hTempWnd.load())
        CreateBitmapDC(kDisplayDCSize, kDisplayDCSize);
    return true;
}

bool CDC::DeleteDC() {
    if (m_bitmapContext) {
        cairo_destroy(m_bitmapContext);
        m_bitmapContext = nullptr;
    }
    if (m_bitmapSurface) {
        cairo_surface_flush(m_bitmapSurface);
        cairo_surface_destroy(m_bitmapSurface);
        m_bitmapSurface = nullptr;
    }
    return true;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
    CBitmap* previous = m_pSelectedBitmap ? m_pSelectedBitmap : NoBitmap();
    m_pSelectedBitmap = (bitmap == NoBitmap()) ? nullptr : bitmap;
    return previous;
}

CFont* CDC::SelectObject(CFont* font) {
    CFont* previous = m_pSelectedFont ? m_pSelectedFont : NoFont();
    if (!font || font == NoFont()) {
        m_pSelectedFont = nullptr;
        return previous;
    }
    m_pSelectedFont = font;
    m_lineHeight = font->GetLineHeight();
    m_ascent = font->GetAscent();
    if (m_pWnd)
        m_pWnd->SetFont(font, false);
    return previous;
}

COLORREF CDC::SetTextColor(COLORREF color) {
    const COLORREF previous = m_textColor;
    m_textColor = color;
    return previous;
}

COLORREF CDC::SetBkColor(COLORREF color) {
    const COLORREF previous = m_bkColor;
    m_bkColor = color;
    return previous;
}

int CDC::SetBkMode(int mode) {
    const int previous = m_bkMode;
    m_bkMode = mode;
    return previous;
}

void CDC::Touch(const RECT& area) {
    m_touched.Add(area);
}

bool CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sx, int sy, DWORD) {
    return Blit(x, y, width, height, source, sx, sy, width, height);
}

bool CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sx, int sy,
                     int sourceWidth, int sourceHeight, DWORD) {
    return Blit(x, y, width, height, source, sx, sy, sourceWidth, sourceHeight);
}

// The source part is cut out of the image (clipped to it) and drawn into the destination
// rectangle, scaled to fit: a part that reaches past the image is stretched, one wholly
// outside it draws nothing.
bool CDC::Blit(int x, int y, int width, int height, CDC* source, int sx, int sy, int sourceWidth,
               int sourceHeight) {
    if (m_pSelectedBitmap)
        return true;
    cairo_t* destination = GetSafeContext();
    if (!destination || !source)
        return true;

    cairo_surface_t* image = nullptr;
    if (source->m_pSelectedBitmap && source->m_pSelectedBitmap->GetImage()) {
        image = cairo_surface_reference(source->m_pSelectedBitmap->GetImage());
    } else if (source->m_bitmapSurface) {
        cairo_surface_flush(source->m_bitmapSurface);
        image = cairo_surface_reference(source->m_bitmapSurface);
    } else {
        if (m_pWnd && !source->GetSafeContext())
            AfxDiagnostic("BitBlt null \x80r\x80n");
        return true;
    }
    // A DC copying from its own image draws from a snapshot.
    if (image == m_bitmapSurface) {
        cairo_surface_t* copy = CopyAsImage(image);
        cairo_surface_destroy(image);
        image = copy;
    }

    const CRect part(sx, sy, sx + sourceWidth, sy + sourceHeight);
    CRect visible;
    visible.IntersectRect(part, CRect(CPoint(0, 0), ImageLayoutSize(image)));
    const CRect target(x, y, x + width, y + height);
    if (!visible.IsRectEmpty() && !target.IsRectEmpty()) {
        cairo_surface_t* piece = cairo_surface_create_for_rectangle(
            image, visible.left, visible.top, visible.Width(), visible.Height());
        cairo_save(destination);
        cairo_rectangle(destination, target.left, target.top, target.Width(), target.Height());
        cairo_clip(destination);
        cairo_translate(destination, target.left, target.top);
        cairo_scale(destination, static_cast<double>(target.Width()) / visible.Width(),
                    static_cast<double>(target.Height()) / visible.Height());
        cairo_set_source_surface(destination, piece, 0, 0);
        cairo_pattern_set_extend(cairo_get_source(destination), CAIRO_EXTEND_PAD);
        cairo_paint(destination);
        cairo_restore(destination);
        cairo_surface_destroy(piece);
        Touch(target);
    }
    cairo_surface_destroy(image);
    return true;
}
