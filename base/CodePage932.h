// Conversions between UTF-8 and code page 932 (Shift-JIS with the common vendor
// extensions) by the system's own converter; false when any byte cannot be converted.
#pragma once

#include <string>

bool Cp932ToUtf8(const char* text, std::string& result);
bool Utf8ToCp932(const char* text, std::string& result);
