#include "DirectPlugin.h"

#include <algorithm>
#include <dlfcn.h>
#include <stdexcept>
#include <vector>

namespace {

intptr_t minimalHost(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

} // namespace

DirectPlugin::DirectPlugin(const std::string& path, float sampleRate, int blockSize)
    : blockSize(blockSize) {
    module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        throw std::runtime_error(dlerror());
    }
    auto entry =
        reinterpret_cast<AEffect* (*)(audioMasterCallback)>(dlsym(module, "VSTPluginMain"));
    effect = entry(minimalHost);
    effect->dispatcher(effect, effOpen, 0, 0, nullptr, 0.0f);
    effect->dispatcher(effect, effSetSampleRate, 0, 0, nullptr, sampleRate);
    effect->dispatcher(effect, effSetBlockSize, 0, blockSize, nullptr, 0.0f);
    effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0.0f);
}

DirectPlugin::~DirectPlugin() {
    effect->dispatcher(effect, effMainsChanged, 0, 0, nullptr, 0.0f);
    effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0f);
    dlclose(module);
}

void DirectPlugin::setProgram(int program) {
    effect->dispatcher(effect, effSetProgram, 0, program, nullptr, 0.0f);
}

void DirectPlugin::setParameter(int index, float value) {
    effect->setParameter(effect, index, value);
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
        effect->processReplacing(effect, inputs, outputs, static_cast<int32_t>(frames));
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
