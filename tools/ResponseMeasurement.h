// Measures a plug-in's frequency response: a unit impulse goes through the rack and the
// Fourier transform of what comes out is the response (exact for a linear plug-in).
#pragma once

#include "tools/PluginRack.h"

#include <vector>

struct MeasuredResponse {
    std::vector<double> frequencies; // Hz
    std::vector<double> magnitudeDb;
    // Wrapped to -180..180, with the plug-in's reported latency taken out.
    std::vector<double> phaseDegrees;
};

// `rack` must take one signal channel; the response is that of its first output.
MeasuredResponse measureResponse(PluginRack& rack, double sampleRate, int blockSize, bool useDouble,
                                 const std::vector<double>& frequencies);

// `count` frequencies spaced evenly on a logarithmic axis from `low` to `high`.
std::vector<double> logarithmicFrequencies(double low, double high, int count);
