// The LV2 plug-in's identity and ports. Hosts keep sessions and presets by URI and port
// symbol, so neither ever changes. The parameter ports take the effect's parameters in the
// effect's own order, in display units.
#pragma once

#include "effect/ZephyraParameters.h"

#include <cstdint>

namespace lv2 {

constexpr char kPluginUri[] = "urn:zephyra:equalizer";
constexpr char kUiUri[] = "urn:zephyra:equalizer#ui";
// The state key under which the whole bank travels (the same image as the host chunk).
constexpr char kBankStateKey[] = "urn:zephyra:equalizer#bank";

struct PortName {
    const char* symbol;
    const char* name;
};

constexpr uint32_t kAudioInLeft = 0;
constexpr uint32_t kAudioInRight = 1;
constexpr uint32_t kAudioOutLeft = 2;
constexpr uint32_t kAudioOutRight = 3;
constexpr uint32_t kNumAudioPorts = 4;
constexpr PortName kAudioPorts[kNumAudioPorts] = {
    {"in_l", "Left in"}, {"in_r", "Right in"}, {"out_l", "Left out"}, {"out_r", "Right out"}};

constexpr uint32_t kFirstParameterPort = kNumAudioPorts;

// The meters' linear peaks of the last block: input left and right (after the Input level),
// output left and right.
constexpr uint32_t kFirstMeterPort = kFirstParameterPort + kNumParams;
constexpr uint32_t kNumMeterPorts = 4;
constexpr PortName kMeterPorts[kNumMeterPorts] = {{"meter_in_l", "Input peak left"},
                                                  {"meter_in_r", "Input peak right"},
                                                  {"meter_out_l", "Output peak left"},
                                                  {"meter_out_r", "Output peak right"}};

constexpr uint32_t kNumPorts = kFirstMeterPort + kNumMeterPorts;

} // namespace lv2
