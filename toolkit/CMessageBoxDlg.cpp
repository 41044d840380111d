#include "toolkit/CMessageBoxDlg.h"

#include "toolkit/CDC.h"
#include "toolkit/CWinApp.h"
#include "toolkit/WinControlIds.h"

#include <algorithm>

namespace {
constexpr int kMargin = 20;
constexpr int kMinWidth = 280;
constexpr int kMaxWidth = 560;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 28;
constexpr int kTextHeight = 40;
} // namespace

CMessageBoxDlg::CMessageBoxDlg(const char* text, CWnd* parent) : CDialog(Layout(text), parent) {}

DialogTemplate CMessageBoxDlg::Layout(const char* text) {
    CFont font;
    font.CreatePointFont(12, "Osaka");
    CDC measure;
    measure.SelectObject(&font);
    const CString message(text);
    const int textWidth = measure.GetTextExtent(message).cx;
    const int width = std::clamp(textWidth + 2 * kMargin, kMinWidth, kMaxWidth);
    const int height = kMargin + kTextHeight + kButtonHeight + kMargin;
    const CWinApp* app = AfxGetApp();
    DialogTemplate layout{app && app->m_pszAppName ? app->m_pszAppName : "", width, height, {}};
    layout.items.push_back({DialogItemKind::Static, 0xFFFF,
                            RECT{kMargin, kMargin, width - kMargin, kMargin + kTextHeight}, message,
                            0});
    const int buttonTop = height - kMargin - kButtonHeight;
    layout.items.push_back({DialogItemKind::DefaultButton, IDOK,
                            RECT{width - kMargin - kButtonWidth, buttonTop, width - kMargin,
                                 buttonTop + kButtonHeight},
                            "OK", 0});
    return layout;
}

void CMessageBoxDlg::OnCancel() {
    EndDialog(IDOK);
}
