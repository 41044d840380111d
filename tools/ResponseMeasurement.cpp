#include "tools/ResponseMeasurement.h"

#include "tools/StreamRenderer.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <fftw3.h>
#include <memory>

namespace {

constexpr double kPi = 3.14159265358979323846;
// Long enough for the slowest filter of an equaliser (a narrow band at 20 Hz) to ring down
// below -70 dB, and fine enough in frequency (a fifth of a hertz at 48 kHz) to interpolate.
constexpr int kResponseLength = 1 << 18;
// Silence before the impulse, so plug-ins that glide to new settings have arrived.
constexpr double kSettleSeconds = 0.25;

// Silence, one full-scale sample, then silence.
class ImpulseSource : public SignalSource {
public:
    ImpulseSource(int rate, int64_t impulseFrame, int64_t length)
        : rate(rate), impulseFrame(impulseFrame), length(length) {}
    int channels() const override { return 1; }
    int sampleRate() const override { return rate; }
    int64_t frames() const override { return length; }
    int64_t read(double* interleaved, int64_t count) override {
        const int64_t available = std::min(count, length - position);
        for (int64_t i = 0; i < available; ++i) {
            interleaved[i] = position + i == impulseFrame ? 1.0 : 0.0;
        }
        position += available;
        return available;
    }

private:
    int rate;
    int64_t impulseFrame;
    int64_t length;
    int64_t position = 0;
};

struct FftwDeleter {
    void operator()(double* memory) const { fftw_free(memory); }
    void operator()(fftw_complex* memory) const { fftw_free(memory); }
};

std::vector<std::complex<double>> spectrumOf(const std::vector<double>& signal) {
    const int length = static_cast<int>(signal.size());
    std::unique_ptr<double, FftwDeleter> input(fftw_alloc_real(length));
    std::unique_ptr<fftw_complex, FftwDeleter> output(fftw_alloc_complex(length / 2 + 1));
    const fftw_plan plan = fftw_plan_dft_r2c_1d(length, input.get(), output.get(), FFTW_ESTIMATE);
    std::copy(signal.begin(), signal.end(), input.get());
    fftw_execute(plan);
    fftw_destroy_plan(plan);
    std::vector<std::complex<double>> spectrum(length / 2 + 1);
    for (int bin = 0; bin <= length / 2; ++bin) {
        spectrum[bin] = {output.get()[bin][0], output.get()[bin][1]};
    }
    return spectrum;
}

} // namespace

std::vector<double> logarithmicFrequencies(double low, double high, int count) {
    std::vector<double> frequencies(count);
    for (int i = 0; i < count; ++i) {
        const double position = count > 1 ? static_cast<double>(i) / (count - 1) : 0.0;
        frequencies[i] = low * std::pow(high / low, position);
    }
    return frequencies;
}

MeasuredResponse measureResponse(PluginRack& rack, double sampleRate, int blockSize, bool useDouble,
                                 const std::vector<double>& frequencies) {
    const int64_t settleFrames = static_cast<int64_t>(kSettleSeconds * sampleRate);
    ImpulseSource impulse(static_cast<int>(sampleRate), settleFrames,
                          settleFrames + kResponseLength);
    const int outputChannels = rack.outputChannels();
    std::vector<double> impulseResponse;
    impulseResponse.reserve(kResponseLength);
    int64_t frame = 0;
    TailPolicy noTail;
    noTail.fixedFrames = 0;
    renderStream(
        impulse, rack, blockSize, useDouble, noTail,
        [&](const double* interleaved, int64_t count) {
            for (int64_t i = 0; i < count; ++i, ++frame) {
                if (frame >= settleFrames) {
                    impulseResponse.push_back(interleaved[i * outputChannels]);
                }
            }
        },
        [](int64_t) {});

    const std::vector<std::complex<double>> spectrum = spectrumOf(impulseResponse);
    const double latency = rack.front().effect().initialDelay;
    MeasuredResponse response;
    for (double frequency : frequencies) {
        const double bin = frequency * kResponseLength / sampleRate;
        const std::size_t below = std::min(static_cast<std::size_t>(bin), spectrum.size() - 2);
        const double fraction = bin - static_cast<double>(below);
        const std::complex<double> value =
            spectrum[below] * (1.0 - fraction) + spectrum[below + 1] * fraction;
        const double delayPhase = 2.0 * kPi * frequency * latency / sampleRate;
        const double phase = std::remainder(std::arg(value) + delayPhase, 2.0 * kPi);
        response.frequencies.push_back(frequency);
        response.magnitudeDb.push_back(20.0 * std::log10(std::max(std::abs(value), 1e-10)));
        response.phaseDegrees.push_back(phase * 180.0 / kPi);
    }
    return response;
}
