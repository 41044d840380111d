// One loaded VST 2.4 shared object. It stays loaded while any instance created from it
// lives, so instances hold it through a shared pointer.
#pragma once

#include "tools/HostState.h"

#include <memory>
#include <string>

class PluginModule {
public:
    // Loads the module and finds its entry point; throws ToolError when the file is not a
    // VST 2.4 plug-in.
    static std::shared_ptr<PluginModule> load(const std::string& path);
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    const std::string& path() const { return modulePath; }
    // The folder the module lives in, ending in '/'.
    std::string folder() const;

    // Calls the entry point once; the record is checked before it is returned.
    AEffect* createEffect(HostState& state) const;
    // Calls the entry point once with another host's call-back and returns what it gives,
    // unchecked: for a host that answers and watches the plug-in itself, as tests do.
    AEffect* callEntry(audioMasterCallback callback) const { return entry(callback); }

private:
    using EntryPoint = AEffect* (*)(audioMasterCallback);
    PluginModule(std::string path, void* handle, EntryPoint entry);

    std::string modulePath;
    void* handle;
    EntryPoint entry;
};

// The plug-in to use when the command line names none: Zephyra.so (Zephyra.dll) beside
// this executable, else the one in ~/.vst (on Linux).
std::string defaultPluginPath();
