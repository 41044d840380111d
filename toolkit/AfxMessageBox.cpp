#include "toolkit/AfxMessageBox.h"

#include "toolkit/CFrameWnd.h"
#include "toolkit/CMessageBoxDlg.h"
#include "toolkit/WinControlIds.h"

#include <cstdio>

int AfxMessageBox(const char* text) {
    if (CWnd* owner = AfxGetMainWnd()) {
        AfxRunKeptDialog(owner, std::make_unique<CMessageBoxDlg>(text), nullptr);
    } else {
        std::printf("%s\n", text);
        std::fflush(stdout);
    }
    return IDOK;
}
