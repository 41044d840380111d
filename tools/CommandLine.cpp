#include "tools/CommandLine.h"

#include "tools/ToolError.h"

#include <cmath>
#include <cstdlib>

namespace {

const OptionDefinition* findDefinition(const std::vector<OptionDefinition>& definitions,
                                       const std::string& name) {
    for (const OptionDefinition& definition : definitions) {
        if (name == definition.name) {
            return &definition;
        }
    }
    return nullptr;
}

std::string formatLimit(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    return text;
}

} // namespace

bool parseNumber(const std::string& text, double& result) {
    if (text.empty()) {
        return false;
    }
    char* end = nullptr;
    result = std::strtod(text.c_str(), &end);
    return *end == '\0' && std::isfinite(result);
}

CommandLine::CommandLine(const std::vector<std::string>& arguments,
                         const std::vector<OptionDefinition>& definitions) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.size() < 3 || argument.compare(0, 2, "--") != 0) {
            positionalArguments.push_back(argument);
            continue;
        }
        std::string name = argument.substr(2);
        std::string value;
        const std::size_t equals = name.find('=');
        const bool inlineValue = equals != std::string::npos;
        if (inlineValue) {
            value = name.substr(equals + 1);
            name.erase(equals);
        }
        const OptionDefinition* definition = findDefinition(definitions, name);
        if (definition == nullptr) {
            throw UsageError("unknown option --" + name);
        }
        if (definition->valueName == nullptr) {
            if (inlineValue) {
                throw UsageError("option --" + name + " takes no value");
            }
        } else if (!inlineValue) {
            if (i + 1 == arguments.size()) {
                throw UsageError("option --" + name + " needs a value (" + definition->valueName +
                                 ")");
            }
            value = arguments[++i];
        }
        values[name].push_back(value);
    }
}

bool CommandLine::has(const std::string& name) const {
    return values.count(name) != 0;
}

std::string CommandLine::text(const std::string& name, const std::string& fallback) const {
    const auto found = values.find(name);
    return found == values.end() ? fallback : found->second.back();
}

std::vector<std::string> CommandLine::all(const std::string& name) const {
    const auto found = values.find(name);
    return found == values.end() ? std::vector<std::string>{} : found->second;
}

double CommandLine::number(const std::string& name, double fallback, double minimum,
                           double maximum) const {
    if (!has(name)) {
        return fallback;
    }
    double value = 0.0;
    if (!parseNumber(text(name), value) || value < minimum || value > maximum) {
        throw UsageError("--" + name + " needs a number from " + formatLimit(minimum) + " to " +
                         formatLimit(maximum) + ", not '" + text(name) + "'");
    }
    return value;
}

long CommandLine::integer(const std::string& name, long fallback, long minimum,
                          long maximum) const {
    const double value = number(name, static_cast<double>(fallback), static_cast<double>(minimum),
                                static_cast<double>(maximum));
    if (value != std::floor(value)) {
        throw UsageError("--" + name + " needs a whole number, not '" + text(name) + "'");
    }
    return static_cast<long>(value);
}
