// One second-order IIR section on float samples: one object filters one channel of one
// equaliser band. Owned by CMultiEqualizer, which designs it whenever a band setting or the
// sample rate changes and runs it block by block.
#pragma once

// Response codes shared with the band "Type" parameter.
enum BiquadResponseType : int {
    kBiquadLowShelf = 0,
    kBiquadPeaking = 1,
    kBiquadHighShelf = 2,
};

// The coefficients as the filter stores them: a0 raw, the other five already divided by it.
struct BiquadCoefficients {
    float a0;
    float a1;
    float a2;
    float b0;
    float b1;
    float b2;
};

// The four words of history a section carries from one block to the next.
struct BiquadHistory {
    float x1; // last input
    float x2; // second-last input
    float y1; // last output
    float y2; // second-last output
};

class CBiquadFilter {
public:
    CBiquadFilter();
    virtual ~CBiquadFilter();

    // Clears the history; the design is kept.
    void Reset();

    // Designs the section. The history is left alone so that a setting change does not click.
    void CalcCoefficients(float sampleRate, float freq, float gainDb, float q, int type);

    // Filters count samples from in into out (direct form I). count <= 0 does nothing.
    void OperateFilter(const float* in, float* out, int count);

    BiquadCoefficients GetCoefficients() const { return {a0, a1, a2, b0, b1, b2}; }

    // For block loops that run several sections side by side: they take the history at the
    // start of a block and hand it back at the end. Inline, as they sit on the path from one
    // block's last sample to the next block's first.
    BiquadHistory GetHistory() const { return {x1, x2, y1, y2}; }
    void SetHistory(const BiquadHistory& history) {
        x1 = history.x1;
        x2 = history.x2;
        y1 = history.y1;
        y2 = history.y2;
    }

private:
    float a0;
    float a1;
    float a2;
    float b0;
    float b1;
    float b2;
    float x1;
    float x2;
    float y1;
    float y2;
};
