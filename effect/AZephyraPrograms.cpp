// Program selection and naming, the host chunk, and the revert and copy operations the
// editor offers.
#include "effect/AZephyra.h"

#include <algorithm>
#include <cstring>

namespace {

bool isProgram(int program) {
    return program >= 0 && program < kNumPrograms;
}

constexpr size_t kParameterBytes = sizeof(float) * kNumParams;

// How much of a chunk to take: at most what fits, and nothing at all from a null or empty
// chunk.
size_t chunkBytes(const void* data, int32_t byteSize, size_t capacity) {
    return data && byteSize > 0 ? std::min(static_cast<size_t>(byteSize), capacity) : 0;
}

size_t recordOffset(int program) {
    return sizeof(ZephyraProgramRecord) * static_cast<size_t>(program);
}

} // namespace

// Out-of-range numbers (hosts send -1) are ignored.
void AZephyra::setProgram(int32_t program) {
    if (!isProgram(program)) {
        return;
    }
    RelaxedStore(curProgram, program);
    const ZephyraProgramRecord record = m_currentBank.GetRecord(program);
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

// The host reads a copy of the bank taken now (a program chunk is its record within that
// copy): automation on the audio thread may go on writing the bank itself meanwhile.
int32_t AZephyra::getChunk(void** data, bool isPreset) {
    if (!isPreset) {
        m_currentBank.StoreProgramNumber(curProgram);
    }
    m_currentBank.CopyTo(m_chunkImage);
    if (isPreset) {
        *data = m_chunkImage + recordOffset(curProgram);
        return sizeof(ZephyraProgramRecord);
    }
    *data = m_chunkImage;
    return static_cast<int32_t>(AZephyraProgram::kBytes);
}

// A chunk never writes past the bank or the record: a short one changes only what it
// covers, a long one is cut. A current program number outside the bank keeps the present one.
int32_t AZephyra::setChunk(void* data, int32_t byteSize, bool isPreset) {
    if (isPreset) {
        m_currentBank.Overwrite(recordOffset(curProgram), data,
                                chunkBytes(data, byteSize, sizeof(ZephyraProgramRecord)));
    } else {
        m_currentBank.Overwrite(0, data, chunkBytes(data, byteSize, AZephyraProgram::kBytes));
        const int stored = m_currentBank.GetStoredProgramNumber();
        if (isProgram(stored)) {
            RelaxedStore(curProgram, stored);
        }
    }
    if (ZephyraPanel* p = panel()) {
        p->UpdateModify();
    }
    setProgram(curProgram);
    return 0;
}

bool AZephyra::IsProgramChanged() {
    const ZephyraProgramRecord current = m_currentBank.GetRecord(curProgram);
    return std::memcmp(current.param, m_initialBank[curProgram].param, kParameterBytes) != 0;
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
    m_currentBank.SetRecord(curProgram, m_initialBank[curProgram]);
    afterProgramRevert();
}

void AZephyra::ProgramToAllInitial() {
    m_currentBank.Overwrite(0, m_initialBank.data(), AZephyraProgram::kBytes);
    afterProgramRevert();
}

void AZephyra::ProgramToFactory() {
    m_currentBank.SetRecord(curProgram, m_factoryBank[curProgram]);
    afterProgramRevert();
}

// Kept deliberately empty: the editor's Control-click on the switch calls it to no effect.
void AZephyra::ProgramToAllFactory() {}

void AZephyra::CopyPgFrom(int source) {
    if (!isProgram(source)) {
        return;
    }
    m_currentBank.SetRecord(curProgram, m_currentBank.GetRecord(source));
    setProgram(curProgram);
    requestHostDisplayUpdate();
}
