// What the host call-back tells one plug-in instance about its surroundings. Each
// PluginInstance owns one; the call-back finds it through the effect record.
#pragma once

#include "host/Vst2Interface.h"

#include <cstdint>
#include <functional>
#include <string>

struct HostState {
    double sampleRate = 44100.0;
    int32_t blockSize = 512;
    // The plug-in's folder, ending in '/', as audioMasterGetDirectory hands it out.
    std::string directory;
    // Advanced by the instance after every processed block.
    int64_t samplePosition = 0;
    VstTimeInfo timeInfo{};
    // Set while an editor window is open, so the plug-in may ask for another size.
    std::function<bool(int width, int height)> resizeWindow;
};

// The call-back every instance is created with.
intptr_t hostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                      float opt);

// Ties an effect record to its state for the call-back. A plug-in may call back from inside
// its entry point, before the host has seen the record; those calls are answered from the
// state registered with a null effect for the duration of the entry call.
void registerHostState(AEffect* effect, HostState* state);
void unregisterHostState(AEffect* effect);
