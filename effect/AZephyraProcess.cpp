// The audio path: input meters, the copy to the output, the engine, output meters.
#include "effect/AZephyra.h"

#include "dsp/CMultiEqualizer.h"

#include <algorithm>
#include <cmath>

void AZephyra::processReplacing(float** inputs, float** outputs, int32_t sampleFrames) {
    CSingleLock lock(m_lock);
    m_processCounter = static_cast<uint16_t>(m_processCounter + 1);

    // The input meters read the signal after the Input level, which only ever attenuates.
    float inputFactor =
        static_cast<float>(std::pow(2.0, m_fDispVal[DisplaySlotOf(kParamInput)] / 6.0));
    if (inputFactor < 0.001f) {
        inputFactor = 0.001f;
    }
    if (!(inputFactor < 1.0f)) {
        inputFactor = 1.0f;
    }

    // One pass copies the block to the output (a clean pass-through when the equaliser is
    // off), equalises it in place of the copy and measures both ends. The meters scale the
    // input peak once instead of every sample: rounding never reverses the order of two
    // products with the same positive factor, so the largest product is the product of the
    // largest magnitude.
    StereoPeaks peaks;
    // Anything but exactly 0.0 counts as on, NaN included.
    const bool on = m_fParam[kParamOnOff] != 0.0f;
    if (on) {
        m_engine->TransformMetered(inputs, sampleFrames, outputs, &peaks);
    } else {
        CopyStereoMeasuringPeaks(inputs, outputs, sampleFrames, &peaks);
    }
    m_meterInL = peaks.input[0] * inputFactor;
    m_meterInR = peaks.input[1] * inputFactor;
    if (on) {
        m_meterOutL = peaks.output[0];
        m_meterOutR = peaks.output[1];
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
