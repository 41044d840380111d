#include "toolkit/CMenu.h"

#include "toolkit/CWnd.h"

bool CMenu::CreatePopupMenu() {
    m_menu = MenuCreateNS(this);
    return true;
}

CMenu* CMenu::FromHandle(HMENU menu) {
    return menu ? menu->Owner() : nullptr;
}

bool CMenu::AppendMenu(UINT flags, UINT id, const char* text) {
    if (!m_menu)
        return false;
    AppendMenuItemNS(*m_menu, text ? text : "", id, (flags & (MF_GRAYED | MF_DISABLED)) == 0,
                     (flags & MF_CHECKED) != 0, (flags & MF_SEPARATOR) != 0);
    return true;
}

NativeMenuItem* CMenu::Find(UINT item, UINT flags) {
    if (!m_menu)
        return nullptr;
    auto& items = m_menu->Items();
    if (flags & MF_BYPOSITION)
        return item < items.size() ? &items[item] : nullptr;
    for (NativeMenuItem& candidate : items) {
        if (candidate.tag == item && !candidate.separator)
            return &candidate;
    }
    return nullptr;
}

int CMenu::EnableMenuItem(UINT item, UINT flags) {
    NativeMenuItem* found = Find(item, flags);
    if (!found)
        return -1;
    const int previous = found->enabled ? MF_ENABLED : MF_GRAYED;
    found->enabled = (flags & (MF_GRAYED | MF_DISABLED)) == 0;
    return previous;
}

bool CMenu::TrackPopupMenu(UINT, int x, int y, CWnd* owner, const RECT*, MenuClosed onClosed) {
    if (!m_menu || !owner)
        return false;
    return MenuPopUpMenuNS(*m_menu, -1, x, y, owner->GetSafeHwnd(), owner, std::move(onClosed));
}
