// Drawing inside WM_PAINT, into the area being painted; made and dropped by the handler.
#pragma once

#include "toolkit/CDC.h"

class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* wnd);
    ~CPaintDC() override;

    const CRect& GetPaintRect() const { return m_paintRect; }

private:
    CRect m_paintRect;
};
