#include "toolkit/OwnedWindows.h"

#include "toolkit/CWnd.h"

#include <algorithm>
#include <vector>

namespace {

struct OwnedWindow {
    const CWnd* owner;
    std::unique_ptr<CWnd> window;
};

std::vector<OwnedWindow>& Kept() {
    static std::vector<OwnedWindow> kept;
    return kept;
}

} // namespace

void AfxKeepOwnedWindow(const CWnd* owner, std::unique_ptr<CWnd> window) {
    Kept().push_back({owner, std::move(window)});
}

// Each window leaves the list before it is destroyed: its destruction destroys what it owns,
// which changes the list again.
bool AfxReleaseOwnedWindow(const CWnd* window) {
    auto& kept = Kept();
    const auto found = std::find_if(kept.begin(), kept.end(), [window](const OwnedWindow& k) {
        return k.window.get() == window;
    });
    if (found == kept.end())
        return false;
    std::unique_ptr<CWnd> leaving = std::move(found->window);
    kept.erase(found);
    leaving.reset();
    return true;
}

void AfxDestroyWindowsOwnedBy(const CWnd* owner) {
    for (;;) {
        auto& kept = Kept();
        const auto found = std::find_if(kept.begin(), kept.end(),
                                        [owner](const OwnedWindow& k) { return k.owner == owner; });
        if (found == kept.end())
            return;
        AfxReleaseOwnedWindow(found->window.get());
    }
}
