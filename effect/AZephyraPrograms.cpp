// Program selection and naming, the host chunk, and the revert and copy operations the
// editor offers.
#include "AZephyra.h"

#include <algorithm>
#include <cstring>

namespace {

bool isProgram(int program) {
    return program >= 0 && program < kNumPrograms;
}

constexpr size_t kParameterBytes = sizeof(float) * kNumParams;

// Copies at most what fits, and nothing at all from a null or empty chunk.
void copyChunk(void* target, size_t capacity, const void* data, int32_t byteSize) {
    if (data && byteSize > 0) {
        std::memcpy(target, data, std::min(static_cast<size_t>(byteSize), capacity));
    }
}

} // namespace

// Out-of-range numbers (hosts send -1) are ignored.
void AZephyra::setProgram(int32_t program) {
    if (!isProgram(program)) {
        return;
    }
    curProgram = program;
    const ZephyraProgramRecord& record = m_currentBank[program];
    for (int index = 0; index < kNumParams; ++index) {
        setParameter(index, record.param[index]);
    }
    refreshDisplayValues();
    if (ZephyraPanel* p = panel()) {
        p->UpdateModify();
    }
}

void AZephyra::setProgramName(char* name) {
    if (isProgram(curProgram) && name) {
        SetProgramRecordName(m_currentBank[curProgram], name);
    }
}

void AZephyra::getProgramName(char* name) {
    if (isProgram(curProgram)) {
        GetProgramRecordName(m_currentBank[curProgram], name);
    } else {
        *name = 0;
    }
}

bool AZephyra::getProgramNameIndexed(int32_t /*category*/, int32_t index, char* text) {
    if (!isProgram(index)) {
        return false;
    }
    GetProgramRecordName(m_currentBank[index], text);
    return true;
}

const char* AZephyra::GetProgramNameBytes(int program) const {
    return isProgram(program) ? m_currentBank[program].name : "";
}

// The host reads the bank's own memory; nothing is copied.
int32_t AZephyra::getChunk(void** data, bool isPreset) {
    if (isPreset) {
        *data = &m_currentBank[curProgram];
        return sizeof(ZephyraProgramRecord);
    }
    m_currentBank.StoreProgramNumber(curProgram);
    *data = m_currentBank.data();
    return static_cast<int32_t>(AZephyraProgram::kBytes);
}

// A chunk never writes past the bank or the record: a short one changes only what it
// covers, a long one is cut. A current program number outside the bank keeps the present one.
int32_t AZephyra::setChunk(void* data, int32_t byteSize, bool isPreset) {
    if (isPreset) {
        copyChunk(&m_currentBank[curProgram], sizeof(ZephyraProgramRecord), data, byteSize);
    } else {
        copyChunk(m_currentBank.data(), AZephyraProgram::kBytes, data, byteSize);
        const int stored = m_currentBank.GetStoredProgramNumber();
        if (isProgram(stored)) {
            curProgram = stored;
        }
    }
    if (ZephyraPanel* p = panel()) {
        p->UpdateModify();
    }
    setProgram(curProgram);
    return 0;
}

bool AZephyra::IsProgramChanged() {
    return std::memcmp(m_currentBank[curProgram].param, m_initialBank[curProgram].param,
                       kParameterBytes) != 0;
}

void AZephyra::requestHostDisplayUpdate() {
    if (audioMaster) {
        callHost(audioMasterUpdateDisplay);
    }
}

void AZephyra::afterProgramRevert() {
    setProgram(curProgram);
    requestHostDisplayUpdate();
    if (ZephyraPanel* p = panel()) {
        p->UpdateModify();
    }
}

void AZephyra::ProgramToInitial() {
    m_currentBank[curProgram] = m_initialBank[curProgram];
    afterProgramRevert();
}

void AZephyra::ProgramToAllInitial() {
    std::memcpy(m_currentBank.data(), m_initialBank.data(), AZephyraProgram::kBytes);
    afterProgramRevert();
}

void AZephyra::ProgramToFactory() {
    m_currentBank[curProgram] = m_factoryBank[curProgram];
    afterProgramRevert();
}

// Kept deliberately empty: the editor's Control-click on the switch calls it to no effect.
void AZephyra::ProgramToAllFactory() {}

void AZephyra::CopyPgFrom(int source) {
    if (!isProgram(source)) {
        return;
    }
    m_currentBank[curProgram] = m_currentBank[source];
    setProgram(curProgram);
    requestHostDisplayUpdate();
}
