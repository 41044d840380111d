#include "toolkit/platform/win32/Win32Api.h"

#include "toolkit/platform/win32/Win32Platform.h"
#include "toolkit/platform/win32/Win32View.h"
#include "toolkit/platform/win32/WindowClasses.h"

#include <cwchar>
#include <mutex>

namespace native {

namespace {

struct ClassNames {
    wchar_t view[64];
    wchar_t pump[64];
};

// The module that holds this code: the plug-in's DLL, not the host's program.
HINSTANCE ThisModule() {
    static const HINSTANCE module = [] {
        HMODULE found = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(&ThisModule), &found);
        return found;
    }();
    return module;
}

const ClassNames& Names() {
    static const ClassNames names = [] {
        ClassNames made{};
        std::swprintf(made.view, 64, L"ZephyraView.%p", static_cast<void*>(ThisModule()));
        std::swprintf(made.pump, 64, L"ZephyraPump.%p", static_cast<void*>(ThisModule()));
        return made;
    }();
    return names;
}

std::mutex& UsersLock() {
    static std::mutex lock;
    return lock;
}
int g_users = 0;

bool RegisterOne(const wchar_t* name, WNDPROC procedure, HCURSOR cursor) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    // No CS_DBLCLKS: the toolkit counts clicks itself and wants every press as a press.
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = ThisModule();
    windowClass.hCursor = cursor;
    windowClass.lpszClassName = name;
    return RegisterClassExW(&windowClass) != 0;
}

} // namespace

bool AcquireWindowClasses() {
    std::lock_guard<std::mutex> lock(UsersLock());
    if (g_users == 0) {
        if (!RegisterOne(Names().view, Win32View::WindowProcedure,
                         LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW))))
            return false;
        if (!RegisterOne(Names().pump, Win32Platform::PumpWindowProcedure, nullptr)) {
            UnregisterClassW(Names().view, ThisModule());
            return false;
        }
    }
    ++g_users;
    return true;
}

void ReleaseWindowClasses() {
    std::lock_guard<std::mutex> lock(UsersLock());
    if (--g_users > 0)
        return;
    UnregisterClassW(Names().view, ThisModule());
    UnregisterClassW(Names().pump, ThisModule());
}

void* WindowClassModule() {
    return ThisModule();
}

const wchar_t* ViewClassName() {
    return Names().view;
}

const wchar_t* PumpClassName() {
    return Names().pump;
}

} // namespace native
