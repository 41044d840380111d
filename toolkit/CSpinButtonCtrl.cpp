#include "toolkit/CSpinButtonCtrl.h"

#include "toolkit/CEdit.h"
#include "toolkit/CPaintDC.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

#include <algorithm>
#include <cstdio>

BEGIN_MESSAGE_MAP(CSpinButtonCtrl, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
// A quick second press counts as a press of its own.
{WM_LBUTTONDBLCLK,
 0,
 0,
 0,
 SigVoidUIntPoint,
 AFX_HANDLER(void (CCmdTarget::*)(UINT, CPoint), OnLButtonDown)},
    ON_WM_LBUTTONUP() ON_WM_TIMER() END_MESSAGE_MAP()

        bool CSpinButtonCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    // The corners around the rounded body show the theme's window colour.
    SetBackgroundColor(theme::kWindow);
    return CWnd::Create(nullptr, "", style, rect, parent, id);
}

int CSpinButtonCtrl::SetBase(int base) {
    const int previous = m_base;
    if (base == 10 || base == 16)
        m_base = base;
    return previous;
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* buddy) {
    CWnd* previous = m_buddy;
    if (auto* edit = dynamic_cast<CEdit*>(previous))
        edit->AttachSpinButton(nullptr);
    m_buddy = buddy;
    if (auto* edit = dynamic_cast<CEdit*>(buddy))
        edit->AttachSpinButton(this);
    return previous;
}

void CSpinButtonCtrl::SetRange32(int lower, int upper) {
    m_lower = lower;
    m_upper = upper;
}

int CSpinButtonCtrl::Clamp(int position) const {
    return std::clamp(position, std::min(m_lower, m_upper), std::max(m_lower, m_upper));
}

int CSpinButtonCtrl::SetPos(int position) {
    const int previous = m_position;
    m_position = Clamp(position);
    WriteBuddy();
    return previous;
}

void CSpinButtonCtrl::SetPosForSpin(int position) {
    m_position = Clamp(position);
}

void CSpinButtonCtrl::WriteBuddy() {
    if (!m_buddy)
        return;
    char text[32];
    if (m_base == 16)
        std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned>(m_position));
    else
        std::snprintf(text, sizeof text, "%d", m_position);
    m_buddy->SetWindowText(text);
}

void CSpinButtonCtrl::Step(int direction) {
    const int low = std::min(m_lower, m_upper);
    const int high = std::max(m_lower, m_upper);
    const int next = std::clamp(m_position + (direction > 0 ? 1 : -1), low, high);
    if (next == m_position)
        return;
    m_position = next;
    if (GetStyle() & UDS_SETBUDDYINT)
        WriteBuddy();
}

void CSpinButtonCtrl::OnPaint() {
    CPaintDC dc(this);
    CRect client = EraseClientArea(dc);
    CRect body(client);
    body.DeflateRect(1, 1);
    dc.FillRoundRect(body, theme::kCornerRadius, theme::kControl);
    dc.FrameRoundRect(body, theme::kCornerRadius, theme::kBorder);
    const int middle = body.top + body.Height() / 2;
    if (m_heldDirection != 0) {
        CRect held(body.left + 1, m_heldDirection > 0 ? body.top + 1 : middle, body.right - 1,
                   m_heldDirection > 0 ? middle : body.bottom - 1);
        dc.FillSolidRect(held, theme::kControlPressed);
    }
    dc.DrawLine(body.left + 3, middle + 0.5, body.right - 3, middle + 0.5, theme::kBorder);
    const COLORREF ink = IsWindowEnabled() ? theme::kText : theme::kTextDim;
    const int cx = body.left + body.Width() / 2;
    const int half = std::max(2, std::min(body.Width() / 4, body.Height() / 6));
    const int upY = body.top + (middle - body.top) / 2;
    const int downY = middle + (body.bottom - middle) / 2;
    const POINT up[3] = {
        {cx - half, upY + half / 2 + 1}, {cx + half, upY + half / 2 + 1}, {cx, upY - half / 2 - 1}};
    const POINT down[3] = {{cx - half, downY - half / 2 - 1},
                           {cx + half, downY - half / 2 - 1},
                           {cx, downY + half / 2 + 1}};
    dc.FillPolygon(up, 3, ink);
    dc.FillPolygon(down, 3, ink);
}

void CSpinButtonCtrl::OnLButtonDown(UINT, CPoint point) {
    CRect client;
    GetClientRect(&client);
    m_heldDirection = point.y < client.Height() / 2 ? 1 : -1;
    m_heldTicks = 0;
    Step(m_heldDirection);
    SetTimer(1, kRepeatTimerMs);
    Invalidate();
}

void CSpinButtonCtrl::OnLButtonUp(UINT, CPoint) {
    KillTimer(1);
    m_heldDirection = 0;
    Invalidate();
}

void CSpinButtonCtrl::OnTimer(UINT) {
    if (m_heldDirection != 0 && ++m_heldTicks > kRepeatDelayTicks)
        Step(m_heldDirection);
}
