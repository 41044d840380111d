// The engine's settings, formats and channel counts, checked against the plain formulas
// sample by sample; the stereo path's layouts and splits are the exactness tests' part.
#include "tests/dsp/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <tuple>

namespace {

using namespace enginetest;

struct Stereo {
    std::vector<float> left, right;
};

Stereo Signal(int length) {
    return {reference::Noise(length, 11), reference::Noise(length, 12)};
}

Stereo Impulse(float left, float right) {
    Stereo s{std::vector<float>(8, 0.0f), std::vector<float>(8, 0.0f)};
    s.left[0] = left;
    s.right[0] = right;
    return s;
}

// Runs the whole signal through the engine as one block.
Stereo RunBlock(CMultiEqualizer& engine, const Stereo& in) {
    const int length = static_cast<int>(in.left.size());
    const auto out = TransformBlock(engine, {in.left.data(), in.right.data()}, length, 2);
    return {out[0], out[1]};
}

void ExpectMatchesReference(const Stereo& in, const Stereo& out, const Settings& s, float fs) {
    auto left = ReferenceChannel(fs, s);
    auto right = ReferenceChannel(fs, s);
    for (size_t n = 0; n < in.left.size(); ++n) {
        ASSERT_EQ(out.left[n], left.Run(in.left[n])) << "left sample " << n;
        ASSERT_EQ(out.right[n], right.Run(in.right[n])) << "right sample " << n;
    }
}

std::unique_ptr<CMultiEqualizer> MakeEngine(const Settings& s, int blockLength = 256,
                                            uint16_t channels = 2, uint32_t rate = 44100) {
    auto engine = std::make_unique<CMultiEqualizer>();
    const tWAVEFORMATEX format = Format(channels, rate);
    engine->SetMediaType(&format, blockLength);
    Apply(*engine, s);
    return engine;
}

const Settings kBoostAndCut = {
    -6 * kDb, 6 * kDb, {{1, 12 * kDb, 1000 * kHz, 65536}, {2, -12 * kDb, 8000 * kHz, 10 * 65536}}};

TEST(MultiEqualizer, BlocksLongerThanTheWorkLengthMatchOnePass) {
    const Stereo in = Signal(1000);
    for (int blockLength : {64, 1, 0, -8, INT_MAX}) {
        ExpectMatchesReference(in, RunBlock(*MakeEngine(kBoostAndCut, blockLength), in),
                               kBoostAndCut, 44100);
    }
}

// Type, gain, frequency, Q and activation of one band, as the engine reports them.
std::tuple<int, int, int, int, bool> BandState(CMultiEqualizer& engine, int band) {
    int type = -1, gain = -1, freq = -1, q = -1;
    bool active = false;
    engine.get_Type(band, &type);
    engine.get_Gain(band, &gain);
    engine.get_Freq(band, &freq);
    engine.get_Q(band, &q);
    engine.get_Activate(band, &active);
    return {type, gain, freq, q, active};
}

const std::tuple<int, int, int, int, bool> kDefaultBand{0, 0, 1000 * kHz, 65536, true};

TEST(MultiEqualizer, FixedPointValuesReadBackTruncatedAndSaturated) {
    CMultiEqualizer engine;
    int q = 0, input = 0, output = 0, threshold = 0;
    engine.set_Q(1, 19661);
    engine.set_InputLevel(-3918705);
    engine.set_OutputLevel(INT_MAX);
    engine.set_OverLevelThreshold(0x20000);
    engine.get_Q(1, &q);
    engine.get_InputLevel(&input);
    engine.get_OutputLevel(&output);
    engine.get_OverLevelThreshold(&threshold);
    // 2^31 after rounding to float saturates; the threshold stays at full scale, read unscaled.
    EXPECT_EQ(std::make_tuple(q, input, output, threshold),
              std::make_tuple(19661, -3918705, INT_MAX, 1));
    engine.set_InputLevel(-393216);
    EXPECT_EQ(engine.GetChain(0).inputGain, 0.5011872f);
}

// Both bands keep their defaults: active, flat low shelves at 1 kHz with a Q of 1.
TEST(MultiEqualizer, BandOutsideZeroAndOneIsRefusedWithoutSideEffects) {
    CMultiEqualizer engine;
    for (int band : {-1, 2, INT_MAX}) {
        EXPECT_FALSE(engine.set_Gain(band, 12 * kDb));
        EXPECT_FALSE(engine.set_Activate(band, false));
        int value = 1;
        EXPECT_FALSE(engine.get_Freq(band, &value));
        EXPECT_EQ(value, 0);
    }
    EXPECT_EQ(BandState(engine, 0), kDefaultBand);
    EXPECT_EQ(BandState(engine, 1), kDefaultBand);
}

TEST(MultiEqualizer, OverLevelFlagRisesOnlyAboveFullScale) {
    const struct {
        const char* name;
        float left, right;
        int outputLevel;
        bool raised;
    } cases[] = {
        {"exactly full scale", 1.0f, -1.0f, 0, false},
        {"just above on the left", std::nextafter(1.0f, 2.0f), 0.0f, 0, true},
        {"just below minus full scale on the right", 0.0f, std::nextafter(-1.0f, -2.0f), 0, true},
        {"pushed over by the output level", 0.9f, 0.0f, 6 * kDb, true},
        {"kept under by the output level", 1.5f, 0.0f, -6 * kDb, false}};
    for (const auto& c : cases) {
        auto engine = MakeEngine(kDefaults);
        engine->set_OutputLevel(c.outputLevel);
        RunBlock(*engine, Impulse(c.left, c.right));
        bool raised = !c.raised;
        engine->get_OverLevel(&raised);
        EXPECT_EQ(raised, c.raised) << c.name;
    }
}

TEST(MultiEqualizer, SettingsMadeBeforeTheFormatAreDesignedByIt) {
    CMultiEqualizer engine;
    Apply(engine, kBoostAndCut);
    const Stereo in = Signal(64);
    const float* inputs[] = {in.left.data(), in.right.data()};
    GuardedOutput untouched(2, 64, 0.5f);
    engine.Transform(inputs, 64, untouched.pointers(), nullptr);
    EXPECT_EQ(untouched.Samples(0), std::vector<float>(64, 0.5f)) << "no format, no processing";

    const tWAVEFORMATEX format = Format(2, 48000);
    engine.SetMediaType(&format, 64);
    ExpectMatchesReference(in, RunBlock(engine, in), kBoostAndCut, 48000);
}

TEST(MultiEqualizer, MonoRunsTheFirstChannelOnly) {
    const auto in = reference::Noise(300, 9);
    const auto out = TransformBlock(*MakeEngine(kBoostAndCut, 128, 1, 48000), {in.data()}, 300, 1);
    auto want = ReferenceChannel(48000, kBoostAndCut);
    for (size_t n = 0; n < in.size(); ++n) {
        ASSERT_EQ(out[0][n], want.Run(in[n])) << "sample " << n;
    }
}

TEST(MultiEqualizer, SixChannelsAreLeftUntouched) {
    const std::vector<float> loud(64, 2.0f);
    const std::vector<const float*> in(6, loud.data());
    GuardedOutput out(6, 64, 0.125f);
    MakeEngine(kBoostAndCut, 64, 6, 48000)->Transform(in.data(), 64, out.pointers(), nullptr);
    for (int c = 0; c < 6; ++c) {
        EXPECT_EQ(out.Samples(c), std::vector<float>(64, 0.125f)) << "channel " << c;
    }
    out.ExpectGuardsIntact();
}

TEST(MultiEqualizer, ZeroSampleRatePassesTheSignalThroughUnchanged) {
    const Settings bandsOnly = {0, 0, {kBoostAndCut.band[0], kBoostAndCut.band[1]}};
    const Stereo in = Signal(64);
    const Stereo out = RunBlock(*MakeEngine(bandsOnly, 64, 2, 0), in);
    EXPECT_EQ(out.left, in.left);
    EXPECT_EQ(out.right, in.right);
}

} // namespace
