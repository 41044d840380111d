// A plain evaluation of the equaliser's formulas, written from their description only, so
// that the module's audio can be checked bit for bit: a host's normalised values taken
// through the 16.16 interface, the filter design in single precision with the double
// precision library calls, and the direct form I difference equation in its term order.
#pragma once

#include <algorithm>
#include <cmath>

namespace plain {

constexpr float kFixedToFloat = 1.52587890625e-05f; // 2^-16

// A continuous parameter's value as the engine receives it.
inline float EngineValue(float min, float max, float normalised) {
    const float x = std::clamp((max - min) * normalised + min, min, max);
    return static_cast<float>(static_cast<int>(x * 65536.0f)) * kFixedToFloat;
}

// A level parameter (a linear factor, 6 dB per doubling) as the gain the engine applies.
inline float LevelGain(float maxFactor, float maxDb, float normalised) {
    const float factor = std::clamp((maxFactor - 0.001f) * normalised + 0.001f, 0.001f, maxFactor);
    const double dB = std::clamp(std::log(static_cast<double>(factor)) / std::log(2.0) * 6.0,
                                 -100.0, static_cast<double>(maxDb));
    const float level =
        static_cast<float>(static_cast<int>(static_cast<float>(dB) * 65536.0f)) * kFixedToFloat;
    return static_cast<float>(std::pow(10.0, static_cast<double>(level / 20.0f)));
}

enum Response { kLowShelf = 0, kPeak = 1, kHighShelf = 2 };

class Biquad {
public:
    Biquad(float fs, float freq, float gainDb, float q, Response type) {
        const float f = std::min(0.5f * fs * 0.95f, freq);
        const float A = static_cast<float>(std::pow(10.0, static_cast<double>(gainDb / 40.0f)));
        const float w0 = f / fs * 6.2831855f;
        const float sn = static_cast<float>(std::sin(static_cast<double>(w0)));
        const float cs = static_cast<float>(std::cos(static_cast<double>(w0)));
        const float s = std::sqrt(A / q);
        const float ap = 1.0f + A;
        const float am = -1.0f + A;
        float a0 = 0.0f;
        if (type == kLowShelf) {
            m_b0 = A * ((ap - am * cs) + sn * s);
            m_b1 = 2.0f * A * (am - ap * cs);
            m_b2 = A * ((ap - am * cs) - sn * s);
            a0 = (ap + am * cs) + sn * s;
            m_a1 = -2.0f * (am + ap * cs);
            m_a2 = (ap + am * cs) - sn * s;
        } else if (type == kPeak) {
            const float alpha = sn / (2.0f * q);
            m_b0 = 1.0f + A * alpha;
            m_b1 = -2.0f * cs;
            m_b2 = 1.0f - A * alpha;
            a0 = 1.0f + alpha / A;
            m_a1 = -2.0f * cs;
            m_a2 = 1.0f - alpha / A;
        } else {
            m_b0 = A * ((ap + am * cs) + sn * s);
            m_b1 = -2.0f * A * (am + ap * cs);
            m_b2 = A * ((ap + am * cs) - sn * s);
            a0 = (ap - am * cs) + sn * s;
            m_a1 = 2.0f * (am - ap * cs);
            m_a2 = (ap - am * cs) - sn * s;
        }
        m_b0 /= a0;
        m_b1 /= a0;
        m_b2 /= a0;
        m_a1 /= a0;
        m_a2 /= a0;
    }

    float Step(float x) {
        const float y = m_b0 * x + m_b1 * m_x1 + m_b2 * m_x2 - m_a1 * m_y1 - m_a2 * m_y2;
        m_x2 = m_x1;
        m_x1 = x;
        m_y2 = m_y1;
        m_y1 = y;
        return y;
    }

private:
    float m_b0, m_b1, m_b2, m_a1, m_a2;
    float m_x1 = 0.0f, m_x2 = 0.0f, m_y1 = 0.0f, m_y2 = 0.0f;
};

// One channel: input level, two bands in series, output level.
struct Channel {
    float inputGain;
    Biquad band1;
    Biquad band2;
    float outputGain;

    float Step(float x) { return band2.Step(band1.Step(x * inputGain)) * outputGain; }
};

} // namespace plain
