// The hardware key code of a typed ASCII character, in the key code set of KeyCodes.h (a US
// layout). Shared by the backends and the test driver so that typing gives the same key
// messages everywhere; 0 for characters without a key of their own.
#pragma once

#include "toolkit/platform/KeyCodes.h"

namespace native {

inline unsigned KeyCodeForCharacter(unsigned character) {
    static const unsigned char kLetters[26] = {
        0,  11, 8,  2,  14, 3, 5,  4,  34, 38, 40, 37, 46, // a..m
        45, 31, 35, 12, 15, 1, 17, 32, 9,  13, 7,  16, 6,  // n..z
    };
    static const unsigned char kDigits[10] = {29, 18, 19, 20, 21, 23, 22, 26, 28, 25};
    if (character >= 'a' && character <= 'z')
        return kLetters[character - 'a'];
    if (character >= 'A' && character <= 'Z')
        return kLetters[character - 'A'];
    if (character >= '0' && character <= '9')
        return kDigits[character - '0'];
    switch (character) {
    case ' ':
        return kKeySpace;
    case '=':
    case '+':
        return 24;
    case '-':
    case '_':
        return 27;
    case ']':
    case '}':
        return 30;
    case '[':
    case '{':
        return 33;
    case '\'':
    case '"':
        return 39;
    case ';':
    case ':':
        return 41;
    case '\\':
    case '|':
        return 42;
    case ',':
    case '<':
        return 43;
    case '/':
    case '?':
        return 44;
    case '.':
    case '>':
        return 47;
    case '`':
    case '~':
        return 50;
    default:
        return 0;
    }
}

} // namespace native
