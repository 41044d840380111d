#include "editor/ZephyraBundle.h"

#include "resources/artwork/PanelArtwork.h"

void RegisterZephyraBundle() {
    // The resource table is shared by every instance of the plug-in in the process and
    // hosts create instances on several threads: register it exactly once.
    static const bool registered = [] {
        RegisterPanelArtwork(kZephyraBundleIdentifier);
        return true;
    }();
    (void)registered;
}
