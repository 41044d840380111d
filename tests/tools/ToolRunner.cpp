#include "tests/tools/ToolRunner.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string temporaryFileName(const char* tag) {
    std::string pattern =
        std::filesystem::temp_directory_path().string() + "/zephyra-" + tag + "-XXXXXX";
    const int descriptor = mkstemp(pattern.data());
    if (descriptor < 0) {
        throw std::runtime_error("mkstemp failed");
    }
    close(descriptor);
    return pattern;
}

} // namespace

namespace {

ToolRun runAndMaybeInterrupt(const std::vector<std::string>& arguments, int interruptAfterMs) {
    const std::string outPath = temporaryFileName("out");
    const std::string errPath = temporaryFileName("err");
    std::vector<char*> argv;
    std::string program = ZEPHYRA_CLI;
    argv.push_back(program.data());
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        dup2(open(outPath.c_str(), O_WRONLY | O_TRUNC), STDOUT_FILENO);
        dup2(open(errPath.c_str(), O_WRONLY | O_TRUNC), STDERR_FILENO);
        execv(argv[0], argv.data());
        _exit(127);
    }
    if (interruptAfterMs >= 0) {
        usleep(static_cast<useconds_t>(interruptAfterMs) * 1000);
        kill(child, SIGINT);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ToolRun run{WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), readText(outPath),
                readText(errPath)};
    std::remove(outPath.c_str());
    std::remove(errPath.c_str());
    return run;
}

} // namespace

ToolRun runZephyra(const std::vector<std::string>& arguments) {
    return runAndMaybeInterrupt(arguments, -1);
}

ToolRun runZephyraInterrupted(const std::vector<std::string>& arguments, int milliseconds) {
    return runAndMaybeInterrupt(arguments, milliseconds);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

ScratchFolder::ScratchFolder() {
    std::string pattern =
        std::filesystem::temp_directory_path().string() + "/zephyra-tools-test-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("mkdtemp failed");
    }
    root = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
}

std::vector<std::string> ScratchFolder::entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(root)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

void writeText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}
