// The default bank file read at open, in the user's preferences folder, beside the
// plug-in, or both: any content, any length. The effect opens, every program stays
// usable, and reverting to the factory program works.
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

#include <fstream>

namespace {

void writeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const uint8_t places = input.Take<uint8_t>();
    const std::vector<uint8_t> file = input.Rest();
    const HostFolders& folders = HostFolders::Get();
    folders.RemoveBankFiles();
    if (places & 1) {
        writeFile(folders.PreferencesBankFile(), file);
    }
    if (places & 2) {
        writeFile(folders.PluginFolderBankFile(), file);
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
