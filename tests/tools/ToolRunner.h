// Runs the built `zephyra` executable the way a user does and collects what it says.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct ToolRun {
    int exitCode;
    std::string out;
    std::string err;
};

ToolRun runZephyra(const std::vector<std::string>& arguments);
// The same, with Ctrl-C (SIGINT) sent after the given time.
ToolRun runZephyraInterrupted(const std::vector<std::string>& arguments, int milliseconds);

// The lines of a text, without their newlines.
std::vector<std::string> linesOf(const std::string& text);

// A fresh folder for one test's files, removed with everything in it afterwards.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string file(const std::string& name) const { return (root / name).string(); }
    // Names of everything in the folder, sorted.
    std::vector<std::string> entries() const;

private:
    std::filesystem::path root;
};

std::string readText(const std::string& path);
void writeText(const std::string& path, const std::string& text);
