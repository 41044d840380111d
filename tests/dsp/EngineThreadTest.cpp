#include "tests/dsp/EngineTestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

namespace {

using namespace enginetest;

// The audio thread runs blocks while another thread moves every setting through its range
// and re-sizes the engine; each change must land between blocks.
TEST(EngineThreads, SettingsChangeWhileBlocksRunAndOutputStaysFinite) {
    CMultiEqualizer engine;
    const tWAVEFORMATEX format = Format(2, 44100);
    engine.SetMediaType(&format, 256);
    std::atomic<bool> settingsDone{false};
    int nonFinite = 0;
    std::atomic<int> blocks{0};

    std::thread audio([&] {
        const auto signal = reference::Noise(256, 21);
        const float* in[] = {signal.data(), signal.data()};
        do {
            GuardedOutput out(2, 256);
            engine.Transform(in, 256, out.pointers(), nullptr);
            for (int c = 0; c < 2; ++c) {
                for (float sample : out.Samples(c)) {
                    nonFinite += std::isfinite(sample) ? 0 : 1;
                }
            }
            ++blocks;
        } while (!settingsDone);
    });
    std::thread settings([&] {
        while (blocks == 0) {
            std::this_thread::yield();
        }
        for (int step = 0; step < 3000; ++step) {
            const int band = step % 2;
            engine.set_Type(band, step % 3);
            engine.set_Gain(band, ((step % 25) - 12) * kDb);
            engine.set_Freq(band, (20 + (step * 397) % 19980) * kHz);
            engine.set_Q(band, 19661 + (step * 7919) % (10 * 65536 - 19661));
            engine.set_InputLevel(-(step % 60) * kDb);
            engine.set_OutputLevel((step % 7) * kDb);
            engine.set_Activate(band, step % 5 != 0);
            bool overLevel = false;
            engine.get_OverLevel(&overLevel);
            engine.GetChain(band);
            if (step % 50 == 0) {
                engine.SetMediaType(&format, step % 100 == 0 ? 128 : 256);
            }
            if (step % 70 == 0) {
                engine.Reset();
            }
        }
        settingsDone = true;
    });
    audio.join();
    settings.join();
    EXPECT_EQ(nonFinite, 0);
}

} // namespace
