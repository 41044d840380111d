// A host keeps the libraries that plug-ins bring along (X11, Cairo, Pango, fontconfig,
// GLib, ...) for the rest of the process, as a desktop host, which links them itself, always
// does. Unloading them with the plug-in would throw away their process-wide caches, which
// they never free, and start them afresh with the next plug-in: memory lost with every
// unload, and nothing a leak checker could tell from a plug-in's own leak.
#pragma once

// Keeps every library now loaded in the process, except the given module itself, loaded
// until the process ends: called just before the module is closed, it holds whatever the
// module loaded. module is a handle from dlopen.
void holdLibrariesBesideModule(void* module);
