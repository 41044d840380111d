// Where the panel puts each control, which parameter it drives and which bitmaps draw it.
// Rectangles are left, top, right, bottom in panel pixels (right and bottom exclusive).
#pragma once

#include "PanelIds.h"
#include "WinTypes.h"
#include "ZephyraParameters.h"

// The panel's bitmap resources.
enum PanelBitmap : int {
    kBitmapBackground = 5000,
    kBitmapKnobStrip = 5001,
    kBitmapOnOffOn = 5002,
    kBitmapOnOffOff = 5003,
    kBitmapTypeOn = 5004,
    kBitmapTypeOff = 5005,
    kBitmapUnused = 5006, // loaded with the others; the panel never draws it
    kBitmapSliderBackground = 5007,
    kBitmapSliderThumb = 5008,
    kBitmapMeter = 5009, // unlit scale on the left half, lit scale on the right half
    kBitmapCopyOn = 5010,
    kBitmapCopyOff = 5011,
    kBitmapSave = 5012,
    kBitmapProgramLamp = 5013, // not modified above, modified below
};
constexpr int kFirstPanelBitmap = kBitmapKnobStrip;
constexpr int kPanelBitmapCount = kBitmapProgramLamp - kBitmapKnobStrip + 1;

struct ValueControlLayout {
    unsigned int id;
    int parameter;
    RECT control;
    RECT readout;
};

// Band 1 gain, frequency, Q; band 2 gain, frequency, Q.
constexpr ValueControlLayout kKnobLayout[] = {
    {kIdGain1Knob, kParamGain1, {172, 54, 206, 88}, {165, 91, 213, 107}},
    {kIdFreq1Knob, kParamFreq1, {243, 54, 277, 88}, {236, 91, 284, 107}},
    {kIdQ1Knob, kParamQ1, {314, 54, 348, 88}, {307, 91, 355, 107}},
    {kIdGain2Knob, kParamGain2, {172, 138, 206, 172}, {165, 175, 213, 191}},
    {kIdFreq2Knob, kParamFreq2, {243, 138, 277, 172}, {236, 175, 284, 191}},
    {kIdQ2Knob, kParamQ2, {314, 138, 348, 172}, {307, 175, 355, 191}},
};
constexpr int kKnobCount = sizeof kKnobLayout / sizeof kKnobLayout[0];

// Input, then output.
constexpr ValueControlLayout kSliderLayout[] = {
    {kIdInputSlider, kParamInput, {48, 45, 64, 178}, {14, 184, 48, 200}},
    {kIdOutputSlider, kParamOutput, {403, 45, 419, 178}, {404, 184, 438, 200}},
};
constexpr int kSliderCount = sizeof kSliderLayout / sizeof kSliderLayout[0];

struct KnobStyle {
    float min;
    float max;
    int frameCount;
    float angleFrom; // degrees clockwise from straight down
    float angleTo;
    int spare;
};
constexpr KnobStyle kKnobStyle{0.0f, 1.0f, 61, 30.0f, 330.0f, 8};

struct SwitchLayout {
    unsigned int id;
    int parameter;
    int type; // the filter type the switch selects (type switches only)
    RECT rect;
    int offBitmap;
    int onBitmap;
};

constexpr SwitchLayout kOnOffSwitchLayout{kIdOnOffSwitch,  kParamOnOff,     0,
                                          {18, 8, 47, 28}, kBitmapOnOffOff, kBitmapOnOffOn};

// Band 1 LOW, PEAK, Hi; band 2 LOW, PEAK, Hi: three radio buttons per band.
constexpr int kTypesPerBand = 3;
constexpr SwitchLayout kTypeSwitchLayout[] = {
    {kIdBand1LowSwitch, kParamType1, 0, {110, 61, 124, 73}, kBitmapTypeOff, kBitmapTypeOn},
    {kIdBand1PeakSwitch, kParamType1, 1, {110, 78, 124, 90}, kBitmapTypeOff, kBitmapTypeOn},
    {kIdBand1HiSwitch, kParamType1, 2, {110, 95, 124, 107}, kBitmapTypeOff, kBitmapTypeOn},
    {kIdBand2LowSwitch, kParamType2, 0, {110, 145, 124, 157}, kBitmapTypeOff, kBitmapTypeOn},
    {kIdBand2PeakSwitch, kParamType2, 1, {110, 162, 124, 174}, kBitmapTypeOff, kBitmapTypeOn},
    {kIdBand2HiSwitch, kParamType2, 2, {110, 179, 124, 191}, kBitmapTypeOff, kBitmapTypeOn},
};
constexpr int kTypeSwitchCount = sizeof kTypeSwitchLayout / sizeof kTypeSwitchLayout[0];

constexpr SwitchLayout kCopyButtonLayout{kIdCopyProgramButton, -1,           0, {59, 11, 88, 28},
                                         kBitmapCopyOff,       kBitmapCopyOn};

// The program-modified lamp and the save button, both 43 x 16.
constexpr RECT kProgramLampRect{211, 11, 254, 27};
constexpr RECT kSaveButtonRect{265, 11, 308, 27};

// The meters: input left and right, output left and right.
constexpr int kMeterLefts[] = {29, 38, 422, 431};
constexpr int kMeterCount = sizeof kMeterLefts / sizeof kMeterLefts[0];
constexpr int kMeterTop = 45;

// Typed entry over each read-out, in the order the panel tests them: the parameter, whether
// a sign may be typed and how many digits the field holds.
struct EntryLayout {
    int target;
    int parameter;
    bool sign;
    int digits;
    RECT readout;
};
constexpr EntryLayout kEntryLayout[] = {
    {kEntryGain1, kParamGain1, true, 4, kKnobLayout[0].readout},
    {kEntryFreq1, kParamFreq1, false, 6, kKnobLayout[1].readout},
    {kEntryQ1, kParamQ1, false, 3, kKnobLayout[2].readout},
    {kEntryGain2, kParamGain2, true, 4, kKnobLayout[3].readout},
    {kEntryFreq2, kParamFreq2, false, 6, kKnobLayout[4].readout},
    {kEntryQ2, kParamQ2, false, 3, kKnobLayout[5].readout},
    {kEntryInput, kParamInput, true, 4, kSliderLayout[0].readout},
    {kEntryOutput, kParamOutput, true, 4, kSliderLayout[1].readout},
};

// Where the copy-program menu opens, in panel coordinates.
constexpr int kCopyMenuLeft = 88;
constexpr int kCopyMenuTop = 14;
