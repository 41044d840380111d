// Drives a plug-in module straight through its record, with nothing of the tool in between:
// the reference the tool's output is compared with.
#pragma once

#include "TestAudio.h"
#include "Vst2Interface.h"

#include <string>

class DirectPlugin {
public:
    // Loads, opens, configures and resumes, in the order hosts use.
    DirectPlugin(const std::string& path, float sampleRate, int blockSize);
    ~DirectPlugin();
    DirectPlugin(const DirectPlugin&) = delete;
    DirectPlugin& operator=(const DirectPlugin&) = delete;

    void setProgram(int program);
    void setParameter(int index, float value);
    // Runs `input` (stereo) followed by silence up to `totalFrames`, in blocks as the tool
    // cuts them: the input in blocks of blockSize, then the silence in blocks of blockSize.
    TestAudio process(const TestAudio& input, int64_t totalFrames);

private:
    void* module;
    AEffect* effect;
    int blockSize;
};
