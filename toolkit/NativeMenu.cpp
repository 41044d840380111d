#include "toolkit/NativeMenu.h"

#include "toolkit/CWnd.h"
#include "toolkit/MFCView0.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/PopupMenuClass.h"

std::unique_ptr<NativeMenu> MenuCreateNS(CMenu* owner) {
    return std::make_unique<NativeMenu>(owner);
}

void AppendMenuItemNS(NativeMenu& menu, const char* utf8Title, UINT tag, bool enabled, bool checked,
                      bool separator) {
    NativeMenuItem item;
    item.title = utf8Title;
    item.tag = tag;
    item.enabled = enabled;
    item.checked = checked;
    item.separator = separator;
    menu.Items().push_back(item);
}

bool MenuPopUpMenuNS(NativeMenu& menu, int index, int x, int y, MFCView0* view, CWnd* owner,
                     MenuClosed onClosed) {
    if (!view || !owner)
        return false;
    PopupMenuClass target(owner);
    menu.SetAutoenablesItems(false);
    menu.SetDelegate(&target);
    target.menuWillOpen(menu);
    menu.SetDelegate(nullptr);

    std::vector<PopupListItem> items;
    for (const NativeMenuItem& item : menu.Items())
        items.push_back({item.title, item.enabled, item.checked, item.separator});
    const CPoint location = view->ScreenOrigin() + CSize(x, y);
    auto chose = [target, chosenFrom = menu.Items(),
                  onClosed = std::move(onClosed)](int chosen) mutable {
        const bool valid = chosen >= 0 && chosen < static_cast<int>(chosenFrom.size());
        if (valid)
            target.selectMenuItem1(chosenFrom[static_cast<std::size_t>(chosen)]);
        if (onClosed)
            onClosed(valid);
    };
    return PopupListWnd::Open(std::move(items), PopupListWnd::Layout::Columns, owner, location, 0,
                              index, -1, std::move(chose));
}
