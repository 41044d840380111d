// A pop-up menu whose chosen item comes back to its owner window as WM_COMMAND with the
// item's id. Made on the stack for one showing; its native menu goes with it.
#pragma once

#include "toolkit/CObject.h"
#include "toolkit/NativeMenu.h"

#include <memory>

class CWnd;

// AppendMenu flags.
constexpr UINT MF_STRING = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_SEPARATOR = 0x0800;
// TrackPopupMenu flags (not used: the menu opens at the point, left button).
constexpr UINT TPM_LEFTALIGN = 0x0000;
constexpr UINT TPM_LEFTBUTTON = 0x0000;

class CMenu : public CObject {
public:
    bool CreatePopupMenu();
    HMENU GetSafeHmenu() const { return m_menu.get(); }
    // The CMenu of a native menu (as WM_INITMENUPOPUP carries it), or null.
    static CMenu* FromHandle(HMENU menu);

    bool AppendMenu(UINT flags, UINT id = 0, const char* text = nullptr);
    // The previous state (MF_GRAYED or MF_ENABLED, MF_CHECKED or MF_UNCHECKED), -1 when the
    // item does not exist.
    int EnableMenuItem(UINT item, UINT flags);

    // Shows the menu at (x, y) in the owner's client coordinates. Unlike the Win32 call it
    // returns at once, true when the menu is shown, and does not wait for the choice: no
    // nested loop may run inside a Linux host's call. Once the menu has closed, a chosen
    // item reaches the owner as a command, and then onClosed is told whether one was
    // chosen; neither happens if the owner is destroyed first. This CMenu may go as soon as
    // the call returns. Flags and rectangle are not used.
    bool TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT* rect = nullptr,
                        MenuClosed onClosed = nullptr);

private:
    NativeMenuItem* Find(UINT item, UINT flags);

    std::unique_ptr<NativeMenu> m_menu;
};
