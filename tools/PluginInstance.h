// One effect created from a module, driven the way hosts drive it: opened and configured on
// construction, switched on with resume(), switched off and closed on destruction.
#pragma once

#include "tools/HostState.h"
#include "tools/PluginModule.h"

#include <memory>
#include <string>

class PluginInstance {
public:
    PluginInstance(std::shared_ptr<PluginModule> module, double sampleRate, int blockSize);
    ~PluginInstance();
    PluginInstance(const PluginInstance&) = delete;
    PluginInstance& operator=(const PluginInstance&) = delete;

    void resume();
    void suspend();

    const PluginModule& module() const { return *pluginModule; }
    AEffect& effect() const { return *record; }
    HostState& host() { return hostState; }

    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f) const;
    // Asks for a text through the dispatcher with a buffer far larger than the interface's
    // limits, since many plug-ins write past them.
    std::string text(int32_t opcode, int32_t index = 0) const;

    int numParameters() const { return record->numParams; }
    int numPrograms() const { return record->numPrograms; }
    int numInputs() const { return record->numInputs; }
    int numOutputs() const { return record->numOutputs; }
    bool hasFlag(int32_t flag) const { return (record->flags & flag) != 0; }
    bool canProcessDouble() const { return record->processDoubleReplacing != nullptr; }

    std::string parameterName(int index) const { return text(effGetParamName, index); }
    std::string parameterLabel(int index) const { return text(effGetParamLabel, index); }
    std::string parameterDisplay(int index) const { return text(effGetParamDisplay, index); }
    float parameter(int index) const;
    void setParameter(int index, float value);

    // At most the block size given at construction; inputs and outputs hold numInputs()
    // and numOutputs() channel pointers.
    void process(float** inputs, float** outputs, int frames);
    void process(double** inputs, double** outputs, int frames);

private:
    std::shared_ptr<PluginModule> pluginModule;
    HostState hostState;
    AEffect* record;
    bool running = false;
};
