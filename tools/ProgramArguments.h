// The command line's arguments after the program's name, as UTF-8.
#pragma once

#include <string>
#include <vector>

std::vector<std::string> programArguments(int argc, char** argv);
