// Writes the LV2 bundle's description files into the bundle folder it is given, from the
// factory bank already there (ZephyraDef.fxb): the ports' defaults and the presets come
// from its programs.
#include "effect/AZephyra.h"
#include "lv2/Lv2BundleText.h"
#include "resources/OutputPathArgument.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

bool WriteText(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

} // namespace

int main(int argc, char** argv) {
    int exitStatus = 0;
    const char* folderArgument = OutputPathArgument(argc, argv, "<bundle folder>", &exitStatus);
    if (!folderArgument) {
        return exitStatus;
    }
    const std::string folder = std::string(folderArgument) + "/";
    const std::string bankPath = folder + kDefaultBankFileName;
    std::vector<char> chunk;
    AZephyraProgram bank;
    if (ReadBankFile(bankPath.c_str(), kZephyraUniqueId, chunk) != BankFileStatus::kRead ||
        chunk.size() != AZephyraProgram::kBytes) {
        std::fprintf(stderr, "%s: %s is not the factory bank\n", argv[0], bankPath.c_str());
        return 1;
    }
    std::memcpy(bank.data(), chunk.data(), chunk.size());

    const struct {
        const char* name;
        std::string text;
    } files[] = {{"manifest.ttl", lv2::ManifestText(bank, "Zephyra.so")},
                 {lv2::kPluginFile, lv2::PluginText(bank)},
                 {lv2::kPresetsFile, lv2::PresetsText(bank)}};
    for (const auto& file : files) {
        if (!WriteText(folder + file.name, file.text)) {
            std::fprintf(stderr, "%s: cannot write %s%s\n", argv[0], folder.c_str(), file.name);
            return 1;
        }
    }
    return 0;
}
