#include "tools/ProgramArguments.h"

std::vector<std::string> programArguments(int argc, char** argv) {
    return std::vector<std::string>(argv + 1, argv + argc);
}
