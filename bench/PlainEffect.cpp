#include "bench/PlainEffect.h"

#include "bench/BenchSettings.h"

#include <cmath>

namespace {

constexpr float kFixedToFloat = 1.52587890625e-05f;

float FromFixed(int value) {
    return static_cast<float>(value) * kFixedToFloat;
}

float LevelGain(int levelFixed) {
    return static_cast<float>(std::pow(10.0, FromFixed(levelFixed) / 20.0f));
}

void Peak(float& meter, float sample, float factor) {
    const float level = std::fabs(sample) * factor;
    if (level > meter) {
        meter = level;
    }
}

} // namespace

void PlainEffect::Section::Run(const float* in, float* out, int count) {
    for (int n = 0; n < count; ++n) {
        const float y = b0 * in[n] + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
        x2 = x1;
        x1 = in[n];
        y2 = y1;
        y1 = y;
        out[n] = y;
    }
}

// The design itself is not what is timed, so it comes from the engine's filter.
PlainEffect::Section PlainEffect::Design(int type, int gain, int freq, int q) {
    CBiquadFilter filter;
    filter.CalcCoefficients(kBenchSampleRate, FromFixed(freq), FromFixed(gain), FromFixed(q), type);
    const BiquadCoefficients c = filter.GetCoefficients();
    return {c.b0, c.b1, c.b2, c.a1, c.a2, 0.0f, 0.0f, 0.0f, 0.0f};
}

PlainEffect::PlainEffect(int maxBlock)
    : m_processCounter(0xFFFF),
      m_inputDisplayDb(NormalizeValToInternalVal(kParamInput, TimedNormalised(kParamInput))),
      m_inputGain(LevelGain(EngineValue(kParamInput))),
      m_outputGain(LevelGain(EngineValue(kParamOutput))), m_meters{}, m_overLevel(false) {
    const int params[2][4] = {{kParamType1, kParamGain1, kParamFreq1, kParamQ1},
                              {kParamType2, kParamGain2, kParamFreq2, kParamQ2}};
    for (int band = 0; band < 2; ++band) {
        const Section s = Design(EngineValue(params[band][0]), EngineValue(params[band][1]),
                                 EngineValue(params[band][2]), EngineValue(params[band][3]));
        m_sections[band][0] = s;
        m_sections[band][1] = s;
    }
    for (auto& buffer : m_work) {
        buffer.assign(maxBlock, 0.0f);
    }
}

void PlainEffect::ProcessReplacing(float** inputs, float** outputs, int frames) {
    std::lock_guard<std::recursive_mutex> effectLock(m_effectLock);
    ++m_processCounter;
    for (float& meter : m_meters) {
        meter = 0.0f;
    }
    float factor = static_cast<float>(std::pow(2.0, m_inputDisplayDb / 6.0));
    if (factor < 0.001f) {
        factor = 0.001f;
    }
    if (!(factor < 1.0f)) {
        factor = 1.0f;
    }
    for (int i = 0; i < frames; ++i) {
        Peak(m_meters[0], inputs[0][i], factor);
        Peak(m_meters[1], inputs[1][i], factor);
        outputs[0][i] = inputs[0][i];
        outputs[1][i] = inputs[1][i];
    }

    {
        std::lock_guard<std::recursive_mutex> engineLock(m_engineLock);
        for (int c = 0; c < 2; ++c) {
            for (int i = 0; i < frames; ++i) {
                m_work[c][i] = inputs[c][i] * m_inputGain;
            }
        }
        for (int band = 0; band < 2; ++band) {
            for (int c = 0; c < 2; ++c) {
                m_sections[band][c].Run(m_work[2 * band + c].data(),
                                        m_work[2 * band + 2 + c].data(), frames);
            }
        }
        for (int c = 0; c < 2; ++c) {
            for (int i = 0; i < frames; ++i) {
                outputs[c][i] = m_work[4 + c][i] * m_outputGain;
                if (std::fabs(outputs[c][i]) > 1.0f) {
                    m_overLevel = true;
                }
            }
        }
    }

    for (int i = 0; i < frames; ++i) {
        Peak(m_meters[2], outputs[0][i], 1.0f);
        Peak(m_meters[3], outputs[1][i], 1.0f);
    }
}

float PlainEffect::MeterSum() const {
    return m_meters[0] + m_meters[1] + m_meters[2] + m_meters[3] +
           static_cast<float>(m_processCounter);
}
