// A slider composed off-screen from a background, a thumb and an optional fill, so that
// a drag does not flicker. The track runs between two points in the slider's own
// coordinates; vertical tracks may follow a decade curve, be reversed or snap to their
// ends. Owned by the panel like the knobs.
#pragma once

#include "editor/CQMTBitmap.h"
#include "editor/CQMTDragControl.h"
#include "editor/QMTControlCallback.h"
#include "toolkit/CDC.h"

class CQMTBitmapSliderDC : public CQMTDragControl {
public:
    // start is the track's minimum end (the bottom of a vertical track, the left of a
    // horizontal one), end its maximum end, unless reversed.
    void Make(const CRect& sliderRect, const CRect& readoutRect, CWnd* parent,
              CQMTBitmap* background, CQMTBitmap* fill, CQMTBitmap* thumb, float min, float max,
              CPoint start, CPoint end, unsigned int id, int vertical, bool logarithmic,
              bool reversed, bool thumbHidden, bool snapToEnds, QMTControlCallback callback,
              void* user);

    // A value from outside: clamped; tells the call-back only on a change but redraws
    // either way.
    void SetValue(float value, CDC* dc, bool notify);
    // The value at the pointer; tells the call-back and returns true only on a change.
    bool SetValueByPoint(CPoint point);
    void DrawSlider(CDC* dc);
    float GetValue() const { return m_value; }
    // A disabled slider neither follows the mouse nor draws.
    void Enable(bool enable) { m_enabled = enable; }

    bool PtInSwitch(CPoint point);

private:
    bool Grab(CPoint point) override { return PtInSwitch(point); }
    void Follow(CPoint point) override { SetValueByPoint(point); }
    void Redraw(CDC* dc) override { DrawSlider(dc); }
    float ValueAtVertical(int y) const;
    float ValueAtHorizontal(int x) const;
    void ComposeVertical(CDC& image, CDC& sources);
    void ComposeHorizontal(CDC& image, CDC& sources);

    CPoint m_start;
    CPoint m_end;
    int m_vertical = 0;
    CQMTBitmap* m_background = nullptr;
    CQMTBitmap* m_thumb = nullptr;
    CQMTBitmap* m_fill = nullptr;
    bool m_thumbHidden = false;
    bool m_reversed = false;
    bool m_snapToEnds = false;
    int m_backgroundWidth = 0;
    int m_backgroundHeight = 0;
    bool m_enabled = true;
};
