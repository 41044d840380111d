// `--set NAME=VALUE`: resolves a parameter by the name the plug-in reports and a value given
// either normalised ("0.25n") or as the plug-in displays it ("+6", "2000", "PEAK").
#pragma once

#include <string>

class PluginInstance;

struct ParameterAssignment {
    int index;
    float normalised;
};

// Throws ToolError for an unknown name or a value no state of the parameter displays. The
// parameter is left as it was; the caller sets the result.
ParameterAssignment resolveAssignment(PluginInstance& plugin, const std::string& assignment);
