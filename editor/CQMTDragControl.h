// What the knob and the slider share as controls the panel drags: their place on the
// panel, the read-out they invalidate on a change, the range their value moves in and whom
// they tell of it, and the press, moves and release of a drag, with the mouse captured in
// between. No window of its own; the panel owns each control, forwards the mouse to it and
// hands it a DC to draw into.
#pragma once

#include "base/CRect.h"
#include "editor/QMTControlCallback.h"
#include "toolkit/CDC.h"
#include "toolkit/CWnd.h"

#include <functional>

class CQMTDragControl {
public:
    virtual ~CQMTDragControl() = default;

    // A press on the control starts a drag, jumps to the pointer at once and draws; false
    // when the press is not the control's.
    bool PressAt(CPoint point, CDC* dc);
    void OnMouseMove(CPoint point, CDC* dc);
    void OnLButtonUp(CPoint point, CDC* dc);
    void GetRect(CRect* rect) const;
    void SetNewRect(const CRect& controlRect, const CRect& readoutRect);
    bool IsDragging() const { return m_dragging; }
    // Told true as a drag starts, before its first value, and false as it ends, after its
    // last: a host that groups edits into gestures learns where one begins and ends.
    void SetGestureHandler(std::function<void(bool dragging)> handler) {
        m_gesture = std::move(handler);
    }

protected:
    void Place(const CRect& controlRect, const CRect& readoutRect, CWnd* parent, float min,
               float max, bool logarithmic, QMTControlNotifier notify);
    // A press inside the control starts a drag and captures the mouse for the parent.
    bool StartDrag(CPoint point);
    // Ends a drag and releases the capture; false when no drag was under way.
    bool EndDrag();
    void InvalidateReadout();
    // NaN counts as the minimum, so that no position is ever made from it.
    static float ClampToRange(float value, float min, float max);

    CRect m_controlRect;
    CWnd* m_parent = nullptr;
    bool m_dragging = false;
    float m_min = 0.0f;
    float m_max = 0.0f;
    float m_value = 0.0f;
    bool m_logarithmic = false;
    QMTControlNotifier m_notify;

private:
    // Whether a press here starts a drag (StartDrag, where the control agrees).
    virtual bool Grab(CPoint point) = 0;
    // The value at the pointer, as the control maps it.
    virtual void Follow(CPoint point) = 0;
    virtual void Redraw(CDC* dc) = 0;
    // After the release's own value has been taken.
    virtual void Released() {}

    CRect m_readoutRect;
    std::function<void(bool dragging)> m_gesture;
};
