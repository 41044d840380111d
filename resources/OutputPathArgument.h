// The build's generators take exactly one argument, the path they write to. Anything that
// looks like an option is refused rather than taken for a file name; --help and -h print
// the usage.
#pragma once

#include <cstdio>
#include <cstring>

// The path, or null after printing the usage; exitStatus is then what main returns.
inline const char* OutputPathArgument(int argc, char** argv, const char* pathName,
                                      int* exitStatus) {
    if (argc == 2 && argv[1][0] != '-')
        return argv[1];
    const bool help =
        argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0);
    std::fprintf(help ? stdout : stderr, "usage: %s %s\n", argv[0], pathName);
    *exitStatus = help ? 0 : 2;
    return nullptr;
}
