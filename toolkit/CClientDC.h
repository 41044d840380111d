// Drawing outside WM_PAINT; shows what it drew when it goes. A window that cannot draw
// (hidden, or not on screen) gives a DC on which every drawing does nothing.
#pragma once

#include "toolkit/CDC.h"

class CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* wnd);
    ~CClientDC() override;
};
