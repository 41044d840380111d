// A client of a running JACK server (never one it starts itself) with two audio inputs and
// two outputs, whose process callback hands the ports' buffers to a function of the
// caller's. The server's changes of sample rate and buffer size, and its xruns, are
// recorded for the main thread to act on.
#pragma once

#include <jack/jack.h>

#include <atomic>
#include <cstdint>
#include <string>

class JackClient {
public:
    static constexpr int kChannels = 2;
    using Process = void (*)(void* context, const float* const* inputs, float* const* outputs,
                             int frames);

    // Throws ToolError, saying how to start a server, when none is running.
    explicit JackClient(const std::string& wantedName);
    ~JackClient();
    JackClient(const JackClient&) = delete;
    JackClient& operator=(const JackClient&) = delete;

    // The name the server gave (it may add a number to the one asked for).
    std::string name() const;
    double sampleRate() const { return rate.load(); }
    int bufferSize() const { return frames.load(); }
    std::uint64_t xruns() const { return xrunCount.load(); }
    // True once after each change of rate or buffer size the server announced.
    bool takeChange() { return changed.exchange(false); }
    // True once the server has shut the client down.
    bool shutDown() const { return gone.load(); }

    void activate(Process process, void* context);
    void deactivate();
    // Our inputs from the system's first two capture ports and our outputs to its first two
    // playback ports, as far as there are such ports.
    void connectToSystem();

private:
    static int onProcess(jack_nframes_t count, void* self);
    static int onBufferSize(jack_nframes_t count, void* self);
    static int onSampleRate(jack_nframes_t rate, void* self);
    static int onXrun(void* self);
    static void onShutdown(void* self);

    jack_client_t* client = nullptr;
    jack_port_t* inputs[kChannels] = {};
    jack_port_t* outputs[kChannels] = {};
    Process process = nullptr;
    void* context = nullptr;
    bool active = false;
    std::atomic<double> rate{0.0};
    std::atomic<int> frames{0};
    std::atomic<bool> changed{false};
    std::atomic<std::uint64_t> xrunCount{0};
    std::atomic<bool> gone{false};
};
