#include "base/Diagnostic.h"

#include <cstdarg>
#include <cstdio>

void AfxDiagnostic(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
}
