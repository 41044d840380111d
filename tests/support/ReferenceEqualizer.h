// The equaliser's formulas sample at a time, written apart from dsp/ and effect/ so the
// code under test is never its own judge.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace reference {

struct Biquad {
    float a0, a1, a2, b0, b1, b2;
    float x1 = 0.0f, x2 = 0.0f, y1 = 0.0f, y2 = 0.0f;
};

inline Biquad Design(float fs, float freq, float gainDb, float q, int type) {
    float f = freq;
    const float highest = 0.5f * fs * 0.95f;
    if (f > highest) {
        f = highest;
    }
    const float A = (float)std::pow(10.0, (double)(gainDb / 40.0f));
    const double w0 = (double)((f / fs) * 6.2831855f);
    const float sn = (float)std::sin(w0);
    const float cs = (float)std::cos(w0);
    const float s = sqrtf(A / q);
    const float Ap = 1.0f + A;
    const float Am = -1.0f + A;
    float b0, b1, b2, a0, a1, a2;
    if (type == 0) {
        b0 = A * ((Ap - Am * cs) + sn * s);
        b1 = 2.0f * A * (Am - Ap * cs);
        b2 = A * ((Ap - Am * cs) - sn * s);
        a0 = (Ap + Am * cs) + sn * s;
        a1 = -2.0f * (Am + Ap * cs);
        a2 = (Ap + Am * cs) - sn * s;
    } else if (type == 1) {
        const float alpha = sn / (2.0f * q);
        b0 = 1.0f + A * alpha;
        b1 = -2.0f * cs;
        b2 = 1.0f - A * alpha;
        a0 = 1.0f + alpha / A;
        a1 = -2.0f * cs;
        a2 = 1.0f - alpha / A;
    } else {
        b0 = A * ((Ap + Am * cs) + sn * s);
        b1 = -2.0f * A * (Am + Ap * cs);
        b2 = A * ((Ap + Am * cs) - sn * s);
        a0 = (Ap - Am * cs) + sn * s;
        a1 = 2.0f * (Am - Ap * cs);
        a2 = (Ap - Am * cs) - sn * s;
    }
    return {a0, a1 / a0, a2 / a0, b0 / a0, b1 / a0, b2 / a0};
}

inline float Step(Biquad& f, float x) {
    const float y = f.b0 * x + f.b1 * f.x1 + f.b2 * f.x2 - f.a1 * f.y1 - f.a2 * f.y2;
    f.x2 = f.x1;
    f.x1 = x;
    f.y2 = f.y1;
    f.y1 = y;
    return y;
}

inline float FromFixed(int v) {
    return (float)v / 65536.0f;
}

inline float LevelGain(int levelFixed) {
    return (float)std::pow(10.0, (double)(FromFixed(levelFixed) / 20.0f));
}

// A continuous parameter (range min..max) as the engine's 16.16 setter receives it.
inline int FixedFromNormalised(float min, float max, float normalised) {
    const float x = std::clamp((max - min) * normalised + min, min, max);
    return static_cast<int>(x * 65536.0f);
}

// A level parameter (a linear factor of 0.001..maxFactor, 6 dB per doubling, at most maxDb)
// as the engine's 16.16 setter receives it.
inline int LevelFixedFromNormalised(float maxFactor, float maxDb, float normalised) {
    const float factor = std::clamp((maxFactor - 0.001f) * normalised + 0.001f, 0.001f, maxFactor);
    const double dB = std::clamp(std::log(static_cast<double>(factor)) / std::log(2.0) * 6.0,
                                 -100.0, static_cast<double>(maxDb));
    return static_cast<int>(static_cast<float>(dB) * 65536.0f);
}

// One band as the engine's 16.16 setters receive it.
struct Band {
    int type, gain, freq, q;
};

// One channel of the engine: input gain, each active band, output gain.
struct Channel {
    float inputGain = 1.0f, outputGain = 1.0f;
    bool active[2] = {true, true};
    Biquad band[2] = {};

    Channel() = default;
    Channel(float fs, int inputLevel, int outputLevel, Band first, Band second)
        : inputGain(LevelGain(inputLevel)), outputGain(LevelGain(outputLevel)) {
        SetBand(0, fs, first);
        SetBand(1, fs, second);
    }

    // A new design for one band; the band's history carries over, as in the engine.
    void SetBand(int b, float fs, Band s) {
        const Biquad old = band[b];
        band[b] = Design(fs, FromFixed(s.freq), FromFixed(s.gain), FromFixed(s.q), s.type);
        band[b].x1 = old.x1;
        band[b].x2 = old.x2;
        band[b].y1 = old.y1;
        band[b].y2 = old.y2;
    }

    float Run(float x) {
        float v = x * inputGain;
        for (int b = 0; b < 2; ++b) {
            if (active[b]) {
                v = Step(band[b], v);
            }
        }
        return v * outputGain;
    }
};

// Deterministic noise within [-amplitude, amplitude].
inline std::vector<float> Noise(int length, uint32_t seed, float amplitude = 0.9f) {
    std::mt19937 generator(seed);
    std::uniform_real_distribution<float> distribution(-amplitude, amplitude);
    std::vector<float> samples(length);
    for (float& s : samples) {
        s = distribution(generator);
    }
    return samples;
}

} // namespace reference
