#include "base/CRect.h"

#include <algorithm>
#include <utility>

void CRect::OffsetRect(int dx, int dy) {
    left += dx;
    right += dx;
    top += dy;
    bottom += dy;
}

void CRect::InflateRect(int dx, int dy) {
    left -= dx;
    right += dx;
    top -= dy;
    bottom += dy;
}

bool CRect::IntersectRect(const RECT& a, const RECT& b) {
    CRect result(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom));
    if (result.IsRectEmpty())
        result.SetRectEmpty();
    *this = result;
    return !IsRectEmpty();
}

bool CRect::UnionRect(const RECT& a, const RECT& b) {
    const CRect first(a);
    const CRect second(b);
    if (first.IsRectEmpty())
        *this = second;
    else if (second.IsRectEmpty())
        *this = first;
    else
        SetRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom));
    if (IsRectEmpty()) {
        SetRectEmpty();
        return false;
    }
    return true;
}

bool CRect::operator==(const RECT& other) const {
    return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}
