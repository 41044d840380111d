// The arguments as the system holds them, in UTF-16: main's are in the ANSI code page,
// which cannot spell every file name.
#include "tools/ProgramArguments.h"

#include "base/windows/WideText.h"

#include <windows.h>

#include <shellapi.h>

std::vector<std::string> programArguments(int, char**) {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(Utf8FromWide(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}
