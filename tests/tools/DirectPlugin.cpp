#include "tests/tools/DirectPlugin.h"

#include <algorithm>
#include <vector>

DirectPlugin::DirectPlugin(const std::string& path, float sampleRate, int blockSize)
    : instance(PluginModule::load(path), sampleRate, blockSize), blockSize(blockSize) {
    instance.resume();
}

void DirectPlugin::setProgram(int program) {
    instance.dispatch(effSetProgram, 0, program);
}

void DirectPlugin::setParameter(int index, float value) {
    instance.setParameter(index, value);
}

TestAudio DirectPlugin::process(const TestAudio& input, int64_t totalFrames) {
    std::vector<float> left(blockSize), right(blockSize), outLeft(blockSize), outRight(blockSize);
    float* inputs[] = {left.data(), right.data()};
    float* outputs[] = {outLeft.data(), outRight.data()};
    TestAudio output{2, input.sampleRate, {}};
    const auto runBlock = [&](int64_t start, int64_t frames) {
        for (int64_t i = 0; i < frames; ++i) {
            const bool inside = start + i < input.frames();
            left[i] = inside ? input.at(start + i, 0) : 0.0f;
            right[i] = inside ? input.at(start + i, 1) : 0.0f;
        }
        instance.process(inputs, outputs, static_cast<int>(frames));
        for (int64_t i = 0; i < frames; ++i) {
            output.samples.push_back(outLeft[i]);
            output.samples.push_back(outRight[i]);
        }
    };
    for (int64_t start = 0; start < input.frames(); start += blockSize) {
        runBlock(start, std::min<int64_t>(blockSize, input.frames() - start));
    }
    for (int64_t start = input.frames(); start < totalFrames; start += blockSize) {
        runBlock(start, std::min<int64_t>(blockSize, totalFrames - start));
    }
    return output;
}
