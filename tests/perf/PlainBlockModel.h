// The audio block stage after stage, apart from dsp/ and effect/, over the caller's own
// memory, so overlapping buffers give whatever the documented order gives.
#pragma once

#include "tests/support/ReferenceEqualizer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace reference {

// Both channels of the engine at 44100 Hz, with its settings as 16.16 values.
struct Engine {
    Channel channel[2];
    bool overLevel = false;
    int workLength = 256;

    void SetLevels(int input, int output) {
        for (Channel& c : channel) {
            c.inputGain = LevelGain(input);
            c.outputGain = LevelGain(output);
        }
    }

    void SetBand(int b, Band settings) {
        for (Channel& c : channel) {
            c.SetBand(b, 44100.0f, settings);
        }
    }

    void SetActive(int b, bool on) { channel[0].active[b] = channel[1].active[b] = on; }

    // Each piece of at most workLength frames: both channels' input read first, then each
    // channel equalised, written and tested against full scale.
    void Transform(const float* const* in, float* const* out, int count) {
        if (!channel[0].active[0] && !channel[0].active[1]) {
            return;
        }
        for (int offset = 0; offset < count; offset += workLength) {
            const int piece = std::min(workLength, count - offset);
            const std::vector<float> work[2] = {{in[0] + offset, in[0] + offset + piece},
                                                {in[1] + offset, in[1] + offset + piece}};
            for (int c = 0; c < 2; ++c) {
                for (int i = 0; i < piece; ++i) {
                    const float sample = channel[c].Run(work[c][i]);
                    out[c][offset + i] = sample;
                    overLevel = overLevel || std::fabs(sample) > 1.0f;
                }
            }
        }
    }
};

inline void Peak(float& meter, float sample, float factor) {
    const float level = std::fabs(sample) * factor;
    if (level > meter) {
        meter = level;
    }
}

// Peaks of a stereo block, per channel: input as it arrives, output as it ends up.
struct Peaks {
    float input[2] = {0.0f, 0.0f};
    float output[2] = {0.0f, 0.0f};
};

// The input measured and copied frame by frame, left before right, scaled by factor.
inline void CopyMeasuring(const float* const* in, float* const* out, int count, float factor,
                          float input[2]) {
    input[0] = input[1] = 0.0f;
    for (int i = 0; i < count; ++i) {
        Peak(input[0], in[0][i], factor);
        Peak(input[1], in[1][i], factor);
        out[0][i] = in[0][i];
        out[1][i] = in[1][i];
    }
}

inline void MeasureOutput(float* const* out, int count, float output[2]) {
    output[0] = output[1] = 0.0f;
    for (int i = 0; i < count; ++i) {
        Peak(output[0], out[0][i], 1.0f);
        Peak(output[1], out[1][i], 1.0f);
    }
}

// The engine's metered block: copy, equalise, read the output back.
inline Peaks TransformMetered(Engine& engine, const float* const* in, float* const* out,
                              int count) {
    Peaks peaks;
    CopyMeasuring(in, out, count, 1.0f, peaks.input);
    engine.Transform(in, out, count);
    MeasureOutput(out, count, peaks.output);
    return peaks;
}

// The effect's processReplacing around the engine.
struct Effect {
    Engine engine;
    float onOff = 1.0f;
    float inputDisplayDb = 0.0f;
    uint16_t counter = 0xFFFF;
    float meters[4] = {}; // input left, input right, output left, output right

    void ProcessReplacing(float** in, float** out, int frames) {
        ++counter;
        float factor = static_cast<float>(std::pow(2.0, inputDisplayDb / 6.0));
        factor = factor < 0.001f ? 0.001f : factor;
        factor = factor < 1.0f ? factor : 1.0f;
        CopyMeasuring(in, out, frames, factor, meters);
        if (onOff != 0.0f) {
            engine.Transform(in, out, frames);
            MeasureOutput(out, frames, meters + 2);
        } else {
            meters[2] = meters[0];
            meters[3] = meters[1];
        }
    }
};

} // namespace reference
