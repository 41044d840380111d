// What drawing on a window touched, as a few rectangles rather than one box around it all:
// a window DC shows only these, and two small places far apart (the meters at both ends of
// a panel) then cost what they cover, not the width of the window between them.
#pragma once

#include "base/CRect.h"

#include <array>
#include <cstddef>

class TouchedArea {
public:
    static constexpr std::size_t kMaxRects = 4;
    // Two rectangles are shown as one when their joint box covers at most this many pixels
    // that neither covers: a few more pixels cost less than another copy to the screen.
    static constexpr long kJoinSlackPixels = 4096;

    void Add(const RECT& area);
    bool IsEmpty() const { return m_count == 0; }
    std::size_t Count() const { return m_count; }
    const CRect* begin() const { return m_rects.data(); }
    const CRect* end() const { return m_rects.data() + m_count; }

private:
    void RemoveAt(std::size_t index);

    std::array<CRect, kMaxRects> m_rects;
    std::size_t m_count = 0;
};
