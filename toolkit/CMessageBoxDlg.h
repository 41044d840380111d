// A message with an OK button, as a modal dialog over the editor. Escape and the close box
// acknowledge it like OK.
#pragma once

#include "toolkit/CDialog.h"

class CMessageBoxDlg : public CDialog {
public:
    explicit CMessageBoxDlg(const char* text, CWnd* parent = nullptr);
    void OnCancel() override;

private:
    static DialogTemplate Layout(const char* text);
};
