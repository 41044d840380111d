// Runs a signal through a plug-in rack block by block, then keeps feeding silence for the
// tail, so a filter's ringing after the last input sample is kept.
#pragma once

#include "tools/PluginRack.h"
#include "tools/SignalSource.h"

#include <cstdint>
#include <functional>

struct TailPolicy {
    // A fixed number of frames, or -1: continue until the output has fallen silent.
    int64_t fixedFrames = -1;
};

// Receives interleaved output frames of the rack's output channel count.
using FrameSink = std::function<void(const double* interleaved, int64_t frames)>;
// Told how many input frames have been consumed so far.
using ProgressReport = std::function<void(int64_t inputFrames)>;

// Returns the number of output frames produced. `useDouble` selects the 64-bit process call.
int64_t renderStream(SignalSource& source, PluginRack& rack, int blockSize, bool useDouble,
                     const TailPolicy& tail, const FrameSink& sink, const ProgressReport& progress);
