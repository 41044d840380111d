// Where the plug-in finds its files on this system: the user's preferences folder, the
// folder of the loaded module, and conversions between file URLs and paths.
#pragma once

#include <string>

// The file URL of $XDG_CONFIG_HOME/ (or of ~/.config/ when it is unset), ending in "/".
// False when neither variable gives a folder.
bool GetUserPreferencesFolderURL(std::string& url);

// The folder holding the shared object (or executable) this code was linked into,
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
