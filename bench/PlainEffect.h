// The effect's audio block written as plainly as its formulas read: input meters and the
// copy, then input gain, band 0, band 1 and output gain with the over-level test, each a
// separate pass over the block and one channel at a time, then the output meters. It is
// the yardstick the module is timed against, and the bench checks that both produce the
// same samples before it times anything.
#pragma once

#include "dsp/CBiquadFilter.h"

#include <cstdint>
#include <mutex>
#include <vector>

class PlainEffect {
public:
    // Runs with the timed settings at the bench's rate, in blocks of at most maxBlock.
    explicit PlainEffect(int maxBlock);

    void ProcessReplacing(float** inputs, float** outputs, int frames);

    // The last block's meters and the over-level flag, so that nothing can be skipped.
    float MeterSum() const;
    bool OverLevel() const { return m_overLevel; }

private:
    struct Section {
        float b0, b1, b2, a1, a2;
        float x1, x2, y1, y2;
        void Run(const float* in, float* out, int count);
    };

    static Section Design(int type, int gain, int freq, int q);

    std::recursive_mutex m_effectLock;
    std::recursive_mutex m_engineLock;
    uint16_t m_processCounter;
    float m_inputDisplayDb;
    float m_inputGain;
    float m_outputGain;
    Section m_sections[2][2]; // [band][channel]
    std::vector<float> m_work[6];
    float m_meters[4];
    bool m_overLevel;
};
