#include "tools/PluginRack.h"

#include "tools/ToolError.h"

ChannelLayout chooseLayout(int signalChannels, int pluginInputs, int pluginOutputs) {
    if (pluginInputs == signalChannels && pluginOutputs == signalChannels) {
        return {1, signalChannels, false};
    }
    if (signalChannels == 1 && pluginInputs == 2 && pluginOutputs == 2) {
        return {1, 2, true};
    }
    if (pluginInputs == 1 && pluginOutputs == 1 && signalChannels > 1) {
        return {signalChannels, signalChannels, false};
    }
    throw ToolError("the plug-in has " + std::to_string(pluginInputs) + " inputs and " +
                    std::to_string(pluginOutputs) + " outputs; a " +
                    std::to_string(signalChannels) + "-channel signal cannot feed it");
}

PluginRack::PluginRack(const std::shared_ptr<PluginModule>& module, int signalChannels,
                       double sampleRate, int blockSize, const PluginSettings& settings) {
    instances.push_back(std::make_unique<PluginInstance>(module, sampleRate, blockSize));
    layout = chooseLayout(signalChannels, front().numInputs(), front().numOutputs());
    while (instanceCount() < layout.instances) {
        instances.push_back(std::make_unique<PluginInstance>(module, sampleRate, blockSize));
    }
    for (auto& instance : instances) {
        instance->resume();
        applySettings(*instance, settings);
        floatInputs.emplace_back(instance->numInputs());
        floatOutputs.emplace_back(instance->numOutputs());
        doubleInputs.emplace_back(instance->numInputs());
        doubleOutputs.emplace_back(instance->numOutputs());
    }
}

template <typename Sample>
void PluginRack::route(Sample** inputs, Sample** outputs, int frames,
                       std::vector<std::vector<Sample*>>& instanceInputs,
                       std::vector<std::vector<Sample*>>& instanceOutputs) {
    for (int i = 0; i < instanceCount(); ++i) {
        std::vector<Sample*>& in = instanceInputs[i];
        std::vector<Sample*>& out = instanceOutputs[i];
        if (layout.instances > 1) {
            in[0] = inputs[i];
            out[0] = outputs[i];
        } else {
            for (std::size_t channel = 0; channel < in.size(); ++channel) {
                in[channel] = inputs[layout.duplicateInput ? 0 : channel];
            }
            for (std::size_t channel = 0; channel < out.size(); ++channel) {
                out[channel] = outputs[channel];
            }
        }
        instances[i]->process(in.data(), out.data(), frames);
    }
}

void PluginRack::process(float** inputs, float** outputs, int frames) {
    route(inputs, outputs, frames, floatInputs, floatOutputs);
}

void PluginRack::process(double** inputs, double** outputs, int frames) {
    route(inputs, outputs, frames, doubleInputs, doubleOutputs);
}
