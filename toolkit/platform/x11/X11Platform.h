// The native layer on an X server through Xlib: one display connection of its own per
// platform (one per editor), windows inside the host's window, override-redirect pop-ups
// and transient dialogs. Never initialises Xlib threading: every call comes from the thread
// that runs the toolkit's main-thread work.
#pragma once

#include "toolkit/platform/NativePlatform.h"

#include <X11/Xlib.h>

#include <map>
#include <memory>

namespace native {

class X11View;

class X11Platform : public NativePlatform {
public:
    // Null when no display can be opened.
    static std::shared_ptr<X11Platform> Open(const char* displayName = nullptr);
    ~X11Platform() override;

    std::unique_ptr<NativeView> CreateChildView(NativeView& parent, const RECT& frame,
                                                ViewEvents& events) override;
    std::unique_ptr<NativeView> CreateTopLevelView(TopLevelKind kind, NativeView* owner,
                                                   const RECT& screenFrame,
                                                   ViewEvents& events) override;
    std::unique_ptr<NativeView> WrapHostView(void* handle, ViewEvents& events) override;
    unsigned CurrentModifiers() override;
    RECT ScreenBounds() override;
    double DesktopDpi() override;
    void ProcessEvents() override;
    void WaitForEvents(int timeoutMs) override;
    bool RunsMainThreadWork() const override { return false; }

    Display* GetDisplay() const { return m_display; }
    Atom DeleteWindowAtom() const { return m_wmDeleteWindow; }
    void Register(Window window, X11View* view) { m_views[window] = view; }
    void Unregister(Window window) { m_views.erase(window); }
    // Whether the window is one that this platform made (not a wrapped host window).
    bool IsOurs(Window window) const;
    // The window that had the keyboard before one of ours took it.
    Window& FocusToRestore() { return m_focusToRestore; }
    // A window that asked for the keyboard before it could be shown (a window manager maps
    // new dialogs in its own time); it gets the keyboard once it is viewable.
    Window& PendingFocus() { return m_pendingFocus; }

private:
    explicit X11Platform(Display* display);
    void Dispatch(XEvent& event);
    void CheckViewability();
    void GivePendingFocus();

    Display* m_display;
    Atom m_wmDeleteWindow;
    std::map<Window, X11View*> m_views;
    Window m_focusToRestore = None;
    Window m_pendingFocus = None;
    unsigned long m_lastViewabilityCheckMs = 0;
    // The modifiers of the input event being handled, if one is.
    bool m_handlingInput = false;
    unsigned m_eventModifierMask = 0;
};

} // namespace native
