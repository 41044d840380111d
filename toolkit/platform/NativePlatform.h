// The native layer beneath the toolkit: windows, input events, focus and modifier state.
// A backend supplies these and nothing else; it never draws (the toolkit paints into Cairo
// image surfaces and hands finished pixels to Present). Coordinates are pixels with the
// origin at the top left and y growing downward, as everywhere in the toolkit.
#pragma once

#include "base/WinTypes.h"

#include <cairo.h>
#include <cstdint>

#include <memory>

namespace native {

enum class MouseAction { Down, Up, Move, WheelUp, WheelDown, Leave };

struct KeyInput {
    unsigned keyCode = 0;     // hardware key code (KeyCodes.h)
    unsigned character = 0;   // Unicode code point or control character typed, 0 for none
    unsigned long timeMs = 0; // event time, milliseconds on the backend's clock
};

// What a native view reports. Implemented by the toolkit's view class; every call arrives on
// the thread that runs the backend's event processing (the toolkit's main thread).
class ViewEvents {
public:
    // The area lost its pixels (first mapping, uncovering) and must be painted again.
    virtual void NativeExposed(const RECT& area) = 0;
    // Left-button activity and pointer motion in view coordinates. While the button is down,
    // and while the view holds the pointer grab, positions may lie outside the view.
    virtual void NativeMouse(MouseAction action, int x, int y, unsigned long timeMs) = 0;
    virtual void NativeKey(const KeyInput& key) = 0;
    virtual void NativeFocusLost() = 0;
    // A size change that did not come from the toolkit (a window manager, a host).
    virtual void NativeResized(int width, int height) = 0;
    // The view became viewable or stopped being viewable (itself or an ancestor unmapped).
    virtual void NativeViewable(bool viewable) = 0;
    virtual void NativeCloseRequested() = 0;
    // The native window is gone without the toolkit asking (its parent was destroyed).
    virtual void NativeDestroyed() = 0;

protected:
    ~ViewEvents() = default;
};

enum class TopLevelKind {
    Popup,  // menus and drop-down lists: no decoration, no focus of its own
    Dialog, // a decorated window kept above its owner
};

class NativeView {
public:
    virtual ~NativeView() = default;
    // Position relative to the parent view (screen coordinates for a top-level view) and size.
    virtual void SetFrame(const RECT& frame) = 0;
    virtual SIZE Size() const = 0;
    virtual POINT ScreenOrigin() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void Raise() = 0;
    virtual void SetTitle(const char* utf8Title) = 0;
    // Copies the given area of the finished pixels (same size as the view) to the screen.
    virtual void Present(cairo_surface_t* pixels, const RECT& area) = 0;
    virtual void TakeKeyboardFocus() = 0;
    virtual void ReturnKeyboardFocus() = 0;
    // Routes every mouse event of the platform to this view until released (menus use it
    // to see clicks outside themselves).
    virtual void GrabPointer() = 0;
    virtual void ReleasePointer() = 0;
    // The window system's own name for the view (an X window id), for a host that embeds it.
    virtual uintptr_t SystemHandle() const = 0;
};

class NativePlatform {
public:
    virtual ~NativePlatform() = default;
    virtual std::unique_ptr<NativeView> CreateChildView(NativeView& parent, const RECT& frame,
                                                        ViewEvents& events) = 0;
    virtual std::unique_ptr<NativeView> CreateTopLevelView(TopLevelKind kind, NativeView* owner,
                                                           const RECT& screenFrame,
                                                           ViewEvents& events) = 0;
    // Wraps a window that the host owns (the parent handed to the editor); null when the
    // handle names nothing this platform can use.
    virtual std::unique_ptr<NativeView> WrapHostView(void* handle, ViewEvents& events) = 0;
    // Modifier bits as KeyCodes.h defines them.
    virtual unsigned CurrentModifiers() = 0;
    virtual RECT ScreenBounds() = 0;
    // The desktop's font resolution in dots per inch (96 at scale 1), 0 when it names none.
    virtual double DesktopDpi() = 0;
    // Delivers the native events that are pending, without blocking.
    virtual void ProcessEvents() = 0;
    // Blocks until a native event may be pending or the time is up.
    virtual void WaitForEvents(int timeoutMs) = 0;
    // Whether the platform runs the toolkit's main-thread work itself, on the thread of its
    // windows (a native timer in the host's own message loop), so that nothing else must.
    virtual bool RunsMainThreadWork() const = 0;
};

} // namespace native
