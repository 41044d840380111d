// A bank of the effect's 64 programs, each a fixed 72-byte record of the eleven
// normalised parameter values and a name. The effect keeps three: the current bank, the
// initial snapshot taken at open, and the factory bank read from the default bank file.
// The memory image is exactly what hosts store as the chunk.
//
// The parameter words of the current bank are shared with the audio thread: host
// automation writes the current program's values there while the user-interface thread
// copies, compares and exchanges programs. Those words are reached through GetParam,
// SetParam, GetRecord, SetRecord, Overwrite and CopyTo, which access them as relaxed
// atomics; the names are only ever touched by the user-interface thread.
#pragma once

#include "effect/ZephyraParameters.h"

#include <cstddef>

constexpr int kNumPrograms = 64;
constexpr int kProgramNameField = 28;
// Longest name handed out or taken in, terminator included: the hosts' limit, and it
// keeps program 0's last four name bytes free for the bank chunk's current program.
constexpr int kProgramNameLimit = 24;
// The name of every program a fresh bank holds.
constexpr char kEmptyProgramName[] = "Empty";

struct ZephyraProgramRecord {
    float param[kNumParams];
    char name[kProgramNameField];
};
static_assert(sizeof(ZephyraProgramRecord) == 72, "hosts store the record as 72 bytes");
static_assert(offsetof(ZephyraProgramRecord, name) == 44);

class AZephyraProgram {
public:
    AZephyraProgram();

    ZephyraProgramRecord& operator[](int program) { return m_records[program]; }
    const ZephyraProgramRecord& operator[](int program) const { return m_records[program]; }
    void* data() { return m_records; }
    const void* data() const { return m_records; }

    static constexpr size_t kBytes = sizeof(ZephyraProgramRecord) * kNumPrograms;
    // Where the bank chunk carries the current program number: the last four bytes of
    // program 0's name field.
    static constexpr size_t kCurrentProgramOffset = 68;

    int GetStoredProgramNumber() const;
    void StoreProgramNumber(int program);

    float GetParam(int program, int index) const;
    void SetParam(int program, int index, float value);
    ZephyraProgramRecord GetRecord(int program) const;
    void SetRecord(int program, const ZephyraProgramRecord& record);
    // Writes count bytes of a bank image from bytes, starting at offset within the bank;
    // a parameter word only partly covered keeps its other bytes.
    void Overwrite(size_t offset, const void* bytes, size_t count);
    // The whole bank image, as hosts store it.
    void CopyTo(void* image) const;

private:
    ZephyraProgramRecord m_records[kNumPrograms];
};
static_assert(AZephyraProgram::kBytes == 4608);

// Copies a name into a record's field, cut to the name limit and always terminated.
void SetProgramRecordName(ZephyraProgramRecord& record, const char* name);
// Copies a record's name out: at most kProgramNameLimit bytes, terminator included.
void GetProgramRecordName(const ZephyraProgramRecord& record, char* text);

// The user's preferences folder as a file URL ending in "/", refreshed by every bank's
// construction; it keeps its previous content when the folder cannot be found.
const char* PreferencesFolderURL();
void GetMy_SHFOLDER_PathName();
