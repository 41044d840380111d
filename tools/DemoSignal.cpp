#include "tools/DemoSignal.h"

#include "tools/WhiteNoise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kLengthSeconds = 7.0;
constexpr double kFadeSeconds = 0.02;
constexpr double kPi = 3.14159265358979323846;

// Pink noise by summing random rows that are refreshed at halving rates: row k changes every
// 2^k samples, so each octave down carries the same power.
class PinkNoise {
public:
    explicit PinkNoise(uint64_t seed) : generator(seed) {
        for (double& row : rows) {
            row = uniformNoise(generator);
        }
    }

    double next() {
        ++counter;
        int row = 0;
        for (uint64_t bits = counter; (bits & 1) == 0 && row + 1 < kRows; bits >>= 1) {
            ++row;
        }
        rows[row] = uniformNoise(generator);
        double sum = uniformNoise(generator);
        for (double value : rows) {
            sum += value;
        }
        return sum / (kRows + 1);
    }

private:
    static constexpr int kRows = 16;
    std::mt19937_64 generator;
    std::array<double, kRows> rows{};
    uint64_t counter = 0;
};

// Raised-cosine fade in and out over the first and last few milliseconds of a section.
double fade(double time, double length) {
    const double edge = std::min(time, length - time);
    if (edge >= kFadeSeconds) {
        return 1.0;
    }
    return edge <= 0.0 ? 0.0 : 0.5 - 0.5 * std::cos(kPi * edge / kFadeSeconds);
}

} // namespace

DemoSignal::DemoSignal(int sampleRate)
    : rate(sampleRate), samples(2 * static_cast<std::size_t>(kLengthSeconds * sampleRate)) {
    addPinkNoise(0.0, 2.0);
    addSweep(2.0, 2.0);
    constexpr double kPhrase[] = {220.0, 261.63, 329.63, 440.0};
    for (int note = 0; note < 4; ++note) {
        const double pan = note % 2 == 0 ? 0.8 : 0.5;
        addNote(4.0 + 0.5 * note, 0.5, kPhrase[note], pan, 1.3 - pan);
    }
    for (double frequency : {220.0, 277.18, 329.63}) {
        addNote(6.0, 1.0, frequency, 0.6, 0.6);
    }
}

void DemoSignal::add(int64_t frame, double left, double right) {
    if (frame >= 0 && frame < frames()) {
        samples[2 * frame] += left;
        samples[2 * frame + 1] += right;
    }
}

void DemoSignal::addPinkNoise(double start, double length) {
    PinkNoise left(1), right(2);
    const int64_t first = static_cast<int64_t>(start * rate);
    const int64_t count = static_cast<int64_t>(length * rate);
    for (int64_t i = 0; i < count; ++i) {
        const double gain = 0.5 * fade(static_cast<double>(i) / rate, length);
        add(first + i, gain * left.next(), gain * right.next());
    }
}

void DemoSignal::addSweep(double start, double length) {
    constexpr double kLow = 20.0;
    const double high = std::min(20000.0, 0.45 * rate);
    const double growth = std::log(high / kLow);
    const int64_t first = static_cast<int64_t>(start * rate);
    const int64_t count = static_cast<int64_t>(length * rate);
    for (int64_t i = 0; i < count; ++i) {
        const double time = static_cast<double>(i) / rate;
        // Exponential sweep: the phase is the integral of kLow * e^(growth * t / length).
        const double phase =
            2.0 * kPi * kLow * length / growth * (std::exp(growth * time / length) - 1.0);
        const double value = 0.3 * fade(time, length) * std::sin(phase);
        add(first + i, value, value);
    }
}

void DemoSignal::addNote(double start, double length, double frequency, double leftGain,
                         double rightGain) {
    constexpr int kPartials = 6;
    const int64_t first = static_cast<int64_t>(start * rate);
    const int64_t count = static_cast<int64_t>(length * rate);
    for (int64_t i = 0; i < count; ++i) {
        const double time = static_cast<double>(i) / rate;
        double value = 0.0;
        for (int partial = 1; partial <= kPartials; ++partial) {
            const double partialFrequency = frequency * partial;
            if (partialFrequency < 0.45 * rate) {
                // Higher partials die away faster, as on a plucked string.
                const double decay = std::exp(-time * 3.0 * std::sqrt(partial));
                value += decay / partial * std::sin(2.0 * kPi * partialFrequency * time);
            }
        }
        value *= 0.12 * fade(time, length);
        add(first + i, leftGain * value, rightGain * value);
    }
}

int64_t DemoSignal::read(double* interleaved, int64_t count) {
    const int64_t available = std::min(count, frames() - readPosition);
    std::copy_n(samples.begin() + 2 * readPosition, 2 * available, interleaved);
    readPosition += available;
    return available;
}
