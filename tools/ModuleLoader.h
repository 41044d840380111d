// The system's side of loading a plug-in module: the dynamic loader on POSIX systems,
// LoadLibrary on Windows. Paths are UTF-8 with "/" between folders on both.
#pragma once

#include <string>

namespace module_loader {

// The module's file name where a default plug-in is looked for ("Zephyra.so",
// "Zephyra.dll"), and the user's plug-in folder after the executable's own ("~/.vst/";
// empty where the system has no such folder of the user's).
extern const char kDefaultModuleName[];
std::string UserPluginFolder();
// How messages name that folder ("~/.vst"; empty where there is none).
extern const char kUserPluginFolderShown[];

// Null when the module cannot be loaded, with the system's reason in error.
void* Open(const std::string& path, std::string& error);
void* FindSymbol(void* module, const char* name);
void Close(void* module);

// False with errno set when the file cannot be read.
bool IsReadableFile(const std::string& path);
// The path made absolute, links resolved where the system has them; the path itself when
// that fails.
std::string AbsolutePath(const std::string& path);
// The running program's file, empty when the system does not say.
std::string ExecutablePath();

} // namespace module_loader
