// The text of the LV2 bundle's description files, written from the effect's parameter
// table and a bank of programs: the plug-in's ports (with the bank's program 0 as their
// defaults, the values the effect opens with), and its named programs as presets.
#pragma once

#include "effect/AZephyraProgram.h"

#include <string>

namespace lv2 {

// manifest.ttl: the plug-in, its binary and its presets, for hosts to discover.
std::string ManifestText(const AZephyraProgram& bank, const char* binaryName);
// The plug-in's own description.
std::string PluginText(const AZephyraProgram& bank);
// Every program with a name of its own (not "Empty") as a preset of port values.
std::string PresetsText(const AZephyraProgram& bank);

constexpr char kPluginFile[] = "Zephyra.ttl";
constexpr char kPresetsFile[] = "presets.ttl";

} // namespace lv2
