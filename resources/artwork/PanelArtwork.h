// The panel's bitmaps, numbered 5000 to 5013, compiled into the module.
#pragma once

// Makes the bitmaps loadable through the toolkit's resource loaders under the plug-in's
// bundle identifier. Registering again under the same identifier changes nothing.
void RegisterPanelArtwork(const char* bundleIdentifier);
