#include "toolkit/CPaintDC.h"

#include "toolkit/CWnd.h"

CPaintDC::CPaintDC(CWnd* wnd) {
    BindToWindow(wnd);
    if (wnd) {
        m_context = wnd->GetPaintContext();
        m_paintRect = wnd->GetUpdateRect();
    }
}

// The context belongs to the paint that is under way; the view releases it.
CPaintDC::~CPaintDC() {
    m_context = nullptr;
}
