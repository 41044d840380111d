// The commands of the `zephyra` tool. Each lives in its own file and declares what it takes.
#pragma once

#include "tools/CommandLine.h"

#include <string>
#include <vector>

// What every command needs from the global options.
class ToolContext {
public:
    explicit ToolContext(std::string pluginOption) : pluginOption(std::move(pluginOption)) {}
    // `--plugin PATH` when given, else the default plug-in (ToolError when there is none).
    std::string pluginPath() const;

private:
    std::string pluginOption;
};

struct Command {
    const char* name;
    const char* arguments; // as shown in the usage text
    const char* summary;
    std::vector<OptionDefinition> options;
    int (*run)(const CommandLine& commandLine, const ToolContext& context);
};

Command infoCommand();
Command renderCommand();
Command plotCommand();
Command benchCommand();
Command editorCommand();
Command liveCommand();

// The options of the commands that process audio: settings, block size and precision.
std::vector<OptionDefinition> processingOptions();
int readBlockSize(const CommandLine& commandLine);
