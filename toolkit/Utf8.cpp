#include "toolkit/Utf8.h"

namespace utf8 {

namespace {
bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}
} // namespace

int CharacterCount(const char* text) {
    int count = 0;
    for (const char* c = text; c && *c; ++c) {
        if (!IsContinuation(static_cast<unsigned char>(*c)))
            ++count;
    }
    return count;
}

int ByteOffset(const char* text, int characterIndex) {
    if (!text || characterIndex <= 0)
        return 0;
    int seen = 0;
    int offset = 0;
    for (; text[offset]; ++offset) {
        if (!IsContinuation(static_cast<unsigned char>(text[offset]))) {
            if (seen == characterIndex)
                return offset;
            ++seen;
        }
    }
    return offset;
}

std::string Encode(unsigned codePoint) {
    std::string bytes;
    if (codePoint < 0x80) {
        bytes += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        bytes += static_cast<char>(0xC0 | (codePoint >> 6));
        bytes += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        bytes += static_cast<char>(0xE0 | (codePoint >> 12));
        bytes += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        bytes += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x110000) {
        bytes += static_cast<char>(0xF0 | (codePoint >> 18));
        bytes += static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F));
        bytes += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        bytes += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
    return bytes;
}

} // namespace utf8
