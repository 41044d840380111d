// Drives a plug-in module through the shared loader and its record, with none of the tool's
// rendering in between: the reference the tool's output is compared with.
#pragma once

#include "tests/tools/TestAudio.h"
#include "tools/PluginInstance.h"

#include <string>

class DirectPlugin {
public:
    // Loads, opens, configures and resumes, in the order hosts use.
    DirectPlugin(const std::string& path, float sampleRate, int blockSize);

    void setProgram(int program);
    void setParameter(int index, float value);
    // Runs `input` (stereo) followed by silence up to `totalFrames`, in blocks as the tool
    // cuts them: the input in blocks of blockSize, then the silence in blocks of blockSize.
    TestAudio process(const TestAudio& input, int64_t totalFrames);

private:
    PluginInstance instance;
    int blockSize;
};
