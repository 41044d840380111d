// The engine's one-pass stereo path against the plain staged evaluation, bit for bit, over
// random settings, signals down to subnormals, band switching, splits and layouts.
#include "dsp/CMultiEqualizer.h"
#include "tests/perf/BlockArena.h"
#include "tests/perf/PlainBlockModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kTrials = 3000;

// Both bands, either one alone, neither; both is drawn twice as often.
constexpr bool kActivity[5][2] = {
    {true, true}, {true, true}, {true, false}, {false, true}, {false, false}};

// The engine under test and its plain twin, changed together.
struct Pair {
    CMultiEqualizer engine;
    reference::Engine model;

    explicit Pair(int workLength) {
        const tWAVEFORMATEX format{kWaveFormatIeeeFloat, 2, 44100, 352800, 8, 32, 0};
        engine.SetMediaType(&format, workLength);
        model.workLength = workLength;
    }

    void SetLevels(int input, int output) {
        engine.set_InputLevel(input);
        engine.set_OutputLevel(output);
        model.SetLevels(input, output);
    }

    void SetBand(int band, reference::Band s) {
        engine.set_Type(band, s.type);
        engine.set_Gain(band, s.gain);
        engine.set_Freq(band, s.freq);
        engine.set_Q(band, s.q);
        model.SetBand(band, s);
    }

    void SetActive(int band, bool on) {
        engine.set_Activate(band, on);
        model.SetActive(band, on);
    }

    // Runs the arena's block both ways, the engine's in place; returns a description of the
    // first difference, if any.
    std::string RunBlock(arena::Arena& actual, int frames, bool metered) {
        arena::Arena expected(actual);
        if (metered) {
            StereoPeaks peaks{};
            engine.TransformMetered(actual.In(), frames, actual.Out(), &peaks);
            const reference::Peaks want =
                reference::TransformMetered(model, expected.In(), expected.Out(), frames);
            if (!std::equal(peaks.input, peaks.input + 2, want.input) ||
                !std::equal(peaks.output, peaks.output + 2, want.output)) {
                return "peaks";
            }
        } else {
            int produced = -1;
            engine.Transform(actual.In(), frames, actual.Out(), &produced);
            model.Transform(expected.In(), expected.Out(), frames);
            if (produced != frames) {
                return "produced count";
            }
        }
        return actual.Difference(expected);
    }

    bool OverLevelMatches() {
        bool raised = false;
        engine.get_OverLevel(&raised);
        const bool want = model.overLevel;
        model.overLevel = false;
        return raised == want;
    }
};

TEST(FusedEngine, MatchesStagedEvaluationOverRandomSettingsSplitsAndLayouts) {
    for (int trial = 0; trial < kTrials; ++trial) {
        std::mt19937 rng(1000 + trial);
        Pair pair(1 + static_cast<int>(rng() % 512));
        pair.SetLevels(arena::RandomLevel(rng, -30, 6), arena::RandomLevel(rng, -30, 12));
        for (int band = 0; band < 2; ++band) {
            pair.SetBand(band, arena::RandomBand(rng));
        }
        const int blocks = 2 + static_cast<int>(rng() % 6);
        for (int block = 0; block < blocks; ++block) {
            // Bands come and go between blocks; a bypassed band must resume from the
            // history it had when it left.
            if (block == 0 || rng() % 3 == 0) {
                const bool* activity = kActivity[rng() % 5];
                pair.SetActive(0, activity[0]);
                pair.SetActive(1, activity[1]);
            }
            if (rng() % 5 == 0) {
                pair.SetBand(static_cast<int>(rng() % 2), arena::RandomBand(rng));
            }
            const arena::Layout layout = arena::RandomLayout(rng);
            const int frames = arena::RandomBlockLength(rng);
            arena::Arena memory(layout, frames, rng);
            const std::string difference = pair.RunBlock(memory, frames, rng() % 2 == 0);
            ASSERT_EQ(difference, "") << "trial " << trial << ", block " << block << " of "
                                      << frames << " frames, " << arena::Name(layout);
            if (rng() % 3 == 0) {
                ASSERT_TRUE(pair.OverLevelMatches()) << "trial " << trial << ", block " << block;
            }
        }
        ASSERT_TRUE(pair.OverLevelMatches()) << "trial " << trial;
    }
}

// A NaN sample poisons the recursions from then on but never becomes a peak; the flag
// still rises from the samples that are numbers.
TEST(FusedEngine, NanInputPropagatesAsTheStagedPathAndNeverWinsAPeak) {
    Pair pair(256);
    pair.SetLevels(0, 12 * 65536);
    pair.SetBand(0, {1, 6 * 65536, 1000 * 65536, 65536});
    pair.SetBand(1, {2, 3 * 65536, 5000 * 65536, 65536});
    std::mt19937 rng(5);
    arena::Arena block(arena::Layout::Apart, 64, rng);
    block.In()[0][40] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(pair.RunBlock(block, 64, true), "");
    EXPECT_TRUE(std::isnan(block.Out()[0][63]));
    EXPECT_TRUE(pair.model.overLevel) << "no sample that is a number went over";
    EXPECT_TRUE(pair.OverLevelMatches());
}

} // namespace
