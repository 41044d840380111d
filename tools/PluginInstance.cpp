#include "tools/PluginInstance.h"

#include <algorithm>

namespace {
constexpr std::size_t kTextCapacity = 1024;
}

PluginInstance::PluginInstance(std::shared_ptr<PluginModule> module, double sampleRate,
                               int blockSize)
    : pluginModule(std::move(module)) {
    hostState.sampleRate = sampleRate;
    hostState.blockSize = blockSize;
    hostState.directory = pluginModule->folder();
    record = pluginModule->createEffect(hostState);
    registerHostState(record, &hostState);
    dispatch(effOpen);
    dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(sampleRate));
    dispatch(effSetBlockSize, 0, blockSize);
}

PluginInstance::~PluginInstance() {
    suspend();
    dispatch(effClose);
    unregisterHostState(record);
}

void PluginInstance::resume() {
    if (!running) {
        dispatch(effMainsChanged, 0, 1);
        running = true;
    }
}

void PluginInstance::suspend() {
    if (running) {
        dispatch(effMainsChanged, 0, 0);
        running = false;
    }
}

intptr_t PluginInstance::dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                  float opt) const {
    return record->dispatcher(record, opcode, index, value, ptr, opt);
}

std::string PluginInstance::text(int32_t opcode, int32_t index) const {
    char buffer[kTextCapacity] = {};
    dispatch(opcode, index, 0, buffer);
    buffer[kTextCapacity - 1] = '\0';
    std::string result(buffer);
    // Plug-ins pad their texts for fixed-width displays; the padding means nothing here.
    const auto notSpace = [](unsigned char c) { return c != ' '; };
    result.erase(result.begin(), std::find_if(result.begin(), result.end(), notSpace));
    result.erase(std::find_if(result.rbegin(), result.rend(), notSpace).base(), result.end());
    return result;
}

float PluginInstance::parameter(int index) const {
    return record->getParameter(record, index);
}

void PluginInstance::setParameter(int index, float value) {
    record->setParameter(record, index, value);
}

void PluginInstance::process(float** inputs, float** outputs, int frames) {
    if (record->processReplacing != nullptr) {
        record->processReplacing(record, inputs, outputs, frames);
    } else {
        // Only the deprecated accumulating call is offered: it adds to what it finds.
        for (int channel = 0; channel < record->numOutputs; ++channel) {
            std::fill(outputs[channel], outputs[channel] + frames, 0.0f);
        }
        record->process(record, inputs, outputs, frames);
    }
    hostState.samplePosition += frames;
}

void PluginInstance::process(double** inputs, double** outputs, int frames) {
    record->processDoubleReplacing(record, inputs, outputs, frames);
    hostState.samplePosition += frames;
}
