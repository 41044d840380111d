// A position in pixels, top-left origin, y growing downward.
#pragma once

#include "base/CSize.h"
#include "base/WinTypes.h"

class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}
    CPoint(int initX, int initY) : POINT{initX, initY} {}
    CPoint(const POINT& point) : POINT(point) {}

    // Unpacks a mouse message's lParam: x in the low 16 bits, y in the high 16 bits, each
    // sign-extended so that positions left of or above a window stay negative.
    static CPoint FromLParam(LPARAM packed) {
        return CPoint(static_cast<std::int16_t>(LOWORD(static_cast<std::uintptr_t>(packed))),
                      static_cast<std::int16_t>(HIWORD(static_cast<std::uintptr_t>(packed))));
    }
    LPARAM ToLParam() const { return MAKELPARAM(x, y); }

    void Offset(int dx, int dy) {
        x += dx;
        y += dy;
    }
    bool operator==(const POINT& other) const { return x == other.x && y == other.y; }
    bool operator!=(const POINT& other) const { return !(*this == other); }
    CPoint operator+(const SIZE& offset) const { return CPoint(x + offset.cx, y + offset.cy); }
    CPoint operator-(const SIZE& offset) const { return CPoint(x - offset.cx, y - offset.cy); }
    CSize operator-(const POINT& other) const { return CSize(x - other.x, y - other.y); }
    CPoint& operator+=(const SIZE& offset) {
        Offset(offset.cx, offset.cy);
        return *this;
    }
    CPoint& operator-=(const SIZE& offset) {
        Offset(-offset.cx, -offset.cy);
        return *this;
    }
};
