#include "AZephyraProgram.h"

#include "PlatformFolders.h"

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
        std::memcpy(record.name, "Empty", 6);
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
