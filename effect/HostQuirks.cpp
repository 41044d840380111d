#include "effect/HostQuirks.h"

#include <cstring>

namespace {

struct KnownHost {
    const char* product;
    const char* vendor;
};

// Hosts that take minInteger..maxInteger of effGetParameterProperties as the range of the
// raw values they pass to setParameter, unconverted, whenever UsesIntegerMinMax is set:
// with display ranges, 1000 Hz and PEAK become unreachable and raw values such as 1000 or
// -12 land in the program records. Ardour also takes IsSwitch as an on/off toggle and the
// properties' label as the control's name (libs/ardour/vst_plugin.cc,
// get_parameter_descriptor); Qtractor (qtractorVstPlugin.cpp) and Carla
// (CarlaPluginVST2.cpp) read the range and the switch flag the same way. Ardour's scanner
// answers empty strings, so a scan always sees the display ranges; it keeps no
// parameter properties in its cache.
constexpr KnownHost kRawRangeHosts[] = {
    {"Ardour", "Linux Audio Systems"},
    {"Qtractor", "rncbc.org"},
    {"Carla", "falkTX"},
};

} // namespace

ParameterPropertiesStyle ParameterPropertiesStyleFor(const char* hostProduct,
                                                     const char* hostVendor) {
    for (const KnownHost& host : kRawRangeHosts) {
        if (std::strcmp(hostProduct, host.product) == 0 &&
            std::strcmp(hostVendor, host.vendor) == 0) {
            return ParameterPropertiesStyle::kNormalised;
        }
    }
    return ParameterPropertiesStyle::kDisplayRanges;
}
