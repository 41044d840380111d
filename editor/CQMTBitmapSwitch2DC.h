// A two-state push switch drawn from bitmaps of two frames each (released above, pressed
// below). A click never changes its state by itself: the panel decides and calls SetValue.
// A latching switch that is on cannot be pressed or turned off by the user, which gives
// radio buttons. Owned by the panel like the knobs.
#pragma once

#include "base/CRect.h"
#include "editor/CQMTBitmap.h"
#include "editor/QMTControlCallback.h"
#include "toolkit/CDC.h"
#include "toolkit/CWnd.h"

class CQMTBitmapSwitch2DC {
public:
    // mask, when given, has the off bitmap's layout: black where the switch is opaque,
    // white where the panel shows through.
    void Make(const CRect& drawRect, CWnd* parent, CQMTBitmap* off, CQMTBitmap* on, unsigned int id,
              const CRect& hitRect, bool latching, CQMTBitmap* mask, QMTControlCallback callback,
              void* user);

    // Ignored while disabled, while latched on, and when nothing changes.
    void SetValue(int value, bool notify);
    bool GetValue() const { return m_state != 0; }
    bool IsDown() const { return m_pressed; }
    // Whether the point is on the switch; answers even while disabled.
    bool PtInSwitch(CPoint point) const;
    void SetSelect(bool selected) { m_selected = selected; }
    bool IsSelected() const { return m_selected; }
    void Enable(bool enable) { m_enabled = enable; }
    // The picture of the disabled switch (one frame); none after Make.
    void SetDisableBmp(CQMTBitmap* bitmap) { m_disabled = bitmap; }
    void SetNewRect(const CRect& drawRect, const CRect& hitRect);
    void DrawSwitch(CDC* dc);

    // The right button and double clicks press and release like the left button.
    void LButtonDown(CDC* dc);
    void LButtonUp(CDC* dc);
    void LButtonDblClk(CDC* dc) { LButtonDown(dc); }
    void RButtonDown(CDC* dc) { LButtonDown(dc); }
    void RButtonUp(CDC* dc) { LButtonUp(dc); }
    void RButtonDblClk(CDC* dc) { LButtonDown(dc); }

private:
    bool AcceptsPress() const;
    void CopyFrame(CDC* dc, CQMTBitmap* source, int width, int height, int sourceRow);
    void DrawThroughMask(CDC* dc, CQMTBitmap* source, int width, int height, int sourceRow);

    bool m_pressed = false;
    bool m_latching = false;
    CQMTBitmap* m_off = nullptr;
    CQMTBitmap* m_on = nullptr;
    CQMTBitmap* m_mask = nullptr;
    CQMTBitmap* m_disabled = nullptr;
    int m_state = 0;
    bool m_selected = false;
    bool m_enabled = true;
    CRect m_hitRect;
    CRect m_drawRect;
    CWnd* m_parent = nullptr;
    QMTControlNotifier m_notify;
};
