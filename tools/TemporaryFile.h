// The system's side of an output written under a temporary name.
#pragma once

#include <string>
#include <vector>

// Creates a new, empty file named by the pattern with its last six X's replaced, with the
// permissions the destination has or a new file would get. False, with errno set, when it
// cannot.
bool createTemporaryFile(std::string& pattern, const std::string& destination);

// The signals that end the program, after which a temporary file must not be left behind.
std::vector<int> fatalSignals();
