#include "dsp/CMultiEqualizer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

// 2^-16: the setters scale their 16.16 argument with this float.
constexpr float kFixedToFloat = 1.52587890625e-05f;

// Transform cuts longer blocks into pieces of the work length, so the length only has to be
// positive; the upper bound keeps a hostile block length from asking for gigabytes.
constexpr int kMaxWorkLength = 65536;

float FromFixed(int value) {
    return static_cast<float>(value) * kFixedToFloat;
}

// Truncates toward zero. Only a setter argument at the very top of the int range can come
// back as 2^31, which saturates instead of overflowing.
int ToFixed(float value) {
    const double scaled = value * 65536.0;
    const double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(scaled, -limit - 1.0, limit));
}

float LevelToGain(float levelDb) {
    return static_cast<float>(std::pow(10.0, levelDb / 20.0f));
}

bool IsBand(int band) {
    return band >= 0 && band < CMultiEqualizer::kBandCount;
}

} // namespace

CMultiEqualizer::CMultiEqualizer()
    : m_format{}, m_inputLevel(0.0f), m_outputLevel(0.0f), m_overLevelThreshold(1.0f),
      m_overLevel(false), m_inputGain(1.0f), m_outputGain(1.0f), m_filtersReady(false),
      m_workLength(0),
      m_workReady(false), m_bandGain{}, m_bandFreq{}, m_bandQ{}, m_bandType{}, m_bandActive{} {
    SetDefaultProps();
}

CMultiEqualizer::~CMultiEqualizer() = default;

bool CMultiEqualizer::SetDefaultProps() {
    CSingleLock lock(m_lock);
    m_inputLevel = 0.0f;
    m_inputGain = 1.0f;
    m_outputLevel = 0.0f;
    m_outputGain = 1.0f;
    m_overLevelThreshold = 1.0f;
    for (int band = 0; band < kBandCount; ++band) {
        m_bandActive[band] = true;
        set_Type(band, kBiquadLowShelf);
        set_Gain(band, 0);
        set_Freq(band, 1000 << 16);
        set_Q(band, 1 << 16);
    }
    return true;
}

bool CMultiEqualizer::set_InputLevel(int levelDb) {
    CSingleLock lock(m_lock);
    m_inputLevel = FromFixed(levelDb);
    m_inputGain = LevelToGain(m_inputLevel);
    return true;
}

bool CMultiEqualizer::set_OutputLevel(int levelDb) {
    CSingleLock lock(m_lock);
    m_outputLevel = FromFixed(levelDb);
    m_outputGain = LevelToGain(m_outputLevel);
    return true;
}

bool CMultiEqualizer::get_InputLevel(int* levelDb) {
    CSingleLock lock(m_lock);
    *levelDb = ToFixed(m_inputLevel);
    return true;
}

bool CMultiEqualizer::get_OutputLevel(int* levelDb) {
    CSingleLock lock(m_lock);
    *levelDb = ToFixed(m_outputLevel);
    return true;
}

bool CMultiEqualizer::set_Activate(int band, bool on) {
    CSingleLock lock(m_lock);
    if (!IsBand(band)) {
        return false;
    }
    m_bandActive[band] = on;
    return true;
}

bool CMultiEqualizer::get_Activate(int band, bool* on) {
    CSingleLock lock(m_lock);
    *on = IsBand(band) && m_bandActive[band];
    return IsBand(band);
}

bool CMultiEqualizer::set_Type(int band, int type) {
    CSingleLock lock(m_lock);
    if (!IsBand(band)) {
        return false;
    }
    m_bandType[band] = type;
    DesignBand(band);
    return true;
}

bool CMultiEqualizer::SetBandSetting(int band, float* settings, float value) {
    CSingleLock lock(m_lock);
    if (!IsBand(band)) {
        return false;
    }
    settings[band] = value;
    DesignBand(band);
    return true;
}

bool CMultiEqualizer::set_Gain(int band, int gainDb) {
    return SetBandSetting(band, m_bandGain, FromFixed(gainDb));
}

bool CMultiEqualizer::set_Freq(int band, int freqHz) {
    return SetBandSetting(band, m_bandFreq, FromFixed(freqHz));
}

bool CMultiEqualizer::set_Q(int band, int q) {
    return SetBandSetting(band, m_bandQ, FromFixed(q));
}

bool CMultiEqualizer::get_Type(int band, int* type) {
    CSingleLock lock(m_lock);
    *type = IsBand(band) ? m_bandType[band] : 0;
    return IsBand(band);
}

bool CMultiEqualizer::get_Gain(int band, int* gainDb) {
    CSingleLock lock(m_lock);
    *gainDb = IsBand(band) ? ToFixed(m_bandGain[band]) : 0;
    return IsBand(band);
}

bool CMultiEqualizer::get_Freq(int band, int* freqHz) {
    CSingleLock lock(m_lock);
    *freqHz = IsBand(band) ? ToFixed(m_bandFreq[band]) : 0;
    return IsBand(band);
}

bool CMultiEqualizer::get_Q(int band, int* q) {
    CSingleLock lock(m_lock);
    *q = IsBand(band) ? ToFixed(m_bandQ[band]) : 0;
    return IsBand(band);
}

// The detector is fixed at full scale whatever the caller asks for.
bool CMultiEqualizer::set_OverLevelThreshold(int) {
    CSingleLock lock(m_lock);
    m_overLevelThreshold = 1.0f;
    return true;
}

// Unlike every other getter this one is not 16.16: full scale reads as 1.
bool CMultiEqualizer::get_OverLevelThreshold(int* threshold) {
    CSingleLock lock(m_lock);
    *threshold = static_cast<int>(m_overLevelThreshold);
    return true;
}

bool CMultiEqualizer::get_OverLevel(bool* overLevel) {
    CSingleLock lock(m_lock);
    *overLevel = m_overLevel;
    m_overLevel = false;
    return true;
}

bool CMultiEqualizer::SetMediaType(const tWAVEFORMATEX* format, int blockLength) {
    if (format == nullptr) {
        return false;
    }
    CSingleLock lock(m_lock);
    std::memcpy(&m_format, format, sizeof m_format);
    InitInternalFilters();
    PrepareWorkingBuffer(blockLength);
    return true;
}

bool CMultiEqualizer::Transform(const float* const* in, int count, float* const* out,
                                int* produced) {
    CSingleLock lock(m_lock);
    if (RunsFused(in, out, count)) {
        StereoPeaks peaks;
        OperateFused(in, out, count, &peaks);
    } else {
        OperateMultiEqualizer(in, out, count);
    }
    if (produced != nullptr) {
        *produced = count;
    }
    return true;
}

bool CMultiEqualizer::TransformMetered(const float* const* in, int count, float* const* out,
                                       StereoPeaks* peaks) {
    CSingleLock lock(m_lock);
    if (RunsFused(in, out, count)) {
        OperateFused(in, out, count, peaks);
    } else if (LeavesBlocksAlone() && PlainStereoLayout(in, out, count)) {
        CopyStereoMeasuringPeaks(in, out, count, peaks);
    } else {
        // Mono, or buffers that overlap in ways no host arranges: the copy, the staged path
        // and a read-back of the output, one after the other.
        CopyStereoMeasuringPeaks(in, out, count, peaks);
        OperateMultiEqualizer(in, out, count);
        MeasureOutputPeaks(out, count, peaks);
    }
    return true;
}

bool CMultiEqualizer::Reset() {
    CSingleLock lock(m_lock);
    for (const auto& filter : m_filters) {
        filter->Reset();
    }
    return true;
}

EqualizerChain CMultiEqualizer::GetChain(int channel) const {
    CSingleLock lock(m_lock);
    const bool channelRuns = channel >= 0 && channel < ProcessedChannelCount();
    EqualizerChain chain{};
    chain.processes = channelRuns && m_workReady && (m_bandActive[0] || m_bandActive[1]);
    chain.sampleRate = static_cast<float>(m_format.nSamplesPerSec);
    chain.inputGain = m_inputGain;
    chain.outputGain = m_outputGain;
    for (int band = 0; band < kBandCount; ++band) {
        chain.bandActive[band] = m_bandActive[band];
        chain.band[band] = channelRuns ? Filter(band, channel).GetCoefficients()
                                       : CBiquadFilter().GetCoefficients();
    }
    return chain;
}

void CMultiEqualizer::InitInternalFilters() {
    m_filters.clear();
    const int count = 2 * m_format.nChannels;
    for (int i = 0; i < count; ++i) {
        m_filters.push_back(std::make_unique<CBiquadFilter>());
    }
    m_filtersReady = true;
    for (int band = 0; band < kBandCount; ++band) {
        DesignBand(band);
    }
}

void CMultiEqualizer::PrepareWorkingBuffer(int length) {
    m_workLength = std::clamp(length, 1, kMaxWorkLength);
    for (auto& buffer : m_work) {
        buffer.assign(m_workLength, 0.0f);
    }
    m_workReady = true;
}

// Before the first format only the settings are stored; SetMediaType designs from them.
void CMultiEqualizer::DesignBand(int band) {
    const int channels = ProcessedChannelCount();
    const float sampleRate = static_cast<float>(m_format.nSamplesPerSec);
    // Without a sample rate no frequency can be placed (the design would be all NaN): the
    // sections keep passing the signal through until a real rate arrives.
    if (sampleRate == 0.0f) {
        return;
    }
    for (int channel = 0; channel < channels; ++channel) {
        Filter(band, channel)
            .CalcCoefficients(sampleRate, m_bandFreq[band], m_bandGain[band], m_bandQ[band],
                              m_bandType[band]);
    }
}

CBiquadFilter& CMultiEqualizer::Filter(int band, int channel) const {
    return *m_filters[band + 2 * channel];
}

// Mono and stereo are processed; any other channel count leaves the output alone.
int CMultiEqualizer::ProcessedChannelCount() const {
    const int channels = m_format.nChannels;
    return m_filtersReady && (channels == 1 || channels == 2) ? channels : 0;
}

// With both bands off the block is not touched at all, levels and detector included: the
// caller's buffers keep what they held.
bool CMultiEqualizer::LeavesBlocksAlone() const {
    return (!m_bandActive[0] && !m_bandActive[1]) || ProcessedChannelCount() == 0 || !m_workReady;
}

bool CMultiEqualizer::RunsFused(const float* const* in, float* const* out, int count) const {
    return count > 0 && !LeavesBlocksAlone() && ProcessedChannelCount() == 2 &&
           PlainStereoLayout(in, out, count);
}

// The stereo path in one pass. It needs no working buffers, so blocks of any length run
// whole; the detector only ever rises, from the output peaks the pass measured.
void CMultiEqualizer::OperateFused(const float* const* in, float* const* out, int count,
                                   StereoPeaks* peaks) {
    StereoBands bands = {m_inputGain, m_outputGain, {}};
    for (int band = 0; band < kBandCount; ++band) {
        for (int channel = 0; channel < 2; ++channel) {
            bands.sections[band][channel] = m_bandActive[band] ? &Filter(band, channel) : nullptr;
        }
    }
    RunStereoBands(bands, in, out, count, peaks);
    if (peaks->output[0] > m_overLevelThreshold || peaks->output[1] > m_overLevelThreshold) {
        m_overLevel = true;
    }
}

void CMultiEqualizer::OperateMultiEqualizer(const float* const* in, float* const* out, int count) {
    if (LeavesBlocksAlone()) {
        return;
    }
    const int channels = ProcessedChannelCount();
    // A block longer than the working buffers runs in consecutive pieces; the filters carry
    // their history across, so the result is the same as in one pass.
    for (int offset = 0; offset < count;) {
        const int piece = std::min(m_workLength, count - offset);
        OperatePiece(in, out, offset, piece, channels);
        offset += piece;
    }
}

void CMultiEqualizer::OperatePiece(const float* const* in, float* const* out, int offset, int count,
                                   int channels) {
    for (int channel = 0; channel < channels; ++channel) {
        const float* source = in[channel] + offset;
        float* input = m_work[kWorkInputLeft + channel].data();
        for (int i = 0; i < count; ++i) {
            input[i] = source[i] * m_inputGain;
        }
    }
    // A bypassed band is a copy; its filters keep their history frozen until it returns.
    const int bandInput[kBandCount] = {kWorkInputLeft, kWorkFirstBandLeft};
    const int bandOutput[kBandCount] = {kWorkFirstBandLeft, kWorkSecondBandLeft};
    for (int band = 0; band < kBandCount; ++band) {
        for (int channel = 0; channel < channels; ++channel) {
            const float* from = m_work[bandInput[band] + channel].data();
            float* to = m_work[bandOutput[band] + channel].data();
            if (m_bandActive[band]) {
                Filter(band, channel).OperateFilter(from, to, count);
            } else {
                std::copy(from, from + count, to);
            }
        }
    }
    for (int channel = 0; channel < channels; ++channel) {
        const float* result = m_work[kWorkSecondBandLeft + channel].data();
        float* destination = out[channel] + offset;
        for (int i = 0; i < count; ++i) {
            const float sample = result[i] * m_outputGain;
            destination[i] = sample;
            if (std::fabs(sample) > m_overLevelThreshold) {
                m_overLevel = true;
            }
        }
    }
}
