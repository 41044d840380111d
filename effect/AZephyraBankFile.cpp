// The default bank file: read at open into the current and factory banks, written back
// when the user saves a program.
#include "effect/AZephyra.h"

#include "base/CFileFind.h"
#include "base/PlatformFolders.h"

#include <cstdio>
#include <cstring>

namespace {

// Cuts a path after its last "/"; one that already ends in "/" or is one character long
// is left whole.
void cutAfterLastSlash(char* path) {
    const size_t length = std::strlen(path);
    if (length <= 1 || path[length - 1] == '/') {
        return;
    }
    if (char* slash = std::strrchr(path, '/')) {
        slash[1] = 0;
    }
}

void copyBounded(char* destination, size_t capacity, const std::string& text) {
    std::snprintf(destination, capacity, "%s", text.c_str());
}

} // namespace

// The host's folder answer when it gives one (a folder as it is, a file path cut to its
// folder), else the folder of this module.
void AZephyra::findPluginFolder() {
    const auto* hostAnswer = static_cast<const char*>(getDirectory());
    std::string folder;
    if (hostAnswer && IsAbsolutePath(hostAnswer) &&
        strnlen(hostAnswer, sizeof(m_pluginFolder)) < sizeof(m_pluginFolder) - 1) {
        folder = NormalizedPath(hostAnswer);
        if (IsDirectory(folder) && folder.back() != '/') {
            folder += '/';
        }
    } else {
        folder = GetModuleFolder();
    }
    copyBounded(m_pluginFolder, sizeof(m_pluginFolder), folder);
    cutAfterLastSlash(m_pluginFolder);
}

void AZephyra::open() {
    recogniseHost();
    setProgram(0);
    m_currentBank.CopyTo(m_initialBank.data());

    findPluginFolder();
    std::string path = PathToFileURL(FileURLToPath(PreferencesFolderURL()) + kDefaultBankFileName);
    if (!CFileFind().FindFile(path.c_str())) {
        path = std::string(m_pluginFolder) + kDefaultBankFileName;
    }

    std::vector<char> chunk;
    switch (ReadBankFile(path.c_str(), kZephyraUniqueId, chunk)) {
    case BankFileStatus::kRead:
        setChunk(chunk.data(), static_cast<int32_t>(chunk.size()), false);
        break;
    case BankFileStatus::kNotChunkBank:
        break; // the banks stay, but the snapshot and the factory load still happen
    default:
        return;
    }
    m_currentBank.CopyTo(m_initialBank.data());
    SetFactoryProgram();
}

void AZephyra::SetFactoryProgram() {
    const std::string path = std::string(m_pluginFolder) + kDefaultBankFileName;
    std::vector<char> chunk;
    // A file whose chunk is empty leaves the factory bank as it is.
    if (ReadBankFile(path.c_str(), kZephyraUniqueId, chunk) == BankFileStatus::kRead &&
        !chunk.empty()) {
        std::memcpy(m_factoryBank.data(), chunk.data(), chunk.size());
    }
}

bool AZephyra::SaveProgram(int destination, CString name) {
    if (destination < 0 || destination >= kNumPrograms) {
        return true;
    }
    const std::string path = FileURLToPath(PreferencesFolderURL()) + kDefaultBankFileName;
    const int source = curProgram;

    // The edits move to the destination, which no longer counts as changed; the source
    // program returns to its initial state (both hold the saved values when they are one).
    m_currentBank.SetRecord(destination, m_currentBank.GetRecord(source));
    SetProgramRecordName(m_currentBank[destination], name);
    m_initialBank[destination] = m_currentBank.GetRecord(destination);
    m_currentBank.SetRecord(source, m_initialBank[source]);

    RelaxedStore(curProgram, destination);
    setProgram(destination);
    m_currentBank.StoreProgramNumber(curProgram);

    const bool written = writeBankFile(path);
    requestHostDisplayUpdate();
    return written;
}

// Writes beside the old file and renames over it, so a failure at any point leaves the
// previous bank intact.
bool AZephyra::writeBankFile(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash != std::string::npos) {
        EnsureDirectory(path.substr(0, slash + 1));
    }
    const std::string temporary = path + ".saving-" + std::to_string(CurrentProcessId());
    CFile file;
    if (!file.Open(temporary.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary)) {
        return false;
    }
    std::vector<char> image(AZephyraProgram::kBytes);
    m_currentBank.CopyTo(image.data());
    const bool written =
        WriteBankFile(file, kZephyraUniqueId, image.data(), static_cast<uint32_t>(image.size())) &&
        file.Flush();
    const bool closed = file.Close();
    if (!written || !closed || !RenameOver(temporary, path)) {
        RemoveFile(temporary);
        return false;
    }
    return true;
}
