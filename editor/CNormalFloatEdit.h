// The entry window's field: one decimal by default, Return and Escape told to the window
// that holds it, and only the characters of a number accepted.
#pragma once

#include "editor/CFormatEdit.h"

class CNormalFloatEdit : public CFormatEdit {
public:
    CNormalFloatEdit();

    bool MakeWindow(DWORD style, const RECT& rect, CWnd* parent, UINT id, bool sign);
    // n decimals: the format shows n, the scale is 10^n.
    void SetFloatPoint(int decimals);

    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    // Return and Escape, as the key handler tells them to the parent.
    void ProcRet();
    void ProcEsc();

protected:
    DECLARE_MESSAGE_MAP()

private:
    bool Accepts(UINT character) const;
};
