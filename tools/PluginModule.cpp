#include "tools/PluginModule.h"

#include "tools/HeldLibraries.h"
#include "tools/ToolError.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return "./";
    }
    return path.substr(0, slash + 1);
}

std::string absolutePath(const std::string& path) {
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved == nullptr) {
        return path;
    }
    std::string result(resolved);
    std::free(resolved);
    return result;
}

bool isReadableFile(const std::string& path) {
    return access(path.c_str(), R_OK) == 0;
}

} // namespace

PluginModule::PluginModule(std::string path, void* handle, EntryPoint entry)
    : modulePath(std::move(path)), handle(handle), entry(entry) {}

PluginModule::~PluginModule() {
    // What the plug-in loaded, at start or since, stays: only the plug-in goes.
    holdLibrariesBesideModule(handle);
    dlclose(handle);
}

std::shared_ptr<PluginModule> PluginModule::load(const std::string& path) {
    if (!isReadableFile(path)) {
        throw ToolError("cannot read plug-in " + path + ": " + std::strerror(errno));
    }
    const std::string fullPath = absolutePath(path);
    void* handle = dlopen(fullPath.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        throw ToolError(path + " is not a VST 2.4 plug-in: " + dlerror());
    }
    // Older modules export the same entry under the legacy name.
    void* symbol = dlsym(handle, "VSTPluginMain");
    if (symbol == nullptr) {
        symbol = dlsym(handle, "main");
    }
    if (symbol == nullptr) {
        dlclose(handle);
        throw ToolError(path + " is not a VST 2.4 plug-in: it exports neither VSTPluginMain "
                               "nor main");
    }
    auto entry = reinterpret_cast<EntryPoint>(symbol);
    return std::shared_ptr<PluginModule>(new PluginModule(fullPath, handle, entry));
}

std::string PluginModule::folder() const {
    return folderOf(modulePath);
}

AEffect* PluginModule::createEffect(HostState& state) const {
    registerHostState(nullptr, &state);
    AEffect* effect = callEntry(hostCallback);
    unregisterHostState(nullptr);
    if (effect == nullptr) {
        throw ToolError(modulePath + ": the plug-in's entry point returned no effect");
    }
    if (effect->magic != kEffectMagic) {
        throw ToolError(modulePath + " is not a VST 2.4 plug-in: its effect record has the "
                                     "wrong magic number");
    }
    return effect;
}

std::string defaultPluginPath() {
    constexpr char kModuleName[] = "Zephyra.so";
    char executable[4096];
    const ssize_t length = readlink("/proc/self/exe", executable, sizeof executable - 1);
    if (length > 0) {
        executable[length] = '\0';
        const std::string beside = folderOf(executable) + kModuleName;
        if (isReadableFile(beside)) {
            return beside;
        }
    }
    const char* home = std::getenv("HOME");
    const std::string inUserFolder =
        std::string(home != nullptr ? home : "") + "/.vst/" + kModuleName;
    if (isReadableFile(inUserFolder)) {
        return inUserFolder;
    }
    throw ToolError("no plug-in given and no " + std::string(kModuleName) +
                    " beside the executable or in ~/.vst; use --plugin PATH");
}
