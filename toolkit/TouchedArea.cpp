#include "toolkit/TouchedArea.h"

namespace {

long AreaOf(const CRect& rect) {
    return static_cast<long>(rect.Width()) * rect.Height();
}

// Pixels the joint box of a and b covers beyond what a and b cover (overlap counts once
// too often, which only makes overlapping rectangles join more readily).
long JoinCost(const CRect& a, const CRect& b) {
    CRect joint;
    joint.UnionRect(a, b);
    return AreaOf(joint) - AreaOf(a) - AreaOf(b);
}

} // namespace

void TouchedArea::Add(const RECT& area) {
    CRect added(area);
    if (added.IsRectEmpty())
        return;
    // Whatever joins grows the new rectangle, which may then reach others: look again.
    for (bool joined = true; joined;) {
        joined = false;
        for (std::size_t i = 0; i < m_count; ++i) {
            if (JoinCost(m_rects[i], added) <= kJoinSlackPixels) {
                added.UnionRect(added, m_rects[i]);
                RemoveAt(i);
                joined = true;
                break;
            }
        }
    }
    if (m_count == kMaxRects) {
        // Full: the new rectangle joins the one that takes it in most cheaply.
        std::size_t cheapest = 0;
        for (std::size_t i = 1; i < m_count; ++i) {
            if (JoinCost(m_rects[i], added) < JoinCost(m_rects[cheapest], added))
                cheapest = i;
        }
        added.UnionRect(added, m_rects[cheapest]);
        RemoveAt(cheapest);
    }
    m_rects[m_count++] = added;
}

void TouchedArea::RemoveAt(std::size_t index) {
    m_rects[index] = m_rects[m_count - 1];
    --m_count;
}
