#include "tools/Commands.h"

#include "tools/FourCharacterText.h"
#include "tools/JsonWriter.h"
#include "tools/PluginFacts.h"
#include "tools/PluginInstance.h"
#include "tools/PluginSettings.h"
#include "tools/ResultStream.h"
#include "tools/ToolError.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr double kInfoSampleRate = 44100.0;
constexpr int kInfoBlockSize = 512;

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

void writeJson(const PluginFacts& facts) {
    JsonWriter json(results());
    json.beginObject();
    json.member("path", facts.path);
    json.member("name", facts.name);
    json.member("vendor", facts.vendor);
    json.member("product", facts.product);
    json.member("vendorVersion", facts.vendorVersion);
    json.member("uniqueId", fourCharacterText(facts.uniqueId));
    json.member("uniqueIdNumber", static_cast<long>(facts.uniqueId));
    json.member("version", static_cast<long>(facts.version));
    json.member("vstVersion", facts.vstVersion);
    json.member("category", categoryName(facts.category));
    json.member("categoryCode", facts.category);
    json.member("inputs", facts.inputs);
    json.member("outputs", facts.outputs);
    json.member("latency", facts.latency);
    json.member("flags", facts.flags);
    json.member("currentProgram", facts.currentProgram);
    json.member("programs", facts.programNames);
    json.key("parameters");
    json.beginArray();
    for (const ParameterFacts& parameter : facts.parameters) {
        json.beginObject();
        json.member("index", parameter.index);
        json.member("name", parameter.name);
        json.member("label", parameter.label);
        json.member("display", parameter.display);
        json.member("value", static_cast<double>(parameter.value));
        if (parameter.properties) {
            json.member("properties", *parameter.properties);
        } else {
            json.key("properties");
            json.null();
        }
        json.endObject();
    }
    json.endArray();
    json.endObject();
    json.finish();
}

// Columns as wide as their widest cell, the last one left ragged.
void writeTable(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    for (const auto& row : rows) {
        std::string line = "  ";
        for (std::size_t column = 0; column < row.size(); ++column) {
            line += row[column];
            if (column + 1 < row.size()) {
                line += std::string(widths[column] - row[column].size() + 2, ' ');
            }
        }
        line.erase(line.find_last_not_of(' ') + 1);
        std::fprintf(results(), "%s\n", line.c_str());
    }
}

void writeText(const PluginFacts& facts) {
    std::FILE* out = results();
    std::fprintf(out, "Plug-in       %s\n", facts.path.c_str());
    std::fprintf(out, "Name          %s\n", facts.name.c_str());
    std::fprintf(out, "Vendor        %s (version %ld)\n", facts.vendor.c_str(),
                 facts.vendorVersion);
    std::fprintf(out, "Product       %s\n", facts.product.c_str());
    std::fprintf(out, "Unique ID     '%s' (0x%08X), effect version %d\n",
                 fourCharacterText(facts.uniqueId).c_str(), static_cast<unsigned>(facts.uniqueId),
                 facts.version);
    std::fprintf(out, "VST version   %ld\n", facts.vstVersion);
    std::fprintf(out, "Category      %s (%ld)\n", categoryName(facts.category).c_str(),
                 facts.category);
    std::fprintf(out, "Channels      %d in, %d out\n", facts.inputs, facts.outputs);
    std::fprintf(out, "Latency       %d samples\n", facts.latency);
    std::fprintf(out, "Flags         %s\n", joined(facts.flags).c_str());
    std::fprintf(out, "Programs      %zu, current %d\n", facts.programNames.size(),
                 facts.currentProgram);
    std::vector<std::vector<std::string>> programRows;
    for (std::size_t program = 0; program < facts.programNames.size(); ++program) {
        programRows.push_back({std::to_string(program), facts.programNames[program]});
    }
    writeTable(programRows);
    std::fprintf(out, "Parameters    %zu\n", facts.parameters.size());
    std::vector<std::vector<std::string>> parameterRows = {
        {"#", "name", "display", "label", "value", "properties"}};
    for (const ParameterFacts& parameter : facts.parameters) {
        char value[32];
        std::snprintf(value, sizeof value, "%.6f", parameter.value);
        parameterRows.push_back({std::to_string(parameter.index), parameter.name, parameter.display,
                                 parameter.label, value,
                                 parameter.properties ? joined(*parameter.properties) : "-"});
    }
    writeTable(parameterRows);
}

int runInfo(const CommandLine& commandLine, const ToolContext& context) {
    if (!commandLine.positionals().empty()) {
        throw UsageError("info takes no arguments");
    }
    const PluginSettings settings = readSettings(commandLine);
    PluginInstance plugin(PluginModule::load(context.pluginPath()), kInfoSampleRate,
                          kInfoBlockSize);
    plugin.resume();
    applySettings(plugin, settings);
    const PluginFacts facts = gatherFacts(plugin);
    if (commandLine.has("json")) {
        writeJson(facts);
    } else {
        writeText(facts);
    }
    return 0;
}

} // namespace

Command infoCommand() {
    std::vector<OptionDefinition> options = settingsOptions();
    options.push_back({"json", nullptr, "print JSON instead of a table"});
    return {"info", "", "identity, channels, flags, programs and parameters (after any settings)",
            options, runInfo};
}
