// How many device pixels one layout pixel of the editor takes. Everything above the native
// layer works in layout pixels (the panel's rectangles, hit tests, meter positions); the
// views map them to device pixels at the native boundary (MFCView0) and the bitmap loader
// picks artwork drawn for the scale. The scale is chosen when the host asks an editor's
// size or opens it, and stays fixed while the editor is open.
#pragma once

namespace display_scale {

constexpr double kSmallest = 1.0;
constexpr double kLargest = 4.0;
// The desktop resolution that means scale 1.
constexpr double kBaseDpi = 96.0;

// Where a scale comes from, strongest first. Each is skipped when absent (0 or null) or
// unusable (not a number, not positive).
struct Sources {
    const char* zephyraScale = nullptr; // ZEPHYRA_SCALE: the user's word, for hosts that
                                        // mis-report (the command-line host's --scale)
    double host = 0.0;                  // an LV2 host's ui:scaleFactor
    const char* gdkScale = nullptr;     // GDK_SCALE, the desktop's whole-number scale
    double desktopDpi = 0.0;            // the X resource Xft.dpi
};

// The strongest usable source, rounded to a quarter and kept within [kSmallest, kLargest];
// 1 when none is usable. A panel is never drawn smaller than its layout.
double Resolve(const Sources& sources);

// The scale a host passes to its plug-in's user interface (LV2's ui:scaleFactor); 0
// forgets it. Taken when an editor is next sized or opened.
void RequestFromHost(double scale);

} // namespace display_scale

// The scale in force for views, pixels and bitmaps being made (1 until an editor fixes one).
double DeviceScale();
// Resolves the scale from every source, the desktop's resolution given, and puts it in force.
double FixDeviceScale(double desktopDpi);

// Layout pixels to device pixels: edges round to the nearest device pixel, so that
// neighbouring rectangles still meet. A device pixel back to the layout pixel it lies in.
int ToDevice(int layout, double scale);
int ToLayout(int device, double scale);
