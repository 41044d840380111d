#include "toolkit/PopupMenuClass.h"

#include "toolkit/CWnd.h"
#include "toolkit/WinMessages.h"

void PopupMenuClass::menuWillOpen(NativeMenu& menu) {
    for (NativeMenuItem& item : menu.Items())
        item.enabled = true;
    SendMessage0(m_pWnd, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(&menu), 0);
}

void PopupMenuClass::selectMenuItem1(const NativeMenuItem& item) {
    if (item.tag != 0)
        SendMessage0(m_pWnd, WM_COMMAND, item.tag, 0);
}
