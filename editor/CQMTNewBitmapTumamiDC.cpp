#include "editor/CQMTNewBitmapTumamiDC.h"

#include <cmath>

namespace {

// The half-turn constant of the angle mapping, with the precision it always had.
constexpr double kHalfTurn = 3.141592653;

} // namespace

void CQMTNewBitmapTumamiDC::Make(const CRect& knobRect, const CRect& readoutRect, CWnd* parent,
                                 CQMTBitmap* strip, float min, float max, unsigned int id,
                                 int frameCount, float angleFrom, float angleTo, int /*spare*/,
                                 bool logarithmic, QMTControlCallback callback, void* user) {
    Place(knobRect, readoutRect, parent, min, max, logarithmic, {id, callback, user});
    m_strip = strip;
    m_angleFrom = angleFrom;
    m_angleTo = angleTo;
    m_value = kNoDragValue;
    m_lastDragValue = kNoDragValue;
    SetValue(min + 0.5f * (max - min), nullptr, false);
    m_step = (max - min) / static_cast<float>(frameCount - 1);
}

void CQMTNewBitmapTumamiDC::SetValue(float value, CDC* dc, bool notify) {
    value = ClampToRange(value, m_min, m_max);
    if (value == m_value)
        return;
    m_value = value;
    m_angle = m_angleFrom +
              static_cast<double>(m_angleTo - m_angleFrom) * (value - m_min) / (m_max - m_min);
    m_lastDragValue = value;
    if (notify)
        m_notify(value);
    if (dc)
        Draw(dc);
    InvalidateReadout();
}

void CQMTNewBitmapTumamiDC::SetValue(CPoint point) {
    const int dx = point.x - m_controlRect.left - m_controlRect.Width() / 2;
    const int dy = point.y - m_controlRect.top - m_controlRect.Height() / 2;
    // Kept as it always was: the vertical offset is compared with the half width and the
    // horizontal one with the half height.
    if (static_cast<double>(dy) == m_controlRect.Width() / 2 && dx > m_controlRect.Height() / 2)
        return;
    if (dx == 0 && dy == 0)
        return;

    // Degrees clockwise on screen from straight down: down 0, left 90, up 180, right 270.
    // A knob held at one end does not jump to the other end when the pointer crosses the
    // gap at the bottom of the arc.
    double angle = 0.0;
    if (dx == 0) {
        if (m_lastDragValue == m_max)
            angle = m_angleTo;
        else if (m_lastDragValue == m_min)
            angle = m_angleFrom;
        else
            angle = dy < 0 ? 180.0 : 0.0;
    } else if (dx > 0) {
        angle = m_lastDragValue == m_min ? m_angleFrom
                                         : std::atan2(dx, dy) * -180.0 / kHalfTurn + 360.0;
    } else {
        angle = m_lastDragValue == m_max ? m_angleTo : std::atan2(dx, dy) * -180.0 / kHalfTurn;
    }
    if (angle < m_angleFrom)
        angle = m_angleFrom;
    if (angle > m_angleTo)
        angle = m_angleTo;

    const double travel = (angle - m_angleFrom) / (m_angleTo - m_angleFrom);
    const double value =
        m_logarithmic ? m_min + (m_max - m_min) * (std::pow(10.0, travel) - 1.0) / 9.0
                      : m_min + (angle - m_angleFrom) * (m_max - m_min) / (m_angleTo - m_angleFrom);
    m_value = static_cast<float>(value);
    m_lastDragValue = m_value;
    m_angle = angle;
    InvalidateReadout();
    // A drag reports every move, changed or not.
    m_notify(m_value);
}

int CQMTNewBitmapTumamiDC::FrameIndex() const {
    double position = (m_value - m_min) / m_step;
    // Only meaningful for a 0..1 range: the decade curve is divided by the linear step.
    if (m_logarithmic)
        position = std::log10(9.0 * (m_value - m_min) / (m_max - m_min) + 1.0) / m_step;
    return static_cast<int>(std::floor(position + 0.5));
}

void CQMTNewBitmapTumamiDC::Draw(CDC* dc) {
    if (!dc)
        return;
    const int width = m_controlRect.Width();
    const int height = m_controlRect.Height();
    CDC strip;
    strip.CreateCompatibleDC(dc);
    CBitmap* previous = strip.SelectObject(m_strip);
    dc->BitBlt(m_controlRect.left, m_controlRect.top, width, height, &strip, 0,
               FrameIndex() * height, SRCCOPY);
    strip.SelectObject(previous);
}

unsigned int CQMTNewBitmapTumamiDC::GetIndexValue() const {
    return static_cast<unsigned int>(std::ceil((m_value - m_min) / m_step));
}
