#include "toolkit/CComboBox.h"

#include "toolkit/CPaintDC.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinMessages.h"
#include "toolkit/platform/KeyCodes.h"

#include <algorithm>

namespace {
constexpr int kChevronWidth = 22;
constexpr int kListGap = 2;
} // namespace

BEGIN_MESSAGE_MAP(CComboBox, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
// A quick second press opens the list again.
{WM_LBUTTONDBLCLK,
 0,
 0,
 0,
 SigVoidUIntPoint,
 AFX_HANDLER(void (CCmdTarget::*)(UINT, CPoint), OnLButtonDown)},
    ON_WM_KEYDOWN() ON_MESSAGE(WM_MOUSEWHEEL, OnMouseWheel) ON_WM_SETFOCUS() ON_WM_KILLFOCUS()
        END_MESSAGE_MAP()

            bool CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    // The corners around the rounded body show the theme's window colour.
    SetBackgroundColor(theme::kWindow);
    return CWnd::Create(nullptr, "", style, rect, parent, id);
}

int CComboBox::AddString(const char* text) {
    m_entries.emplace_back(text);
    return GetCount() - 1;
}

int CComboBox::SetCurSel(int index) {
    if (index < -1 || index >= GetCount())
        return CB_ERR;
    m_selected = index;
    ShowSelection();
    return index;
}

void CComboBox::ShowSelection() {
    StoreText(m_selected >= 0 ? m_entries[m_selected].GetString() : "");
    Invalidate();
}

int CComboBox::GetLBText(int index, CString& text) const {
    if (index < 0 || index >= GetCount())
        return CB_ERR;
    text = m_entries[index];
    return text.GetLength();
}

void CComboBox::ChooseByUser(int index) {
    if (index < 0 || index >= GetCount())
        return;
    SetCurSel(index);
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CBN_SELCHANGE),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void CComboBox::ShowDropDown(bool show) {
    if (!show || m_dropped || !GetSafeHwnd() || m_entries.empty())
        return;
    std::vector<PopupListItem> items;
    for (const CString& entry : m_entries) {
        PopupListItem item;
        item.text = entry;
        item.checked = static_cast<int>(items.size()) == m_selected;
        items.push_back(item);
    }
    CRect client;
    GetClientRect(&client);
    CPoint below(0, client.bottom + kListGap);
    ClientToScreen(&below);
    const bool shown =
        PopupListWnd::Open(std::move(items), PopupListWnd::Layout::Scrolling, this, below,
                           client.Width(), -1, m_selected, [this](int chosen) {
                               m_dropped = false;
                               Invalidate();
                               if (chosen >= 0)
                                   ChooseByUser(chosen);
                           });
    m_dropped = shown;
    Invalidate();
}

void CComboBox::OnPaint() {
    CPaintDC dc(this);
    CRect client = EraseClientArea(dc);
    const bool focused = GetFocus() == this;
    dc.FillRoundRect(client, theme::kCornerRadius,
                     m_dropped ? theme::kControlPressed : theme::kControl);
    dc.FrameRoundRect(client, theme::kCornerRadius, focused ? theme::kAccent : theme::kBorder,
                      focused ? 1.5 : 1.0);
    dc.SelectObject(GetFont());
    dc.SetTextColor(IsWindowEnabled() ? theme::kText : theme::kTextDim);
    CRect text(client);
    text.left += theme::kTextPadding + 2;
    text.right -= kChevronWidth;
    dc.DrawText(StoredText(), text, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    const double cx = client.right - kChevronWidth / 2.0;
    const double cy = client.top + client.Height() / 2.0;
    dc.DrawLine(cx - 4, cy - 2, cx, cy + 2, theme::kText, 1.5);
    dc.DrawLine(cx, cy + 2, cx + 4, cy - 2, theme::kText, 1.5);
}

void CComboBox::OnLButtonDown(UINT, CPoint) {
    SetFocus();
    ShowDropDown(true);
}

void CComboBox::OnKeyDown(UINT key, UINT, UINT) {
    switch (key) {
    case kKeyUp:
        ChooseByUser(m_selected > 0 ? m_selected - 1 : 0);
        break;
    case kKeyDown:
        if (GetKeyState(18) & 0x8000)
            ShowDropDown(true);
        else
            ChooseByUser(std::min(m_selected + 1, GetCount() - 1));
        break;
    case kKeyHome:
        ChooseByUser(0);
        break;
    case kKeyEnd:
        ChooseByUser(GetCount() - 1);
        break;
    case kKeySpace:
        ShowDropDown(true);
        break;
    default:
        break;
    }
}

LRESULT CComboBox::OnMouseWheel(WPARAM wParam, LPARAM) {
    const auto turn = static_cast<short>(HIWORD(wParam));
    if (turn > 0)
        ChooseByUser(m_selected > 0 ? m_selected - 1 : 0);
    else
        ChooseByUser(std::min(m_selected + 1, GetCount() - 1));
    return 0;
}

void CComboBox::OnSetFocus(CWnd*) {
    Invalidate();
}

void CComboBox::OnKillFocus(CWnd*) {
    Invalidate();
}
