#include "tools/JackClient.h"

#include "tools/ToolError.h"

#include <cstdio>

namespace {

constexpr const char* kInputNames[JackClient::kChannels] = {"in_l", "in_r"};
constexpr const char* kOutputNames[JackClient::kChannels] = {"out_l", "out_r"};

void ignoreMessage(const char*) {}

void printError(const char* message) {
    std::fprintf(stderr, "JACK: %s\n", message);
}

} // namespace

JackClient::JackClient(const std::string& wantedName) {
    // The library's own account of a failed connection is five lines of its internals; the
    // error below says what the user needs. Later errors are shown.
    jack_set_info_function(ignoreMessage);
    jack_set_error_function(ignoreMessage);
    jack_status_t status{};
    client = jack_client_open(wantedName.c_str(), JackNoStartServer, &status);
    jack_set_error_function(printError);
    if (client == nullptr) {
        throw ToolError("no JACK server is running (start one: 'jackd -d dummy' for a test, "
                        "or use the desktop's PipeWire JACK layer: 'pw-jack zephyra live')");
    }
    for (int channel = 0; channel < kChannels; ++channel) {
        inputs[channel] = jack_port_register(client, kInputNames[channel], JACK_DEFAULT_AUDIO_TYPE,
                                             JackPortIsInput, 0);
        outputs[channel] = jack_port_register(client, kOutputNames[channel],
                                              JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
        if (inputs[channel] == nullptr || outputs[channel] == nullptr) {
            jack_client_close(client);
            throw ToolError("the JACK server refused the client's ports");
        }
    }
    rate = static_cast<double>(jack_get_sample_rate(client));
    frames = static_cast<int>(jack_get_buffer_size(client));
    jack_set_process_callback(client, onProcess, this);
    jack_set_buffer_size_callback(client, onBufferSize, this);
    jack_set_sample_rate_callback(client, onSampleRate, this);
    jack_set_xrun_callback(client, onXrun, this);
    jack_on_shutdown(client, onShutdown, this);
}

JackClient::~JackClient() {
    deactivate();
    jack_client_close(client);
}

std::string JackClient::name() const {
    return jack_get_client_name(client);
}

void JackClient::activate(Process processFunction, void* processContext) {
    process = processFunction;
    context = processContext;
    if (jack_activate(client) != 0) {
        throw ToolError("the JACK server did not activate the client");
    }
    active = true;
}

void JackClient::deactivate() {
    if (active) {
        jack_deactivate(client);
        active = false;
    }
}

void JackClient::connectToSystem() {
    const auto connect = [this](unsigned long direction, jack_port_t* const* ours, bool toUs) {
        const char** ports = jack_get_ports(client, nullptr, JACK_DEFAULT_AUDIO_TYPE,
                                            JackPortIsPhysical | direction);
        if (ports == nullptr) {
            return;
        }
        for (int channel = 0; channel < kChannels && ports[channel] != nullptr; ++channel) {
            const char* own = jack_port_name(ours[channel]);
            if (toUs) {
                jack_connect(client, ports[channel], own);
            } else {
                jack_connect(client, own, ports[channel]);
            }
        }
        jack_free(ports);
    };
    connect(JackPortIsOutput, inputs, true);  // the system's capture ports
    connect(JackPortIsInput, outputs, false); // its playback ports
}

int JackClient::onProcess(jack_nframes_t count, void* self) {
    auto* client = static_cast<JackClient*>(self);
    const float* in[kChannels];
    float* out[kChannels];
    for (int channel = 0; channel < kChannels; ++channel) {
        in[channel] =
            static_cast<const float*>(jack_port_get_buffer(client->inputs[channel], count));
        out[channel] = static_cast<float*>(jack_port_get_buffer(client->outputs[channel], count));
    }
    client->process(client->context, in, out, static_cast<int>(count));
    return 0;
}

int JackClient::onBufferSize(jack_nframes_t count, void* self) {
    auto* client = static_cast<JackClient*>(self);
    client->frames = static_cast<int>(count);
    client->changed = true;
    return 0;
}

int JackClient::onSampleRate(jack_nframes_t rate, void* self) {
    auto* client = static_cast<JackClient*>(self);
    client->rate = static_cast<double>(rate);
    client->changed = true;
    return 0;
}

int JackClient::onXrun(void* self) {
    static_cast<JackClient*>(self)->xrunCount.fetch_add(1);
    return 0;
}

void JackClient::onShutdown(void* self) {
    static_cast<JackClient*>(self)->gone = true;
}
