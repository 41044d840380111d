#include "tests/tools/ToolRunner.h"

#include "tests/support/TempFolder.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

ToolRun runZephyra(const std::vector<std::string>& arguments, int interruptAfterMs) {
    std::vector<std::string> command{ZEPHYRA_CLI};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return runCommand(command, interruptAfterMs);
}

ToolRun runCommand(const std::vector<std::string>& command, int interruptAfterMs) {
    TempFolder streams;
    const std::string outPath = streams / "out", errPath = streams / "err";
    std::vector<char*> argv;
    std::vector<std::string> copies = command;
    for (std::string& word : copies) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        dup2(open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
        dup2(open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        execv(argv[0], argv.data());
        _exit(127);
    }
    if (interruptAfterMs >= 0) {
        usleep(static_cast<useconds_t>(interruptAfterMs) * 1000);
        kill(child, SIGINT);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            ReadWholeFile(outPath), ReadWholeFile(errPath)};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> entriesOf(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}
