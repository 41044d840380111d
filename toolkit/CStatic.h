// A text label, drawn in the theme's text colour; SS_CENTER and SS_RIGHT align it.
#pragma once

#include "toolkit/CWnd.h"

constexpr DWORD SS_LEFT = 0x0000;
constexpr DWORD SS_CENTER = 0x0001;
constexpr DWORD SS_RIGHT = 0x0002;

class CStatic : public CWnd {
public:
    virtual bool Create(const char* text, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id = 0xFFFF);

protected:
    void OnPaint();
    DECLARE_MESSAGE_MAP()
};
