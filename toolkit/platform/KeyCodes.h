// The key codes and character codes that key messages carry. Key codes are hardware
// positions (WM_KEYDOWN's wParam), character codes are what the key types (WM_CHAR's
// wParam); keys without text type the control characters listed here.
#pragma once

constexpr unsigned kKeyReturn = 36;
constexpr unsigned kKeyTab = 48;
constexpr unsigned kKeySpace = 49;
constexpr unsigned kKeyBackSpace = 51;
constexpr unsigned kKeyEscape = 53;
constexpr unsigned kKeyEnter = 76;
constexpr unsigned kKeyHome = 115;
constexpr unsigned kKeyPageUp = 116;
constexpr unsigned kKeyDelete = 117;
constexpr unsigned kKeyEnd = 119;
constexpr unsigned kKeyPageDown = 121;
constexpr unsigned kKeyLeft = 123;
constexpr unsigned kKeyRight = 124;
constexpr unsigned kKeyDown = 125;
constexpr unsigned kKeyUp = 126;

constexpr unsigned kCharEnter = 3;
constexpr unsigned kCharBackSpace = 8;
constexpr unsigned kCharTab = 9;
constexpr unsigned kCharReturn = 13;
constexpr unsigned kCharEscape = 27;
constexpr unsigned kCharLeft = 28;
constexpr unsigned kCharRight = 29;
constexpr unsigned kCharUp = 30;
constexpr unsigned kCharDown = 31;
constexpr unsigned kCharDelete = 127;

// Modifier bits as GetKeyState reads them.
constexpr unsigned kModifierCommand = 0x0100;
constexpr unsigned kModifierShift = 0x0200;
constexpr unsigned kModifierOption = 0x0800;
constexpr unsigned kModifierControl = 0x1000;

// Keypad keys.
constexpr unsigned kKeyPadDecimal = 65;
constexpr unsigned kKeyPadMultiply = 67;
constexpr unsigned kKeyPadAdd = 69;
constexpr unsigned kKeyPadDivide = 75;
constexpr unsigned kKeyPadSubtract = 78;
constexpr unsigned kKeyPad0 = 82; // 0..7 follow in order; 8 is 91 and 9 is 92
constexpr unsigned kKeyPad8 = 91;
constexpr unsigned kKeyPad9 = 92;
