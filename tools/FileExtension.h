// The extension of a file name, which names its format.
#pragma once

#include <string>

// The letters after the name's last dot, in lower case; empty when the name has none (a
// dot in a folder's name does not count).
std::string lowerCaseExtension(const std::string& path);
