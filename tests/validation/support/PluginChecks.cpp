#include "tests/validation/support/PluginChecks.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

// Hosts hand out eight bytes for a parameter's name, label and display text.
constexpr int kTextLimit = 8;
constexpr int kBufferSize = 64;
// Not printable, so a text that runs into the untouched buffer shows as a problem.
constexpr char kUnwritten = '\x7f';

struct TextRequest {
    int32_t opcode;
    const char* what;
    bool mayBeEmpty;
};

const TextRequest kTextRequests[] = {{effGetParamName, "name", false},
                                     {effGetParamLabel, "label", true},
                                     {effGetParamDisplay, "display text", false}};

std::string textProblem(const char* buffer, const TextRequest& request, int index) {
    const std::string where = "parameter " + std::to_string(index) + " " + request.what + ": ";
    const void* terminator = std::memchr(buffer, 0, kTextLimit);
    if (!terminator) {
        return where + "not terminated within " + std::to_string(kTextLimit) + " bytes";
    }
    const size_t length = static_cast<const char*>(terminator) - buffer;
    if (length == 0 && !request.mayBeEmpty) {
        return where + "empty";
    }
    for (size_t i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(buffer[i]);
        if (byte < 0x20 || byte > 0x7e) {
            return where + "byte " + std::to_string(byte) + " is not printable";
        }
    }
    for (int i = kTextLimit; i < kBufferSize; ++i) {
        if (buffer[i] != kUnwritten) {
            return where + "written past " + std::to_string(kTextLimit) + " bytes";
        }
    }
    return {};
}

template <typename Sample>
std::string blockProblem(HostedPlugin& plugin, Noise& noise, int frames) {
    GuardedStereo<Sample> input(frames);
    GuardedStereo<Sample> output(frames);
    input.Fill(noise, 1.0f);
    const std::vector<Sample> before[2] = {
        std::vector<Sample>(input.Channel(0), input.Channel(0) + input.Frames()),
        std::vector<Sample>(input.Channel(1), input.Channel(1) + input.Frames())};
    plugin.Process(input.Channels(), output.Channels(), frames);
    const std::string block = std::to_string(frames) + "-frame block: ";
    if (!output.AllFinite()) {
        return block + "output not finite";
    }
    if (!output.GuardsIntact() || !input.GuardsIntact()) {
        return block + "written outside the buffers";
    }
    for (int channel = 0; channel < 2; ++channel) {
        if (!std::equal(before[channel].begin(), before[channel].end(), input.Channel(channel))) {
            return block + "input changed";
        }
    }
    float meters[4];
    plugin.Effect().GetVU(&meters[0], &meters[1], &meters[2], &meters[3]);
    for (const float level : meters) {
        if (!(level >= 0.0f && std::isfinite(level))) {
            return block + "meter reads " + std::to_string(level);
        }
    }
    return {};
}

} // namespace

std::string ParameterTextProblem(HostedPlugin& plugin) {
    const int32_t count = plugin.Record()->numParams;
    for (int32_t index = 0; index < count; ++index) {
        for (const TextRequest& request : kTextRequests) {
            char buffer[kBufferSize];
            std::memset(buffer, kUnwritten, sizeof(buffer));
            plugin.Dispatch(request.opcode, index, 0, buffer);
            std::string problem = textProblem(buffer, request, index);
            if (!problem.empty()) {
                return problem;
            }
        }
    }
    return {};
}

std::string AudioProblem(HostedPlugin& plugin, Noise& noise, int frames, bool doublePrecision) {
    return doublePrecision ? blockProblem<double>(plugin, noise, frames)
                           : blockProblem<float>(plugin, noise, frames);
}

std::string EffectProblem(HostedPlugin& plugin, Noise& noise, int frames, bool doublePrecision) {
    std::string problem = ParameterTextProblem(plugin);
    return problem.empty() ? AudioProblem(plugin, noise, frames, doublePrecision) : problem;
}

void RequireNoProblem(const std::string& problem) {
    if (!problem.empty()) {
        std::fprintf(stderr, "validation: %s\n", problem.c_str());
        std::abort();
    }
}
