// The top-level part of a pop-up or dialog CWnd: reports the window's close box and size
// changes as messages. Owned by its CWnd, beside the content view it serves.
#pragma once

class CWnd;
class MFCView0;

class MFCWindow {
public:
    MFCWindow(CWnd* wnd, MFCView0* view);
    ~MFCWindow();
    MFCWindow(const MFCWindow&) = delete;
    MFCWindow& operator=(const MFCWindow&) = delete;

    // The close box: WM_SYSCOMMAND with SC_CLOSE.
    void PerformClose();
    // WM_SIZE with the new content size.
    void WindowDidResize(int width, int height);

private:
    CWnd* m_pWnd;
    MFCView0* m_view;
};
