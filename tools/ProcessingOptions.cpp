#include "tools/Commands.h"
#include "tools/PluginModule.h"
#include "tools/PluginSettings.h"

namespace {
constexpr long kDefaultBlockSize = 512;
constexpr long kLargestBlockSize = 65536;
} // namespace

std::string ToolContext::pluginPath() const {
    return pluginOption.empty() ? defaultPluginPath() : pluginOption;
}

std::vector<OptionDefinition> processingOptions() {
    std::vector<OptionDefinition> options = settingsOptions();
    options.push_back({"block", "N", "frames per process call (512)"});
    options.push_back({"double", nullptr, "process with 64-bit samples (processDoubleReplacing)"});
    return options;
}

int readBlockSize(const CommandLine& commandLine) {
    return static_cast<int>(commandLine.integer("block", kDefaultBlockSize, 1, kLargestBlockSize));
}
