// Modules through LoadLibrary, by their UTF-16 names.
#include "tools/ModuleLoader.h"

#include "base/PlatformFolders.h"
#include "base/windows/ModulePath.h"
#include "base/windows/WideText.h"

#include <io.h>
#include <windows.h>

#include <vector>

namespace module_loader {

const char kDefaultModuleName[] = "Zephyra.dll";
const char kUserPluginFolderShown[] = "";

// Windows names no plug-in folder of the user's: every host keeps its own list.
std::string UserPluginFolder() {
    return {};
}

void* Open(const std::string& path, std::string& error) {
    // The module's own folder is searched for the libraries it needs, as hosts do.
    HMODULE module =
        LoadLibraryExW(WideFromUtf8(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr) {
        wchar_t* message = nullptr;
        const DWORD code = GetLastError();
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                           FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, code, 0, reinterpret_cast<LPWSTR>(&message), 0, nullptr);
        error = message ? Utf8FromWide(message) : "error " + std::to_string(code);
        LocalFree(message);
        while (!error.empty() && (error.back() == '\n' || error.back() == '\r')) {
            error.pop_back();
        }
    }
    return module;
}

void* FindSymbol(void* module, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void Close(void* module) {
    FreeLibrary(static_cast<HMODULE>(module));
}

bool IsReadableFile(const std::string& path) {
    constexpr int kReadable = 4;
    return _waccess(WideFromUtf8(path).c_str(), kReadable) == 0;
}

std::string AbsolutePath(const std::string& path) {
    const std::wstring wide = WideFromUtf8(path);
    const DWORD length = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::vector<wchar_t> full(length + 1);
    if (length == 0 || GetFullPathNameW(wide.c_str(), length + 1, full.data(), nullptr) == 0) {
        return path;
    }
    return NormalizedPath(Utf8FromWide(full.data()).c_str());
}

std::string ExecutablePath() {
    return ModulePath(nullptr);
}

} // namespace module_loader
