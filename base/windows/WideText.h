// UTF-8, the plug-in's text everywhere, to and from the UTF-16 that Windows' own calls take.
#pragma once

#include <string>

std::wstring WideFromUtf8(const std::string& text);
std::string Utf8FromWide(const wchar_t* text);
