// Folders and files on Windows: the roaming application data folder, the folder of the
// DLL or program this code is linked into, directories made with their parents, and a
// move that replaces a file in one step. Paths come back with "/" between folders.
#include "base/PlatformFolders.h"

#include "base/windows/ModulePath.h"
#include "base/windows/WideText.h"

#include <windows.h>

#include <shlobj.h>

#include <cerrno>
#include <cwchar>

namespace {

std::string folderWithSlash(const wchar_t* folder) {
    std::string path = NormalizedPath(Utf8FromWide(folder).c_str());
    if (!path.empty() && path.back() != '/') {
        path += '/';
    }
    return path;
}

// %APPDATA% as the user's session sets it (a test or a portable setup may point it
// elsewhere), else the folder the shell knows by that role.
std::string roamingAppDataFolder() {
    if (const wchar_t* variable = _wgetenv(L"APPDATA"); variable && variable[0]) {
        return folderWithSlash(variable);
    }
    PWSTR known = nullptr;
    std::string folder;
    if (SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &known) == S_OK) {
        folder = folderWithSlash(known);
    }
    CoTaskMemFree(known);
    return folder;
}

} // namespace

bool GetUserPreferencesFolderURL(std::string& url) {
    const std::string folder = roamingAppDataFolder();
    if (folder.empty() || !IsAbsolutePath(folder.c_str())) {
        return false;
    }
    url = PathToFileURL(folder);
    return true;
}

std::string GetModuleFolder() {
    void* module = ThisModule();
    if (!module) {
        return {};
    }
    const std::string path = ModulePath(module);
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

bool IsDirectory(const std::string& pathOrURL) {
    const DWORD attributes = GetFileAttributesW(WideFromUtf8(FileURLToPath(pathOrURL)).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool EnsureDirectory(const std::string& pathOrURL) {
    const std::string path = NormalizedPath(FileURLToPath(pathOrURL).c_str());
    // Creating the drive ("C:") or a server's name fails harmlessly on the way down.
    for (size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        CreateDirectoryW(WideFromUtf8(path.substr(0, slash)).c_str(), nullptr);
    }
    CreateDirectoryW(WideFromUtf8(path).c_str(), nullptr);
    return IsDirectory(path);
}

bool IsAbsolutePath(const char* path) {
    const auto separator = [](char c) { return c == '/' || c == '\\'; };
    const bool drive = path[0] && path[1] == ':' && separator(path[2]);
    const bool share = separator(path[0]) && separator(path[1]);
    return drive || share;
}

std::string NormalizedPath(const char* path) {
    std::string normalized = path;
    for (char& c : normalized) {
        if (c == '\\') {
            c = '/';
        }
    }
    return normalized;
}

bool RenameOver(const std::string& source, const std::string& destination) {
    if (MoveFileExW(WideFromUtf8(source).c_str(), WideFromUtf8(destination).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        return true;
    }
    // Callers report errno, as the C library's rename sets it.
    errno = GetLastError() == ERROR_FILE_NOT_FOUND ? ENOENT : EACCES;
    return false;
}

bool RemoveFile(const std::string& path) {
    return DeleteFileW(WideFromUtf8(path).c_str());
}

int CurrentProcessId() {
    return static_cast<int>(GetCurrentProcessId());
}
