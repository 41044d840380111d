// A rotary knob drawn from a vertical strip of frames. The knob follows the direction of
// the pointer around its centre, not the distance dragged. It is no window of its own: the
// panel owns it, forwards the mouse to it and hands it a DC to draw into.
#pragma once

#include "editor/CQMTBitmap.h"
#include "editor/CQMTDragControl.h"
#include "editor/QMTControlCallback.h"
#include "toolkit/CDC.h"

class CQMTNewBitmapTumamiDC : public CQMTDragControl {
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

    bool PtInTumami(CPoint point) { return StartDrag(point); }

private:
    bool Grab(CPoint point) override { return PtInTumami(point); }
    void Follow(CPoint point) override { SetValue(point); }
    void Redraw(CDC* dc) override { Draw(dc); }
    // A new drag starts without the end guards of the last one.
    void Released() override { m_lastDragValue = kReleasedDragValue; }
    int FrameIndex() const;

    // Marks "no drag value yet": no knob range reaches it.
    static constexpr float kNoDragValue = 65535.0f;
    // After a release: neither end guard applies.
    static constexpr float kReleasedDragValue = -1.0f;

    CQMTBitmap* m_strip = nullptr;
    float m_angleFrom = 0.0f;
    float m_angleTo = 0.0f;
    double m_angle = 0.0;
    float m_lastDragValue = kNoDragValue;
    float m_step = 0.0f;
};
