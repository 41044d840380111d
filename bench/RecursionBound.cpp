#include "bench/RecursionBound.h"

namespace {

// Stable poles (radius 0.9), so the lanes settle on ordinary numbers and never slow down
// as subnormals or infinities would.
const __m128 kA1 = _mm_setr_ps(-1.70f, -1.60f, -1.50f, -1.40f);
const __m128 kA2 = _mm_set1_ps(0.81f);
const __m128 kDrive = _mm_setr_ps(0.25f, -0.25f, 0.125f, -0.125f);

} // namespace

RecursionBound::RecursionBound() : m_y1(_mm_setzero_ps()), m_y2(_mm_setzero_ps()) {}

void RecursionBound::Run(int frames) {
    __m128 y1 = m_y1;
    __m128 y2 = m_y2;
    for (int i = 0; i < frames; ++i) {
        const __m128 y = _mm_sub_ps(_mm_sub_ps(kDrive, _mm_mul_ps(kA1, y1)), _mm_mul_ps(kA2, y2));
        y2 = y1;
        y1 = y;
    }
    m_y1 = y1;
    m_y2 = y2;
}

float RecursionBound::Sum() const {
    alignas(16) float lanes[4];
    _mm_store_ps(lanes, _mm_add_ps(m_y1, m_y2));
    return lanes[0] + lanes[1] + lanes[2] + lanes[3];
}
