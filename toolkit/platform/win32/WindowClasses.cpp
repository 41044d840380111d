#include "toolkit/platform/win32/Win32Api.h"

#include "base/windows/ModulePath.h"
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

// The classes belong to the plug-in's DLL, not the host's program.
HINSTANCE ClassModule() {
    return static_cast<HINSTANCE>(ThisModule());
}

const ClassNames& Names() {
    static const ClassNames names = [] {
        ClassNames made{};
        std::swprintf(made.view, 64, L"ZephyraView.%p", ClassModule());
        std::swprintf(made.pump, 64, L"ZephyraPump.%p", ClassModule());
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
    windowClass.hInstance = ClassModule();
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
            UnregisterClassW(Names().view, ClassModule());
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
    UnregisterClassW(Names().view, ClassModule());
    UnregisterClassW(Names().pump, ClassModule());
}

void* WindowClassModule() {
    return ClassModule();
}

const wchar_t* ViewClassName() {
    return Names().view;
}

const wchar_t* PumpClassName() {
    return Names().pump;
}

} // namespace native
