// Runs the built `zephyra` executable the way a user does and collects what it says.
#pragma once

#include <string>
#include <vector>

struct ToolRun {
    int exitCode;
    std::string out;
    std::string err;
};

// With interruptAfterMs >= 0, Ctrl-C (SIGINT) is sent after that many milliseconds.
ToolRun runZephyra(const std::vector<std::string>& arguments, int interruptAfterMs = -1);
// The same for any program: the command's first word is the program's absolute path.
ToolRun runCommand(const std::vector<std::string>& command, int interruptAfterMs = -1);

// The lines of a text, without their newlines.
std::vector<std::string> linesOf(const std::string& text);

// Names of everything in a folder, sorted.
std::vector<std::string> entriesOf(const std::string& folder);
