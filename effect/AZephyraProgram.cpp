#include "effect/AZephyraProgram.h"

#include "base/PlatformFolders.h"
#include "effect/RelaxedAtomic.h"

#include <algorithm>
#include <cstring>

namespace {

char g_preferencesFolder[2048];

} // namespace

AZephyraProgram::AZephyraProgram() {
    GetMy_SHFOLDER_PathName();
    std::memset(m_records, 0, sizeof(m_records));
    for (ZephyraProgramRecord& record : m_records) {
        record.param[kParamOnOff] = 1.0f;
        record.param[kParamOutput] = ValToNormalizeValue(kParamOutput, 1.0f);
        record.param[kParamInput] = ValToNormalizeValue(kParamInput, 1.0f);
        record.param[kParamType1] = ValToNormalizeValue(kParamType1, 0.0f);
        record.param[kParamGain1] = ValToNormalizeValue(kParamGain1, 0.0f);
        record.param[kParamFreq1] = ValToNormalizeValue(kParamFreq1, 1000.0f);
        record.param[kParamQ1] = ValToNormalizeValue(kParamQ1, 1.0f);
        record.param[kParamType2] = ValToNormalizeValue(kParamType2, 2.0f);
        record.param[kParamGain2] = ValToNormalizeValue(kParamGain2, 0.0f);
        record.param[kParamFreq2] = ValToNormalizeValue(kParamFreq2, 1000.0f);
        record.param[kParamQ2] = ValToNormalizeValue(kParamQ2, 1.0f);
        std::memcpy(record.name, kEmptyProgramName, sizeof kEmptyProgramName);
    }
}

int AZephyraProgram::GetStoredProgramNumber() const {
    int32_t program;
    std::memcpy(&program, reinterpret_cast<const char*>(m_records) + kCurrentProgramOffset,
                sizeof(program));
    return program;
}

void AZephyraProgram::StoreProgramNumber(int program) {
    const int32_t stored = program;
    std::memcpy(reinterpret_cast<char*>(m_records) + kCurrentProgramOffset, &stored,
                sizeof(stored));
}

float AZephyraProgram::GetParam(int program, int index) const {
    return RelaxedLoad(m_records[program].param[index]);
}

void AZephyraProgram::SetParam(int program, int index, float value) {
    RelaxedStore(m_records[program].param[index], value);
}

ZephyraProgramRecord AZephyraProgram::GetRecord(int program) const {
    ZephyraProgramRecord record;
    for (int index = 0; index < kNumParams; ++index) {
        record.param[index] = GetParam(program, index);
    }
    std::memcpy(record.name, m_records[program].name, sizeof(record.name));
    return record;
}

void AZephyraProgram::SetRecord(int program, const ZephyraProgramRecord& record) {
    Overwrite(sizeof(ZephyraProgramRecord) * program, &record, sizeof(record));
}

void AZephyraProgram::Overwrite(size_t offset, const void* bytes, size_t count) {
    const auto* source = static_cast<const char*>(bytes);
    auto* bank = reinterpret_cast<char*>(m_records);
    const size_t end = std::min(offset + count, kBytes);
    constexpr size_t kParameterBytes = sizeof(float) * kNumParams;
    for (size_t position = offset; position < end;) {
        const size_t inRecord = position % sizeof(ZephyraProgramRecord);
        if (inRecord >= kParameterBytes) {
            // Name bytes, up to the end of this record.
            const size_t length =
                std::min(end, position - inRecord + sizeof(ZephyraProgramRecord)) - position;
            std::memcpy(bank + position, source + (position - offset), length);
            position += length;
            continue;
        }
        const int program = static_cast<int>(position / sizeof(ZephyraProgramRecord));
        const int index = static_cast<int>(inRecord / sizeof(float));
        const size_t wordStart = position - inRecord % sizeof(float);
        const size_t wordEnd = std::min(end, wordStart + sizeof(float));
        float word = GetParam(program, index);
        std::memcpy(reinterpret_cast<char*>(&word) + (position - wordStart),
                    source + (position - offset), wordEnd - position);
        SetParam(program, index, word);
        position = wordEnd;
    }
}

void AZephyraProgram::CopyTo(void* image) const {
    auto* records = static_cast<ZephyraProgramRecord*>(image);
    for (int program = 0; program < kNumPrograms; ++program) {
        const ZephyraProgramRecord record = GetRecord(program);
        std::memcpy(&records[program], &record, sizeof(record));
    }
}

void SetProgramRecordName(ZephyraProgramRecord& record, const char* name) {
    const size_t length = strnlen(name, kProgramNameLimit - 1);
    std::memcpy(record.name, name, length);
    record.name[length] = 0;
}

void GetProgramRecordName(const ZephyraProgramRecord& record, char* text) {
    const size_t length = strnlen(record.name, kProgramNameLimit - 1);
    std::memcpy(text, record.name, length);
    text[length] = 0;
}

const char* PreferencesFolderURL() {
    return g_preferencesFolder;
}

void GetMy_SHFOLDER_PathName() {
    std::string url;
    if (GetUserPreferencesFolderURL(url) && url.size() < sizeof(g_preferencesFolder)) {
        std::memcpy(g_preferencesFolder, url.c_str(), url.size() + 1);
    }
}
