#include "dsp/StereoPass.h"

#include <xmmintrin.h>

#include <cmath>
#include <cstdint>

// The four recursions of a stereo block (two bands, two channels) sit in the four lanes of
// one SSE register and advance together, so a frame costs one multiply and two dependent
// subtractions of latency instead of four times that. Band 1's input is band 0's output,
// which would put band 0's whole step on band 1's path; instead band 1 runs two frames
// behind, taking band 0's output of two steps earlier from the history it already keeps.
// Baseline SSE is enough: a wider register would have no more recursions to hold.

namespace {

// Four biquad sections side by side, one per lane.
struct Lanes {
    __m128 b0, b1, b2, a1, a2;
    __m128 x1, x2, y1, y2;
};

// Lane order in a two-band pass: band 0 left, band 0 right, band 1 left, band 1 right. A
// one-band pass fills only the first two; the others have zero coefficients and idle.
constexpr int kLaneCount = 4;

// One step of every lane: y = b0 x + b1 x1 + b2 x2 - a1 y1 - a2 y2, added left to right as
// the filter itself does.
inline __m128 Step(Lanes& f, __m128 x) {
    __m128 y = _mm_add_ps(_mm_mul_ps(f.b0, x), _mm_mul_ps(f.b1, f.x1));
    y = _mm_add_ps(y, _mm_mul_ps(f.b2, f.x2));
    y = _mm_sub_ps(y, _mm_mul_ps(f.a1, f.y1));
    y = _mm_sub_ps(y, _mm_mul_ps(f.a2, f.y2));
    f.x2 = f.x1;
    f.x1 = x;
    f.y2 = f.y1;
    f.y1 = y;
    return y;
}

// The history of lanes 0 and 1 from low, of lanes 2 and 3 from high (coefficients are the
// same in both).
inline Lanes Combine(const Lanes& low, const Lanes& high) {
    constexpr int kLowPairHighPair = _MM_SHUFFLE(3, 2, 1, 0);
    Lanes f = low;
    f.x1 = _mm_shuffle_ps(low.x1, high.x1, kLowPairHighPair);
    f.x2 = _mm_shuffle_ps(low.x2, high.x2, kLowPairHighPair);
    f.y1 = _mm_shuffle_ps(low.y1, high.y1, kLowPairHighPair);
    f.y2 = _mm_shuffle_ps(low.y2, high.y2, kLowPairHighPair);
    return f;
}

Lanes Gather(CBiquadFilter* const (&sections)[kLaneCount]) {
    BiquadCoefficients c[kLaneCount] = {};
    BiquadHistory h[kLaneCount] = {};
    for (int lane = 0; lane < kLaneCount; ++lane) {
        if (sections[lane] != nullptr) {
            c[lane] = sections[lane]->GetCoefficients();
            h[lane] = sections[lane]->GetHistory();
        }
    }
    return {_mm_setr_ps(c[0].b0, c[1].b0, c[2].b0, c[3].b0),
            _mm_setr_ps(c[0].b1, c[1].b1, c[2].b1, c[3].b1),
            _mm_setr_ps(c[0].b2, c[1].b2, c[2].b2, c[3].b2),
            _mm_setr_ps(c[0].a1, c[1].a1, c[2].a1, c[3].a1),
            _mm_setr_ps(c[0].a2, c[1].a2, c[2].a2, c[3].a2),
            _mm_setr_ps(h[0].x1, h[1].x1, h[2].x1, h[3].x1),
            _mm_setr_ps(h[0].x2, h[1].x2, h[2].x2, h[3].x2),
            _mm_setr_ps(h[0].y1, h[1].y1, h[2].y1, h[3].y1),
            _mm_setr_ps(h[0].y2, h[1].y2, h[2].y2, h[3].y2)};
}

void Scatter(const Lanes& f, CBiquadFilter* const (&sections)[kLaneCount]) {
    alignas(16) float x1[kLaneCount], x2[kLaneCount], y1[kLaneCount], y2[kLaneCount];
    _mm_store_ps(x1, f.x1);
    _mm_store_ps(x2, f.x2);
    _mm_store_ps(y1, f.y1);
    _mm_store_ps(y2, f.y2);
    for (int lane = 0; lane < kLaneCount; ++lane) {
        if (sections[lane] != nullptr) {
            sections[lane]->SetHistory({x1[lane], x2[lane], y1[lane], y2[lane]});
        }
    }
}

inline __m128 Magnitude(__m128 v) {
    return _mm_andnot_ps(_mm_set1_ps(-0.0f), v);
}

// maxps hands back its second operand when the first is a NaN, so a NaN sample never
// becomes the peak, as with a plain "if (level > peak)".
inline __m128 RaisePeak(__m128 peak, __m128 samples) {
    return _mm_max_ps(Magnitude(samples), peak);
}

inline float LargestLane(__m128 v) {
    v = _mm_max_ps(v, _mm_movehl_ps(v, v));
    return _mm_cvtss_f32(_mm_max_ss(v, _mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 1, 1, 1))));
}

// The block's buffers and gains, and the peaks seen so far. Frames travel through the
// lanes as interleaved pairs, [left, right, next left, next right], and so do the peaks:
// lanes 0 and 2 hold the left channel's, lanes 1 and 3 the right's.
class StereoStream {
public:
    StereoStream(const StereoBands& bands, const float* const* in, float* const* out)
        : m_inLeft(in[0]), m_inRight(in[1]), m_outLeft(out[0]), m_outRight(out[1]),
          m_inputGain(_mm_set1_ps(bands.inputGain)), m_outputGain(_mm_set1_ps(bands.outputGain)),
          m_inPeak(_mm_setzero_ps()), m_outPeak(_mm_setzero_ps()) {}

    // Frames first .. first + 3 after the input gain, as two pairs each.
    void ReadFour(int first, __m128& front, __m128& back) {
        const __m128 left = _mm_loadu_ps(m_inLeft + first);
        const __m128 right = _mm_loadu_ps(m_inRight + first);
        front = _mm_unpacklo_ps(left, right);
        back = _mm_unpackhi_ps(left, right);
        m_inPeak = RaisePeak(RaisePeak(m_inPeak, front), back);
        front = _mm_mul_ps(front, m_inputGain);
        back = _mm_mul_ps(back, m_inputGain);
    }

    // One frame after the input gain, in lanes 0 and 1; lanes 2 and 3 are zero.
    __m128 ReadOne(int frame) {
        const __m128 pair =
            _mm_unpacklo_ps(_mm_load_ss(m_inLeft + frame), _mm_load_ss(m_inRight + frame));
        m_inPeak = RaisePeak(m_inPeak, pair);
        return _mm_mul_ps(pair, m_inputGain);
    }

    // Frames first .. first + 3, given as two pairs each, through the output gain.
    void WriteFour(int first, __m128 front, __m128 back) {
        front = _mm_mul_ps(front, m_outputGain);
        back = _mm_mul_ps(back, m_outputGain);
        m_outPeak = RaisePeak(RaisePeak(m_outPeak, front), back);
        _mm_storeu_ps(m_outLeft + first, _mm_shuffle_ps(front, back, _MM_SHUFFLE(2, 0, 2, 0)));
        _mm_storeu_ps(m_outRight + first, _mm_shuffle_ps(front, back, _MM_SHUFFLE(3, 1, 3, 1)));
    }

    // One frame given in lanes 0 and 1 (lanes 2 and 3 are ignored), through the output gain.
    void WriteOne(int frame, __m128 pair) {
        const __m128 out = _mm_movelh_ps(_mm_mul_ps(pair, m_outputGain), _mm_setzero_ps());
        m_outPeak = RaisePeak(m_outPeak, out);
        _mm_store_ss(m_outLeft + frame, out);
        _mm_store_ss(m_outRight + frame, _mm_shuffle_ps(out, out, _MM_SHUFFLE(1, 1, 1, 1)));
    }

    void Finish(StereoPeaks* peaks) const {
        const __m128 in = _mm_max_ps(m_inPeak, _mm_movehl_ps(m_inPeak, m_inPeak));
        const __m128 out = _mm_max_ps(m_outPeak, _mm_movehl_ps(m_outPeak, m_outPeak));
        alignas(16) float lanes[2][4];
        _mm_store_ps(lanes[0], in);
        _mm_store_ps(lanes[1], out);
        *peaks = {{lanes[0][0], lanes[0][1]}, {lanes[1][0], lanes[1][1]}};
    }

private:
    const float* m_inLeft;
    const float* m_inRight;
    float* m_outLeft;
    float* m_outRight;
    __m128 m_inputGain;
    __m128 m_outputGain;
    __m128 m_inPeak;
    __m128 m_outPeak;
};

// Both bands: band 1 in lanes 2 and 3 runs two frames behind band 0 in lanes 0 and 1, so
// the step for frame s carries band 1's frame s - 2, whose input is band 0's output two
// steps back: y2 in lanes 0 and 1. Writes trail reads, which keeps in-place blocks intact.
void RunBothBands(Lanes& f, StereoStream& io, int count) {
    const __m128 zero = _mm_setzero_ps();
    if (count == 1) {
        // Too short to fill the pipeline: one band after the other, each merged back alone.
        const Lanes start = f;
        Step(f, io.ReadOne(0));
        f = Combine(f, start);
        const Lanes afterBand0 = f;
        const __m128 y = Step(f, _mm_movelh_ps(zero, f.y1));
        io.WriteOne(0, _mm_movehl_ps(y, y));
        f = Combine(afterBand0, f);
        return;
    }

    // Fill: band 0 takes frames 0 and 1 alone; band 1's lanes are put back as they were.
    const Lanes start = f;
    Step(f, io.ReadOne(0));
    Step(f, io.ReadOne(1));
    f = Combine(f, start);

    int s = 2;
    for (; s + 4 <= count; s += 4) {
        __m128 front, back;
        io.ReadFour(s, front, back);
        const __m128 y0 = Step(f, _mm_movelh_ps(front, f.y2));
        const __m128 y1 = Step(f, _mm_shuffle_ps(front, f.y2, _MM_SHUFFLE(1, 0, 3, 2)));
        const __m128 y2 = Step(f, _mm_movelh_ps(back, f.y2));
        const __m128 y3 = Step(f, _mm_shuffle_ps(back, f.y2, _MM_SHUFFLE(1, 0, 3, 2)));
        io.WriteFour(s - 2, _mm_movehl_ps(y1, y0), _mm_movehl_ps(y3, y2));
    }
    for (; s < count; ++s) {
        const __m128 y = Step(f, _mm_movelh_ps(io.ReadOne(s), f.y2));
        io.WriteOne(s - 2, _mm_movehl_ps(y, y));
    }

    // Drain: band 1 takes the last two frames alone; band 0's lanes are put back.
    const Lanes band0Done = f;
    for (; s < count + 2; ++s) {
        const __m128 y = Step(f, _mm_movelh_ps(zero, f.y2));
        io.WriteOne(s - 2, _mm_movehl_ps(y, y));
    }
    f = Combine(band0Done, f);
}

// One band in lanes 0 and 1; no lag to manage.
void RunOneBand(Lanes& f, StereoStream& io, int count) {
    int s = 0;
    for (; s + 4 <= count; s += 4) {
        __m128 front, back;
        io.ReadFour(s, front, back);
        const __m128 y0 = Step(f, front);
        const __m128 y1 = Step(f, _mm_movehl_ps(front, front));
        const __m128 y2 = Step(f, back);
        const __m128 y3 = Step(f, _mm_movehl_ps(back, back));
        io.WriteFour(s, _mm_movelh_ps(y0, y1), _mm_movelh_ps(y2, y3));
    }
    for (; s < count; ++s) {
        io.WriteOne(s, Step(f, io.ReadOne(s)));
    }
}

void TrackPeak(float& peak, float sample) {
    const float level = std::fabs(sample);
    if (level > peak) {
        peak = level;
    }
}

bool Overlap(const float* a, const float* b, int count) {
    const auto first = reinterpret_cast<std::uintptr_t>(a);
    const auto second = reinterpret_cast<std::uintptr_t>(b);
    const auto bytes = static_cast<std::uintptr_t>(count) * sizeof(float);
    return first < second + bytes && second < first + bytes;
}

} // namespace

void RunStereoBands(const StereoBands& bands, const float* const* in, float* const* out, int count,
                    StereoPeaks* peaks) {
    StereoStream io(bands, in, out);
    if (count > 0) {
        const bool both = bands.sections[0][0] != nullptr && bands.sections[1][0] != nullptr;
        const int only = bands.sections[0][0] != nullptr ? 0 : 1;
        CBiquadFilter* const lanes[kLaneCount] = {
            both ? bands.sections[0][0] : bands.sections[only][0],
            both ? bands.sections[0][1] : bands.sections[only][1],
            both ? bands.sections[1][0] : nullptr,
            both ? bands.sections[1][1] : nullptr,
        };
        Lanes f = Gather(lanes);
        if (both) {
            RunBothBands(f, io, count);
        } else {
            RunOneBand(f, io, count);
        }
        Scatter(f, lanes);
    }
    io.Finish(peaks);
}

void CopyStereoMeasuringPeaks(const float* const* in, float* const* out, int count,
                              StereoPeaks* peaks) {
    const float* inLeft = in[0];
    const float* inRight = in[1];
    float* outLeft = out[0];
    float* outRight = out[1];
    int i = 0;
    float left = 0.0f, right = 0.0f;
    if (PlainStereoLayout(in, out, count)) {
        __m128 leftPeak = _mm_setzero_ps(), rightPeak = _mm_setzero_ps();
        for (; i + 4 <= count; i += 4) {
            const __m128 l = _mm_loadu_ps(inLeft + i);
            const __m128 r = _mm_loadu_ps(inRight + i);
            leftPeak = RaisePeak(leftPeak, l);
            rightPeak = RaisePeak(rightPeak, r);
            _mm_storeu_ps(outLeft + i, l);
            _mm_storeu_ps(outRight + i, r);
        }
        left = LargestLane(leftPeak);
        right = LargestLane(rightPeak);
    }
    for (; i < count; ++i) {
        TrackPeak(left, inLeft[i]);
        TrackPeak(right, inRight[i]);
        outLeft[i] = inLeft[i];
        outRight[i] = inRight[i];
    }
    *peaks = {{left, right}, {left, right}};
}

void MeasureOutputPeaks(const float* const* out, int count, StereoPeaks* peaks) {
    for (int channel = 0; channel < 2; ++channel) {
        float peak = 0.0f;
        for (int i = 0; i < count; ++i) {
            TrackPeak(peak, out[channel][i]);
        }
        peaks->output[channel] = peak;
    }
}

bool PlainStereoLayout(const float* const* in, float* const* out, int count) {
    for (int channel = 0; channel < 2; ++channel) {
        for (int source = 0; source < 2; ++source) {
            const bool inPlace = source == channel && out[channel] == in[source];
            if (!inPlace && Overlap(out[channel], in[source], count)) {
                return false;
            }
        }
    }
    return !Overlap(out[0], out[1], count);
}
