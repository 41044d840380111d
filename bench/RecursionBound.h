// The hardware's limit for this equaliser: the four recursions of a stereo two-band frame
// with nothing else around them. Each frame costs one multiply and two dependent
// subtractions of latency, y = (c - a1 y1) - a2 y2, with the four lanes in flight together;
// no implementation that keeps the filters' order of operations can beat it.
#pragma once

#include <xmmintrin.h>

class RecursionBound {
public:
    RecursionBound();
    void Run(int frames);
    // Keeps the loop's result observable.
    float Sum() const;

private:
    __m128 m_y1;
    __m128 m_y2;
};
