// The audio path: input meters, the copy to the output, the engine, output meters.
#include "AZephyra.h"

#include "CMultiEqualizer.h"

#include <algorithm>
#include <cmath>

namespace {

// The peak of |x| * factor over a block, compared in the order the samples arrive.
void trackPeak(float& peak, float sample, float factor) {
    const float level = std::fabs(sample) * factor;
    if (level > peak) {
        peak = level;
    }
}

} // namespace

void AZephyra::processReplacing(float** inputs, float** outputs, int32_t sampleFrames) {
    CSingleLock lock(m_lock);
    m_processCounter = static_cast<uint16_t>(m_processCounter + 1);
    m_meterInL = m_meterInR = m_meterOutL = m_meterOutR = 0.0f;

    // The input meters read the signal after the Input level, which only ever attenuates.
    float inputFactor =
        static_cast<float>(std::pow(2.0, m_fDispVal[DisplaySlotOf(kParamInput)] / 6.0));
    if (inputFactor < 0.001f) {
        inputFactor = 0.001f;
    }
    if (!(inputFactor < 1.0f)) {
        inputFactor = 1.0f;
    }

    const float* inL = inputs[0];
    const float* inR = inputs[1];
    float* outL = outputs[0];
    float* outR = outputs[1];
    for (int32_t i = 0; i < sampleFrames; ++i) {
        trackPeak(m_meterInL, inL[i], inputFactor);
        trackPeak(m_meterInR, inR[i], inputFactor);
        // A clean pass-through when the equaliser is off.
        outL[i] = inL[i];
        outR[i] = inR[i];
    }

    // Anything but exactly 0.0 counts as on, NaN included.
    if (m_fParam[kParamOnOff] != 0.0f) {
        int produced = sampleFrames;
        m_engine->Transform(inputs, sampleFrames, outputs, &produced);
        for (int32_t i = 0; i < sampleFrames; ++i) {
            trackPeak(m_meterOutL, outL[i], 1.0f);
            trackPeak(m_meterOutR, outR[i], 1.0f);
        }
    } else {
        // Kept: the output meters repeat the input meters, Input level factor included,
        // although the passed-through signal never had it applied.
        m_meterOutL = m_meterInL;
        m_meterOutR = m_meterInR;
    }
}

// Converted to float around the float path. The conversion buffers are sized with the
// block size beforehand; a host that sends more frames than it announced gets them in
// pieces rather than an allocation on its audio thread.
void AZephyra::processDoubleReplacing(double** inputs, double** outputs, int32_t sampleFrames) {
    float* in[2] = {m_doubleScratch[0].data(), m_doubleScratch[1].data()};
    float* out[2] = {m_doubleScratch[2].data(), m_doubleScratch[3].data()};
    if (sampleFrames < 1) {
        processReplacing(in, out, sampleFrames);
        return;
    }
    const auto capacity = static_cast<int32_t>(m_doubleScratch[0].size());
    for (int32_t offset = 0; offset < sampleFrames; offset += capacity) {
        const int32_t count = std::min(capacity, sampleFrames - offset);
        for (int channel = 0; channel < 2; ++channel) {
            for (int32_t i = 0; i < count; ++i) {
                in[channel][i] = static_cast<float>(inputs[channel][offset + i]);
            }
        }
        processReplacing(in, out, count);
        for (int channel = 0; channel < 2; ++channel) {
            for (int32_t i = 0; i < count; ++i) {
                outputs[channel][offset + i] = out[channel][i];
            }
        }
    }
}

void AZephyra::GetVU(float* inL, float* inR, float* outL, float* outR) {
    CSingleLock lock(m_lock);
    *inL = m_meterInL;
    *inR = m_meterInR;
    *outL = m_meterOutL;
    *outR = m_meterOutR;
}
