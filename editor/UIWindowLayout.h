// Which parameter each control of the panel drives, which bitmaps draw it, and where it
// sits (from the panel's geometry). Rectangles are left, top, right, bottom in panel pixels
// (right and bottom exclusive).
#pragma once

#include "base/WinTypes.h"
#include "editor/PanelGeometry.h"
#include "editor/PanelIds.h"
#include "effect/ZephyraParameters.h"

constexpr RECT ToRect(const PixelRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

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
    {kIdGain1Knob, kParamGain1, ToRect(layout::KnobRect(0, 0)), ToRect(layout::kReadouts[0])},
    {kIdFreq1Knob, kParamFreq1, ToRect(layout::KnobRect(0, 1)), ToRect(layout::kReadouts[1])},
    {kIdQ1Knob, kParamQ1, ToRect(layout::KnobRect(0, 2)), ToRect(layout::kReadouts[2])},
    {kIdGain2Knob, kParamGain2, ToRect(layout::KnobRect(1, 0)), ToRect(layout::kReadouts[3])},
    {kIdFreq2Knob, kParamFreq2, ToRect(layout::KnobRect(1, 1)), ToRect(layout::kReadouts[4])},
    {kIdQ2Knob, kParamQ2, ToRect(layout::KnobRect(1, 2)), ToRect(layout::kReadouts[5])},
};
constexpr int kKnobCount = sizeof kKnobLayout / sizeof kKnobLayout[0];

// Input, then output.
constexpr ValueControlLayout kSliderLayout[] = {
    {kIdInputSlider, kParamInput, ToRect(layout::kSliders[0]), ToRect(layout::kReadouts[6])},
    {kIdOutputSlider, kParamOutput, ToRect(layout::kSliders[1]), ToRect(layout::kReadouts[7])},
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
constexpr KnobStyle kKnobStyle{
    0.0f,
    1.0f,
    layout::kKnobFrames,
    static_cast<float>(layout::kKnobFirstAngle),
    static_cast<float>(layout::kKnobFirstAngle +
                       layout::kKnobAngleStep * (layout::kKnobFrames - 1)),
    8};

struct SwitchLayout {
    unsigned int id;
    int parameter;
    int type; // the filter type the switch selects (type switches only)
    RECT rect;
    int offBitmap;
    int onBitmap;
};

constexpr SwitchLayout kOnOffSwitchLayout{
    kIdOnOffSwitch, kParamOnOff, 0, ToRect(layout::kPowerSwitch), kBitmapOnOffOff, kBitmapOnOffOn};

// Band 1 LOW, PEAK, Hi; band 2 LOW, PEAK, Hi: three radio buttons per band.
constexpr int kTypesPerBand = 3;
constexpr SwitchLayout TypeSwitch(unsigned int id, int band, int type) {
    return {id,
            band == 0 ? kParamType1 : kParamType2,
            type,
            ToRect(layout::TypeSwitchRect(band, type)),
            kBitmapTypeOff,
            kBitmapTypeOn};
}
constexpr SwitchLayout kTypeSwitchLayout[] = {
    TypeSwitch(kIdBand1LowSwitch, 0, 0),  TypeSwitch(kIdBand1PeakSwitch, 0, 1),
    TypeSwitch(kIdBand1HiSwitch, 0, 2),   TypeSwitch(kIdBand2LowSwitch, 1, 0),
    TypeSwitch(kIdBand2PeakSwitch, 1, 1), TypeSwitch(kIdBand2HiSwitch, 1, 2),
};
constexpr int kTypeSwitchCount = sizeof kTypeSwitchLayout / sizeof kTypeSwitchLayout[0];

constexpr SwitchLayout kCopyButtonLayout{
    kIdCopyProgramButton, -1, 0, ToRect(layout::kCopyButton), kBitmapCopyOff, kBitmapCopyOn};

// The program-modified lamp and the save button.
constexpr RECT kProgramLampRect = ToRect(layout::kProgramLamp);
constexpr RECT kSaveButtonRect = ToRect(layout::kSaveButton);

// The meters: input left and right, output left and right.
constexpr int kMeterLefts[] = {layout::kMeterLefts[0][0], layout::kMeterLefts[0][1],
                               layout::kMeterLefts[1][0], layout::kMeterLefts[1][1]};
constexpr int kMeterCount = sizeof kMeterLefts / sizeof kMeterLefts[0];
constexpr int kMeterTop = layout::kMeterTop;

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

// Where the copy-program menu opens, in panel coordinates: at the copy button's right edge.
constexpr int kCopyMenuLeft = layout::kCopyButton.right;
constexpr int kCopyMenuTop = 14;
