#include "tools/PluginFacts.h"

#include "tools/PluginInstance.h"

#include <cstdio>

namespace {

// A word for a flag or a code of the interface.
struct CodeName {
    long code;
    const char* name;
};

constexpr CodeName kFlagNames[] = {
    {effFlagsHasEditor, "editor"},
    {effFlagsHasClip, "clip"},
    {effFlagsHasVu, "vu"},
    {effFlagsCanMono, "mono"},
    {effFlagsCanReplacing, "replacing"},
    {effFlagsProgramChunks, "program chunks"},
    {effFlagsIsSynth, "synth"},
    {effFlagsNoSoundInStop, "no sound in stop"},
    {effFlagsExtIsAsync, "async"},
    {effFlagsExtHasBuffer, "external buffer"},
    {effFlagsCanDoubleReplacing, "double replacing"},
};

std::vector<std::string> flagWords(int32_t flags) {
    std::vector<std::string> words;
    for (const CodeName& entry : kFlagNames) {
        if ((flags & entry.code) != 0) {
            words.emplace_back(entry.name);
        }
    }
    return words;
}

std::string boundedText(const char* text, std::size_t capacity) {
    std::size_t length = 0;
    while (length < capacity && text[length] != '\0') {
        ++length;
    }
    return std::string(text, length);
}

std::optional<std::vector<std::string>> propertyWords(const PluginInstance& plugin, int index) {
    VstParameterProperties properties{};
    if (plugin.dispatch(effGetParameterProperties, index, 0, &properties) == 0) {
        return std::nullopt;
    }
    std::vector<std::string> words;
    const int32_t flags = properties.flags;
    if (flags & kVstParameterIsSwitch) {
        words.emplace_back("switch");
    }
    if (flags & kVstParameterUsesIntegerMinMax) {
        words.push_back("integer range " + std::to_string(properties.minInteger) + ".." +
                        std::to_string(properties.maxInteger));
    }
    if (flags & kVstParameterUsesIntStep) {
        words.push_back("integer steps " + std::to_string(properties.stepInteger) + "/" +
                        std::to_string(properties.largeStepInteger));
    }
    if (flags & kVstParameterUsesFloatStep) {
        char text[96];
        std::snprintf(text, sizeof text, "steps %g/%g/%g", properties.smallStepFloat,
                      properties.stepFloat, properties.largeStepFloat);
        words.emplace_back(text);
    }
    if (flags & kVstParameterCanRamp) {
        words.emplace_back("can ramp");
    }
    if (flags & kVstParameterSupportsDisplayIndex) {
        words.push_back("display index " + std::to_string(properties.displayIndex));
    }
    if (flags & kVstParameterSupportsDisplayCategory) {
        words.push_back("category " + std::to_string(properties.category) + " '" +
                        boundedText(properties.categoryLabel, sizeof properties.categoryLabel) +
                        "'");
    }
    const std::string label = boundedText(properties.label, sizeof properties.label);
    if (!label.empty()) {
        words.push_back("label '" + label + "'");
    }
    const std::string shortLabel = boundedText(properties.shortLabel, sizeof properties.shortLabel);
    if (!shortLabel.empty()) {
        words.push_back("short label '" + shortLabel + "'");
    }
    return words;
}

std::vector<std::string> programNames(PluginInstance& plugin) {
    std::vector<std::string> names;
    char probe[1024] = {};
    const bool indexed =
        plugin.numPrograms() > 0 && plugin.dispatch(effGetProgramNameIndexed, 0, -1, probe) != 0;
    if (indexed) {
        for (int program = 0; program < plugin.numPrograms(); ++program) {
            char name[1024] = {};
            plugin.dispatch(effGetProgramNameIndexed, program, -1, name);
            names.push_back(boundedText(name, sizeof name - 1));
        }
        return names;
    }
    // Without indexed names the only way is to visit every program, as old hosts did.
    const intptr_t current = plugin.dispatch(effGetProgram);
    for (int program = 0; program < plugin.numPrograms(); ++program) {
        plugin.dispatch(effSetProgram, 0, program);
        names.push_back(plugin.text(effGetProgramName));
    }
    plugin.dispatch(effSetProgram, 0, current);
    return names;
}

} // namespace

std::string categoryName(long category) {
    constexpr CodeName kNames[] = {
        {kPlugCategEffect, "effect"},
        {kPlugCategSynth, "synth"},
        {kPlugCategAnalysis, "analysis"},
        {kPlugCategMastering, "mastering"},
        {kPlugCategSpacializer, "spatialiser"},
        {kPlugCategRoomFx, "room effect"},
        {kPlugSurroundFx, "surround effect"},
        {kPlugCategRestoration, "restoration"},
        {kPlugCategOfflineProcess, "offline process"},
        {kPlugCategShell, "shell"},
        {kPlugCategGenerator, "generator"},
    };
    for (const CodeName& entry : kNames) {
        if (entry.code == category) {
            return entry.name;
        }
    }
    return "unknown";
}

PluginFacts gatherFacts(PluginInstance& plugin) {
    const AEffect& effect = plugin.effect();
    PluginFacts facts;
    facts.path = plugin.module().path();
    facts.name = plugin.text(effGetEffectName);
    facts.vendor = plugin.text(effGetVendorString);
    facts.product = plugin.text(effGetProductString);
    facts.vendorVersion = static_cast<long>(plugin.dispatch(effGetVendorVersion));
    facts.uniqueId = effect.uniqueID;
    facts.version = effect.version;
    facts.vstVersion = static_cast<long>(plugin.dispatch(effGetVstVersion));
    facts.category = static_cast<long>(plugin.dispatch(effGetPlugCategory));
    facts.inputs = effect.numInputs;
    facts.outputs = effect.numOutputs;
    facts.latency = effect.initialDelay;
    facts.flags = flagWords(effect.flags);
    facts.programNames = programNames(plugin);
    facts.currentProgram = static_cast<int>(plugin.dispatch(effGetProgram));
    for (int index = 0; index < plugin.numParameters(); ++index) {
        ParameterFacts parameter;
        parameter.index = index;
        parameter.name = plugin.parameterName(index);
        parameter.label = plugin.parameterLabel(index);
        parameter.display = plugin.parameterDisplay(index);
        parameter.value = plugin.parameter(index);
        parameter.properties = propertyWords(plugin, index);
        facts.parameters.push_back(std::move(parameter));
    }
    return facts;
}
