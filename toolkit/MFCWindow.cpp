#include "toolkit/MFCWindow.h"

#include "toolkit/CWnd.h"
#include "toolkit/MFCView0.h"
#include "toolkit/WinMessages.h"

MFCWindow::MFCWindow(CWnd* wnd, MFCView0* view) : m_pWnd(wnd), m_view(view) {
    m_view->SetWindow(this);
}

MFCWindow::~MFCWindow() {
    m_view->SetWindow(nullptr);
}

void MFCWindow::PerformClose() {
    SendMessage0(m_pWnd, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void MFCWindow::WindowDidResize(int width, int height) {
    SendMessage0(m_pWnd, WM_SIZE, 0, MAKELPARAM(width, height));
}
