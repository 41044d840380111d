// A plug-in on a live stream: the work of an audio server's process callback, and the
// hand-over with the main thread when the server changes its sample rate or buffer size.
// The callback side never allocates, locks or waits; everything that may is done on the
// main thread while the callback only outputs silence.
#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

class PluginInstance;

class LiveEngine {
public:
    static constexpr int kChannels = 2;

    // The plug-in resumed at the sample rate and block size given.
    LiveEngine(PluginInstance& plugin, double sampleRate, int blockSize);

    // Process callback: frames from the stream's inputs to its outputs. A block longer than
    // the plug-in was set up for, or one that comes while the main thread reconfigures the
    // plug-in, gives silence.
    void process(const float* const* inputs, float* const* outputs, int frames);

    // Main thread: takes the plug-in off the stream (waiting for the callback to see it, a
    // second at most), sets it to the new rate and block size with its processing
    // switched off and on again, and puts it back.
    void reconfigure(double sampleRate, int blockSize);

    // From any thread.
    std::uint64_t framesProcessed() const { return frames.load(std::memory_order_relaxed); }
    // The largest share of a block's time that processing one took.
    double peakLoad() const { return peak.load(std::memory_order_relaxed); }

private:
    enum State { kRunning, kPauseAsked, kPaused };

    void allocate(int blockSize);
    void silence(float* const* outputs, int frames) const;

    PluginInstance& plugin;
    double rate;
    int block;
    // Channel buffers for a plug-in with other than two inputs or outputs.
    std::vector<float> silentInput;
    std::vector<float> spareOutput;
    std::vector<float*> pluginInputs;
    std::vector<float*> pluginOutputs;
    std::atomic<int> state{kRunning};
    std::atomic<std::uint64_t> frames{0};
    std::atomic<double> peak{0.0};
};
