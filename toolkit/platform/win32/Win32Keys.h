// Windows' key messages in the toolkit's terms (KeyCodes.h): the same key codes and
// characters as the X11 backend gives for the same keys.
#pragma once

namespace native {

struct TranslatedKey {
    unsigned keyCode;
    unsigned character;
};

// Keys that type no text, or whose text the handlers expect as a control character; they are
// reported at WM_KEYDOWN. False for keys whose text arrives with WM_CHAR.
bool TranslateSpecialKey(unsigned virtualKey, bool extendedKey, TranslatedKey* key);

// The key code that the text typed by this key will carry: the keypad's own codes for its
// keys, otherwise the code of the character the key types without Shift; 0 for none.
unsigned KeyCodeForVirtualKey(unsigned virtualKey);

// The modifier bits (KeyCodes.h) as the thread's key state holds them: the state as of the
// message being handled.
unsigned KeyboardModifiers();

// Joins the UTF-16 units that WM_CHAR delivers one by one into code points.
class Utf16Joiner {
public:
    // The code point the unit completes; 0 for the first half of a surrogate pair.
    unsigned Add(unsigned unit);

private:
    unsigned m_highSurrogate = 0;
};

} // namespace native
