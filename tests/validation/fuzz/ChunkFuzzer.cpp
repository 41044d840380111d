// Any chunk, bank or program, of any size: the effect keeps working, and the chunk it gives
// afterwards restores exactly the same state in a fresh effect.
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

struct Chunk {
    int32_t size;
    std::string bytes;
};

Chunk takeChunk(HostedPlugin& plugin, bool preset) {
    void* data = nullptr;
    const auto size = static_cast<int32_t>(plugin.Dispatch(effGetChunk, preset, 0, &data));
    if (size <= 0 || !data) {
        return {size, {}};
    }
    return {size, std::string(static_cast<const char*>(data), static_cast<size_t>(size))};
}

bool sameParameters(HostedPlugin& a, HostedPlugin& b) {
    for (int32_t index = 0; index < kNumParams; ++index) {
        const float x = a.GetParameter(index);
        const float y = b.GetParameter(index);
        if (std::memcmp(&x, &y, sizeof(float)) != 0) {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const uint8_t mode = input.Take<uint8_t>();
    const bool preset = mode & 1;
    const int program = input.Small(kNumPrograms);
    // The size the host claims: the real one, none, or a negative one.
    const int claim = (mode >> 1) & 3;

    HostedPlugin plugin;
    plugin.Start(44100.0f, 256);
    plugin.Dispatch(effSetProgram, 0, program);

    // Exactly as long as the chunk, so a read past its end is caught.
    const std::vector<uint8_t> chunk = input.Bytes(input.Remaining());
    std::vector<uint8_t> buffer(chunk);
    const int32_t claimedSize = claim == 1   ? 0
                                : claim == 2 ? -static_cast<int32_t>(chunk.size()) - 1
                                             : static_cast<int32_t>(chunk.size());
    plugin.Dispatch(effSetChunk, preset, claimedSize, buffer.empty() ? nullptr : buffer.data());

    Noise noise(mode);
    RequireNoProblem(EffectProblem(plugin, noise, 256, false));
    RequireNoProblem(AudioProblem(plugin, noise, 256, true));
    const intptr_t current = plugin.Dispatch(effGetProgram);
    if (current < 0 || current >= kNumPrograms) {
        RequireNoProblem("the current program is " + std::to_string(current));
    }

    const Chunk bank = takeChunk(plugin, false);
    const Chunk record = takeChunk(plugin, true);
    if (bank.size != 4608 || record.size != 72) {
        RequireNoProblem("chunk sizes " + std::to_string(bank.size) + " and " +
                         std::to_string(record.size));
    }
    HostedPlugin restored;
    restored.Start(44100.0f, 256);
    std::string image = bank.bytes;
    restored.Dispatch(effSetChunk, 0, bank.size, image.data());
    if (takeChunk(restored, false).bytes != bank.bytes || !sameParameters(plugin, restored)) {
        RequireNoProblem("the bank chunk does not restore the same state");
    }
    return 0;
}
