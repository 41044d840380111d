// The target of a pop-up menu's items while it is shown: tells the window the menu is
// opening and turns the chosen item into a command. It works while a modal dialog runs, as
// it sends straight to its window. Made for one showing of the menu.
#pragma once

#include "toolkit/NativeMenu.h"

class CWnd;

class PopupMenuClass {
public:
    explicit PopupMenuClass(CWnd* wnd) : m_pWnd(wnd) {}

    // Enables every item, then sends WM_INITMENUPOPUP with the menu to the window, which
    // may grey or check items again.
    void menuWillOpen(NativeMenu& menu);
    // WM_COMMAND with the item's tag, at once; an item with tag 0 sends nothing.
    void selectMenuItem1(const NativeMenuItem& item);

private:
    CWnd* m_pWnd;
};
