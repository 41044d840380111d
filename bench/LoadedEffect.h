// A built Zephyra.so opened the way a host opens it: dlopen, the exported entry point, and
// from then on only the effect record's function pointers.
#pragma once

#include "Vst2Interface.h"

#include <string>

class LoadedEffect {
public:
    // Loads the module and brings the effect to the running state at the given rate and
    // block size; throws std::runtime_error when the module cannot be used.
    LoadedEffect(const std::string& path, float sampleRate, int blockSize);
    ~LoadedEffect();
    LoadedEffect(const LoadedEffect&) = delete;
    LoadedEffect& operator=(const LoadedEffect&) = delete;

    void SetParameter(int index, float normalised);
    void ProcessReplacing(float** inputs, float** outputs, int frames) {
        m_effect->processReplacing(m_effect, inputs, outputs, frames);
    }

private:
    intptr_t Dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, float opt = 0.0f);

    void* m_module;
    AEffect* m_effect;
};
