#include "toolkit/ClickCounter.h"

#include <cstdlib>

int ClickCounter::Press(int x, int y, unsigned long timeMs) {
    const bool continues = m_count > 0 && timeMs - m_lastTimeMs <= kDoubleClickMs &&
                           std::abs(x - m_lastX) <= kDoubleClickDistance &&
                           std::abs(y - m_lastY) <= kDoubleClickDistance;
    m_count = continues ? m_count + 1 : 1;
    m_lastX = x;
    m_lastY = y;
    m_lastTimeMs = timeMs;
    return m_count;
}
