#include "toolkit/CStatic.h"

#include "toolkit/CPaintDC.h"
#include "toolkit/ToolkitTheme.h"

BEGIN_MESSAGE_MAP(CStatic, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

bool CStatic::Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    if (parent)
        SetBackgroundColor(parent->GetBackgroundColor());
    return CWnd::Create(nullptr, text, style, rect, parent, id);
}

void CStatic::OnPaint() {
    CPaintDC dc(this);
    CRect client = EraseClientArea(dc);
    dc.SelectObject(GetFont());
    dc.SetTextColor(IsWindowEnabled() ? theme::kText : theme::kTextDim);
    const DWORD align = GetStyle() & 0x3;
    const UINT format = align == SS_CENTER ? DT_CENTER : align == SS_RIGHT ? DT_RIGHT : DT_LEFT;
    dc.DrawText(StoredText(), client, format | DT_VCENTER | DT_SINGLELINE);
}
