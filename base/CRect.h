// A rectangle as left, top, right, bottom; right and bottom lie just outside it.
#pragma once

#include "base/CPoint.h"
#include "base/CSize.h"
#include "base/WinTypes.h"

class CRect : public RECT {
public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(const RECT* rect) : RECT(rect ? *rect : RECT{0, 0, 0, 0}) {}
    CRect(const POINT& topLeft, const SIZE& size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool PtInRect(const POINT& point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(int l, int t, int r, int b) {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void OffsetRect(int dx, int dy);
    void OffsetRect(const POINT& offset) { OffsetRect(offset.x, offset.y); }
    void InflateRect(int dx, int dy);
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    // Both return whether the result is non-empty; an empty intersection becomes all zeros.
    bool IntersectRect(const RECT& a, const RECT& b);
    bool UnionRect(const RECT& a, const RECT& b);

    operator RECT*() { return this; }
    operator const RECT*() const { return this; }
    bool operator==(const RECT& other) const;
    bool operator!=(const RECT& other) const { return !(*this == other); }
};
