#include "toolkit/platform/win32/Win32Api.h"

#include "toolkit/platform/KeyCodes.h"
#include "toolkit/platform/KeyTranslation.h"
#include "toolkit/platform/win32/Win32Keys.h"

namespace native {

bool TranslateSpecialKey(unsigned virtualKey, bool extendedKey, TranslatedKey* key) {
    switch (virtualKey) {
    case VK_RETURN:
        // The keypad's Enter is Return with the extended-key flag.
        *key = extendedKey ? TranslatedKey{kKeyEnter, kCharEnter}
                           : TranslatedKey{kKeyReturn, kCharReturn};
        return true;
    case VK_TAB:
        *key = {kKeyTab, kCharTab};
        return true;
    case VK_BACK:
        *key = {kKeyBackSpace, kCharBackSpace};
        return true;
    case VK_ESCAPE:
        *key = {kKeyEscape, kCharEscape};
        return true;
    case VK_LEFT:
        *key = {kKeyLeft, kCharLeft};
        return true;
    case VK_RIGHT:
        *key = {kKeyRight, kCharRight};
        return true;
    case VK_UP:
        *key = {kKeyUp, kCharUp};
        return true;
    case VK_DOWN:
        *key = {kKeyDown, kCharDown};
        return true;
    case VK_DELETE:
        *key = {kKeyDelete, kCharDelete};
        return true;
    case VK_HOME:
        *key = {kKeyHome, 0};
        return true;
    case VK_END:
        *key = {kKeyEnd, 0};
        return true;
    case VK_PRIOR:
        *key = {kKeyPageUp, 0};
        return true;
    case VK_NEXT:
        *key = {kKeyPageDown, 0};
        return true;
    default:
        return false;
    }
}

unsigned KeyCodeForVirtualKey(unsigned virtualKey) {
    if (virtualKey >= VK_NUMPAD0 && virtualKey <= VK_NUMPAD7)
        return kKeyPad0 + (virtualKey - VK_NUMPAD0);
    switch (virtualKey) {
    case VK_NUMPAD8:
        return kKeyPad8;
    case VK_NUMPAD9:
        return kKeyPad9;
    case VK_DECIMAL:
        return kKeyPadDecimal;
    case VK_ADD:
        return kKeyPadAdd;
    case VK_SUBTRACT:
        return kKeyPadSubtract;
    case VK_MULTIPLY:
        return kKeyPadMultiply;
    case VK_DIVIDE:
        return kKeyPadDivide;
    default:
        break;
    }
    // The high bit marks a dead key; the character is the same.
    const UINT unshifted = MapVirtualKeyW(virtualKey, MAPVK_VK_TO_CHAR) & 0x7FFFFFFFu;
    return KeyCodeForCharacter(unshifted);
}

// Control sets kModifierControl only. The toolkit's GetKeyState reads VK_CONTROL (17) from
// kModifierControl, which is what the editor's Ctrl-click asks, and VK_MENU (18) from
// kModifierCommand: Ctrl setting the command bit too would make every Ctrl press read as
// Alt (Ctrl+Down would open a combo box's list). Alt sets Option, as Mod1 does on X11, and
// Command as well, so that VK_MENU reads the Alt key as on Windows itself (Alt+Down opens a
// combo box's list). The Windows keys set nothing: the system keeps their combinations.
unsigned KeyboardModifiers() {
    const auto down = [](int virtualKey) { return (GetKeyState(virtualKey) & 0x8000) != 0; };
    unsigned modifiers = 0;
    if (down(VK_SHIFT))
        modifiers |= kModifierShift;
    if (down(VK_CONTROL))
        modifiers |= kModifierControl;
    if (down(VK_MENU))
        modifiers |= kModifierOption | kModifierCommand;
    return modifiers;
}

unsigned Utf16Joiner::Add(unsigned unit) {
    if (unit >= 0xD800 && unit <= 0xDBFF) {
        m_highSurrogate = unit;
        return 0;
    }
    if (unit >= 0xDC00 && unit <= 0xDFFF) {
        const unsigned high = m_highSurrogate;
        m_highSurrogate = 0;
        // A lone second half stands for nothing.
        return high ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : 0;
    }
    m_highSurrogate = 0;
    return unit;
}

} // namespace native
