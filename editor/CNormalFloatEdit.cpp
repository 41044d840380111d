#include "editor/CNormalFloatEdit.h"

#include "editor/PanelIds.h"
#include "toolkit/platform/KeyCodes.h"

#include <cmath>
#include <cstdio>

namespace {

// Hardware key codes: 36 is Return; 35 is handled the same, as it always was.
constexpr UINT kKeyReturnTwin = 35;

constexpr UINT kCharMinus = '-';
constexpr UINT kCharPoint = '.';
// The arrows as the field's key handling hands them on.
constexpr UINT kCharArrowLeft = 37;
constexpr UINT kCharArrowRight = 39;

} // namespace

BEGIN_MESSAGE_MAP(CNormalFloatEdit, CFormatEdit)
ON_WM_KEYDOWN()
ON_WM_CHAR()
END_MESSAGE_MAP()

CNormalFloatEdit::CNormalFloatEdit() {
    SetDisplayFormat("%.1f", 10.0);
}

bool CNormalFloatEdit::MakeWindow(DWORD style, const RECT& rect, CWnd* parent, UINT id, bool sign) {
    SetSingnFlag(sign);
    return Create(style, rect, parent, id);
}

void CNormalFloatEdit::SetFloatPoint(int decimals) {
    char format[16];
    std::snprintf(format, sizeof format, "%%.%df", decimals);
    SetDisplayFormat(format, std::pow(10.0, decimals));
}

void CNormalFloatEdit::ProcRet() {
    SendMessage0(GetParent(), WM_ENTRY_RETURN, static_cast<WPARAM>(GetDlgCtrlID()), 0);
}

void CNormalFloatEdit::ProcEsc() {
    SendMessage0(GetParent(), WM_ENTRY_ESCAPE, static_cast<WPARAM>(GetDlgCtrlID()), 0);
}

void CNormalFloatEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    if (key == kKeyReturn || key == kKeyReturnTwin)
        ProcRet();
    else if (key == kKeyEscape)
        ProcEsc();
    else
        CEdit::OnKeyDown(key, repeat, flags);
}

bool CNormalFloatEdit::Accepts(UINT character) const {
    return (character >= '0' && character <= '9') || character == kCharBackSpace ||
           character == kCharArrowLeft || character == kCharArrowRight || character == kCharPoint ||
           (character == kCharMinus && GetSingnFlag());
}

// Accepted characters edit the text; any other is refused, and the text is shown again in
// the display format (so 1.25 with one decimal becomes 1.2). Either way the value is
// reported anew.
void CNormalFloatEdit::OnChar(UINT character, UINT repeat, UINT flags) {
    if (character == kCharReturn || character == kCharEscape)
        return;
    if (Accepts(character)) {
        CEdit::OnChar(character, repeat, flags);
    } else {
        CString shown;
        shown.Format(GetFormat(), RawValue(kTextReadLength));
        SetTextForSpin(shown);
    }
    SetReportedText(Scaled(RawValue(kTextReadLength)));
    NotifyParentOfChange();
}
