#include "effect/LegacyProgramImport.h"

#include "effect/AZephyra.h"
#include "effect/Myifstream.h"

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

namespace {

const char kListPath[] = "D:\\VSTEFX\\EFX\\EQ\\PROGRAM.LST";
// The program files are named by the folder text, a backslash, then the entry name.
const char kProgramPathPrefix[] = "D:\\VSTEFX\\EFX\\EQ\\"
                                  "\\";
const char kListHeader[] = "QMT5.0 EFFECT PROGRAM LIST";
const char kProgramHeader[] = "QMT5.0 EFFECT PRG FILE";
constexpr int kHeaderLine = 80;
constexpr int kValueLine = 500;

bool startsWith(const char* text, const char* prefix) {
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// The six type flags of one import: low, peak and high shelf for each band.
struct TypeFlags {
    int band[2][3];
};

// Where a field of the value line goes: a type flag, a 16.16 value of a parameter, or
// nowhere.
struct FieldTarget {
    int flagBand; // -1 when the field is not a type flag
    int flagType;
    int parameter; // -1 when the field is not a value
};

constexpr FieldTarget kNowhere = {-1, 0, -1};

// The value line's fields in order: field 0 goes nowhere, then each band's three type flags
// (low shelf, peak, high shelf) and its gain, frequency and Q; later fields go nowhere.
// clang-format off
constexpr FieldTarget kFieldTargets[] = {
    kNowhere,                                                      // 0
    {0, 0, -1},           {0, 1, -1},           {0, 2, -1},        // 1-3
    {-1, 0, kParamGain1}, {-1, 0, kParamFreq1}, {-1, 0, kParamQ1}, // 4-6
    {1, 0, -1},           {1, 1, -1},           {1, 2, -1},        // 7-9
    {-1, 0, kParamGain2}, {-1, 0, kParamFreq2}, {-1, 0, kParamQ2}, // 10-12
};
// clang-format on

FieldTarget targetOf(uint32_t field) {
    return field < std::size(kFieldTargets) ? kFieldTargets[field] : kNowhere;
}

void applyValueLine(const char* line, TypeFlags& flags, ZephyraProgramRecord& record) {
    char field[kFieldSize];
    int start = 0;
    for (uint32_t number = 0;; ++number) {
        const uint32_t next = StrTerminateTab(line, start, field);
        // An empty field, or one that begins with a space, leaves its target alone.
        if (field[0] != 0 && field[0] != ' ') {
            const int value = std::atoi(field);
            const FieldTarget target = targetOf(number);
            if (target.flagBand >= 0) {
                flags.band[target.flagBand][target.flagType] = value;
            } else if (target.parameter >= 0) {
                const float internal = static_cast<float>(value) * 1.52587890625e-05f;
                record.param[target.parameter] = ValToNormalizeValue(target.parameter, internal);
            }
        }
        if (next == kLastField) {
            return;
        }
        start = static_cast<int>(next);
    }
}

// The last flag that is set wins.
void applyTypes(const TypeFlags& flags, ZephyraProgramRecord& record) {
    const int typeParameter[2] = {kParamType1, kParamType2};
    for (int band = 0; band < 2; ++band) {
        for (int type = 0; type < 3; ++type) {
            if (flags.band[band][type] != 0) {
                record.param[typeParameter[band]] =
                    ValToNormalizeValue(typeParameter[band], static_cast<float>(type));
            }
        }
    }
}

} // namespace

uint32_t StrTerminateTab(const char* line, int start, char* field) {
    char work[kFieldSize] = {};
    field[0] = 0;
    if (start >= 0) {
        const size_t length = std::strlen(line);
        if (static_cast<size_t>(start) < length) {
            std::strncpy(work, line + start, sizeof(work) - 1);
        }
    }
    const char* tab = std::strchr(work, '\t');
    if (tab) {
        const size_t index = static_cast<size_t>(tab - work);
        std::memcpy(field, work, index);
        field[index] = 0;
        return static_cast<uint32_t>(start) + static_cast<uint32_t>(index) + 1;
    }
    std::strcpy(field, work);
    return kLastField;
}

void LoadPGMFileBody(const char* path, char* line) {
    Myifstream file;
    if (!file.open(path, Myifstream::kRead)) {
        return;
    }
    file.getline(line, kHeaderLine);
    if (startsWith(line, kProgramHeader)) {
        file.getline(line, kValueLine);
    }
    file.close();
}

void AZephyra::Convert() {
    ConvertFrom(kListPath, kProgramPathPrefix);
}

// Nothing reaches the engine or the editor here; the next program change does that.
void AZephyra::ConvertFrom(const char* listPath, const char* programPathPrefix) {
    Myifstream list;
    if (!list.open(listPath, Myifstream::kRead)) {
        return;
    }
    char text[kHeaderLine + 1] = {};
    list.getline(text, kHeaderLine);
    if (!startsWith(text, kListHeader)) {
        list.close();
        return;
    }
    list.getline(text, kHeaderLine);
    const int count = std::atoi(text);
    if (count < 1) {
        list.close();
        return;
    }
    // Kept: the flags are set once for the whole import, not per entry, so a value line
    // that lacks them carries the earlier ones over.
    TypeFlags flags;
    for (auto& band : flags.band) {
        for (int& flag : band) {
            flag = count;
        }
    }
    // A missing program file leaves the previous entry's values in this buffer.
    char valueLine[kValueLineSize] = {};
    const int entries = count < kNumPrograms ? count : kNumPrograms;
    for (int entry = 0; entry < entries; ++entry) {
        char name[kHeaderLine + 1] = {};
        list.getline(name, kHeaderLine);
        ZephyraProgramRecord record = m_currentBank.GetRecord(entry);
        SetProgramRecordName(record, name);
        const std::string path = std::string(programPathPrefix) + name + ".PGM";
        LoadPGMFileBody(path.c_str(), valueLine);
        applyValueLine(valueLine, flags, record);
        applyTypes(flags, record);
        m_currentBank.SetRecord(entry, record);
    }
    list.close();
}
