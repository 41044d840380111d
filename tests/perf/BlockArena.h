// Stereo blocks in one stretch of memory, laid out as hosts do and as none should; the whole
// arenas of the path under test and of the plain model are compared, so stray writes show.
#pragma once

#include "tests/support/ReferenceEqualizer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace arena {

enum class Layout { Apart, InPlace, Crossed, Shifted, SharedInput, SharedOutput };

inline const char* Name(Layout layout) {
    static const char* names[] = {"apart",   "in place",     "crossed",
                                  "shifted", "shared input", "shared output"};
    return names[static_cast<int>(layout)];
}

// Hosts mostly process apart or in place; one block in eight gets an odd layout.
inline Layout RandomLayout(std::mt19937& rng) {
    const int roll = static_cast<int>(rng() % 16);
    if (roll < 7) {
        return Layout::Apart;
    }
    if (roll < 14) {
        return Layout::InPlace;
    }
    return static_cast<Layout>(2 + rng() % 4);
}

// Tail blocks of 1, 2 and 3 frames are frequent on purpose: they are where a pipelined
// loop fills and drains.
inline int RandomBlockLength(std::mt19937& rng) {
    const int roll = static_cast<int>(rng() % 20);
    if (roll < 6) {
        return 1 + static_cast<int>(rng() % 3);
    }
    if (roll < 9) {
        return 4 + static_cast<int>(rng() % 8);
    }
    if (roll < 18) {
        return 12 + static_cast<int>(rng() % 300);
    }
    return 300 + static_cast<int>(rng() % 900);
}

// A setting for one band anywhere in (and a little beyond) the parameter ranges.
inline reference::Band RandomBand(std::mt19937& rng) {
    std::uniform_real_distribution<float> gain(-12.0f, 12.0f);
    std::uniform_real_distribution<float> logFreq(std::log(20.0f), std::log(30000.0f));
    std::uniform_real_distribution<float> q(0.3f, 10.0f);
    return {static_cast<int>(rng() % 3), static_cast<int>(gain(rng) * 65536.0f),
            static_cast<int>(std::exp(logFreq(rng)) * 65536.0f),
            static_cast<int>(q(rng) * 65536.0f)};
}

inline int RandomLevel(std::mt19937& rng, float lowestDb, float highestDb) {
    return static_cast<int>(std::uniform_real_distribution<float>(lowestDb, highestDb)(rng) *
                            65536.0f);
}

class Arena {
public:
    static constexpr int kGuard = 8;

    // Every sample of the arena is signal: whatever the layout reads is defined input.
    Arena(Layout layout, int frames, std::mt19937& rng) {
        const int stride = frames + kGuard;
        m_memory.resize(static_cast<size_t>(4 * stride + 2 * kGuard));
        FillSignal(rng);
        const int in0 = kGuard, in1 = kGuard + stride;
        const int out0 = kGuard + 2 * stride, out1 = kGuard + 3 * stride;
        const int mid = kGuard / 2, shift = 1 + static_cast<int>(rng() % 3);
        const int offsets[][4] = {
            {in0, in1, out0, out1}, {in0, in1, in0, in1},
            {in0, in1, in1, in0},   {in0 + mid, in1 + mid, in0 + mid + shift, in1 + mid - shift},
            {in0, in0, out0, out1}, {in0, in1, out0, out0}};
        Place(offsets[static_cast<int>(layout)]);
    }

    Arena(const Arena& other) : m_memory(other.m_memory) { Place(other.m_offsets); }
    Arena& operator=(const Arena&) = delete;

    float** In() { return m_in; }
    float** Out() { return m_out; }

    // Empty when both arenas hold the same bits, else where they first differ.
    std::string Difference(const Arena& other) const {
        for (size_t i = 0; i < m_memory.size(); ++i) {
            if (std::memcmp(&m_memory[i], &other.m_memory[i], sizeof(float)) != 0) {
                std::ostringstream where;
                where << "word " << i << " of " << m_memory.size() << ": " << m_memory[i] << " vs "
                      << other.m_memory[i];
                return where.str();
            }
        }
        return {};
    }

private:
    // Input left and right, output left and right.
    void Place(const int (&offsets)[4]) {
        std::copy(offsets, offsets + 4, m_offsets);
        float* const memory = m_memory.data();
        m_in[0] = memory + offsets[0];
        m_in[1] = memory + offsets[1];
        m_out[0] = memory + offsets[2];
        m_out[1] = memory + offsets[3];
    }

    // Noise at a random level, with stretches of silence and of subnormal values so that
    // the recursions also run down into the subnormal range.
    void FillSignal(std::mt19937& rng) {
        const float level = std::uniform_real_distribution<float>(0.01f, 3.0f)(rng);
        std::uniform_real_distribution<float> noise(-level, level);
        const int texture = static_cast<int>(rng() % 8);
        for (float& sample : m_memory) {
            sample = noise(rng);
            if (texture == 0) {
                sample = 0.0f;
            } else if (texture == 1) {
                sample *= 1e-39f;
            }
        }
    }

    std::vector<float> m_memory;
    int m_offsets[4] = {};
    float* m_in[2] = {};
    float* m_out[2] = {};
};

} // namespace arena
