// The three ways a value enters the effect (host, panel control, typed value) and what
// the host reads back about parameters.
#include "effect/AZephyra.h"

#include "dsp/CMultiEqualizer.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <strings.h>

namespace {

bool isParameter(int index) {
    return index >= 0 && index < kNumParams;
}

constexpr int kDisplayText = 64; // enough for "%.1f" of any float

} // namespace

void AZephyra::storeNormalised(int index, float value) {
    m_fParam[index] = value;
    // Read once: on the audio thread a program change may arrive from the other meanwhile.
    const int program = RelaxedLoad(curProgram);
    if (program >= 0 && program < kNumPrograms) {
        m_currentBank.SetParam(program, index, value);
    }
}

// Hands the engine the integer form of a normalised value.
void AZephyra::pushToEngine(int index, float value) {
    const auto engineValue = static_cast<int>(NormalizeValToDWValue(index, value));
    // Each band's four parameters in order: type, gain, frequency, Q.
    using BandSetter = bool (CMultiEqualizer::*)(int band, int value);
    static constexpr BandSetter kBandSetters[] = {
        &CMultiEqualizer::set_Type, &CMultiEqualizer::set_Gain, &CMultiEqualizer::set_Freq,
        &CMultiEqualizer::set_Q};
    switch (index) {
    case kParamOnOff: {
        const bool on = OnOffValueIsOn(value);
        m_engine->set_Activate(0, on);
        m_engine->set_Activate(1, on);
        break;
    }
    case kParamOutput:
        m_engine->set_OutputLevel(engineValue);
        break;
    case kParamInput:
        m_engine->set_InputLevel(engineValue);
        break;
    default:
        if (index >= kParamType1 && index < kNumParams) {
            const int band = index < kParamType2 ? 0 : 1;
            const BandSetter set = kBandSetters[(index - kParamType1) % 4];
            (m_engine->*set)(band, engineValue);
        }
        break;
    }
}

// The common core of setParameter and setParameterFormUI: the normalised value, its
// display value and the program's copy are stored, and the engine follows.
void AZephyra::applyValue(int index, float value) {
    const int slot = DisplaySlotOf(index);
    if (slot >= 0) {
        m_fDispVal[slot] = NormalizeValToInternalVal(index, value);
    }
    if (index == kParamOnOff) {
        // The one store made under the lock: the audio path reads it once per block.
        CSingleLock lock(m_lock);
        storeNormalised(index, value);
    } else {
        storeNormalised(index, value);
    }
    pushToEngine(index, value);
}

void AZephyra::setParameter(int32_t index, float value) {
    if (ZephyraPanel* p = panel()) {
        p->UpdateControl(index, value); // the controls follow host automation
    }
    if (!isParameter(index)) {
        return;
    }
    applyValue(index, value);
}

void AZephyra::setParameterFormUI(int index, float value) {
    if (isParameter(index)) {
        applyValue(index, value);
    }
    if (audioMaster) {
        callHost(audioMasterAutomate, index, 0, nullptr, value);
    }
}

void AZephyra::setParameterFromDiaplay(int index, float displayValue) {
    float value = displayValue;
    const int slot = DisplaySlotOf(index);
    if (slot >= 0) {
        m_fDispVal[slot] = displayValue; // kept unclamped, as typed
        value = DisplayToNormalizeValue(index, displayValue);
        storeNormalised(index, value);
        pushToEngine(index, value);
    }
    if (ZephyraPanel* p = panel()) {
        p->UpdateControl(index, value);
    }
    if (audioMaster) {
        callHost(audioMasterAutomate, index, 0, nullptr, value);
        // Kept: a lone end of edit, never preceded by a begin; hosts rely on it.
        endEdit(index);
    }
}

float AZephyra::getParameter(int32_t index) {
    return isParameter(index) ? static_cast<float>(m_fParam[index]) : 0.0f;
}

float AZephyra::getParameterDisplayVal(int index) {
    if (!isParameter(index)) {
        return 0.0f;
    }
    if (index == kParamOnOff) {
        return m_fParam[index];
    }
    const int slot = DisplaySlotOf(index);
    if (slot < 0) {
        return NormalizeValToInternalVal(index, m_fParam[index]);
    }
    const float display = m_fDispVal[slot];
    return display >= 0.0f ? display + 0.05f : display - 0.05f;
}

void AZephyra::getParameterName(int32_t index, char* text) {
    if (isParameter(index)) {
        std::strcpy(text, kParamTexts[index].name);
    }
}

void AZephyra::getParameterLabel(int32_t index, char* label) {
    if (isParameter(index)) {
        std::strcpy(label, kParamTexts[index].label);
    }
}

void AZephyra::getParameterDisplay(int32_t index, char* text) {
    if (!isParameter(index)) {
        return;
    }
    if (index == kParamOnOff) {
        std::strcpy(text, m_fParam[index] == 1.0f ? "ON" : "OFF");
        return;
    }
    if (index == kParamType1 || index == kParamType2) {
        const float type = NormalizeValToInternalVal(index, m_fParam[index]);
        std::strcpy(text, kFilterTypeWords[type == 0.0f ? 0 : type == 1.0f ? 1 : 2]);
        return;
    }
    // Values past what eight bytes can show are cut rather than overrunning the host's
    // buffer.
    char formatted[kDisplayText];
    std::snprintf(formatted, sizeof(formatted), "%.1f",
                  static_cast<double>(m_fDispVal[DisplaySlotOf(index)]));
    // Kept: only the two levels correct "-0.0"; a gain of -0.04 dB still shows "-0.0".
    if ((index == kParamOutput || index == kParamInput) && strcasecmp(formatted, "-0.0") == 0) {
        std::strcpy(formatted, "0.0");
    }
    std::snprintf(text, 8, "%s", formatted);
}

// Asked at effOpen: Ardour, Qtractor and Carla all send it right after the entry point
// and before they read any parameter properties, and by then the host knows the effect
// its answers are for. The answer holds for the life of the instance, so the properties
// query itself never calls back into the host.
void AZephyra::recogniseHost() {
    // Hosts write up to 64 characters and the terminator; some ignore the limit.
    char product[256] = {};
    char vendor[256] = {};
    getHostProductString(product);
    getHostVendorString(vendor);
    product[sizeof(product) - 1] = 0;
    vendor[sizeof(vendor) - 1] = 0;
    m_propertiesStyle = ParameterPropertiesStyleFor(product, vendor);
}

bool AZephyra::getParameterProperties(int32_t index, VstParameterProperties* properties) {
    std::memset(properties, 0, sizeof(*properties));
    if (!isParameter(index)) {
        return false;
    }
    if (m_propertiesStyle == ParameterPropertiesStyle::kNormalised) {
        // No flags: the host's range is the normalised 0..1 that setParameter takes.
        std::snprintf(properties->label, sizeof(properties->label), "%s", kParamTexts[index].name);
        return true;
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    getParameterLabel(index, properties->label);
    properties->flags = kVstParameterUsesIntegerMinMax | kVstParameterUsesIntStep;
    if (row.stepped) {
        properties->flags |= kVstParameterIsSwitch;
    }
    properties->minInteger = static_cast<int32_t>(row.min);
    properties->maxInteger = static_cast<int32_t>(row.max);
    properties->stepInteger = 128;
    properties->largeStepInteger = 256;
    // The index goes in without the flag that would make hosts use it.
    properties->displayIndex = static_cast<int16_t>(index);
    return true;
}

void AZephyra::refreshDisplayValues() {
    static const int continuous[] = {kParamGain1, kParamFreq1, kParamQ1,     kParamGain2,
                                     kParamFreq2, kParamQ2,    kParamOutput, kParamInput};
    for (const int index : continuous) {
        m_fDispVal[DisplaySlotOf(index)] = NormalizeValToInternalVal(index, m_fParam[index]);
    }
}
