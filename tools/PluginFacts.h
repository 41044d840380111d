// Everything `info` reports about a plug-in, gathered once through the dispatcher.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class PluginInstance;

struct ParameterFacts {
    int index = 0;
    std::string name;
    std::string label;
    std::string display;
    float value = 0.0f;
    // Present when the plug-in answers effGetParameterProperties; each entry is one fact in
    // words ("switch", "integer range 20..20000", ...).
    std::optional<std::vector<std::string>> properties;
};

struct PluginFacts {
    std::string path;
    std::string name;
    std::string vendor;
    std::string product;
    long vendorVersion = 0;
    int32_t uniqueId = 0;
    int32_t version = 0;
    long vstVersion = 0;
    long category = 0;
    int inputs = 0;
    int outputs = 0;
    int latency = 0;
    std::vector<std::string> flags;
    int currentProgram = 0;
    std::vector<std::string> programNames;
    std::vector<ParameterFacts> parameters;
};

PluginFacts gatherFacts(PluginInstance& plugin);

std::string categoryName(long category);
