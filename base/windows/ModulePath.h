// The file a loaded DLL or program was loaded from, UTF-8 with "/" between folders; the
// program's own for a null module, empty when the system does not say.
#pragma once

#include <string>

std::string ModulePath(void* module);

// The DLL or program that holds this code: the plug-in's DLL when a host loaded it (the
// whole plug-in is linked into one module), the program otherwise. Null if the system
// does not say.
void* ThisModule();
