// Replays a fuzz target's stored inputs (files or folders) without libFuzzer; finding no
// input fails, since it would prove nothing.
#include "tests/validation/fuzz/FuzzInput.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

std::vector<std::filesystem::path> inputsIn(const char* argument) {
    std::vector<std::filesystem::path> paths;
    if (std::filesystem::is_directory(argument)) {
        for (const auto& entry : std::filesystem::directory_iterator(argument)) {
            if (entry.is_regular_file()) {
                paths.push_back(entry.path());
            }
        }
        std::sort(paths.begin(), paths.end());
    } else if (std::filesystem::is_regular_file(argument)) {
        paths.emplace_back(argument);
    }
    return paths;
}

} // namespace

int main(int argc, char** argv) {
    size_t replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& path : inputsIn(argv[i])) {
            std::ifstream file(path, std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file),
                                          std::istreambuf_iterator<char>()};
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
            ++replayed;
        }
    }
    std::printf("replayed %zu inputs\n", replayed);
    return replayed > 0 ? 0 : 1;
}
