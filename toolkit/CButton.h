// A push button drawn flat: hover, pressed and focus states, and the accent colour for the
// default button (BS_DEFPUSHBUTTON). A click, Space or Return on the focused button tells
// the parent with WM_COMMAND (BN_CLICKED, the button's id, its handle).
#pragma once

#include "toolkit/CWnd.h"

class CButton : public CWnd {
public:
    virtual bool Create(const char* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id);
    bool IsDefault() const;
    // What a click does.
    void Click();

protected:
    bool TakesKeyboard() const override { return true; }
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSetFocus(CWnd* oldWnd);
    void OnKillFocus(CWnd* newWnd);

    DECLARE_MESSAGE_MAP()

private:
    bool m_pressed = false;
    bool m_hover = false;
};
