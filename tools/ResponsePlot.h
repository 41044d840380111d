// Draws a measured response as a picture: magnitude in dB over a logarithmic frequency
// axis from 20 Hz to 20 kHz, with an optional phase curve on its own axis.
#pragma once

#include "tools/CairoSurface.h"
#include "tools/ResponseMeasurement.h"

#include <string>

struct PlotLayout {
    int width = 900;
    int height = 500;
    bool showPhase = false;
    std::string title;
    std::string subtitle;
};

CairoSurface drawResponsePlot(const MeasuredResponse& response, const PlotLayout& layout);

// The dB range the plot shows: symmetric about 0 dB, in 6 dB steps, at least +-12 dB and
// wide enough for the whole curve (up to +-96 dB, beyond which the curve is clipped).
double plotRangeDb(const MeasuredResponse& response);
