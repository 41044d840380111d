// The response reported for the engine's chain: gain and phase as a sine measured through
// the plain evaluation finds them, and flat while the engine leaves the signal alone.
#include "dsp/FilterResponse.h"
#include "tests/dsp/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

using namespace enginetest;

constexpr double kPi = 3.14159265358979323846;
constexpr double kRate = 48000.0;

// Gain and phase of a running system, measured by correlating its settled output with the
// sine that drives it. Frequencies must divide the rate so the window holds whole periods.
FrequencyResponse MeasureSine(const std::function<float(float)>& system, double frequency) {
    constexpr int kSettle = 43200;
    constexpr int kWindow = 4800;
    double inPhase = 0.0;
    double quadrature = 0.0;
    for (int n = 0; n < kSettle + kWindow; ++n) {
        const double angle = 2.0 * kPi * frequency * n / kRate;
        const float y = system(static_cast<float>(std::sin(angle)));
        if (n >= kSettle) {
            inPhase += y * std::sin(angle);
            quadrature += y * std::cos(angle);
        }
    }
    const double amplitude = 2.0 / kWindow * std::hypot(inPhase, quadrature);
    return {20.0 * std::log10(amplitude), std::atan2(quadrature, inPhase)};
}

TEST(FilterResponse, EngineChainAgreesWithASineMeasuredThroughThePlainEvaluation) {
    const Settings s = {-3 * kDb,
                        2 * kDb,
                        {{1, 12 * kDb, 1000 * kHz, 2 * 65536}, {2, -6 * kDb, 6000 * kHz, 45875}}};
    for (bool secondBandOn : {true, false}) {
        CMultiEqualizer engine;
        const tWAVEFORMATEX format = Format(2, static_cast<uint32_t>(kRate));
        engine.SetMediaType(&format, 256);
        Apply(engine, s);
        engine.set_Activate(1, secondBandOn);
        const EqualizerChain chain = engine.GetChain(1);
        for (double frequency : {100.0, 1000.0, 6000.0, 12000.0}) {
            auto plain = ReferenceChannel(static_cast<float>(kRate), s);
            plain.active[1] = secondBandOn;
            const FrequencyResponse want =
                MeasureSine([&](float x) { return plain.Run(x); }, frequency);
            const FrequencyResponse got = ChainResponse(chain, frequency);
            EXPECT_NEAR(got.magnitudeDb, want.magnitudeDb, 1e-3) << frequency << " Hz";
            EXPECT_NEAR(got.phase, want.phase, 1e-3) << frequency << " Hz";
        }
    }
}

TEST(FilterResponse, FlatWhenTheEngineLeavesTheSignalToItsCaller) {
    CMultiEqualizer engine;
    engine.set_InputLevel(-6 * kDb);
    engine.set_Type(0, 1);
    engine.set_Gain(0, 12 * kDb);
    const FrequencyResponse beforeFormat = ChainResponse(engine.GetChain(0), 1000.0);
    EXPECT_EQ(beforeFormat.magnitudeDb, 0.0);

    const tWAVEFORMATEX format = Format(2, 44100);
    engine.SetMediaType(&format, 256);
    EXPECT_NEAR(ChainResponse(engine.GetChain(0), 1000.0).magnitudeDb, 6.0, 1e-3);
    engine.set_Activate(0, false);
    engine.set_Activate(1, false);
    const FrequencyResponse bothOff = ChainResponse(engine.GetChain(0), 1000.0);
    EXPECT_EQ(bothOff.magnitudeDb, 0.0);
    EXPECT_EQ(bothOff.phase, 0.0);
}

} // namespace
