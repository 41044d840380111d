#include "base/SJIS.h"

#include "base/CodePage932.h"

#include <cstdint>
#include <string>

bool IsValidUTF8(const char* text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    while (*bytes) {
        int extra;
        uint32_t codePoint;
        if (*bytes < 0x80) {
            ++bytes;
            continue;
        } else if ((*bytes & 0xE0) == 0xC0) {
            extra = 1;
            codePoint = *bytes & 0x1F;
        } else if ((*bytes & 0xF0) == 0xE0) {
            extra = 2;
            codePoint = *bytes & 0x0F;
        } else if ((*bytes & 0xF8) == 0xF0) {
            extra = 3;
            codePoint = *bytes & 0x07;
        } else {
            return false;
        }
        ++bytes;
        for (int i = 0; i < extra; ++i, ++bytes) {
            if ((*bytes & 0xC0) != 0x80) {
                return false;
            }
            codePoint = (codePoint << 6) | (*bytes & 0x3F);
        }
        static const uint32_t smallest[] = {0, 0x80, 0x800, 0x10000};
        if (codePoint < smallest[extra] || codePoint > 0x10FFFF ||
            (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
            return false;
        }
    }
    return true;
}

void CheckSJISAndToUFT8(const char* source, CString& destination) {
    std::string converted;
    if (!IsValidUTF8(source) && Cp932ToUtf8(source, converted)) {
        destination = converted.c_str();
    } else {
        destination = source;
    }
}

CString UTF8ToSJSINS(const char* text) {
    std::string converted;
    if (Utf8ToCp932(text, converted)) {
        return CString(converted);
    }
    return CString(text);
}

bool IsDBCSLeadByte(unsigned char byte) {
    return byte >= 0x80;
}
