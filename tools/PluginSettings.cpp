#include "tools/PluginSettings.h"

#include "tools/ParameterAssignment.h"
#include "tools/PluginInstance.h"
#include "tools/ToolError.h"

#include <climits>

std::vector<OptionDefinition> settingsOptions() {
    return {
        {"bank", "FILE.fxb", "load a bank file as a host does"},
        {"program", "N", "select program N (counting from 0)"},
        {"set", "NAME=VALUE",
         "set a parameter; VALUE as displayed (+6, 2000, PEAK) or "
         "normalised (0.5n); repeatable"},
    };
}

PluginSettings readSettings(const CommandLine& commandLine) {
    PluginSettings settings;
    if (commandLine.has("bank")) {
        settings.bankPath = commandLine.text("bank");
        settings.bank = readBankFile(settings.bankPath);
    }
    if (commandLine.has("program")) {
        settings.program = static_cast<int>(commandLine.integer("program", 0, 0, INT_MAX));
    }
    settings.assignments = commandLine.all("set");
    return settings;
}

void applySettings(PluginInstance& plugin, const PluginSettings& settings) {
    if (settings.bank) {
        loadBank(plugin, *settings.bank, settings.bankPath);
    }
    if (settings.program) {
        if (*settings.program >= plugin.numPrograms()) {
            throw ToolError("program " + std::to_string(*settings.program) +
                            " does not exist (the plug-in has " +
                            std::to_string(plugin.numPrograms()) + " programs)");
        }
        plugin.dispatch(effSetProgram, 0, *settings.program);
    }
    for (const std::string& assignment : settings.assignments) {
        const ParameterAssignment resolved = resolveAssignment(plugin, assignment);
        plugin.setParameter(resolved.index, resolved.normalised);
    }
}
