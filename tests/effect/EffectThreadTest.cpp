// The audio thread processes blocks while the user-interface thread moves controls,
// types values, switches programs and polls the meters, as a host and the editor do.
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

namespace {

TEST(EffectThreads, ProcessingStaysFiniteWhileSettingsChange) {
    AZephyra effect(nullptr);
    effect.setSampleRate(48000.0f);
    effect.setBlockSize(128);
    std::atomic<bool> running{true};
    bool allFinite = true;

    std::thread audio([&] {
        std::vector<float> in[2] = {std::vector<float>(128), std::vector<float>(128)};
        std::vector<float> out[2] = {std::vector<float>(128), std::vector<float>(128)};
        float* inputs[2] = {in[0].data(), in[1].data()};
        float* outputs[2] = {out[0].data(), out[1].data()};
        for (int block = 0; running || block < 50; ++block) {
            for (int i = 0; i < 128; ++i) {
                in[0][i] = 0.9f * std::sin(0.01f * static_cast<float>(block * 128 + i));
                in[1][i] = -in[0][i];
            }
            effect.processReplacing(inputs, outputs, 128);
            for (const float sample : out[0]) {
                allFinite = allFinite && std::isfinite(sample);
            }
        }
    });

    for (int step = 0; step < 400; ++step) {
        const float value = static_cast<float>(step % 17) / 16.0f;
        effect.setParameter(step % kNumParams, value);
        effect.setParameterFormUI((step + 4) % kNumParams, 1.0f - value);
        effect.setParameterFromDiaplay(kParamGain2, value * 24.0f - 12.0f);
        if (step % 25 == 0) {
            effect.setProgram(step / 25);
        }
        float meters[4];
        effect.GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
        effect.GetClip();
    }
    running = false;
    audio.join();
    EXPECT_TRUE(allFinite);
}

} // namespace
