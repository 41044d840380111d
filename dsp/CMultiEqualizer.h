// The equaliser's signal path for one or two channels of float audio: input level, two
// bands in series, output level and an over-level detector. Owned by the effect, which
// gives it the stream format, forwards every parameter change and runs Transform once per
// audio block. Every public operation holds the engine's recursive lock, so settings may
// change from any thread while the audio thread runs.
//
// Levels, gains, frequencies and Q values cross the interface as 16.16 fixed point
// (value * 65536): 1000 Hz is 65536000, Q 1.0 is 65536, -6 dB is -393216.
#pragma once

#include "base/CCriticalSection.h"
#include "dsp/CBiquadFilter.h"
#include "dsp/StereoPass.h"
#include "dsp/tWAVEFORMATEX.h"

#include <memory>
#include <vector>

// One channel's path as the engine would run it at this moment, for analysis away from the
// audio thread.
struct EqualizerChain {
    // False when a block leaves the output buffers to the caller: no format yet, a channel
    // count the engine does not process, or both bands switched off.
    bool processes;
    float sampleRate;
    float inputGain;
    float outputGain;
    bool bandActive[2];
    BiquadCoefficients band[2];
};

class CMultiEqualizer {
public:
    static constexpr int kBandCount = 2;

    CMultiEqualizer();
    virtual ~CMultiEqualizer();
    CMultiEqualizer(const CMultiEqualizer&) = delete;
    CMultiEqualizer& operator=(const CMultiEqualizer&) = delete;

    bool SetDefaultProps();

    bool set_InputLevel(int levelDb);
    bool set_OutputLevel(int levelDb);
    bool get_InputLevel(int* levelDb);
    bool get_OutputLevel(int* levelDb);

    // Band operations answer false and change nothing for a band other than 0 or 1.
    bool set_Activate(int band, bool on);
    bool get_Activate(int band, bool* on);
    bool set_Type(int band, int type);
    bool set_Gain(int band, int gainDb);
    bool set_Freq(int band, int freqHz);
    bool set_Q(int band, int q);
    bool get_Type(int band, int* type);
    bool get_Gain(int band, int* gainDb);
    bool get_Freq(int band, int* freqHz);
    bool get_Q(int band, int* q);

    bool set_OverLevelThreshold(int threshold);
    bool get_OverLevelThreshold(int* threshold);
    // Reports whether any output sample exceeded full scale since the last call, and clears
    // the flag.
    bool get_OverLevel(bool* overLevel);

    // Takes the format and the largest block length the caller will pass; re-creates the
    // filters (their history is lost) and the working buffers. The only place that allocates.
    bool SetMediaType(const tWAVEFORMATEX* format, int blockLength);

    // Equalises count frames of in into out (one pointer per channel). The output buffers
    // are not written at all when both bands are off.
    bool Transform(const float* const* in, int count, float* const* out, int* produced);

    // The effect's whole stereo block in one pass: out receives the input, and then, as with
    // Transform, the equalised block in its place. peaks measures the input as it arrives and
    // the output as it ends up, the copy included when the engine leaves the block alone.
    bool TransformMetered(const float* const* in, int count, float* const* out, StereoPeaks* peaks);

    // Clears every filter's history; the settings stay.
    bool Reset();

    EqualizerChain GetChain(int channel) const;

private:
    // The six working buffers, in this order.
    enum WorkBuffer {
        kWorkInputLeft,
        kWorkInputRight,
        kWorkFirstBandLeft,
        kWorkFirstBandRight,
        kWorkSecondBandLeft,
        kWorkSecondBandRight,
        kWorkBufferCount,
    };

    void InitInternalFilters();
    void PrepareWorkingBuffer(int length);
    void DesignBand(int band);
    // Stores one of a band's settings (gain, frequency or Q) and designs the band anew.
    bool SetBandSetting(int band, float* settings, float value);
    CBiquadFilter& Filter(int band, int channel) const;
    int ProcessedChannelCount() const;
    bool LeavesBlocksAlone() const;
    bool RunsFused(const float* const* in, float* const* out, int count) const;
    void OperateFused(const float* const* in, float* const* out, int count, StereoPeaks* peaks);
    void OperateMultiEqualizer(const float* const* in, float* const* out, int count);
    void OperatePiece(const float* const* in, float* const* out, int offset, int count,
                      int channels);

    mutable CCriticalSection m_lock;
    tWAVEFORMATEX m_format;
    float m_inputLevel;
    float m_outputLevel;
    float m_overLevelThreshold;
    bool m_overLevel;
    float m_inputGain;
    float m_outputGain;
    // Filter b is band b of the left (or only) channel, filter b + 2 band b of the right.
    std::vector<std::unique_ptr<CBiquadFilter>> m_filters;
    bool m_filtersReady;
    int m_workLength;
    bool m_workReady;
    std::vector<float> m_work[kWorkBufferCount];
    float m_bandGain[kBandCount];
    float m_bandFreq[kBandCount];
    float m_bandQ[kBandCount];
    int m_bandType[kBandCount];
    bool m_bandActive[kBandCount];
};
