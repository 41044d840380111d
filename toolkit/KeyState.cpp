#include "toolkit/CWnd.h"
#include "toolkit/MessagePump.h"
#include "toolkit/platform/KeyCodes.h"

unsigned GetCurrentKeyModifiers0() {
    unsigned modifiers = 0;
    AfxForEachPlatform([&modifiers](native::NativePlatform& platform) {
        modifiers |= platform.CurrentModifiers();
    });
    return modifiers;
}

// Deliberately, the Alt key's code reads the Command key and 19 reads the Option key.
DWORD GetKeyState(int virtualKey) {
    unsigned bit = 0;
    switch (virtualKey) {
    case 16:
        bit = kModifierShift;
        break;
    case 17:
        bit = kModifierControl;
        break;
    case 18:
        bit = kModifierCommand;
        break;
    case 19:
        bit = kModifierOption;
        break;
    default:
        return 0;
    }
    return (GetCurrentKeyModifiers0() & bit) ? 0xFFFF8000u : 0;
}
