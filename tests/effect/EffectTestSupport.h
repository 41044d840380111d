// Driving the effect as the host and the editor would.
#pragma once

#include "effect/AZephyra.h"
#include "tests/support/BankBytes.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/RecordingPanel.h"
#include "tests/support/TempFolder.h"

#include <cstring>
#include <string>
#include <utility>
#include <vector>

// An editor whose panel is always open.
class PanelEditor : public ZephyraEditorBase {
public:
    explicit PanelEditor(AZephyra* effect) : ZephyraEditorBase(effect) { effect->setEditor(this); }
    ZephyraPanel* GetPanel() override { return &panel; }
    RecordingPanel panel;
};

inline ZephyraEditorBase* MakePanelEditor(AZephyra* effect) {
    return new PanelEditor(effect);
}

inline RecordingPanel& PanelOf(AZephyra& effect) {
    return static_cast<PanelEditor*>(effect.getEditor())->panel;
}

inline std::string BankImage(AZephyra& effect) {
    void* data = nullptr;
    const int32_t size = effect.getChunk(&data, false);
    return std::string(static_cast<const char*>(data), static_cast<size_t>(size));
}

// The current program as the host would store it.
inline ZephyraProgramRecord CurrentRecord(AZephyra& effect) {
    void* data = nullptr;
    effect.getChunk(&data, true);
    ZephyraProgramRecord record;
    std::memcpy(&record, data, sizeof(record));
    return record;
}

inline std::string ProgramName(AZephyra& effect, int program) {
    char name[32] = {};
    effect.getProgramNameIndexed(0, program, name);
    return name;
}

// A bank image whose program 0 is recognisable by its name and Gain1.
inline std::string MarkedBank(const char* name, float gain1, int currentProgram = 0) {
    AZephyraProgram bank;
    SetProgramRecordName(bank[0], name);
    bank[0].param[kParamGain1] = gain1;
    bank.StoreProgramNumber(currentProgram);
    return std::string(static_cast<const char*>(bank.data()), AZephyraProgram::kBytes);
}
