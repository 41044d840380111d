#include "dsp/FilterResponse.h"

#include <cmath>
#include <complex>

namespace {

constexpr double kPi = 3.14159265358979323846;

// H(e^jw) of a section whose coefficients are already divided by a0.
std::complex<double> Transfer(const BiquadCoefficients& c, double frequency, double sampleRate) {
    const double w = 2.0 * kPi * frequency / sampleRate;
    const std::complex<double> z1 = std::polar(1.0, -w);
    const std::complex<double> z2 = z1 * z1;
    const std::complex<double> numerator = double(c.b0) + double(c.b1) * z1 + double(c.b2) * z2;
    const std::complex<double> denominator = 1.0 + double(c.a1) * z1 + double(c.a2) * z2;
    return numerator / denominator;
}

FrequencyResponse ToResponse(std::complex<double> h) {
    return {20.0 * std::log10(std::abs(h)), std::arg(h)};
}

} // namespace

FrequencyResponse ChainResponse(const EqualizerChain& chain, double frequency) {
    if (!chain.processes) {
        return {0.0, 0.0};
    }
    std::complex<double> h = double(chain.inputGain) * double(chain.outputGain);
    for (int band = 0; band < CMultiEqualizer::kBandCount; ++band) {
        if (chain.bandActive[band]) {
            h *= Transfer(chain.band[band], frequency, chain.sampleRate);
        }
    }
    return ToResponse(h);
}
