// The look of the toolkit's own controls: a flat dark theme that sits well beside the
// editor's graphite panel, with one accent colour for focus, selection and the default
// button. Colours are COLORREF (red in the low byte).
#pragma once

#include "base/WinTypes.h"

namespace theme {

constexpr COLORREF kWindow = RGB(0x2B, 0x2E, 0x33);  // dialog and menu background
constexpr COLORREF kCaption = RGB(0x23, 0x26, 0x2A); // dialog title strip
constexpr COLORREF kField = RGB(0x1C, 0x1F, 0x23);   // edit and list wells
constexpr COLORREF kControl = RGB(0x3A, 0x3F, 0x46); // buttons, closed lists
constexpr COLORREF kControlHover = RGB(0x45, 0x4B, 0x53);
constexpr COLORREF kControlPressed = RGB(0x32, 0x36, 0x3C);
constexpr COLORREF kBorder = RGB(0x4A, 0x50, 0x58);
constexpr COLORREF kText = RGB(0xE6, 0xE8, 0xEB);
constexpr COLORREF kTextDim = RGB(0x8A, 0x90, 0x98); // greyed items, captions
constexpr COLORREF kAccent = RGB(0x3D, 0x8B, 0xF2);  // focus, selection, default
constexpr COLORREF kAccentHover = RGB(0x55, 0x9B, 0xF5);
constexpr COLORREF kAccentText = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kSelection = RGB(0x2C, 0x5A, 0x9A); // selected text behind the caret

constexpr int kCornerRadius = 4;
constexpr int kCaptionHeight = 28;
constexpr int kTextPadding = 6;
// Controls and menus use the window's font face at this size.
constexpr int kFontSize = 13;

} // namespace theme
