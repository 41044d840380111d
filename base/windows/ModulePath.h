// The file a loaded DLL or program was loaded from, UTF-8 with "/" between folders; the
// program's own for a null module, empty when the system does not say.
#pragma once

#include <string>

std::string ModulePath(void* module);
