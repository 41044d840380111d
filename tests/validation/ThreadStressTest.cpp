// The audio thread and the user-interface thread on one effect at once (ThreadSanitizer
// shows any unsynchronised access): the audio stays finite and no block is lost.
#include "tests/validation/support/PluginChecks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

constexpr int32_t kBlock = 512;
// Enough rounds on each side to interleave every operation with every other many times;
// the time limit keeps a slow sanitizer build within its budget.
constexpr long kRounds = 20000;
constexpr auto kTimeLimit = std::chrono::seconds(20);

struct AudioThreadResult {
    long processCalls = 0;
    long blocksNotFinite = 0;
};

void runAudioThread(HostedPlugin& plugin, const std::atomic<bool>& stop, std::atomic<long>& blocks,
                    AudioThreadResult& result) {
    Noise noise(101);
    GuardedStereo<float> in(kBlock), out(kBlock);
    GuardedStereo<double> inDouble(kBlock), outDouble(kBlock);
    in.Fill(noise, 1.0f);
    inDouble.Fill(noise, 1.0f);
    for (long block = 0; !stop.load(); ++block) {
        const int32_t frames = noise.Below(kBlock + 1);
        const auto run = [&](auto& input, auto& output) {
            plugin.Process(input.Channels(), output.Channels(), frames);
            result.blocksNotFinite += output.AllFinite(frames) && output.GuardsIntact() ? 0 : 1;
        };
        block % 2 == 0 ? run(in, out) : run(inDouble, outDouble);
        ++result.processCalls;
        if (block % 3 == 0) {
            const int32_t index = noise.Below(kNumParams);
            plugin.SetParameter(index, noise.Next() * 0.5f + 0.5f);
            plugin.GetParameter(noise.Below(kNumParams));
        }
        blocks.store(block + 1);
    }
}

// One round of what an editor and a host's own windows do, chosen by the round number.
void userInterfaceRound(HostedPlugin& plugin, Noise& noise, long round,
                        std::vector<char>& chunkCopy) {
    AZephyra& effect = plugin.Effect();
    const int32_t index = noise.Below(kNumParams);
    const float value = noise.Next() * 0.5f + 0.5f;
    const long kind = round % 12;
    if (kind == 0) {
        effect.setParameterFormUI(index, value);
    } else if (kind == 1) {
        effect.setParameterFromDiaplay(index, noise.Next() * 30.0f);
    } else if (kind == 2) {
        plugin.Dispatch(effSetProgram, 0, noise.Below(kNumPrograms));
    } else if (kind == 3 || kind == 4) {
        const bool preset = kind == 4;
        void* data = nullptr;
        const auto size = static_cast<int32_t>(plugin.Dispatch(effGetChunk, preset, 0, &data));
        chunkCopy.assign(static_cast<const char*>(data), static_cast<const char*>(data) + size);
        plugin.Dispatch(effSetChunk, preset, size, chunkCopy.data());
    } else if (kind == 5) {
        char name[32] = "Stress";
        name[6] = static_cast<char>('A' + noise.Below(26));
        plugin.Dispatch(effSetProgramName, 0, 0, name);
        plugin.Dispatch(effGetProgramName, 0, 0, name);
        plugin.Dispatch(effGetProgramNameIndexed, noise.Below(kNumPrograms), 0, name);
    } else if (kind == 6) {
        ASSERT_EQ(ParameterTextProblem(plugin), "");
    } else if (kind == 7) {
        float meters[4];
        effect.GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
        effect.GetClip();
        effect.GetProcessCounter();
    } else if (kind == 8) {
        effect.IsProgramChanged();
        effect.CopyPgFrom(noise.Below(kNumPrograms));
    } else if (kind == 9) {
        effect.ProgramToInitial();
    } else if (kind == 10) {
        effect.ProgramToFactory();
        effect.getParameterDisplayVal(index);
    } else {
        plugin.Dispatch(effGetProgram);
        effect.GetProgramNameBytes(noise.Below(kNumPrograms));
    }
}

TEST(ThreadStress, AudioAndUserInterfaceThreadsShareOneEffect) {
    HostedPlugin plugin;
    plugin.Start(44100.0f, kBlock);
    std::atomic<bool> stop{false};
    std::atomic<long> blocks{0};
    AudioThreadResult audio;
    std::thread audioThread(runAudioThread, std::ref(plugin), std::cref(stop), std::ref(blocks),
                            std::ref(audio));

    Noise noise(202);
    std::vector<char> chunkCopy;
    const auto deadline = std::chrono::steady_clock::now() + kTimeLimit;
    long rounds = 0;
    while ((rounds < kRounds || blocks.load() < kRounds) &&
           std::chrono::steady_clock::now() < deadline) {
        userInterfaceRound(plugin, noise, rounds, chunkCopy);
        ++rounds;
    }
    stop.store(true);
    audioThread.join();

    EXPECT_GE(rounds, 1000);
    EXPECT_GE(audio.processCalls, 1000);
    EXPECT_EQ(audio.blocksNotFinite, 0);
    // One count per float block; a double block no longer than the block size is one too.
    EXPECT_EQ(plugin.Effect().GetProcessCounter(),
              static_cast<uint16_t>(0xFFFF + audio.processCalls));
    Noise after(303);
    EXPECT_EQ(EffectProblem(plugin, after, kBlock, false), "");
    std::printf("%ld user-interface rounds against %ld audio blocks\n", rounds, audio.processCalls);
}

} // namespace
