// The live mode's audio side without a server: what the callback hands the plug-in, and the
// main thread setting the plug-in up anew while a callback thread keeps calling (the
// ThreadSanitizer build runs this by its label).
#include "tools/LiveEngine.h"
#include "tools/PluginInstance.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

namespace {

constexpr double kRate = 48000.0;

// A tone at the level of music, and buffers for its processed copy.
struct Block {
    explicit Block(int frames) : left(frames), right(frames), outLeft(frames), outRight(frames) {
        for (int i = 0; i < frames; ++i) {
            left[i] = 0.5f * std::sin(0.05f * static_cast<float>(i));
            right[i] = -left[i];
        }
    }
    float** In() {
        inputs[0] = left.data();
        inputs[1] = right.data();
        return inputs;
    }
    float** Out() {
        outputs[0] = outLeft.data();
        outputs[1] = outRight.data();
        return outputs;
    }
    bool Silent() const {
        for (size_t i = 0; i < outLeft.size(); ++i) {
            if (outLeft[i] != 0.0f || outRight[i] != 0.0f)
                return false;
        }
        return true;
    }
    std::vector<float> left, right, outLeft, outRight;
    float* inputs[2] = {nullptr, nullptr};
    float* outputs[2] = {nullptr, nullptr};
};

// Our module at a program that changes the sound.
struct Equaliser : PluginInstance {
    explicit Equaliser(int blockSize)
        : PluginInstance(PluginModule::load(ZEPHYRA_MODULE), kRate, blockSize) {
        dispatch(effSetProgram, 0, 1);
    }
};

TEST(LiveEngine, HandsThePluginWhatAHostWouldAndNeverABlockLongerThanItWasSetUpFor) {
    Equaliser live(256);
    LiveEngine engine(live, kRate, 256);
    Equaliser direct(256);
    direct.resume();

    Block heard(256), expected(256);
    engine.process(heard.In(), heard.Out(), 256);
    direct.process(expected.In(), expected.Out(), 256);
    EXPECT_EQ(heard.outLeft, expected.outLeft);
    EXPECT_EQ(heard.outRight, expected.outRight);
    EXPECT_FALSE(heard.Silent());
    EXPECT_EQ(engine.framesProcessed(), 256u);
    EXPECT_GT(engine.peakLoad(), 0.0);

    Block tooLong(512);
    engine.process(tooLong.In(), tooLong.Out(), 512);
    EXPECT_TRUE(tooLong.Silent()) << "a block longer than the plug-in was set up for";
    EXPECT_EQ(engine.framesProcessed(), 256u);

    engine.reconfigure(kRate, 512);
    engine.process(tooLong.In(), tooLong.Out(), 512);
    EXPECT_FALSE(tooLong.Silent()) << "set up anew for the longer blocks";
    EXPECT_EQ(engine.framesProcessed(), 768u);
}

TEST(LiveEngine, ReconfiguringWhileTheCallbackRunsGivesOnlySilenceOrSound) {
    Equaliser live(1024);
    LiveEngine engine(live, kRate, 1024);
    std::atomic<bool> running{true};
    std::atomic<int> silentBlocks{0};
    std::atomic<int> soundingBlocks{0};
    std::thread callback([&] {
        Block block(1024);
        while (running) {
            engine.process(block.In(), block.Out(), 1024);
            (block.Silent() ? silentBlocks : soundingBlocks)++;
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    });
    for (int round = 0; round < 20; ++round) {
        engine.reconfigure(kRate, round % 2 ? 1024 : 512);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    engine.reconfigure(kRate, 1024);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    running = false;
    callback.join();
    EXPECT_GT(soundingBlocks.load(), 0);
    EXPECT_GT(silentBlocks.load(), 0) << "the 512-frame set-ups silenced 1024-frame blocks";
    EXPECT_EQ(engine.framesProcessed(), 1024u * static_cast<unsigned>(soundingBlocks.load()));
}

} // namespace
