// The effect's one-pass processReplacing against the plain staged block, bit for bit (samples,
// meters, over-level flag, block counter), over random parameters, states, splits and layouts.
#include "effect/AZephyra.h"
#include "tests/perf/BlockArena.h"
#include "dsp/CMultiEqualizer.h"
#include "tests/perf/PlainBlockModel.h"
#include "effect/ZephyraParameters.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr int kTrials = 600;

// ON/OFF values a host may send: on, off, and a value between that switches both bands off
// while the effect still counts itself on.
constexpr float kOnOffValues[] = {1.0f, 1.0f, 0.0f, 0.5f};

class EffectPair {
public:
    EffectPair() : m_effect(nullptr), m_input(1.0f), m_onOff(1.0f) { Sync(); }

    void SetParameter(int index, float value) {
        m_effect.setParameter(index, value);
        if (index == kParamInput) {
            m_input = value;
        }
        if (index == kParamOnOff) {
            m_onOff = value;
        }
        Sync();
    }

    // suspend clears every filter's history; resume switches the bands and the effect on.
    void SuspendAndResume() {
        m_effect.suspend();
        m_effect.resume();
        for (auto& band : m_model.engine.band) {
            for (reference::Biquad& section : band) {
                section.x1 = section.x2 = section.y1 = section.y2 = 0.0f;
            }
        }
        m_onOff = 1.0f;
        Sync();
    }

    std::string RunBlock(arena::Layout layout, int frames, std::mt19937& rng) {
        arena::Arena actual(layout, frames, rng);
        arena::Arena expected(actual);
        m_effect.processReplacing(actual.In(), actual.Out(), frames);
        m_model.ProcessReplacing(expected.In(), expected.Out(), frames);
        const std::string difference = actual.Difference(expected);
        if (!difference.empty()) {
            return "samples differ at " + difference;
        }
        float meters[4];
        m_effect.GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
        if (std::memcmp(meters, m_model.meters, sizeof meters) != 0) {
            return "meters differ";
        }
        if (m_effect.GetProcessCounter() != m_model.counter) {
            return "block counter differs";
        }
        return {};
    }

    bool ClipMatches() {
        const bool want = m_model.engine.overLevel;
        m_model.engine.overLevel = false;
        return m_effect.GetClip() == want;
    }

private:
    // The model takes the settings the engine ended up with; its history stays its own.
    void Sync() {
        CMultiEqualizer& engine = *m_effect.GetEngine();
        int input = 0, output = 0;
        engine.get_InputLevel(&input);
        engine.get_OutputLevel(&output);
        m_model.engine.inputGain = reference::LevelGain(input);
        m_model.engine.outputGain = reference::LevelGain(output);
        for (int b = 0; b < 2; ++b) {
            reference::Band band{};
            engine.get_Type(b, &band.type);
            engine.get_Gain(b, &band.gain);
            engine.get_Freq(b, &band.freq);
            engine.get_Q(b, &band.q);
            m_model.engine.SetBand(b, band);
            engine.get_Activate(b, &m_model.engine.active[b]);
        }
        m_model.onOff = m_onOff;
        m_model.inputDisplayDb = NormalizeValToInternalVal(kParamInput, m_input);
    }

    AZephyra m_effect;
    reference::Effect m_model;
    float m_input;
    float m_onOff;
};

float RandomNormalised(std::mt19937& rng) {
    return std::uniform_real_distribution<float>(0.0f, 1.0f)(rng);
}

TEST(FusedEffect, MatchesStagedBlockOverRandomParametersStatesSplitsAndLayouts) {
    for (int trial = 0; trial < kTrials; ++trial) {
        std::mt19937 rng(5000 + trial);
        EffectPair pair;
        for (int index = kParamOutput; index < kNumParams; ++index) {
            pair.SetParameter(index, RandomNormalised(rng));
        }
        pair.SetParameter(kParamOnOff, kOnOffValues[rng() % 4]);
        const int blocks = 2 + static_cast<int>(rng() % 5);
        for (int block = 0; block < blocks; ++block) {
            const int change = static_cast<int>(rng() % 8);
            if (change == 0) {
                pair.SetParameter(kParamOnOff, kOnOffValues[rng() % 4]);
            } else if (change == 1) {
                pair.SetParameter(1 + static_cast<int>(rng() % 10), RandomNormalised(rng));
            } else if (change == 2) {
                pair.SuspendAndResume();
            }
            const arena::Layout layout = arena::RandomLayout(rng);
            const int frames = arena::RandomBlockLength(rng);
            ASSERT_EQ(pair.RunBlock(layout, frames, rng), "")
                << "trial " << trial << ", block " << block << " of " << frames << " frames, "
                << arena::Name(layout);
            if (rng() % 3 == 0) {
                ASSERT_TRUE(pair.ClipMatches()) << "trial " << trial << ", block " << block;
            }
        }
        ASSERT_TRUE(pair.ClipMatches()) << "trial " << trial;
    }
}

} // namespace
