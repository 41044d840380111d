// A VST 2 bank file (.fxb), either kind: an opaque chunk for plug-ins that keep their
// programs as chunks, or one record of parameter values per program.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct BankProgram {
    std::string name;
    std::vector<float> parameters;
};

struct FxbFile {
    int32_t pluginId = 0;
    int32_t currentProgram = 0;
    bool isChunk = false;
    std::vector<uint8_t> chunk;        // when isChunk
    std::vector<BankProgram> programs; // otherwise
};

// Throws ToolError when the file cannot be read or is not a well-formed bank.
FxbFile readBankFile(const std::string& path);

class PluginInstance;
// Hands the bank to the plug-in as a host does: the chunk through effSetChunk, otherwise
// program by program. Throws ToolError when the bank belongs to another plug-in.
void loadBank(PluginInstance& plugin, const FxbFile& bank, const std::string& path);
