// Any legacy program list and program files (a count, each file with a 16-bit length, then
// the list): afterwards every program is usable and every name fits the hosts' 24 bytes.
#include "tests/support/TempFolder.h"
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace {

constexpr int kMaxProgramFiles = 8;
constexpr size_t kNameLimit = 24;

// The entry names as the import reads them: lines of at most 80 bytes, a CR before the
// LF dropped, from the third line on.
std::vector<std::string> entryNames(const std::string& list) {
    std::vector<std::string> names;
    size_t start = 0;
    for (int line = 0; start < list.size(); ++line) {
        size_t end = list.find('\n', start);
        end = end == std::string::npos ? list.size() : end;
        std::string name = list.substr(start, std::min<size_t>(end - start, 80));
        if (!name.empty() && name.back() == '\r') {
            name.pop_back();
        }
        if (line >= 2) {
            names.push_back(name);
        }
        start = end + 1;
    }
    return names;
}

// Only names that stay inside the folder become files.
bool usableFileName(const std::string& name) {
    if (name.empty() || name[0] == '.') {
        return false;
    }
    for (const char c : name) {
        const bool allowed = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == ' ' || c == '_' || c == '-' || c == '.';
        if (!allowed) {
            return false;
        }
    }
    return true;
}

std::string nameProblem(HostedPlugin& plugin, int program) {
    char name[64];
    std::memset(name, 0x7f, sizeof(name));
    plugin.Dispatch(effGetProgramNameIndexed, program, 0, name);
    if (!std::memchr(name, 0, kNameLimit)) {
        return "program " + std::to_string(program) + "'s name is longer than 23 bytes";
    }
    for (size_t i = kNameLimit; i < sizeof(name); ++i) {
        if (name[i] != 0x7f) {
            return "program " + std::to_string(program) + "'s name written past 24 bytes";
        }
    }
    return {};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const int fileCount = input.Small(kMaxProgramFiles + 1);
    std::vector<std::string> programFiles;
    for (int i = 0; i < fileCount; ++i) {
        programFiles.push_back(input.Text(input.Take<uint16_t>() % 2048));
    }
    const std::string list = input.Text(input.Remaining());

    const std::string folder = HostFolders::Get().PluginFolder() + "legacy/";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    WriteWholeFile(folder + "PROGRAM.LST", list);
    if (!programFiles.empty()) {
        const std::vector<std::string> names = entryNames(list);
        for (size_t entry = 0; entry < names.size(); ++entry) {
            if (usableFileName(names[entry])) {
                WriteWholeFile(folder + names[entry] + ".PGM",
                               programFiles[entry % programFiles.size()]);
            }
        }
    }

    HostedPlugin plugin;
    plugin.Start(44100.0f, 128);
    plugin.Effect().ConvertFrom((folder + "PROGRAM.LST").c_str(), folder.c_str());
    Noise noise(static_cast<uint32_t>(size));
    for (int program = 0; program < kNumPrograms; ++program) {
        RequireNoProblem(nameProblem(plugin, program));
        plugin.Dispatch(effSetProgram, 0, program);
        RequireNoProblem(ParameterTextProblem(plugin));
        if (program < 4) {
            RequireNoProblem(AudioProblem(plugin, noise, 128, program % 2 == 1));
        }
    }
    std::filesystem::remove_all(folder);
    return 0;
}
