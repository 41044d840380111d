// Deterministic noise for the demo signal and the benchmark.
#pragma once

#include <random>

// Uniform in [-1, 1) from the generator's raw bits, so the signal does not depend on how a
// standard library implements its distributions.
inline double uniformNoise(std::mt19937_64& generator) {
    return static_cast<double>(generator() >> 11) * 0x1p-52 - 1.0;
}
