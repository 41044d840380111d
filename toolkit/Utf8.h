// Positions in UTF-8 text counted in characters, as the edit control counts them.
#pragma once

#include <string>

namespace utf8 {

int CharacterCount(const char* text);
// Byte offset of the character at index (clamped to the text).
int ByteOffset(const char* text, int characterIndex);
std::string Encode(unsigned codePoint);

} // namespace utf8
