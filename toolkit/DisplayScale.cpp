#include "toolkit/DisplayScale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

double g_host = 0.0;
double g_deviceScale = 1.0;

// A positive number, or 0 for text that is none.
double ParsePositive(const char* text) {
    if (!text || !*text)
        return 0.0;
    char* end = nullptr;
    const double value = std::strtod(text, &end);
    if (end == text || *end != '\0' || !std::isfinite(value) || value <= 0.0)
        return 0.0;
    return value;
}

bool Usable(double value) {
    return std::isfinite(value) && value > 0.0;
}

} // namespace

namespace display_scale {

double Resolve(const Sources& sources) {
    const double candidates[] = {
        ParsePositive(sources.zephyraScale),
        sources.host,
        // GDK_SCALE is a whole number: a fraction there is not a GTK scale either.
        std::floor(ParsePositive(sources.gdkScale)),
        Usable(sources.desktopDpi) ? sources.desktopDpi / kBaseDpi : 0.0,
    };
    for (const double candidate : candidates) {
        if (Usable(candidate))
            return std::clamp(std::round(candidate * 4.0) / 4.0, kSmallest, kLargest);
    }
    return 1.0;
}

void RequestFromHost(double scale) {
    g_host = scale;
}

} // namespace display_scale

double DeviceScale() {
    return g_deviceScale;
}

double FixDeviceScale(double desktopDpi) {
    display_scale::Sources sources;
    sources.zephyraScale = std::getenv("ZEPHYRA_SCALE");
    sources.host = g_host;
    sources.gdkScale = std::getenv("GDK_SCALE");
    sources.desktopDpi = desktopDpi;
    g_deviceScale = display_scale::Resolve(sources);
    return g_deviceScale;
}

int ToDevice(int layout, double scale) {
    return static_cast<int>(std::lround(layout * scale));
}

int ToLayout(int device, double scale) {
    // The layout pixel whose device rectangle (edges as ToDevice rounds them) holds the
    // device pixel's centre.
    return static_cast<int>(std::floor((device + 0.5) / scale));
}
