// A rotary knob drawn from a vertical strip of frames. The knob follows the direction of
// the pointer around its centre, not the distance dragged. It is no window of its own: the
// panel owns it, forwards the mouse to it and hands it a DC to draw into.
#pragma once

#include "CDC.h"
#include "CQMTBitmap.h"
#include "CRect.h"
#include "CWnd.h"
#include "QMTControlCallback.h"

class CQMTNewBitmapTumamiDC {
public:
    // Every knob starts at the middle of its range. The spare argument has no effect.
    void Make(const CRect& knobRect, const CRect& readoutRect, CWnd* parent, CQMTBitmap* strip,
              float min, float max, unsigned int id, int frameCount, float angleFrom, float angleTo,
              int spare, bool logarithmic, QMTControlCallback callback, void* user);

    // A value from outside: clamped; an unchanged value draws and tells nothing.
    void SetValue(float value, CDC* dc, bool notify);
    // The value the pointer's direction gives; tells the call-back every time.
    void SetValue(CPoint point);
    void Draw(CDC* dc);
    float GetValue() const { return m_value; }
    // Rounded up, where drawing rounds to the nearest frame.
    unsigned int GetIndexValue() const;
    double GetAngle() const { return m_angle; }
    void GetRect(CRect* rect) const;
    void SetNewRect(const CRect& knobRect, const CRect& readoutRect);
    bool IsDragging() const { return m_dragging; }

    // A press on the knob starts a drag and captures the mouse for the parent.
    bool PtInTumami(CPoint point);
    void OnMouseMove(CPoint point, CDC* dc);
    void OnLButtonUp(CPoint point, CDC* dc);

private:
    int FrameIndex() const;
    void InvalidateReadout();

    // Marks "no drag value yet": no knob range reaches it.
    static constexpr float kNoDragValue = 65535.0f;
    // After a release: neither end guard applies.
    static constexpr float kReleasedDragValue = -1.0f;

    unsigned int m_id = 0;
    CQMTBitmap* m_strip = nullptr;
    CWnd* m_parent = nullptr;
    float m_min = 0.0f;
    float m_max = 0.0f;
    float m_value = 0.0f;
    CRect m_knobRect;
    float m_angleFrom = 0.0f;
    float m_angleTo = 0.0f;
    double m_angle = 0.0;
    float m_lastDragValue = kNoDragValue;
    float m_step = 0.0f;
    bool m_logarithmic = false;
    bool m_dragging = false;
    QMTControlCallback m_callback = nullptr;
    void* m_user = nullptr;
    CRect m_readoutRect;
};
