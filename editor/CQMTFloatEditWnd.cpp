#include "editor/CQMTFloatEditWnd.h"

#include "editor/PanelIds.h"
#include "toolkit/CDC.h"
#include "toolkit/CPaintDC.h"
#include "toolkit/WinStyles.h"

namespace {
constexpr DWORD kWindowStyle = WS_CHILD | WS_CLIPSIBLINGS;
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_RIGHT;
constexpr DWORD kSpinStyle = UDS_ALIGNRIGHT | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_NOTHOUSANDS;
// Where the caret goes when a value is set: past the end of any text the panel's fields
// hold.
constexpr int kCaretPosition = 8;
} // namespace

BEGIN_MESSAGE_MAP(CQMTFloatEditWnd, CWnd)
ON_WM_CREATE()
// Kept as the map always had it: the second entry is never reached.
ON_WM_CREATE()
ON_WM_PAINT()
ON_MESSAGE(WM_ENTRY_RETURN, OnReturn)
ON_MESSAGE(WM_ENTRY_ESCAPE, OnEscape)
END_MESSAGE_MAP()

bool CQMTFloatEditWnd::MakeWindow(CWnd* parent, CWnd* target, const char* name, const RECT& rect,
                                  int digits, CFont* font, bool sign) {
    m_pTarget = target;
    m_length = digits + 1;
    m_sign = sign;
    m_pFont = font;
    CDC display;
    display.CreateDC("DISPLAY");
    display.SelectObject(font);
    const CSize letter = display.GetTextExtent("A", 1);
    m_charWidth = letter.cx;
    m_charHeight = letter.cy;
    m_spinWidth = GetSystemMetrics(SM_CYHSCROLL);
    return Create(nullptr, name, kWindowStyle, rect, parent, 0);
}

void CQMTFloatEditWnd::ComputeSize() {
    m_height = m_charHeight + m_charHeight / 2;
    m_width = m_spinWidth + m_length * m_charWidth + 2 * GetSystemMetrics(SM_CXEDGE);
}

int CQMTFloatEditWnd::OnCreate(CREATESTRUCT* create) {
    if (CWnd::OnCreate(create) == -1)
        return -1;
    ComputeSize();
    SetWindowPos(nullptr, 0, 0, m_width, m_height, SWP_NOMOVE | SWP_NOZORDER);
    m_edit.MakeWindow(kEditStyle, CRect(0, 0, m_width - m_spinWidth, m_height), this, kEditId,
                      m_sign);
    m_edit.SetLimitText(static_cast<UINT>(m_length));
    m_edit.SetFont(m_pFont, true);
    m_edit.ShowWindow(SW_SHOW);
    m_spin.Create(kSpinStyle, CRect(m_width - m_spinWidth, 0, m_width, m_height), this, kSpinId);
    m_spin.SetBase(10);
    m_spin.SetBuddy(&m_edit);
    m_spin.ShowWindow(SW_SHOW);
    ShowWindow(SW_HIDE);
    return 0;
}

void CQMTFloatEditWnd::SetNewValue(int value, int minimum, int maximum) {
    m_spin.SetRange32(minimum, maximum);
    m_spin.SetPos(value);
    m_edit.SetFocus();
    CString text;
    text.Format("%d", value);
    m_edit.SetWindowText(text);
    m_edit.SetSel(kCaretPosition, kCaretPosition);
}

void CQMTFloatEditWnd::SetSingnFlag(bool sign) {
    m_edit.SetSingnFlag(sign);
    m_sign = sign;
}

void CQMTFloatEditWnd::ChangeSize(int digits, bool sign) {
    SetSingnFlag(sign);
    m_length = digits + 1;
    ComputeSize();
    SetWindowPos(nullptr, 0, 0, m_width, m_height, SWP_NOMOVE | SWP_NOZORDER);
    m_edit.MoveWindow(0, 0, m_width - m_spinWidth, m_height, true);
    m_spin.MoveWindow(m_width - m_spinWidth, 0, m_spinWidth, m_height, true);
    m_edit.SetLimitText(static_cast<UINT>(m_length));
}

// The field and the spin button cover the window and draw themselves.
void CQMTFloatEditWnd::OnPaint() {
    CPaintDC dc(this);
}

LRESULT CQMTFloatEditWnd::OnReturn(WPARAM, LPARAM) {
    SendMessage0(m_pTarget, WM_ENTRY_RETURN, 0, 0);
    ShowWindow(SW_HIDE);
    return 0;
}

LRESULT CQMTFloatEditWnd::OnEscape(WPARAM, LPARAM) {
    SendMessage0(m_pTarget, WM_ENTRY_ESCAPE, 0, 0);
    ShowWindow(SW_HIDE);
    if (CWnd* parent = GetParent())
        parent->SetFocus();
    return 0;
}
