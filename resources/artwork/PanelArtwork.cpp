#include "PanelArtwork.h"

#include "EmbeddedArtwork.h"

void RegisterPanelArtwork(const char* bundleIdentifier) {
    AfxRegisterResources(bundleIdentifier, kPanelArtwork, kPanelArtworkCount);
}
