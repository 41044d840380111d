// The analytic frequency response of the equaliser, computed from the coefficients the
// filters actually run with, for plots and checks away from the audio thread.
#pragma once

#include "dsp/CBiquadFilter.h"
#include "dsp/CMultiEqualizer.h"

struct FrequencyResponse {
    double magnitudeDb; // 20 log10 |H|
    double phase;       // arg H in radians, within [-pi, pi]
};

// One channel of the engine as it stands: input gain, each active band, output gain. When
// the chain does not process (both bands off, no format) the caller's signal passes
// unchanged, so the response is flat at 0 dB.
FrequencyResponse ChainResponse(const EqualizerChain& chain, double frequency);
