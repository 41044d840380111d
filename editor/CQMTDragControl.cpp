#include "editor/CQMTDragControl.h"

void CQMTDragControl::GetRect(CRect* rect) const {
    if (rect)
        *rect = m_controlRect;
}

void CQMTDragControl::SetNewRect(const CRect& controlRect, const CRect& readoutRect) {
    m_controlRect = controlRect;
    m_readoutRect = readoutRect;
}

void CQMTDragControl::Place(const CRect& controlRect, const CRect& readoutRect, CWnd* parent,
                            float min, float max, bool logarithmic, QMTControlNotifier notify) {
    SetNewRect(controlRect, readoutRect);
    m_parent = parent;
    m_dragging = false;
    m_min = min;
    m_max = max;
    m_logarithmic = logarithmic;
    m_notify = notify;
}

bool CQMTDragControl::PressAt(CPoint point, CDC* dc) {
    if (!Grab(point))
        return false;
    if (m_gesture)
        m_gesture(true);
    Follow(point);
    Redraw(dc);
    return true;
}

void CQMTDragControl::OnMouseMove(CPoint point, CDC* dc) {
    if (!m_dragging)
        return;
    Follow(point);
    Redraw(dc);
}

void CQMTDragControl::OnLButtonUp(CPoint point, CDC* dc) {
    if (!EndDrag())
        return;
    Follow(point);
    Released();
    if (m_gesture)
        m_gesture(false);
    Redraw(dc);
}

bool CQMTDragControl::StartDrag(CPoint point) {
    if (!m_controlRect.PtInRect(point))
        return false;
    if (m_parent)
        m_parent->SetCapture();
    m_dragging = true;
    return true;
}

bool CQMTDragControl::EndDrag() {
    if (!m_dragging)
        return false;
    ReleaseCapture();
    m_dragging = false;
    return true;
}

void CQMTDragControl::InvalidateReadout() {
    if (m_parent && !m_readoutRect.IsRectEmpty())
        m_parent->InvalidateRect(&m_readoutRect, true);
}

float CQMTDragControl::ClampToRange(float value, float min, float max) {
    if (value > max)
        return max;
    return value >= min ? value : min;
}
