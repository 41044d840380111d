#include "toolkit/CEdit.h"

#include "toolkit/CPaintDC.h"
#include "toolkit/CSpinButtonCtrl.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/Utf8.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr int kInnerPadding = 5;
constexpr int kSpinStepKeysStyle = UDS_ARROWKEYS;
} // namespace

BEGIN_MESSAGE_MAP(CEdit, CWnd)
ON_WM_PAINT()
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

bool CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    SetBackgroundColor(theme::kWindow);
    return CWnd::Create(nullptr, "", style, rect, parent, id);
}

int CEdit::Length() const {
    return utf8::CharacterCount(StoredText());
}

void CEdit::SetLimitText(UINT maxCharacters) {
    m_limit = maxCharacters == 0 ? kDefaultLimit : static_cast<int>(maxCharacters);
}

void CEdit::SetSel(int start, int end, bool) {
    const int length = Length();
    if (start < 0) {
        m_anchor = m_caret;
    } else {
        m_anchor = std::min(start, length);
        m_caret = end < 0 ? length : std::min(end, length);
    }
    Invalidate();
}

void CEdit::GetSel(int& start, int& end) const {
    start = std::min(m_anchor, m_caret);
    end = std::max(m_anchor, m_caret);
}

void CEdit::SetWindowText(const char* text) {
    SetTextForSpin(text);
    NotifyParent(EN_CHANGE);
}

void CEdit::SetTextForSpin(const char* text) {
    StoreText(text);
    m_caret = m_anchor = Length();
    Invalidate();
}

void CEdit::NotifySpinButton() {
    if (!m_spin)
        return;
    char value[64];
    GetWindowText(value, sizeof value);
    m_spin->SetPosForSpin(std::atoi(value));
}

void CEdit::NotifyParent(UINT code) {
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), code),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void CEdit::MoveCaret(int position, bool extend) {
    m_caret = std::clamp(position, 0, Length());
    if (!extend)
        m_anchor = m_caret;
    Invalidate();
}

// The limit counts characters: what does not fit is cut from the inserted text.
void CEdit::ReplaceSelection(const std::string& replacement) {
    const std::string text(StoredText().GetString());
    int start = 0;
    int end = 0;
    GetSel(start, end);
    const int startByte = utf8::ByteOffset(text.c_str(), start);
    const int endByte = utf8::ByteOffset(text.c_str(), end);
    const int room = std::max(0, m_limit - (Length() - (end - start)));
    const int insertCount = std::min(room, utf8::CharacterCount(replacement.c_str()));
    const std::string inserted =
        replacement.substr(0, utf8::ByteOffset(replacement.c_str(), insertCount));
    StoreText((text.substr(0, startByte) + inserted + text.substr(endByte)).c_str());
    m_caret = m_anchor = start + insertCount;
    Invalidate();
}

bool CEdit::PreTranslateMessage(MSG*) {
    return false;
}

void CEdit::OnKeyDown(UINT key, UINT, UINT) {
    m_lastKey = key;
    const bool extend = (GetKeyState(16) & 0x8000) != 0;
    switch (key) {
    case kKeyHome:
        MoveCaret(0, extend);
        break;
    case kKeyEnd:
        MoveCaret(Length(), extend);
        break;
    case kKeyUp:
    case kKeyDown:
        if (m_spin && (m_spin->GetStyle() & kSpinStepKeysStyle))
            m_spin->Step(key == kKeyUp ? 1 : -1);
        break;
    default:
        break;
    }
}

// The arrow characters move the caret. An entry field may hand on the left and right arrows
// as 37 and 39; those count as arrows when the key pressed just before was an arrow key,
// and as '%' and '\'' otherwise.
void CEdit::OnChar(UINT character, UINT, UINT) {
    const unsigned lastKey = m_lastKey;
    m_lastKey = 0;
    const bool extend = (GetKeyState(16) & 0x8000) != 0;
    const bool arrowKey = lastKey == kKeyLeft || lastKey == kKeyRight;
    int start = 0;
    int end = 0;
    GetSel(start, end);
    if (character == kCharLeft || (character == 37 && arrowKey)) {
        MoveCaret(start != end && !extend ? start : m_caret - 1, extend);
        return;
    }
    if (character == kCharRight || (character == 39 && arrowKey)) {
        MoveCaret(start != end && !extend ? end : m_caret + 1, extend);
        return;
    }
    if (character == kCharBackSpace || character == kCharDelete) {
        if (start == end) {
            if (character == kCharBackSpace && start == 0)
                return;
            if (character == kCharDelete && start == Length())
                return;
            m_anchor = character == kCharBackSpace ? start - 1 : start + 1;
        }
        ReplaceSelection("");
        NotifyParent(EN_CHANGE);
        return;
    }
    if (character < 32)
        return;
    if (Length() - (end - start) >= m_limit) {
        NotifyParent(EN_MAXTEXT);
        return;
    }
    ReplaceSelection(utf8::Encode(character));
    NotifyParent(EN_CHANGE);
}

CRect CEdit::TextBox() const {
    CRect client;
    GetClientRect(&client);
    client.DeflateRect(kInnerPadding, 2);
    return client;
}

int CEdit::TextX(CDC& dc, int position) const {
    const char* text = StoredText();
    return dc.GetTextExtent(text, utf8::ByteOffset(text, position)).cx;
}

int CEdit::PositionAt(int x) {
    CDC measure;
    measure.SelectObject(GetFont());
    const CRect box = TextBox();
    const int textWidth = TextX(measure, Length());
    const DWORD align = GetStyle() & 0x3;
    int origin = box.left - m_scroll;
    if (textWidth <= box.Width()) {
        if (align == ES_RIGHT)
            origin = box.right - textWidth;
        else if (align == ES_CENTER)
            origin = box.left + (box.Width() - textWidth) / 2;
    }
    int best = 0;
    int bestDistance = 1 << 30;
    for (int position = 0; position <= Length(); ++position) {
        const int distance = std::abs(origin + TextX(measure, position) - x);
        if (distance < bestDistance) {
            best = position;
            bestDistance = distance;
        }
    }
    return best;
}

void CEdit::OnPaint() {
    CPaintDC dc(this);
    CRect client = EraseClientArea(dc);
    const bool focused = GetFocus() == this;
    dc.FillRoundRect(client, theme::kCornerRadius, theme::kField);
    dc.FrameRoundRect(client, theme::kCornerRadius, focused ? theme::kAccent : theme::kBorder,
                      focused ? 1.5 : 1.0);

    dc.SelectObject(GetFont());
    const CRect box = TextBox();
    const int textWidth = TextX(dc, Length());
    const int caretX = TextX(dc, m_caret);
    // Scroll just enough to keep the caret inside the box.
    if (textWidth <= box.Width())
        m_scroll = 0;
    else if (caretX - m_scroll > box.Width() - 1)
        m_scroll = caretX - box.Width() + 1;
    else if (caretX < m_scroll)
        m_scroll = caretX;
    m_scroll = std::clamp(m_scroll, 0, std::max(0, textWidth - box.Width() + 1));

    const DWORD align = GetStyle() & 0x3;
    int origin = box.left - m_scroll;
    if (textWidth <= box.Width()) {
        if (align == ES_RIGHT)
            origin = box.right - textWidth - 1;
        else if (align == ES_CENTER)
            origin = box.left + (box.Width() - textWidth) / 2;
    }
    const int lineHeight = dc.GetTextExtent("Ag", 2).cy;
    const int top = box.top + (box.Height() - lineHeight) / 2;

    int start = 0;
    int end = 0;
    GetSel(start, end);
    if (focused && start != end) {
        CRect selection(origin + TextX(dc, start), top, origin + TextX(dc, end), top + lineHeight);
        selection.IntersectRect(selection, box);
        dc.FillSolidRect(selection, theme::kSelection);
    }
    cairo_t* cr = dc.GetSafeContext();
    if (cr) {
        cairo_save(cr);
        cairo_rectangle(cr, box.left, box.top, box.Width(), box.Height());
        cairo_clip(cr);
    }
    dc.SetTextColor(IsWindowEnabled() ? theme::kText : theme::kTextDim);
    dc.DrawText(StoredText(), CRect(origin, top, origin + textWidth + 2, top + lineHeight),
                DT_LEFT | DT_SINGLELINE);
    if (cr)
        cairo_restore(cr);
    if (focused) {
        const double x = origin + caretX + 0.5;
        dc.DrawLine(x, top + 1, x, top + lineHeight - 1, theme::kText, 1.0);
    }
}

void CEdit::OnLButtonDown(UINT, CPoint point) {
    SetFocus();
    SetCapture();
    m_selecting = true;
    MoveCaret(PositionAt(point.x), (GetKeyState(16) & 0x8000) != 0);
}

void CEdit::OnLButtonDblClk(UINT, CPoint) {
    SetFocus();
    SetSel(0, -1);
}

void CEdit::OnMouseMove(UINT flags, CPoint point) {
    if (m_selecting)
        MoveCaret(PositionAt(point.x), true);
    CWnd::OnMouseMove(flags, point);
}

void CEdit::OnLButtonUp(UINT, CPoint) {
    m_selecting = false;
    if (GetCapture() == this)
        ReleaseCapture();
}

void CEdit::OnSetFocus(CWnd*) {
    Invalidate();
    NotifyParent(EN_SETFOCUS);
}

void CEdit::OnKillFocus(CWnd*) {
    m_selecting = false;
    Invalidate();
    NotifyParent(EN_KILLFOCUS);
}
