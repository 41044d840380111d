#include "tools/PluginModule.h"

#include "tools/ModuleLoader.h"
#include "tools/ToolError.h"

#include <cerrno>
#include <cstring>

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return "./";
    }
    return path.substr(0, slash + 1);
}

} // namespace

PluginModule::PluginModule(std::string path, void* handle, EntryPoint entry)
    : modulePath(std::move(path)), handle(handle), entry(entry) {}

PluginModule::~PluginModule() {
    module_loader::Close(handle);
}

std::shared_ptr<PluginModule> PluginModule::load(const std::string& path) {
    if (!module_loader::IsReadableFile(path)) {
        throw ToolError("cannot read plug-in " + path + ": " + std::strerror(errno));
    }
    const std::string fullPath = module_loader::AbsolutePath(path);
    std::string error;
    void* handle = module_loader::Open(fullPath, error);
    if (handle == nullptr) {
        throw ToolError(path + " is not a VST 2.4 plug-in: " + error);
    }
    // Older modules export the same entry under the legacy name.
    void* symbol = module_loader::FindSymbol(handle, "VSTPluginMain");
    if (symbol == nullptr) {
        symbol = module_loader::FindSymbol(handle, "main");
    }
    if (symbol == nullptr) {
        module_loader::Close(handle);
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
    const std::string name = module_loader::kDefaultModuleName;
    const std::string executable = module_loader::ExecutablePath();
    for (const std::string& folder : {executable.empty() ? std::string() : folderOf(executable),
                                      module_loader::UserPluginFolder()}) {
        if (!folder.empty() && module_loader::IsReadableFile(folder + name)) {
            return folder + name;
        }
    }
    throw ToolError("no plug-in given and no " + name + " beside the executable" +
                    (*module_loader::kUserPluginFolderShown
                         ? std::string(" or in ") + module_loader::kUserPluginFolderShown
                         : std::string()) +
                    "; use --plugin PATH");
}
