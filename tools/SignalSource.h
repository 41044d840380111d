// Where a render's input comes from: an audio file or the built-in demo signal.
#pragma once

#include <cstdint>

class SignalSource {
public:
    virtual ~SignalSource() = default;
    virtual int channels() const = 0;
    virtual int sampleRate() const = 0;
    virtual int64_t frames() const = 0;
    // Reads up to `count` interleaved frames; returns how many were read (0 at the end).
    virtual int64_t read(double* interleaved, int64_t count) = 0;
};
