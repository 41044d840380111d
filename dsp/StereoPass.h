// The engine's stereo block path in one pass over the block: input gain, up to two bands,
// output gain and the peak measurements that the meters and the over-level detector need.
// Every float operation is the one the staged evaluation performs, in the same order, so
// the output is bit for bit the same; only the schedule differs.
#pragma once

#include "dsp/CBiquadFilter.h"

// Peak magnitudes of one stereo block, per channel: the largest |sample| among the samples
// that are numbers (a NaN never wins), 0 for an empty block. input is measured on the
// samples as they arrive, before any gain; output on what was written.
struct StereoPeaks {
    float input[2];
    float output[2];
};

// What one pass runs. sections[band][channel] are the band's two filters, or null for a
// bypassed band, whose history then stays as it is.
struct StereoBands {
    float inputGain;
    float outputGain;
    CBiquadFilter* sections[2][2];
};

// Equalises count frames of in into out and measures the peaks. At least one band must be
// active. The buffers must be laid out as PlainStereoLayout accepts.
void RunStereoBands(const StereoBands& bands, const float* const* in, float* const* out, int count,
                    StereoPeaks* peaks);

// Copies count frames of in into out and measures them; output peaks equal input peaks.
// Buffers that overlap other than as PlainStereoLayout accepts are copied frame by frame,
// left before right, as that plain loop would.
void CopyStereoMeasuringPeaks(const float* const* in, float* const* out, int count,
                              StereoPeaks* peaks);

// Reads the output buffers back for peaks->output.
void MeasureOutputPeaks(const float* const* out, int count, StereoPeaks* peaks);

// True when each output buffer either is its own channel's input (in place) or overlaps no
// input, and the two outputs do not overlap: then reading a frame before writing it gives
// what a copy of the whole block followed by staged processing gives.
bool PlainStereoLayout(const float* const* in, float* const* out, int count);
