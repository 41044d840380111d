#include "effect/ZephyraParameters.h"

#include <cmath>
#include <limits>

const ParamMinMax AutomateParamMinMax_Tbl[kNumParams] = {
    {0.0, 1.0, 1.0, 1},         // ON/OFF
    {0.001, 2.0, 1.0, 0},       // Output, linear factor
    {0.001, 1.0, 1.0, 0},       // Input, linear factor
    {0.0, 2.0, 2.0, 1},         // Type1
    {-12.0, 12.0, 0.0, 0},      // Gain1, dB
    {20.0, 20000.0, 1000.0, 0}, // Freq1, Hz
    {0.3, 10.0, 1.0, 0},        // Q1
    {0.0, 2.0, 0.0, 1},         // Type2
    {-12.0, 12.0, 0.0, 0},      // Gain2, dB
    {20.0, 20000.0, 1000.0, 0}, // Freq2, Hz
    {0.3, 10.0, 1.0, 0},        // Q2
};

const ParamText kParamTexts[kNumParams] = {
    {"ON/OFF", "", "onoff"},  {"Output", "dB", "output"}, {"Input", "dB", "input"},
    {"Type1", "", "type1"},   {"Gain1", "dB", "gain1"},   {"Freq1", "Hz", "freq1"},
    {"Q1", "", "q1"},         {"Type2", "", "type2"},     {"Gain2", "dB", "gain2"},
    {"Freq2", "Hz", "freq2"}, {"Q2", "", "q2"},
};

const char* const kFilterTypeWords[kNumFilterTypes] = {"LOW", "PEAK", "Hi"};

const double ln2 = std::log(2.0);

namespace {

constexpr double kLowestDb = -100.0;

bool isLevel(int index) {
    return index == kParamOutput || index == kParamInput;
}

double highestDb(int index) {
    return index == kParamOutput ? 6.0 : 0.0;
}

bool inTable(int index) {
    return index >= 0 && index < kNumParams;
}

// Clamps that send NaN to the lower end, so a hostile value never travels on as NaN.
float clampLow(float x, float low, float high) {
    if (!(x >= low)) {
        return low;
    }
    return x > high ? high : x;
}

double clampDb(int index, double dB) {
    if (!(dB >= kLowestDb)) {
        return kLowestDb;
    }
    return dB > highestDb(index) ? highestDb(index) : dB;
}

float rangeOf(const ParamMinMax& row) {
    return static_cast<float>(row.max) - static_cast<float>(row.min);
}

// The step number of a stepped parameter. Kept: the limit is an unsigned comparison, so a
// negative step (and anything the conversion cannot represent) becomes the maximum.
uint32_t steppedValue(const ParamMinMax& row, float normalised) {
    const float step = 1.0f / rangeOf(row);
    const double rounded = std::floor(static_cast<double>(normalised) / step + 0.5);
    const auto max = static_cast<uint32_t>(row.max);
    if (!(rounded >= std::numeric_limits<int32_t>::min() &&
          rounded <= std::numeric_limits<int32_t>::max())) {
        return max;
    }
    const auto value = static_cast<uint32_t>(static_cast<int32_t>(rounded));
    return value > max ? max : value;
}

// The continuous internal value: range * normalised + min, clamped, in dB for levels.
float continuousValue(int index, float normalised) {
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    const auto min = static_cast<float>(row.min);
    const auto max = static_cast<float>(row.max);
    float x = clampLow(rangeOf(row) * normalised + min, min, max);
    if (isLevel(index)) {
        x = static_cast<float>(clampDb(index, LinearToDb(x)));
    }
    return x;
}

} // namespace

double LinearToDb(double factor) {
    return std::log(factor) / ln2 * 6.0;
}

float ValToNormalizeValue(int index, float value) {
    if (!inTable(index)) {
        return 0.0f;
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    if (row.stepped) {
        return value * (1.0f / rangeOf(row));
    }
    const float normalised = (value - static_cast<float>(row.min)) / rangeOf(row);
    return clampLow(normalised, 0.0f, 1.0f);
}

uint32_t NormalizeValToDWValue(int index, float normalised) {
    if (!inTable(index)) {
        return 0;
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    if (row.stepped) {
        return steppedValue(row, normalised);
    }
    const float scaled = continuousValue(index, normalised) * 65536.0f;
    return static_cast<uint32_t>(static_cast<int32_t>(scaled));
}

float NormalizeValToInternalVal(int index, float normalised) {
    if (!inTable(index)) {
        return 0.0f;
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    if (row.stepped) {
        return static_cast<float>(steppedValue(row, normalised));
    }
    return continuousValue(index, normalised);
}

bool OnOffValueIsOn(float value) {
    return !(std::fabs(value) < 1.0f);
}

void GetParamMinMax(int index, float* min, float* max) {
    if (!inTable(index)) {
        *min = 0.0f;
        *max = 0.0f;
        return;
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    if (isLevel(index)) {
        *min = static_cast<float>(clampDb(index, LinearToDb(row.min)));
        *max = static_cast<float>(clampDb(index, LinearToDb(row.max)));
    } else {
        *min = static_cast<float>(row.min);
        *max = static_cast<float>(row.max);
    }
}

float DisplayToNormalizeValue(int index, float displayValue) {
    if (!isLevel(index)) {
        return ValToNormalizeValue(index, displayValue);
    }
    const ParamMinMax& row = AutomateParamMinMax_Tbl[index];
    const auto factor = static_cast<float>(std::pow(2.0, displayValue / 6.0));
    return ValToNormalizeValue(
        index, clampLow(factor, static_cast<float>(row.min), static_cast<float>(row.max)));
}

int DisplaySlotOf(int index) {
    static const int slots[kNumParams] = {-1, 0, 1, -1, 2, 3, 4, -1, 5, 6, 7};
    return inTable(index) ? slots[index] : -1;
}
