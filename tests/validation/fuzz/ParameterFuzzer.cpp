// Any float through automation, the panel and typing, at mostly valid indices.
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    HostedPlugin plugin;
    plugin.Start(44100.0f, 256);
    AZephyra& effect = plugin.Effect();
    Noise noise(static_cast<uint32_t>(size));
    for (int step = 0; !input.Empty(); ++step) {
        const uint8_t way = input.Take<uint8_t>();
        const uint8_t choice = input.Take<uint8_t>();
        const int32_t index = choice < 240 ? choice % kNumParams : input.Take<int32_t>();
        const float value = input.Take<float>();
        switch (way % 3) {
        case 0:
            plugin.SetParameter(index, value);
            break;
        case 1:
            effect.setParameterFormUI(index, value);
            break;
        default:
            effect.setParameterFromDiaplay(index, value);
            break;
        }
        plugin.GetParameter(index);
        if (index >= 0 && index < kNumParams) {
            effect.getParameterDisplayVal(index);
        }
        if (way & 0x80) {
            RequireNoProblem(AudioProblem(plugin, noise, 1 + (way & 0x3f), step % 2 == 1));
        }
    }
    RequireNoProblem(EffectProblem(plugin, noise, 256, false));
    RequireNoProblem(AudioProblem(plugin, noise, 256, true));
    return 0;
}
