// The built-in input of `render --demo`: seven seconds of stereo material that shows what an
// equaliser does without needing a file: pink noise, a sine sweep across the audible range,
// then a few plucked notes and a chord. The same every time.
#pragma once

#include "tools/SignalSource.h"

#include <vector>

class DemoSignal : public SignalSource {
public:
    explicit DemoSignal(int sampleRate);

    int channels() const override { return 2; }
    int sampleRate() const override { return rate; }
    int64_t frames() const override { return static_cast<int64_t>(samples.size() / 2); }
    int64_t read(double* interleaved, int64_t count) override;

private:
    void addPinkNoise(double start, double length);
    void addSweep(double start, double length);
    void addNote(double start, double length, double frequency, double leftGain, double rightGain);
    void add(int64_t frame, double left, double right);

    int rate;
    std::vector<double> samples; // interleaved
    int64_t readPosition = 0;
};
