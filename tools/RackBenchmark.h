// Times a plug-in rack on deterministic stereo noise. The noise is made once and looped, so
// a run measures processing and nothing else.
#pragma once

#include "tools/PluginRack.h"

#include <cstdint>
#include <vector>

class RackBenchmark {
public:
    RackBenchmark(PluginRack& rack, int sampleRate, int blockSize, bool useDouble,
                  int64_t framesPerRun);

    // Processes one run's frames and returns the time per frame in nanoseconds.
    double run();

private:
    template <typename Sample>
    double runWith(std::vector<std::vector<Sample>>& noise,
                   std::vector<std::vector<Sample>>& output);

    PluginRack& rack;
    int blockSize;
    bool useDouble;
    int64_t framesPerRun;
    std::vector<std::vector<float>> floatNoise, floatOutput;
    std::vector<std::vector<double>> doubleNoise, doubleOutput;
};

struct TimingSummary {
    double medianNanoseconds;
    double minimumNanoseconds;
};

TimingSummary summarise(std::vector<double> nanosecondsPerFrame);
