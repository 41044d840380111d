// Any default bank file in either folder or both: every program stays usable and reverting
// to the factory works.
#include "tests/support/TempFolder.h"
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const uint8_t places = input.Take<uint8_t>();
    const std::string file = input.Text(input.Remaining());
    const HostFolders& folders = HostFolders::Get();
    folders.RemoveBankFiles();
    if (places & 1) {
        WriteWholeFile(folders.PreferencesBankFile(), file);
    }
    if (places & 2) {
        WriteWholeFile(folders.PluginFolderBankFile(), file);
    }

    HostedPlugin plugin;
    plugin.Start(48000.0f, 128);
    Noise noise(places);
    for (int program = 0; program < kNumPrograms; ++program) {
        plugin.Dispatch(effSetProgram, 0, program);
        RequireNoProblem(ParameterTextProblem(plugin));
        if (program % 16 == places % 16) {
            RequireNoProblem(AudioProblem(plugin, noise, 128, program % 2 == 0));
            plugin.Effect().ProgramToFactory();
            RequireNoProblem(EffectProblem(plugin, noise, 128, false));
        }
    }
    folders.RemoveBankFiles();
    return 0;
}
