// Audio for the validation suite: reproducible noise and stereo blocks with guard zones.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

// Noise in [-1, 1) from a 32-bit xorshift generator. Every sample has at most 24
// significant bits, so it is the same number in float and in double: the two precisions
// of the audio path can be compared bit for bit.
class Noise {
public:
    explicit Noise(uint32_t seed) : m_state(seed ? seed : 0x9E3779B9u) {}

    uint32_t NextWord() {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return m_state;
    }
    float Next() { return static_cast<float>(NextWord() >> 8) * 0x1p-23f - 1.0f; }
    // A whole number in [0, bound).
    int Below(int bound) { return bound > 0 ? static_cast<int>(NextWord() % bound) : 0; }

private:
    uint32_t m_state;
};

// Two channels of a block with guard zones before and after each, so that a write
// outside the block shows.
template <typename Sample> class GuardedStereo {
public:
    static constexpr int kGuard = 32;

    explicit GuardedStereo(int frames)
        : m_frames(frames > 0 ? frames : 0), m_storage{Storage(), Storage()},
          m_pointers{m_storage[0].data() + kGuard, m_storage[1].data() + kGuard} {}

    Sample** Channels() { return m_pointers; }
    Sample* Channel(int channel) { return m_pointers[channel]; }
    int Frames() const { return m_frames; }

    void Fill(Noise& noise, float amplitude) {
        for (Sample* channel : m_pointers) {
            for (int i = 0; i < m_frames; ++i) {
                channel[i] = static_cast<Sample>(noise.Next() * amplitude);
            }
        }
    }

    bool GuardsIntact() const {
        for (const std::vector<Sample>& channel : m_storage) {
            for (int i = 0; i < kGuard; ++i) {
                if (!IsSentinel(channel[i]) || !IsSentinel(channel[kGuard + m_frames + i])) {
                    return false;
                }
            }
        }
        return true;
    }

    // Over the first frames of each channel, or the whole block.
    bool AllFinite() const { return AllFinite(m_frames); }
    bool AllFinite(int frames) const {
        for (const Sample* channel : m_pointers) {
            for (int i = 0; i < frames; ++i) {
                if (!std::isfinite(channel[i])) {
                    return false;
                }
            }
        }
        return true;
    }

    Sample Peak(int frames) const {
        Sample peak = 0;
        for (const Sample* channel : m_pointers) {
            for (int i = 0; i < frames; ++i) {
                peak = std::fabs(channel[i]) > peak ? std::fabs(channel[i]) : peak;
            }
        }
        return peak;
    }

private:
    static constexpr Sample kSentinel = static_cast<Sample>(-8192.5);

    static bool IsSentinel(Sample value) { return value == kSentinel; }
    std::vector<Sample> Storage() const {
        return std::vector<Sample>(static_cast<size_t>(m_frames + 2 * kGuard), kSentinel);
    }

    int m_frames;
    std::vector<Sample> m_storage[2];
    Sample* m_pointers[2];
};
