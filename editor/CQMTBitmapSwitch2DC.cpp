#include "editor/CQMTBitmapSwitch2DC.h"

namespace {

// The raster operations of the transparent draw. This toolkit draws every blit over the
// destination with the image's own alpha, so it is the artwork's alpha that makes the
// panel show through; the operations are passed on as they were written.
constexpr DWORD SRCINVERT = 0x00660046;
constexpr DWORD SRCAND = 0x008800C6;

} // namespace

void CQMTBitmapSwitch2DC::Make(const CRect& drawRect, CWnd* parent, CQMTBitmap* off, CQMTBitmap* on,
                               unsigned int id, const CRect& hitRect, bool latching,
                               CQMTBitmap* mask, QMTControlCallback callback, void* user) {
    m_drawRect = drawRect;
    m_hitRect = hitRect;
    m_parent = parent;
    m_off = off;
    m_on = on;
    m_latching = latching;
    m_mask = mask;
    m_notify = {id, callback, user};
    m_state = 0;
    m_pressed = false;
    m_selected = false;
    m_disabled = nullptr;
    m_enabled = true;
}

void CQMTBitmapSwitch2DC::SetValue(int value, bool notify) {
    if (!m_enabled || (m_latching && m_state != 0) || value == m_state)
        return;
    m_state = value;
    if (notify)
        m_notify(static_cast<float>(value));
}

bool CQMTBitmapSwitch2DC::PtInSwitch(CPoint point) const {
    return m_drawRect.PtInRect(point);
}

void CQMTBitmapSwitch2DC::SetNewRect(const CRect& drawRect, const CRect& hitRect) {
    m_drawRect = drawRect;
    m_hitRect = hitRect;
}

void CQMTBitmapSwitch2DC::CopyFrame(CDC* dc, CQMTBitmap* source, int width, int height,
                                    int sourceRow) {
    CDC picture;
    picture.CreateCompatibleDC(dc);
    CBitmap* previous = picture.SelectObject(source);
    dc->BitBlt(m_drawRect.left, m_drawRect.top, width, height, &picture, 0, sourceRow, SRCCOPY);
    picture.SelectObject(previous);
}

void CQMTBitmapSwitch2DC::DrawThroughMask(CDC* dc, CQMTBitmap* source, int width, int height,
                                          int sourceRow) {
    CDC picture;
    picture.CreateCompatibleDC(dc);
    CBitmap* previousPicture = picture.SelectObject(source);
    CDC mask;
    mask.CreateCompatibleDC(dc);
    CBitmap* previousMask = mask.SelectObject(m_mask);
    const int x = m_drawRect.left;
    const int y = m_drawRect.top;
    dc->BitBlt(x, y, width, height, &picture, 0, sourceRow, SRCINVERT);
    dc->BitBlt(x, y, width, height, &mask, 0, sourceRow, SRCAND);
    dc->BitBlt(x, y, width, height, &picture, 0, sourceRow, SRCINVERT);
    mask.SelectObject(previousMask);
    picture.SelectObject(previousPicture);
}

void CQMTBitmapSwitch2DC::DrawSwitch(CDC* dc) {
    if (!dc || !m_off)
        return;
    const int frameHeight = m_off->Height() / 2;
    const int sourceRow = m_pressed ? frameHeight : 0;

    if (m_enabled) {
        CQMTBitmap* source = m_state != 0 ? m_on : m_off;
        if (!source)
            return;
        if (m_mask) {
            DrawThroughMask(dc, source, m_off->Width(), frameHeight, sourceRow);
            return;
        }
        CopyFrame(dc, source, source->Width(), source->Height() / 2, sourceRow);
        return;
    }

    if (m_disabled && m_mask) {
        DrawThroughMask(dc, m_disabled, m_disabled->Width(), m_disabled->Height(), 0);
    } else if (m_mask) {
        // The panel never disables a masked switch without a picture for it: the empty
        // picture leaves only the mask's step, as it always did.
        DrawThroughMask(dc, nullptr, m_off->Width(), frameHeight, 0);
    } else {
        CQMTBitmap* source = m_disabled ? m_disabled : m_off;
        CopyFrame(dc, source, source->Width(), m_disabled ? m_disabled->Height() : frameHeight, 0);
    }
}

bool CQMTBitmapSwitch2DC::AcceptsPress() const {
    return m_enabled && !(m_latching && m_state != 0);
}

void CQMTBitmapSwitch2DC::LButtonDown(CDC* dc) {
    if (!AcceptsPress())
        return;
    m_pressed = true;
    DrawSwitch(dc);
}

void CQMTBitmapSwitch2DC::LButtonUp(CDC* dc) {
    if (!AcceptsPress() || !m_pressed)
        return;
    m_pressed = false;
    DrawSwitch(dc);
}
