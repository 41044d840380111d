#include "toolkit/CClientDC.h"

#include "toolkit/CWnd.h"
#include "toolkit/MFCView0.h"

CClientDC::CClientDC(CWnd* wnd) {
    BindToWindow(wnd);
    if (wnd && wnd->GetSafeHwnd())
        m_context = wnd->GetSafeHwnd()->LockFocusIfCanDraw();
}

CClientDC::~CClientDC() {
    if (m_context && m_pWnd && m_pWnd->GetSafeHwnd())
        m_pWnd->GetSafeHwnd()->UnlockFocus(m_context, m_touched);
    else if (m_context)
        cairo_destroy(m_context);
    m_context = nullptr;
}
