#include "toolkit/KeyboardRouting.h"

#include "toolkit/CWnd.h"
#include "toolkit/MFCView0.h"
#include "toolkit/WinMessages.h"

void RouteKeyPress(CWnd* receiver, const native::KeyInput& key) {
    MSG msg{receiver->GetSafeHwnd(),        WM_KEYDOWN,  key.keyCode,  1,
            static_cast<DWORD>(key.timeMs), POINT{0, 0}, key.character};
    for (CWnd* wnd = receiver; wnd; wnd = wnd->IsTopLevel() ? nullptr : wnd->GetParent()) {
        if (wnd->PreTranslateMessage(&msg))
            return;
    }
    MFCView0* view = receiver->GetSafeHwnd();
    const std::uint64_t serial = view ? view->Serial() : 0;
    SendMessage0(receiver, WM_KEYDOWN, key.keyCode, 1);
    // The key-down handler may have closed the window.
    if (key.character != 0 && view && MFCView0::FromSerial(serial) == view &&
        view->GetCWnd() == receiver)
        SendMessage0(receiver, WM_CHAR, key.character, 1);
}
