#include "toolkit/CButton.h"

#include "toolkit/CPaintDC.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

BEGIN_MESSAGE_MAP(CButton, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
// A quick second press counts as a press of its own.
{WM_LBUTTONDBLCLK,
 0,
 0,
 0,
 SigVoidUIntPoint,
 AFX_HANDLER(void (CCmdTarget::*)(UINT, CPoint), OnLButtonDown)},
    ON_WM_LBUTTONUP() ON_WM_MOUSEMOVE() ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave) ON_WM_KEYDOWN()
        ON_WM_SETFOCUS() ON_WM_KILLFOCUS() END_MESSAGE_MAP()

            bool CButton::Create(const char* caption, DWORD style, const RECT& rect, CWnd* parent,
                                 UINT id) {
    // The corners around the rounded body show the theme's window colour.
    SetBackgroundColor(theme::kWindow);
    return CWnd::Create(nullptr, caption, style, rect, parent, id);
}

bool CButton::IsDefault() const {
    return (GetStyle() & 0xF) == BS_DEFPUSHBUTTON;
}

void CButton::Click() {
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), BN_CLICKED),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void CButton::OnPaint() {
    CPaintDC dc(this);
    CRect client = EraseClientArea(dc);
    const bool enabled = IsWindowEnabled();
    COLORREF face = theme::kControl;
    if (IsDefault())
        face = m_pressed ? theme::kSelection : m_hover ? theme::kAccentHover : theme::kAccent;
    else if (m_pressed)
        face = theme::kControlPressed;
    else if (m_hover)
        face = theme::kControlHover;
    CRect body(client);
    body.DeflateRect(1, 1);
    dc.FillRoundRect(body, theme::kCornerRadius, enabled ? face : theme::kControlPressed);
    if (GetFocus() == this)
        dc.FrameRoundRect(client, theme::kCornerRadius + 1, theme::kAccentHover, 1.5);
    else if (!IsDefault())
        dc.FrameRoundRect(body, theme::kCornerRadius, theme::kBorder);
    dc.SelectObject(GetFont());
    dc.SetTextColor(!enabled ? theme::kTextDim : IsDefault() ? theme::kAccentText : theme::kText);
    CRect label(body);
    if (m_pressed)
        label.OffsetRect(0, 1);
    dc.DrawText(StoredText(), label, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void CButton::OnLButtonDown(UINT, CPoint) {
    SetFocus();
    SetCapture();
    m_pressed = true;
    Invalidate();
}

void CButton::OnLButtonUp(UINT, CPoint point) {
    const bool wasPressed = m_pressed;
    m_pressed = false;
    if (GetCapture() == this)
        ReleaseCapture();
    Invalidate();
    CRect client;
    GetClientRect(&client);
    if (wasPressed && client.PtInRect(point))
        Click();
}

void CButton::OnMouseMove(UINT flags, CPoint point) {
    CRect client;
    GetClientRect(&client);
    const bool inside = client.PtInRect(point);
    if (inside != m_hover) {
        m_hover = inside;
        Invalidate();
    }
    CWnd::OnMouseMove(flags, point);
}

LRESULT CButton::OnMouseLeave(WPARAM, LPARAM) {
    if (m_hover) {
        m_hover = false;
        Invalidate();
    }
    return 0;
}

void CButton::OnKeyDown(UINT key, UINT, UINT) {
    if (key == kKeySpace || key == kKeyReturn || key == kKeyEnter)
        Click();
}

void CButton::OnSetFocus(CWnd*) {
    Invalidate();
}

void CButton::OnKillFocus(CWnd*) {
    Invalidate();
}
