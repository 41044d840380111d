#include "editor/CQMTBitmapSliderDC.h"

#include <cmath>

void CQMTBitmapSliderDC::Make(const CRect& sliderRect, const CRect& readoutRect, CWnd* parent,
                              CQMTBitmap* background, CQMTBitmap* fill, CQMTBitmap* thumb,
                              float min, float max, CPoint start, CPoint end, unsigned int id,
                              int vertical, bool logarithmic, bool reversed, bool thumbHidden,
                              bool snapToEnds, QMTControlCallback callback, void* user) {
    Place(sliderRect, readoutRect, parent, min, max, logarithmic, {id, callback, user});
    m_background = background;
    m_fill = fill;
    m_thumb = thumb;
    m_start = start;
    m_end = end;
    m_vertical = vertical;
    m_reversed = reversed;
    m_thumbHidden = thumbHidden;
    m_snapToEnds = snapToEnds;
    m_value = min;
    m_enabled = true;
    m_backgroundWidth = background ? background->Width() : 0;
    m_backgroundHeight = background ? background->Height() : 0;
}

float CQMTBitmapSliderDC::ValueAtVertical(int y) const {
    const bool outside =
        m_reversed ? (y < m_start.y || y > m_end.y) : (y > m_start.y || y < m_end.y);
    if (outside) {
        const bool atMinimumEnd = m_reversed ? y < m_start.y : y > m_start.y;
        return atMinimumEnd ? m_min : m_max;
    }
    // A track without length has only its minimum (and no curve to divide by).
    if (m_start.y == m_end.y)
        return m_min;
    if (m_logarithmic) {
        const double travel = static_cast<double>(y - m_start.y) / (m_end.y - m_start.y);
        return static_cast<float>(m_min + (m_max - m_min) * (std::pow(10.0, travel) - 1.0) / 9.0);
    }
    return m_min + static_cast<float>(m_start.y - y) * (m_max - m_min) /
                       static_cast<float>(m_start.y - m_end.y);
}

// The decade curve is deliberately not applied to horizontal tracks.
float CQMTBitmapSliderDC::ValueAtHorizontal(int x) const {
    const bool outside =
        m_reversed ? (x > m_start.x || x < m_end.x) : (x < m_start.x || x > m_end.x);
    if (outside) {
        const bool atMinimumEnd = m_reversed ? x > m_start.x : x < m_start.x;
        return atMinimumEnd ? m_min : m_max;
    }
    if (m_start.x == m_end.x)
        return m_min;
    return m_min + static_cast<float>(x - m_start.x) * (m_max - m_min) /
                       static_cast<float>(m_end.x - m_start.x);
}

bool CQMTBitmapSliderDC::SetValueByPoint(CPoint point) {
    if (!m_enabled)
        return false;
    float value = m_vertical ? ValueAtVertical(point.y - m_controlRect.top)
                             : ValueAtHorizontal(point.x - m_controlRect.left);
    if (m_snapToEnds)
        value = value < m_min + (m_max - m_min) * 0.5f ? m_min : m_max;
    if (value == m_value)
        return false;
    m_value = value;
    InvalidateReadout();
    m_notify(value);
    return true;
}

void CQMTBitmapSliderDC::SetValue(float value, CDC* dc, bool notify) {
    value = ClampToRange(value, m_min, m_max);
    if (value != m_value) {
        m_value = value;
        if (notify)
            m_notify(value);
    }
    if (dc)
        DrawSlider(dc);
    InvalidateReadout();
}

void CQMTBitmapSliderDC::ComposeVertical(CDC& image, CDC& sources) {
    const int thumbHeight = m_thumb ? m_thumb->Height() : 0;
    int y = m_start.y - thumbHeight / 2;
    if (m_max != m_min && m_logarithmic) {
        const double curve = std::log10(9.0 * (m_value - m_min) / (m_max - m_min) + 1.0);
        y = static_cast<int>(std::floor(m_start.y + (m_end.y - m_start.y) * curve + 0.5)) -
            thumbHeight / 2;
    } else if (m_max != m_min) {
        y = static_cast<int>(-0.5 * thumbHeight + m_start.y -
                             (m_value - m_min) * (m_start.y - m_end.y) / (m_max - m_min));
    }
    if (m_thumbHidden || !m_thumb)
        return;
    sources.SelectObject(m_thumb);
    image.BitBlt(m_start.x, y, m_thumb->Width(), thumbHeight, &sources, 0, 0, SRCCOPY);
}

void CQMTBitmapSliderDC::ComposeHorizontal(CDC& image, CDC& sources) {
    const int thumbWidth = m_thumb ? m_thumb->Width() : 0;
    const int thumbHeight = m_thumb ? m_thumb->Height() : 0;
    const int x =
        m_max != m_min
            ? static_cast<int>(-0.5 * thumbWidth + m_start.x +
                               (m_value - m_min) * (m_end.x - m_start.x) / (m_max - m_min))
            : static_cast<int>(m_start.x - 0.5 * thumbWidth);
    // The lit part runs from the left edge to the thumb.
    if (m_fill) {
        sources.SelectObject(m_fill);
        image.BitBlt(0, 0, x, thumbHeight, &sources, 0, 0, SRCCOPY);
    }
    if (m_thumbHidden || !m_thumb)
        return;
    sources.SelectObject(m_thumb);
    image.BitBlt(x, m_start.y, thumbWidth, thumbHeight, &sources, 0, 0, SRCCOPY);
}

void CQMTBitmapSliderDC::DrawSlider(CDC* dc) {
    if (!m_enabled || !dc)
        return;
    CDC image;
    image.CreateBitmapDC(m_backgroundWidth, m_backgroundHeight);
    CDC sources;
    sources.CreateCompatibleDC(dc);
    CBitmap* previous = sources.SelectObject(m_background);
    const int width = m_background ? m_background->Width() : 0;
    const int height = m_background ? m_background->Height() : 0;
    if (width == m_backgroundWidth && height == m_backgroundHeight)
        image.BitBlt(0, 0, m_backgroundWidth, m_backgroundHeight, &sources, 0, 0, SRCCOPY);
    else
        image.StretchBlt(0, 0, m_backgroundWidth, m_backgroundHeight, &sources, 0, 0, width, height,
                         SRCCOPY);
    if (m_vertical)
        ComposeVertical(image, sources);
    else
        ComposeHorizontal(image, sources);
    sources.SelectObject(previous);
    dc->BitBlt(m_controlRect.left, m_controlRect.top, m_backgroundWidth, m_backgroundHeight, &image,
               0, 0, SRCCOPY);
}

bool CQMTBitmapSliderDC::PtInSwitch(CPoint point) {
    return m_enabled && StartDrag(point);
}
