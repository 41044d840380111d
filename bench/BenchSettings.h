// The setting every timed case runs with, as normalised parameter values: both bands busy
// (a low shelf and a bell), levels away from unity so that no multiplication is trivial.
#pragma once

#include "effect/ZephyraParameters.h"

#include <cstdint>

struct ParameterValue {
    int index;
    float normalised;
};

inline constexpr ParameterValue kTimedSettings[] = {
    {kParamOutput, 0.5948f},  // about +1.5 dB
    {kParamInput, 0.7998f},   // about -2 dB
    {kParamType1, 0.0f},      // low shelf
    {kParamGain1, 0.6667f},   // +4 dB
    {kParamFreq1, 0.005005f}, // 120 Hz
    {kParamQ1, 0.04124f},     // 0.7
    {kParamType2, 0.5f},      // peaking
    {kParamGain2, 0.375f},    // -3 dB
    {kParamFreq2, 0.12412f},  // 2500 Hz
    {kParamQ2, 0.12371f},     // 1.5
};

inline constexpr float kBenchSampleRate = 44100.0f;
inline constexpr int kBenchBlock = 256;

// The normalised value a timed parameter is set to (ON/OFF is not among them: it is 1).
inline float TimedNormalised(int index) {
    for (const ParameterValue& p : kTimedSettings) {
        if (p.index == index) {
            return p.normalised;
        }
    }
    return 1.0f;
}

// The engine's integer form of a timed parameter.
inline int EngineValue(int index) {
    return static_cast<int>(NormalizeValToDWValue(index, TimedNormalised(index)));
}
