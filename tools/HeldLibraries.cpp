#include "tools/HeldLibraries.h"

#include <dlfcn.h>
#include <link.h>

#include <cstring>

namespace {

int holdUnlessModule(dl_phdr_info* info, std::size_t, void* moduleName) {
    const char* name = info->dlpi_name;
    if (name != nullptr && name[0] != '\0' &&
        std::strcmp(name, static_cast<const char*>(moduleName)) != 0) {
        dlopen(name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
    }
    return 0;
}

} // namespace

void holdLibrariesBesideModule(void* module) {
    link_map* moduleMap = nullptr;
    if (module == nullptr || dlinfo(module, RTLD_DI_LINKMAP, &moduleMap) != 0 ||
        moduleMap == nullptr) {
        return;
    }
    dl_iterate_phdr(holdUnlessModule, moduleMap->l_name);
}
