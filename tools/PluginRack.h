// The plug-in instances that together process a signal of a given channel count, and the
// routing of channel buffers to them. Buffers are handed over by pointer, never copied.
#pragma once

#include "tools/PluginInstance.h"
#include "tools/PluginSettings.h"

#include <memory>
#include <vector>

// How a signal's channels reach the plug-in: one instance fed channel for channel, a mono
// signal fed to both inputs of a stereo plug-in (and coming back as stereo), or one mono
// instance per channel.
struct ChannelLayout {
    int instances;
    int outputChannels;
    bool duplicateInput;
};

// Throws ToolError when no layout fits.
ChannelLayout chooseLayout(int signalChannels, int pluginInputs, int pluginOutputs);

class PluginRack {
public:
    // Every instance is opened, configured, resumed and given the same settings.
    PluginRack(const std::shared_ptr<PluginModule>& module, int signalChannels, double sampleRate,
               int blockSize, const PluginSettings& settings);

    int outputChannels() const { return layout.outputChannels; }
    int instanceCount() const { return static_cast<int>(instances.size()); }
    PluginInstance& front() { return *instances.front(); }
    bool canProcessDouble() const { return instances.front()->canProcessDouble(); }

    // `inputs` holds one pointer per signal channel, `outputs` one per output channel;
    // frames is at most the block size.
    void process(float** inputs, float** outputs, int frames);
    void process(double** inputs, double** outputs, int frames);

private:
    template <typename Sample>
    void route(Sample** inputs, Sample** outputs, int frames,
               std::vector<std::vector<Sample*>>& instanceInputs,
               std::vector<std::vector<Sample*>>& instanceOutputs);

    ChannelLayout layout{};
    std::vector<std::unique_ptr<PluginInstance>> instances;
    std::vector<std::vector<float*>> floatInputs, floatOutputs;
    std::vector<std::vector<double*>> doubleInputs, doubleOutputs;
};
