#include "tools/ParameterAssignment.h"

#include "tools/CommandLine.h"
#include "tools/DisplayValueSearch.h"
#include "tools/PluginInstance.h"
#include "tools/ToolError.h"

#include <strings.h>

namespace {

int findParameter(const PluginInstance& plugin, const std::string& name) {
    int caseInsensitiveMatch = -1;
    for (int index = 0; index < plugin.numParameters(); ++index) {
        const std::string candidate = plugin.parameterName(index);
        if (candidate == name) {
            return index;
        }
        if (caseInsensitiveMatch < 0 && strcasecmp(candidate.c_str(), name.c_str()) == 0) {
            caseInsensitiveMatch = index;
        }
    }
    if (caseInsensitiveMatch < 0) {
        throw ToolError("unknown parameter '" + name + "' (zephyra info lists the parameters)");
    }
    return caseInsensitiveMatch;
}

bool readNormalised(const std::string& value, float& normalised) {
    if (value.size() < 2 || value.back() != 'n') {
        return false;
    }
    double number = 0.0;
    if (!parseNumber(value.substr(0, value.size() - 1), number)) {
        return false;
    }
    if (number < 0.0 || number > 1.0) {
        throw ToolError("normalised value '" + value + "' is outside 0..1");
    }
    normalised = static_cast<float>(number);
    return true;
}

} // namespace

ParameterAssignment resolveAssignment(PluginInstance& plugin, const std::string& assignment) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == assignment.size()) {
        throw UsageError("--set needs NAME=VALUE, not '" + assignment + "'");
    }
    const std::string name = assignment.substr(0, equals);
    const std::string value = assignment.substr(equals + 1);
    const int index = findParameter(plugin, name);

    float normalised = 0.0f;
    if (readNormalised(value, normalised)) {
        return {index, normalised};
    }
    const DisplayFunction display = [&plugin, index](float candidate) {
        plugin.setParameter(index, candidate);
        return plugin.parameterDisplay(index);
    };
    const float before = plugin.parameter(index);
    const auto found = findNormalisedValue(display, value, plugin.parameterLabel(index));
    plugin.setParameter(index, before);
    if (!found) {
        const std::string lowest = display(0.0f);
        const std::string highest = display(1.0f);
        plugin.setParameter(index, before);
        throw ToolError("no setting of " + plugin.parameterName(index) + " displays '" + value +
                        "' (it shows " + lowest + " at 0 and " + highest + " at 1)");
    }
    return {index, *found};
}
