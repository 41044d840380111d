// One X window of the toolkit (or the host's window, wrapped but not owned): maps, moves
// and shows the window, copies finished pixels to it, and turns its X events into the
// native layer's events.
#pragma once

#include "toolkit/platform/x11/X11Platform.h"

#include <X11/Xlib.h>
#include <cairo.h>

namespace native {

class X11View final : public NativeView {
public:
    X11View(X11Platform& platform, Window window, ViewEvents& events, bool owned, SIZE size);
    ~X11View() override;

    Window GetWindow() const { return m_window; }
    bool IsOwned() const { return m_owned; }
    // Whether the view's viewability should be watched (views directly in a host window).
    bool WatchesViewability() const { return m_watchViewability; }
    void SetWatchesViewability(bool watch) { m_watchViewability = watch; }
    void HandleEvent(XEvent& event);
    void CheckViewability();

    void SetFrame(const RECT& frame) override;
    SIZE Size() const override;
    POINT ScreenOrigin() const override;
    void SetVisible(bool visible) override;
    void Raise() override;
    void SetTitle(const char* utf8Title) override;
    void Present(cairo_surface_t* pixels, const RECT& area) override;
    void TakeKeyboardFocus() override;
    void ReturnKeyboardFocus() override;
    void GrabPointer() override;
    void ReleasePointer() override;
    uintptr_t SystemHandle() const override { return m_window; }

private:
    void HandleKey(XKeyEvent& event);
    void Forget();

    X11Platform& m_platform;
    Display* m_display;
    Window m_window;
    ViewEvents& m_events;
    const bool m_owned;
    SIZE m_size;
    cairo_surface_t* m_surface = nullptr;
    bool m_watchViewability = false;
    bool m_viewable = true;
    bool m_grabbed = false;
};

} // namespace native
