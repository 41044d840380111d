// Program names are stored as Shift-JIS bytes; the user interface speaks UTF-8.
#pragma once

#include "base/CString.h"

// Copies source to destination as UTF-8: unchanged when it already is valid UTF-8, else
// decoded as Shift-JIS; when that fails as well, unchanged.
void CheckSJISAndToUFT8(const char* source, CString& destination);
// The UTF-8 text in Shift-JIS (with the common vendor extensions); the text unchanged
// when it cannot be converted.
CString UTF8ToSJSINS(const char* text);
// Deliberately cruder than the Shift-JIS lead-byte ranges: any byte of 0x80 or above.
bool IsDBCSLeadByte(unsigned char byte);

// True when the bytes form valid UTF-8.
bool IsValidUTF8(const char* text);
