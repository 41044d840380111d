// A slider composed off-screen from a background, a thumb and an optional fill, so that
// a drag does not flicker. The track runs between two points in the slider's own
// coordinates; vertical tracks may follow a decade curve, be reversed or snap to their
// ends. Owned by the panel like the knobs.
#pragma once

#include "CDC.h"
#include "CQMTBitmap.h"
#include "CRect.h"
#include "CWnd.h"
#include "QMTControlCallback.h"

class CQMTBitmapSliderDC {
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
    void GetRect(CRect* rect) const;
    void SetNewRect(const CRect& sliderRect, const CRect& readoutRect);
    // A disabled slider neither follows the mouse nor draws.
    void Enable(bool enable) { m_enabled = enable; }
    bool IsDragging() const { return m_dragging; }

    bool PtInSwitch(CPoint point);
    void OnMouseMove(CPoint point, CDC* dc);
    void OnLButtonUp(CPoint point, CDC* dc);

private:
    float ValueAtVertical(int y) const;
    float ValueAtHorizontal(int x) const;
    void ComposeVertical(CDC& image, CDC& sources);
    void ComposeHorizontal(CDC& image, CDC& sources);
    void InvalidateReadout();

    float m_min = 0.0f;
    float m_max = 0.0f;
    CPoint m_start;
    CPoint m_end;
    unsigned int m_id = 0;
    int m_vertical = 0;
    CQMTBitmap* m_background = nullptr;
    CQMTBitmap* m_thumb = nullptr;
    CQMTBitmap* m_fill = nullptr;
    bool m_dragging = false;
    float m_value = 0.0f;
    bool m_thumbHidden = false;
    bool m_logarithmic = false;
    bool m_reversed = false;
    bool m_snapToEnds = false;
    int m_backgroundWidth = 0;
    int m_backgroundHeight = 0;
    CRect m_sliderRect;
    CWnd* m_parent = nullptr;
    QMTControlCallback m_callback = nullptr;
    void* m_user = nullptr;
    CRect m_readoutRect;
    bool m_enabled = true;
};
