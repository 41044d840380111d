// The Win32-shaped scalar and record types that the toolkit's interfaces speak in. Message
// parameters are pointer-sized so that a pointer or a handle fits in either of them.
#pragma once

#include <cstdint>

using UINT = unsigned int;
using DWORD = std::uint32_t;
using WORD = std::uint16_t;
using BYTE = std::uint8_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using COLORREF = std::uint32_t;

struct RECT {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct POINT {
    std::int32_t x;
    std::int32_t y;
};

struct SIZE {
    std::int32_t cx;
    std::int32_t cy;
};

// Colours keep red in the low byte, then green, then blue.
constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue) {
    return static_cast<COLORREF>(red) | (static_cast<COLORREF>(green) << 8) |
           (static_cast<COLORREF>(blue) << 16);
}
constexpr BYTE GetRValue(COLORREF colour) {
    return static_cast<BYTE>(colour & 0xFF);
}
constexpr BYTE GetGValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 8) & 0xFF);
}
constexpr BYTE GetBValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 16) & 0xFF);
}

constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}
constexpr LPARAM MAKELPARAM(int low, int high) {
    return static_cast<LPARAM>((static_cast<std::uint32_t>(low) & 0xFFFF) |
                               ((static_cast<std::uint32_t>(high) & 0xFFFF) << 16));
}
constexpr WPARAM MAKEWPARAM(int low, int high) {
    return static_cast<WPARAM>(MAKELPARAM(low, high)) & 0xFFFFFFFFu;
}
