// Counts presses of the mouse button into clicks: a press close in time and place to the
// previous one continues the series (2 is a double click), any other starts a new one.
#pragma once

class ClickCounter {
public:
    static constexpr unsigned long kDoubleClickMs = 400;
    static constexpr int kDoubleClickDistance = 4;

    // Returns the click count of this press.
    int Press(int x, int y, unsigned long timeMs);

private:
    int m_count = 0;
    int m_lastX = 0;
    int m_lastY = 0;
    unsigned long m_lastTimeMs = 0;
};
