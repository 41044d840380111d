#include "base/windows/ModulePath.h"

#include "base/PlatformFolders.h"
#include "base/windows/WideText.h"

#include <windows.h>

#include <vector>

std::string ModulePath(void* module) {
    // The call cuts a long name to the buffer's size and says so only by filling it: grow
    // until the name fits.
    std::vector<wchar_t> name(MAX_PATH);
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(static_cast<HMODULE>(module), name.data(), name.size());
        if (length == 0) {
            return {};
        }
        if (length < name.size()) {
            return NormalizedPath(Utf8FromWide(name.data()).c_str());
        }
        name.resize(name.size() * 2);
    }
}

void* ThisModule() {
    static void* const module = [] {
        HMODULE found = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(&ThisModule), &found);
        return static_cast<void*>(found);
    }();
    return module;
}
