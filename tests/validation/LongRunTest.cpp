// Hours of audio through an effect under random changes stay finite and bounded, and a fresh
// effect given the same changes without the audio ends in the same state and sound.
#include "tests/validation/support/PluginChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr float kSampleRate = 44100.0f;
constexpr int32_t kBlock = 512;

constexpr double kAudioHours = 8.0;

struct Change {
    enum Kind { kParameter, kProgram, kPreset, kMainsCycle } kind;
    int32_t index;
    float value;
    ZephyraProgramRecord preset;
};

Change randomChange(Noise& noise) {
    Change change{};
    const int roll = noise.Below(100);
    if (roll < 80) {
        change.kind = Change::kParameter;
        change.index = noise.Below(kNumParams);
        // Stepped parameters also get their exact steps, the on/off switch its two states.
        change.value = noise.Below(4) == 0 ? static_cast<float>(noise.Below(3)) * 0.5f
                                           : noise.Next() * 0.5f + 0.5f;
    } else if (roll < 92) {
        change.kind = Change::kProgram;
        change.index = noise.Below(kNumPrograms);
    } else if (roll < 98) {
        change.kind = Change::kPreset;
        for (float& value : change.preset.param) {
            value = noise.Next() * 0.5f + 0.5f;
        }
        change.preset.param[kParamOnOff] = 1.0f;
        std::strcpy(change.preset.name, "Loaded");
    } else {
        change.kind = Change::kMainsCycle;
    }
    return change;
}

void apply(HostedPlugin& plugin, Change& change) {
    if (change.kind == Change::kParameter) {
        plugin.SetParameter(change.index, change.value);
    } else if (change.kind == Change::kProgram) {
        plugin.Dispatch(effSetProgram, 0, change.index);
    } else if (change.kind == Change::kPreset) {
        plugin.Dispatch(effSetChunk, 1, sizeof(change.preset), &change.preset);
    } else {
        plugin.Dispatch(effMainsChanged, 0, 0);
        plugin.Dispatch(effMainsChanged, 0, 1);
    }
}

// Everything a host can observe of the settings, parameters bit for bit.
using State = std::tuple<std::vector<uint32_t>, intptr_t, std::string, std::vector<std::string>>;
State stateOf(HostedPlugin& plugin) {
    State state;
    auto& [bits, program, bank, texts] = state;
    for (int32_t index = 0; index < kNumParams; ++index) {
        const float value = plugin.GetParameter(index);
        bits.push_back(0);
        std::memcpy(&bits.back(), &value, sizeof value);
        char text[64] = {};
        plugin.Dispatch(effGetParamDisplay, index, 0, text);
        texts.emplace_back(text);
    }
    program = plugin.Dispatch(effGetProgram);
    void* data = nullptr;
    const auto size = static_cast<size_t>(plugin.Dispatch(effGetChunk, 0, 0, &data));
    bank.assign(static_cast<const char*>(data), size);
    return state;
}

TEST(LongRun, HoursOfAudioLeaveNoTraceInTheState) {
    const long totalFrames = static_cast<long>(kAudioHours * 3600.0 * kSampleRate);
    HostedPlugin played;
    played.Start(kSampleRate, kBlock);
    std::vector<Change> history;
    Noise events(51), signal(52);
    GuardedStereo<float> in(kBlock), out(kBlock);
    const auto started = std::chrono::steady_clock::now();

    long frames = 0, blocks = 0, blocksNotFinite = 0;
    float peak = 0.0f;
    while (frames < totalFrames) {
        if (events.Below(16) == 0) {
            history.push_back(randomChange(events));
            apply(played, history.back());
        }
        const int32_t length = 1 + events.Below(kBlock);
        in.Fill(signal, 1.0f);
        played.Process(in.Channels(), out.Channels(), length);
        blocksNotFinite += out.AllFinite(length) ? 0 : 1;
        peak = std::max(peak, out.Peak(length));
        frames += length;
        ++blocks;
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    EXPECT_EQ(blocksNotFinite, 0);
    // An abrupt jump to a low, sharp band rings for a while at a few thousand times the
    // input (the filters change without smoothing, as they always have); growth would
    // pass any bound.
    EXPECT_LT(peak, 1e5f);

    HostedPlugin fresh;
    fresh.Start(kSampleRate, kBlock);
    for (Change& change : history) {
        apply(fresh, change);
    }
    EXPECT_EQ(stateOf(played), stateOf(fresh));

    // Cleared filter memory on both, then the same probe: the same sound.
    played.Dispatch(effStartProcess);
    fresh.Dispatch(effStartProcess);
    GuardedStereo<float> probe(kBlock), fromPlayed(kBlock), fromFresh(kBlock);
    Noise probeSignal(53);
    probe.Fill(probeSignal, 1.0f);
    played.Process(probe.Channels(), fromPlayed.Channels(), kBlock);
    fresh.Process(probe.Channels(), fromFresh.Channels(), kBlock);
    for (int c = 0; c < 2; ++c) {
        EXPECT_TRUE(
            std::equal(fromPlayed.Channel(c), fromPlayed.Channel(c) + kBlock, fromFresh.Channel(c)))
            << "channel " << c;
    }
    std::printf("%.2f hours of audio (%ld blocks, %zu changes) in %.1f s\n",
                static_cast<double>(frames) / kSampleRate / 3600.0, blocks, history.size(),
                seconds);
}

} // namespace
