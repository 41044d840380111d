// The effect's processReplacing against the plain staged block, bit for bit (samples, meters,
// over-level flag, block counter), over random parameters, switch values, suspends and layouts.
#include "dsp/CMultiEqualizer.h"
#include "effect/AZephyra.h"
#include "effect/ZephyraParameters.h"
#include "tests/perf/BlockArena.h"
#include "tests/perf/PlainBlockModel.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// ON/OFF values a host may send: on, off, and a value between that switches both bands off
// while the effect still counts itself on.
constexpr float kOnOffValues[] = {1.0f, 1.0f, 0.0f, 0.5f};

// The model takes the settings the effect's engine ended up with; its history stays its own.
void Sync(AZephyra& effect, reference::Effect& model) {
    CMultiEqualizer& engine = *effect.GetEngine();
    int input = 0, output = 0;
    engine.get_InputLevel(&input);
    engine.get_OutputLevel(&output);
    model.engine.SetLevels(input, output);
    for (int b = 0; b < 2; ++b) {
        reference::Band band{};
        bool active = false;
        engine.get_Type(b, &band.type);
        engine.get_Gain(b, &band.gain);
        engine.get_Freq(b, &band.freq);
        engine.get_Q(b, &band.q);
        engine.get_Activate(b, &active);
        model.engine.SetBand(b, band);
        model.engine.SetActive(b, active);
    }
    model.onOff = effect.getParameter(kParamOnOff);
    model.inputDisplayDb = NormalizeValToInternalVal(kParamInput, effect.getParameter(kParamInput));
}

// Runs one block both ways; returns a description of the first difference, if any.
std::string RunBlock(AZephyra& effect, reference::Effect& model, std::mt19937& rng) {
    const arena::Layout layout = arena::RandomLayout(rng);
    const int frames = arena::RandomBlockLength(rng);
    arena::Arena actual(layout, frames, rng);
    arena::Arena expected(actual);
    effect.processReplacing(actual.In(), actual.Out(), frames);
    model.ProcessReplacing(expected.In(), expected.Out(), frames);
    const std::string where = std::to_string(frames) + " frames, " + arena::Name(layout) + ": ";
    const std::string difference = actual.Difference(expected);
    float meters[4];
    effect.GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
    // Reading the flag lowers it.
    const bool clip = effect.GetClip(), overLevel = model.engine.overLevel;
    model.engine.overLevel = false;
    if (!difference.empty()) {
        return where + "samples differ at " + difference;
    }
    if (std::memcmp(meters, model.meters, sizeof meters) != 0) {
        return where + "meters differ";
    }
    if (effect.GetProcessCounter() != model.counter) {
        return where + "block counter differs";
    }
    if (clip != overLevel) {
        return where + "over-level flag differs";
    }
    return {};
}

TEST(FusedEffect, MatchesStagedBlockOverRandomParametersStatesSplitsAndLayouts) {
    std::uniform_real_distribution<float> normalised(0.0f, 1.0f);
    for (int trial = 0; trial < 600; ++trial) {
        std::mt19937 rng(5000 + trial);
        AZephyra effect(nullptr);
        reference::Effect model;
        for (int index = kParamOutput; index < kNumParams; ++index) {
            effect.setParameter(index, normalised(rng));
        }
        effect.setParameter(kParamOnOff, kOnOffValues[rng() % 4]);
        const int blocks = 2 + static_cast<int>(rng() % 5);
        for (int block = 0; block < blocks; ++block) {
            const int change = static_cast<int>(rng() % 8);
            if (change == 0) {
                effect.setParameter(kParamOnOff, kOnOffValues[rng() % 4]);
            } else if (change == 1) {
                effect.setParameter(1 + static_cast<int>(rng() % 10), normalised(rng));
            } else if (change == 2) {
                // suspend clears every filter's history; resume switches everything on.
                effect.suspend();
                effect.resume();
                model.engine = reference::Engine();
            }
            Sync(effect, model);
            ASSERT_EQ(RunBlock(effect, model, rng), "") << "trial " << trial << ", block " << block;
        }
    }
}

} // namespace
