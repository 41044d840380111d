// A width and a height in pixels.
#pragma once

#include "base/WinTypes.h"

class CSize : public SIZE {
public:
    CSize() : SIZE{0, 0} {}
    CSize(int width, int height) : SIZE{width, height} {}
    CSize(const SIZE& size) : SIZE(size) {}

    bool operator==(const SIZE& other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(const SIZE& other) const { return !(*this == other); }
    CSize operator+(const SIZE& other) const { return CSize(cx + other.cx, cy + other.cy); }
    CSize operator-(const SIZE& other) const { return CSize(cx - other.cx, cy - other.cy); }
    CSize& operator+=(const SIZE& other) {
        cx += other.cx;
        cy += other.cy;
        return *this;
    }
    CSize& operator-=(const SIZE& other) {
        cx -= other.cx;
        cy -= other.cy;
        return *this;
    }
};
