// The state a command puts the plug-in in before it runs: a bank file, then a program, then
// single parameters, in that order, so a `--set` refines the program it lands on.
#pragma once

#include "tools/CommandLine.h"
#include "tools/FxbFile.h"

#include <optional>
#include <string>
#include <vector>

class PluginInstance;

struct PluginSettings {
    std::string bankPath;
    std::optional<FxbFile> bank;
    std::optional<int> program;
    std::vector<std::string> assignments;
};

// The options every command that drives the plug-in accepts.
std::vector<OptionDefinition> settingsOptions();

// Reads the bank file at once, so a bad one is reported before the plug-in is loaded.
PluginSettings readSettings(const CommandLine& commandLine);

void applySettings(PluginInstance& plugin, const PluginSettings& settings);
