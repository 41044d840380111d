#include "tools/LiveEngine.h"

#include "tools/PluginInstance.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPauseWait = std::chrono::seconds(1);

} // namespace

LiveEngine::LiveEngine(PluginInstance& plugin, double sampleRate, int blockSize)
    : plugin(plugin), rate(sampleRate), block(blockSize) {
    allocate(blockSize);
    plugin.resume();
}

void LiveEngine::allocate(int blockSize) {
    silentInput.assign(static_cast<size_t>(blockSize), 0.0f);
    spareOutput.assign(static_cast<size_t>(blockSize), 0.0f);
    pluginInputs.assign(static_cast<size_t>(std::max(plugin.numInputs(), kChannels)),
                        silentInput.data());
    pluginOutputs.assign(static_cast<size_t>(std::max(plugin.numOutputs(), kChannels)),
                         spareOutput.data());
}

void LiveEngine::silence(float* const* outputs, int count) const {
    for (int channel = 0; channel < kChannels; ++channel) {
        std::fill(outputs[channel], outputs[channel] + count, 0.0f);
    }
}

void LiveEngine::process(const float* const* inputs, float* const* outputs, int count) {
    int expected = kPauseAsked;
    if (state.compare_exchange_strong(expected, kPaused, std::memory_order_acq_rel) ||
        expected == kPaused || count > block || count <= 0) {
        silence(outputs, std::max(count, 0));
        return;
    }
    const auto start = Clock::now();
    // The stream's channels in the plug-in's first places; any further inputs hear
    // silence, any further outputs go to a spare buffer.
    for (int channel = 0; channel < kChannels && channel < plugin.numInputs(); ++channel) {
        pluginInputs[static_cast<size_t>(channel)] = const_cast<float*>(inputs[channel]);
    }
    for (int channel = 0; channel < kChannels && channel < plugin.numOutputs(); ++channel) {
        pluginOutputs[static_cast<size_t>(channel)] = outputs[channel];
    }
    plugin.process(pluginInputs.data(), pluginOutputs.data(), count);
    if (plugin.numOutputs() == 1) {
        std::copy(outputs[0], outputs[0] + count, outputs[1]); // a mono plug-in on both sides
    } else if (plugin.numOutputs() == 0) {
        silence(outputs, count);
    }
    frames.fetch_add(static_cast<std::uint64_t>(count), std::memory_order_relaxed);

    const double spent = std::chrono::duration<double>(Clock::now() - start).count();
    const double load = spent * rate / count;
    double known = peak.load(std::memory_order_relaxed);
    while (load > known && !peak.compare_exchange_weak(known, load, std::memory_order_relaxed)) {
    }
}

void LiveEngine::reconfigure(double sampleRate, int blockSize) {
    state.store(kPauseAsked, std::memory_order_release);
    const auto giveUp = Clock::now() + kPauseWait;
    while (state.load(std::memory_order_acquire) != kPaused && Clock::now() < giveUp) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // A server that stopped calling cannot be inside the callback either.
    state.store(kPaused, std::memory_order_release);
    plugin.suspend();
    plugin.dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(sampleRate));
    plugin.dispatch(effSetBlockSize, 0, blockSize);
    allocate(blockSize);
    rate = sampleRate;
    block = blockSize;
    plugin.resume();
    state.store(kRunning, std::memory_order_release);
}
