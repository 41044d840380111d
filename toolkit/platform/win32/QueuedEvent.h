// What a window procedure learns about a view, kept until the platform's ProcessEvents
// delivers it: Windows calls window procedures inside the toolkit's own calls (SetFrame,
// SetVisible, a destructor), where the toolkit must not be called back.
#pragma once

#include "toolkit/platform/NativePlatform.h"

struct HWND__;

namespace native {

struct QueuedEvent {
    enum class Kind {
        Exposed,
        Mouse,
        Key,
        FocusLost,
        Resized, // the window's size may have changed; the size is read at delivery
        Viewable,
        CloseRequested,
        Destroyed,
    };

    // The view's window: an event for a view destroyed meanwhile finds no view and is dropped.
    HWND__* window = nullptr;
    Kind kind = Kind::Exposed;
    RECT area{0, 0, 0, 0}; // Exposed
    MouseAction action = MouseAction::Move;
    int x = 0; // Mouse, in the view's coordinates
    int y = 0;
    unsigned long timeMs = 0; // Mouse
    KeyInput key;             // Key
    bool viewable = false;    // Viewable
    // Input events: the modifiers as the user held them when the event happened.
    unsigned modifiers = 0;
};

} // namespace native
