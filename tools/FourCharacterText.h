// Shows a four-character code such as a plug-in's unique identifier ('VeEQ').
#pragma once

#include <cstdint>
#include <string>

inline std::string fourCharacterText(int32_t code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const char c = static_cast<char>((static_cast<uint32_t>(code) >> shift) & 0xFF);
        text += (c >= ' ' && c <= '~') ? c : '?';
    }
    return text;
}
