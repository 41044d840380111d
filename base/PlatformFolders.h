// Where the plug-in finds its files on this system and how it handles them: the user's
// preferences folder, the folder of the loaded module, file URLs, paths and replacing a
// file. Paths are UTF-8 on every system.
#pragma once

#include <string>

// The file URL of the user's preferences folder, ending in "/": $XDG_CONFIG_HOME/ (or
// ~/.config/ when it is unset) on POSIX systems, %APPDATA%/ on Windows. False when the
// system names none.
bool GetUserPreferencesFolderURL(std::string& url);

// The folder holding the shared object, DLL or executable this code was linked into,
// ending in "/"; empty when it cannot be found.
std::string GetModuleFolder();

// A plain path stays as it is; a "file://" URL becomes the path it names (percent
// escapes decoded).
std::string FileURLToPath(const std::string& pathOrURL);
// The "file://" URL of an absolute path, with the bytes URLs do not allow escaped.
std::string PathToFileURL(const std::string& path);

// True when the path names an existing directory.
bool IsDirectory(const std::string& pathOrURL);
// Creates the directory and its missing parents; true when it exists afterwards.
bool EnsureDirectory(const std::string& pathOrURL);

// Paths as the plug-in keeps them: "/" between folders on every system (Windows accepts it),
// absolute when rooted ("/x" on POSIX systems; "C:/x" or "//server/x" on Windows).
bool IsAbsolutePath(const char* path);
// The path with the system's other separator, if it has one, turned into "/".
std::string NormalizedPath(const char* path);

// Moves source over destination in one step (the destination is never missing or half
// written); true when done, else false with errno set.
bool RenameOver(const std::string& source, const std::string& destination);
bool RemoveFile(const std::string& path);
int CurrentProcessId();
