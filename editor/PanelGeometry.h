// The panel's geometry, in panel pixels: where each control, read-out, meter and button
// sits and the sizes of the pictures that draw them. The one table of it: the panel lays
// out and hit-tests its controls by it, and the artwork generator draws the background and
// the bitmaps to fit it. Plain numbers only, so that both can read it.
#pragma once

#include <array>

struct PixelRect {
    int left, top, right, bottom; // right and bottom exclusive
    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
};

namespace layout {

constexpr int kKnobSize = 34;
constexpr int kKnobFrames = 61;
// Frame k shows the pointer this many degrees clockwise from straight down.
constexpr double kKnobFirstAngle = 30.0;
constexpr double kKnobAngleStep = 5.0;

// Knob rectangles, band 1 then band 2, columns gain, frequency, Q.
constexpr std::array<int, 3> kKnobColumnsLeft{172, 243, 314};
constexpr std::array<int, 2> kKnobRowsTop{54, 138};
constexpr PixelRect KnobRect(int band, int column) {
    return {kKnobColumnsLeft[column], kKnobRowsTop[band], kKnobColumnsLeft[column] + kKnobSize,
            kKnobRowsTop[band] + kKnobSize};
}

// The eight numeric read-outs: the six knobs' (band 1, band 2), input, output.
constexpr std::array<PixelRect, 8> kReadouts{{{165, 91, 213, 107},
                                              {236, 91, 284, 107},
                                              {307, 91, 355, 107},
                                              {165, 175, 213, 191},
                                              {236, 175, 284, 191},
                                              {307, 175, 355, 191},
                                              {14, 184, 48, 200},
                                              {404, 184, 438, 200}}};

// Filter-type switches: one column, three per band (low, peak, high).
constexpr int kTypeSwitchLeft = 110;
constexpr int kTypeSwitchWidth = 14;
constexpr int kTypeSwitchHeight = 12;
constexpr std::array<std::array<int, 3>, 2> kTypeSwitchTops{{{61, 78, 95}, {145, 162, 179}}};
constexpr PixelRect TypeSwitchRect(int band, int type) {
    return {kTypeSwitchLeft, kTypeSwitchTops[band][type], kTypeSwitchLeft + kTypeSwitchWidth,
            kTypeSwitchTops[band][type] + kTypeSwitchHeight};
}

constexpr PixelRect kPowerSwitch{18, 8, 47, 28};
constexpr PixelRect kCopyButton{59, 11, 88, 28};
constexpr PixelRect kProgramLamp{211, 11, 254, 27};
constexpr PixelRect kSaveButton{265, 11, 308, 27};

// Level sliders (input, output) and the meters beside them, left and right channel.
constexpr std::array<PixelRect, 2> kSliders{{{48, 45, 64, 178}, {403, 45, 419, 178}}};
constexpr std::array<std::array<int, 2>, 2> kMeterLefts{{{29, 38}, {422, 431}}};
constexpr int kMeterTop = 45;
constexpr int kMeterHeight = 133;
// The meter's scale: 3 rows per dB, 0 dB this far below its top; -38 dB is its bottom edge.
constexpr int kMeterRowsPerDb = 3;
constexpr int kMeterZeroDbRow = 19;
constexpr int kMeterTopDb = 6;
constexpr int kMeterFloorDb = -38;

} // namespace layout
