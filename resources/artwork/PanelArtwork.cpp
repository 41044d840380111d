#include "resources/artwork/PanelArtwork.h"

#include "resources/artwork/EmbeddedArtwork.h"

void RegisterPanelArtwork(const char* bundleIdentifier) {
    AfxRegisterResources(bundleIdentifier, kPanelArtwork, kPanelArtworkCount);
}
