// The toolkit's native menu: items with a title, a command tag, and enabled and checked
// states, shown as a drawn pop-up list. The functions ending in NS are the crossings that a
// CMenu makes into it. Owned by its CMenu.
#pragma once

#include "base/CString.h"
#include "base/WinTypes.h"

#include <functional>
#include <memory>
#include <vector>

class CMenu;
class CWnd;
class MFCView0;
class PopupMenuClass;

struct NativeMenuItem {
    CString title;
    UINT tag = 0;
    bool enabled = true;
    bool checked = false;
    bool separator = false;
};

class NativeMenu {
public:
    explicit NativeMenu(CMenu* owner) : m_owner(owner) {}

    CMenu* Owner() const { return m_owner; }
    std::vector<NativeMenuItem>& Items() { return m_items; }
    const std::vector<NativeMenuItem>& Items() const { return m_items; }
    bool AutoenablesItems() const { return m_autoenables; }
    void SetAutoenablesItems(bool autoenables) { m_autoenables = autoenables; }
    PopupMenuClass* Delegate() const { return m_delegate; }
    void SetDelegate(PopupMenuClass* target) { m_delegate = target; }

private:
    CMenu* m_owner;
    std::vector<NativeMenuItem> m_items;
    bool m_autoenables = true;
    PopupMenuClass* m_delegate = nullptr;
};

using HMENU = NativeMenu*;

std::unique_ptr<NativeMenu> MenuCreateNS(CMenu* owner);
void AppendMenuItemNS(NativeMenu& menu, const char* utf8Title, UINT tag, bool enabled, bool checked,
                      bool separator);
// Told whether an item was chosen, once the menu has closed.
using MenuClosed = std::function<void(bool chosen)>;

// Shows the menu with the item at index (none for -1) at (x, y) in the view's coordinates,
// the owner receiving its messages, and returns: false when it cannot be shown. The menu's
// items are copied, so the menu itself may go at once. Once it has closed, the chosen item
// reaches the owner as a command and then onClosed runs, both from a later pump and only
// while the owner lives.
bool MenuPopUpMenuNS(NativeMenu& menu, int index, int x, int y, MFCView0* view, CWnd* owner,
                     MenuClosed onClosed);
