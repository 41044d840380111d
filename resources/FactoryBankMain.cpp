// Writes the factory bank shipped beside the module: a few starting points named after
// what they do, the rest of the 64 programs left at their defaults as "Empty".
//
// usage: make_factory_bank OUTPUT.fxb
#include "effect/AZephyra.h"
#include "effect/AZephyraProgram.h"
#include "effect/BankFile.h"
#include "resources/OutputPathArgument.h"

#include <cmath>
#include <cstdio>

namespace {

enum BandType { kLowShelf = 0, kPeak = 1, kHighShelf = 2 };

struct Band {
    BandType type;
    float gainDb;
    float freqHz;
    float q;
};

struct FactoryProgram {
    const char* name;
    Band band1;
    Band band2;
    float inputDb;
    float outputDb;
};

const FactoryProgram kFactoryPrograms[] = {
    {"Flat", {kLowShelf, 0.0f, 100.0f, 1.0f}, {kHighShelf, 0.0f, 8000.0f, 1.0f}, 0.0f, 0.0f},
    {"Vocal Presence",
     {kPeak, 3.0f, 3000.0f, 1.0f},
     {kHighShelf, 2.0f, 10000.0f, 0.7f},
     0.0f,
     -1.0f},
    {"Warm Bass", {kLowShelf, 4.0f, 120.0f, 0.8f}, {kHighShelf, -1.5f, 8000.0f, 0.7f}, 0.0f, -2.0f},
    {"Bright Air",
     {kLowShelf, 0.0f, 100.0f, 1.0f},
     {kHighShelf, 4.0f, 12000.0f, 0.7f},
     0.0f,
     -1.5f},
    {"Mud Cut", {kPeak, -4.0f, 300.0f, 1.4f}, {kHighShelf, 1.0f, 6000.0f, 0.7f}, 0.0f, 0.0f},
    {"Kick Punch", {kPeak, 5.0f, 60.0f, 1.2f}, {kPeak, 3.0f, 3500.0f, 2.0f}, 0.0f, -3.0f},
    {"Telephone",
     {kLowShelf, -12.0f, 400.0f, 0.7f},
     {kHighShelf, -12.0f, 3000.0f, 0.7f},
     0.0f,
     4.0f},
    {"De-Harsh", {kPeak, -3.0f, 2500.0f, 2.0f}, {kHighShelf, -2.0f, 9000.0f, 0.7f}, 0.0f, 0.0f},
    {"Acoustic Guitar", {kLowShelf, -3.0f, 150.0f, 0.8f}, {kPeak, 2.5f, 5000.0f, 1.0f}, 0.0f, 0.0f},
    {"Loudness", {kLowShelf, 6.0f, 80.0f, 0.7f}, {kHighShelf, 4.0f, 10000.0f, 0.7f}, -6.0f, 0.0f},
    {"Hum Notch 50 Hz", {kPeak, -12.0f, 50.0f, 10.0f}, {kPeak, -12.0f, 100.0f, 10.0f}, 0.0f, 0.0f},
    {"Hum Notch 60 Hz", {kPeak, -12.0f, 60.0f, 10.0f}, {kPeak, -12.0f, 120.0f, 10.0f}, 0.0f, 0.0f},
};

// Levels are stored as linear factors, 6 dB per doubling.
float levelFactor(float dB) {
    return static_cast<float>(std::pow(2.0, dB / 6.0));
}

void setBand(ZephyraProgramRecord& record, int firstParameter, const Band& band) {
    record.param[firstParameter] =
        ValToNormalizeValue(firstParameter, static_cast<float>(band.type));
    record.param[firstParameter + 1] = ValToNormalizeValue(firstParameter + 1, band.gainDb);
    record.param[firstParameter + 2] = ValToNormalizeValue(firstParameter + 2, band.freqHz);
    record.param[firstParameter + 3] = ValToNormalizeValue(firstParameter + 3, band.q);
}

} // namespace

int main(int argc, char** argv) {
    int exitStatus = 0;
    const char* path = OutputPathArgument(argc, argv, "OUTPUT.fxb", &exitStatus);
    if (!path)
        return exitStatus;
    AZephyraProgram bank;
    int program = 0;
    for (const FactoryProgram& preset : kFactoryPrograms) {
        ZephyraProgramRecord& record = bank[program++];
        record.param[kParamOnOff] = 1.0f;
        record.param[kParamInput] = ValToNormalizeValue(kParamInput, levelFactor(preset.inputDb));
        record.param[kParamOutput] =
            ValToNormalizeValue(kParamOutput, levelFactor(preset.outputDb));
        setBand(record, kParamType1, preset.band1);
        setBand(record, kParamType2, preset.band2);
        SetProgramRecordName(record, preset.name);
    }
    bank.StoreProgramNumber(0);

    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::typeBinary) ||
        !WriteBankFile(file, kZephyraUniqueId, bank.data(), AZephyraProgram::kBytes) ||
        !file.Close()) {
        std::fprintf(stderr, "%s: cannot write %s\n", argv[0], path);
        return 1;
    }
    return 0;
}
