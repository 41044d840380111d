// A numeric edit field that shows a value in a printf format with a fixed number of
// decimals and reports it as a scaled integer: with one decimal, "12.3" reads as "123".
// The value may be limited to a range when the field loses the focus. Owned by the window
// that creates it (the panel's entry window).
#pragma once

#include "toolkit/CEdit.h"

class CFormatEdit : public CEdit {
public:
    CFormatEdit();

    // Both limits change only when maximum > minimum.
    void SetInputMinMax(double minimum, double maximum);
    // Whether a minus sign may be typed.
    void SetSingnFlag(bool sign) { m_signFlag = sign; }
    bool GetSingnFlag() const { return m_signFlag; }
    // The text's value, limited to the field's range.
    double atof_and_limitchk(const char* text) const;

    // The field's value times the scale, truncated, in decimal: how the value is read.
    int GetWindowText(char* buffer, int length) const override;
    using CEdit::GetWindowText;
    // Takes a scaled integer and shows its value in the display format; an unchanged text
    // is left alone, a new one is also told to the spin button.
    void SetWindowText(const char* text) override;
    // The value typed, in range and in the display format.
    void FixInputText();
    const CString& GetReportedText() const { return m_reportedText; }
    const char* GetFormat() const { return m_format; }

    // Every key but Tab goes to the field's own key and character handlers.
    bool PreTranslateMessage(MSG* msg) override;

protected:
    // The longest text the field's own handlers read.
    static constexpr int kTextReadLength = 318;

    void OnKillFocus(CWnd* newWnd);
    // The text as typed, and its value limited only to finite numbers.
    CString RawText(int maxCharacters) const;
    double RawValue(int maxCharacters) const;
    // The value as the scaled integer that the field reports.
    CString Scaled(double value) const;
    void SetReportedText(const CString& text) { m_reportedText = text; }
    void NotifyParentOfChange();
    void SetDisplayFormat(const char* format, double scale);

    DECLARE_MESSAGE_MAP()

private:
    CString m_reportedText;
    const char* m_format;
    double m_scale;
    bool m_signFlag = false;
    double m_upperLimit;
    double m_lowerLimit;
    char m_formatBuffer[16];
};
