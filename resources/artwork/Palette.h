// Every artistic choice of the panel's artwork: colours, sizes that the layout leaves free,
// type sizes and the label texts. A change of look should be a one-line change here.
#pragma once

#include <array>
#include <cstdint>

// An opaque colour; written as 0xRRGGBB so it reads like a colour picker's value.
struct Rgb {
    double r, g, b;
};
constexpr Rgb Hex(std::uint32_t rgb) {
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0};
}

// Label type: pixel size, weight and the extra space between letters.
struct TypeStyle {
    double pixelSize;
    bool bold;
    double tracking;
    Rgb colour;
};

struct Palette {
    // Panel
    Rgb panelTop = Hex(0x2c3036);
    Rgb panelBottom = Hex(0x1d1f23);
    Rgb plate = Hex(0x24272c);     // the flat areas every control sits on
    Rgb headerTop = Hex(0x23262b); // the header darkens downwards
    Rgb headerBottom = Hex(0x17181b);
    Rgb bevelLight = Hex(0x3d424a);
    Rgb bevelDark = Hex(0x101114);
    Rgb hairline = Hex(0x15171a);
    Rgb well = Hex(0x0a0b0d); // recesses: meter bezels, slider slot

    // One accent for everything lit: both bands share the knob and switch bitmaps.
    Rgb accent = Hex(0xf2a23a);
    Rgb accentGlow = Hex(0xffd08a);

    // Text
    Rgb label = Hex(0xc8ccd2);
    Rgb labelDim = Hex(0x80868f);
    Rgb legendOff = Hex(0x6b7079); // the letters of a dark button or lamp

    // Read-out wells: the panel writes black digits into them.
    Rgb readoutFace = Hex(0xe9e3d2);
    Rgb readoutShade = Hex(0xbdb6a3);

    // Knobs
    Rgb knobCapTop = Hex(0x50565f);
    Rgb knobCapBottom = Hex(0x22252a);
    Rgb knobEdge = Hex(0x0c0d0f);
    Rgb knobTrack = Hex(0x383c43);
    Rgb knobPointer = Hex(0xf4f4f2);

    // Buttons, switches, the lamp and the fader cap
    Rgb buttonTop = Hex(0x3b4047);
    Rgb buttonBottom = Hex(0x292c31);
    Rgb buttonOutline = Hex(0x4b5059);
    Rgb lampLit = Hex(0xff8a2a);
    Rgb lampLitCore = Hex(0xffc46b);
    Rgb lampLegendLit = Hex(0x2a1606);
    Rgb thumbTop = Hex(0x9aa0a8);
    Rgb thumbBottom = Hex(0x5d636b);
    Rgb thumbLine = Hex(0xfafafa);

    // Meter zones: lit and unlit tones of the same hue.
    Rgb meterRed = Hex(0xff3d33);
    Rgb meterAmber = Hex(0xffb21e);
    Rgb meterGreen = Hex(0x3fd96b);
    double meterUnlitLevel = 0.17; // unlit segments keep this share of their lit colour
    int meterAmberSpanDb = 6;      // amber from 0 dB down this far, green below

    // Sizes the layout leaves to us. The panel is as large as the background; it must reach
    // past the output read-out (x 438) and leave room for the meter scale beside it.
    int panelWidth = 456;
    int panelHeight = 210;
    int headerHeight = 32;
    int meterWidth = 6;          // one meter; the bitmap holds an unlit and a lit one
    int meterSegmentRows = 2;    // of every 3-row dB step, the rest is the gap
    int thumbHeight = 11;        // odd, so the track's ends fall on the thumb's middle row
    double knobArcRadius = 14.5; // centre line of the value arc
    double knobArcWidth = 3.0;
    double knobCapRadius = 10.5;
    double buttonCorner = 2.5;

    // Type
    TypeStyle sectionLabel{7.0, true, 1.0, label};
    TypeStyle typeLabel{6.5, true, 1.0, labelDim};
    TypeStyle scaleLabel{6.0, false, 0.0, labelDim};
    TypeStyle unitLabel{6.5, false, 0.0, labelDim};
    TypeStyle productName{16.0, true, 3.0, label};
    TypeStyle productLine{5.5, false, 2.0, labelDim};
    TypeStyle bandNumber{24.0, true, 0.0, Hex(0x9ba1aa)};
    TypeStyle buttonLegend{6.5, true, 1.0, legendOff};
    const char* fontFamily = "DejaVu Sans";
};

// The words printed on the artwork.
struct Labels {
    const char* productName = "ZEPHYRA";
    const char* productLine = "TWO-BAND PARAMETRIC EQ";
    const char* band = "BAND";
    std::array<const char*, 2> bandNumbers{"1", "2"};
    std::array<const char*, 3> knobColumns{"GAIN", "FREQ", "Q"};
    std::array<const char*, 3> filterTypes{"LOW", "PEAK", "HI"};
    // Beside each read-out, in the order of the read-outs: band 1, band 2, input, output.
    std::array<const char*, 8> readoutUnits{"dB", "Hz", "", "dB", "Hz", "", "dB", "dB"};
    const char* input = "INPUT";
    const char* output = "OUTPUT";
    const char* program = "PROGRAM";
    const char* copy = "COPY";
    const char* edited = "EDITED";
    const char* save = "SAVE";
};

inline const Palette kPalette{};
inline const Labels kLabels{};
