#include "dsp/CBiquadFilter.h"

#include <algorithm>
#include <cmath>

namespace {

// 2 pi rounded to single precision; the design multiplies by exactly this float.
constexpr float kTwoPi = 6.2831855f;

// Fraction of the Nyquist frequency that the design frequency may reach.
constexpr float kNyquistFraction = 0.95f;

// Fraction of the sample rate below which single precision cannot place a section:
// cos(w0) rounds so close to 1 that a pole leaves the unit circle and the output grows
// without bound (at 20 Hz this starts a little above 192 kHz). At 192 kHz and below the
// floor stays under the equaliser's lowest frequency, so those designs are unchanged.
constexpr float kLowestRateFraction = 1.04e-4f;

} // namespace

// Until its first design a section passes the signal through unchanged, so nothing
// undefined can reach the output.
CBiquadFilter::CBiquadFilter()
    : a0(1.0f), a1(0.0f), a2(0.0f), b0(1.0f), b1(0.0f), b2(0.0f), x1(0.0f), x2(0.0f), y1(0.0f),
      y2(0.0f) {}

CBiquadFilter::~CBiquadFilter() = default;

void CBiquadFilter::Reset() {
    x1 = 0.0f;
    x2 = 0.0f;
    y1 = 0.0f;
    y2 = 0.0f;
}

void CBiquadFilter::CalcCoefficients(float sampleRate, float freq, float gainDb, float q,
                                     int type) {
    // Frequencies near Nyquist are pulled down to 95 % of it; frequencies too low for the
    // rate are raised to the lowest one that still designs a stable section.
    const float limit = 0.5f * sampleRate * kNyquistFraction;
    const float f = std::max(std::min(limit, freq), sampleRate * kLowestRateFraction);

    const float A = static_cast<float>(std::pow(10.0, gainDb / 40.0f));
    const double w0 = (f / sampleRate) * kTwoPi;
    const float sn = static_cast<float>(std::sin(w0));
    const float cs = static_cast<float>(std::cos(w0));
    // The shelf slope term is sqrt(A / q) on purpose: it equals the textbook 2 sqrt(A) alpha
    // at q = 1 but grows only with the square root of 1/q elsewhere.
    const float s = std::sqrt(A / q);
    const float Ap = 1.0f + A;
    const float Am = -1.0f + A;

    float rawA0 = a0;
    float rawA1 = a1;
    float rawA2 = a2;
    float rawB0 = b0;
    float rawB1 = b1;
    float rawB2 = b2;
    switch (type) {
    case kBiquadLowShelf:
        rawB0 = A * ((Ap - Am * cs) + sn * s);
        rawB1 = 2.0f * A * (Am - Ap * cs);
        rawB2 = A * ((Ap - Am * cs) - sn * s);
        rawA0 = (Ap + Am * cs) + sn * s;
        rawA1 = -2.0f * (Am + Ap * cs);
        rawA2 = (Ap + Am * cs) - sn * s;
        break;
    case kBiquadPeaking: {
        const float alpha = sn / (2.0f * q);
        rawB0 = 1.0f + A * alpha;
        rawB1 = -2.0f * cs;
        rawB2 = 1.0f - A * alpha;
        rawA0 = 1.0f + alpha / A;
        rawA1 = -2.0f * cs;
        rawA2 = 1.0f - alpha / A;
        break;
    }
    case kBiquadHighShelf:
        rawB0 = A * ((Ap + Am * cs) + sn * s);
        rawB1 = -2.0f * A * (Am + Ap * cs);
        rawB2 = A * ((Ap + Am * cs) - sn * s);
        rawA0 = (Ap - Am * cs) + sn * s;
        rawA1 = 2.0f * (Am - Ap * cs);
        rawA2 = (Ap - Am * cs) - sn * s;
        break;
    default:
        // An unknown code keeps the stored coefficients as if they were raw, so the division
        // below scales them by a0 once more on every such call. Kept as it always behaved;
        // the engine never passes such a code.
        break;
    }

    // a0 keeps its raw value: it is the divisor, not a coefficient the filter runs with.
    a0 = rawA0;
    a1 = rawA1 / rawA0;
    a2 = rawA2 / rawA0;
    b0 = rawB0 / rawA0;
    b1 = rawB1 / rawA0;
    b2 = rawB2 / rawA0;
}

void CBiquadFilter::OperateFilter(const float* in, float* out, int count) {
    // Coefficients and history live in locals for the block: out may point anywhere, so the
    // compiler would otherwise reload every member after each store. Any count is safe: each
    // sample shifts the history by one, so a block of one sample followed by more blocks gives
    // the same output as one larger block.
    const BiquadCoefficients c = GetCoefficients();
    BiquadHistory h = GetHistory();
    for (int n = 0; n < count; ++n) {
        const float x = in[n];
        const float y = c.b0 * x + c.b1 * h.x1 + c.b2 * h.x2 - c.a1 * h.y1 - c.a2 * h.y2;
        out[n] = y;
        h = {x, h.x1, y, h.y1};
    }
    SetHistory(h);
}
