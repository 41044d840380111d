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

    BiquadCoefficients GetCoefficients() const;

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
