#include "editor/CFormatEdit.h"

#include "toolkit/WinMessages.h"
#include "toolkit/platform/KeyCodes.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// How much of the field a read of its value takes.
constexpr int kValueReadLength = 64;

double WithinFiniteRange(double value) {
    if (value > DBL_MAX)
        return DBL_MAX;
    if (value < -DBL_MAX)
        return -DBL_MAX;
    return value;
}

// The keypad's Enter reads as Return, the arrows as the codes the field moves its caret by.
UINT TranslatedCharacter(UINT character) {
    switch (character) {
    case kCharEnter:
        return kCharReturn;
    case kCharLeft:
        return 37;
    case kCharRight:
        return 39;
    default:
        return character;
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CFormatEdit, CEdit)
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

CFormatEdit::CFormatEdit()
    : m_format("%.1fmm"), m_scale(10.0), m_upperLimit(DBL_MAX),
      m_lowerLimit(-DBL_MAX), m_formatBuffer{} {}

void CFormatEdit::SetDisplayFormat(const char* format, double scale) {
    std::snprintf(m_formatBuffer, sizeof m_formatBuffer, "%s", format);
    m_format = m_formatBuffer;
    m_scale = scale;
}

void CFormatEdit::SetInputMinMax(double minimum, double maximum) {
    if (maximum > minimum) {
        m_lowerLimit = minimum;
        m_upperLimit = maximum;
    }
}

double CFormatEdit::atof_and_limitchk(const char* text) const {
    const double value = std::atof(text);
    if (value > m_upperLimit)
        return m_upperLimit;
    if (value < m_lowerLimit)
        return m_lowerLimit;
    return value;
}

CString CFormatEdit::RawText(int maxCharacters) const {
    return StoredText().Left(maxCharacters);
}

double CFormatEdit::RawValue(int maxCharacters) const {
    return WithinFiniteRange(std::atof(RawText(maxCharacters)));
}

// Beyond what an int holds the value stays at the int's limit.
CString CFormatEdit::Scaled(double value) const {
    const double scaled = std::trunc(value * m_scale);
    int whole = 0;
    if (scaled >= static_cast<double>(INT_MAX))
        whole = INT_MAX;
    else if (scaled <= static_cast<double>(INT_MIN))
        whole = INT_MIN;
    else
        whole = static_cast<int>(scaled);
    CString text;
    text.Format("%d", whole);
    return text;
}

int CFormatEdit::GetWindowText(char* buffer, int length) const {
    if (!buffer || length <= 0)
        return 0;
    const CString scaled = Scaled(RawValue(kValueReadLength));
    std::snprintf(buffer, static_cast<std::size_t>(length), "%s", scaled.GetString());
    return static_cast<int>(std::strlen(buffer));
}

void CFormatEdit::SetWindowText(const char* text) {
    CString shown;
    shown.Format(m_format, std::atof(text ? text : "") / m_scale);
    if (shown == StoredText())
        return;
    SetTextForSpin(shown);
    NotifySpinButton();
}

void CFormatEdit::NotifyParentOfChange() {
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID()), 0);
}

void CFormatEdit::FixInputText() {
    const double value = atof_and_limitchk(RawText(kTextReadLength));
    CString shown;
    shown.Format(m_format, value);
    SetTextForSpin(shown);
    m_reportedText = Scaled(value);
    NotifyParentOfChange();
}

void CFormatEdit::OnKillFocus(CWnd* newWnd) {
    CEdit::OnKillFocus(newWnd);
    FixInputText();
}

bool CFormatEdit::PreTranslateMessage(MSG* msg) {
    if (msg->message != WM_KEYDOWN || msg->wParam == kKeyTab)
        return false;
    SendMessage(WM_KEYDOWN, msg->wParam, 1);
    SendMessage(WM_CHAR, TranslatedCharacter(msg->character), 1);
    return true;
}
