// The equaliser's eleven parameters and the conversions between their three forms:
// normalised 0..1 (host, controls, program records), the engine's integer form (16.16
// fixed point dB, Hz or Q, or a plain code) and the display value (dB, Hz, Q or a word).
#pragma once

#include <cstdint>

enum ZephyraParameter {
    kParamOnOff = 0,
    kParamOutput,
    kParamInput,
    kParamType1,
    kParamGain1,
    kParamFreq1,
    kParamQ1,
    kParamType2,
    kParamGain2,
    kParamFreq2,
    kParamQ2,
    kNumParams
};

// One row of the range table: the value range in internal units, the default and whether
// the parameter moves in whole steps.
struct ParamMinMax {
    double min;
    double max;
    double defaultValue;
    int32_t stepped;
};

extern const ParamMinMax AutomateParamMinMax_Tbl[kNumParams];

// What the host reads about a parameter besides its value. The symbol names it where a
// plug-in standard keys values by name (sessions and presets keep it, so it never changes).
struct ParamText {
    const char* name;
    const char* label;
    const char* symbol;
};
extern const ParamText kParamTexts[kNumParams];

// The filter types' words, by type code.
constexpr int kNumFilterTypes = 3;
extern const char* const kFilterTypeWords[kNumFilterTypes];

// ln(2), set when the module is loaded: levels are 6 dB per doubling, dB = ln(x)/ln2 * 6.
extern const double ln2;

// Level in dB of a linear factor, by the 6-dB-per-doubling rule.
double LinearToDb(double factor);

// Internal value (the linear factor for Output and Input) to normalised.
float ValToNormalizeValue(int index, float value);
// Normalised to the engine's integer form (two's complement for negative values).
uint32_t NormalizeValToDWValue(int index, float normalised);
// Normalised to the internal value before the engine's scaling: dB for Output and Input,
// the rounded step for stepped parameters, the clamped value otherwise.
float NormalizeValToInternalVal(int index, float normalised);
// Whether an ON/OFF value switches on: when it truncates to a non-zero integer (of 0..1
// only 1.0 does), decided without converting, which would be undefined for a host's huge
// value. NaN counts as on, as in the audio path.
bool OnOffValueIsOn(float value);
// The value range as the entry field shows it (dB for Output and Input).
void GetParamMinMax(int index, float* min, float* max);
// A display value (dB for the levels, the type code, 0 or 1 for ON/OFF) to normalised, as
// a typed value is stored.
float DisplayToNormalizeValue(int index, float displayValue);

// Which of the eight display values (continuous parameters only) belongs to a parameter;
// -1 for the stepped ones.
int DisplaySlotOf(int index);
constexpr int kNumDisplayValues = 8;
