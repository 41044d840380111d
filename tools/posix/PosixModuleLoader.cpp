// Modules through the dynamic loader. Closing one keeps the libraries it brought along
// loaded (HeldLibraries.h).
#include "tools/ModuleLoader.h"

#include "tools/HeldLibraries.h"

#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

namespace module_loader {

const char kDefaultModuleName[] = "Zephyra.so";
const char kUserPluginFolderShown[] = "~/.vst";

std::string UserPluginFolder() {
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.vst/";
}

void* Open(const std::string& path, std::string& error) {
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        error = dlerror();
    }
    return module;
}

void* FindSymbol(void* module, const char* name) {
    return dlsym(module, name);
}

void Close(void* module) {
    holdLibrariesBesideModule(module);
    dlclose(module);
}

bool IsReadableFile(const std::string& path) {
    return access(path.c_str(), R_OK) == 0;
}

std::string AbsolutePath(const std::string& path) {
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved == nullptr) {
        return path;
    }
    std::string result(resolved);
    std::free(resolved);
    return result;
}

std::string ExecutablePath() {
    char executable[4096];
    const ssize_t length = readlink("/proc/self/exe", executable, sizeof executable - 1);
    return length > 0 ? std::string(executable, static_cast<size_t>(length)) : std::string();
}

} // namespace module_loader
