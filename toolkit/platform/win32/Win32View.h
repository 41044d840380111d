// One window of the toolkit (or the host's window, wrapped but never owned): places, shows
// and copies finished pixels to the window, and turns its messages into queued events that
// the platform delivers later.
#pragma once

#include "toolkit/platform/win32/Win32Api.h"

#include "toolkit/platform/win32/Win32Keys.h"
#include "toolkit/platform/win32/Win32Platform.h"

namespace native {

enum class ViewKind { Child, Popup, Dialog, Host };

class Win32View final : public NativeView {
public:
    Win32View(Win32Platform& platform, ViewKind kind, ViewEvents& events);
    ~Win32View() override;

    // Makes the view's window in the parent (a child) or owned by it (a top-level view, whose
    // frame is in screen coordinates); false when Windows refuses.
    bool Create(HWND parent, const RECT& frame);
    // Takes the host's window as the view's.
    void Wrap(HWND window);
    // A window of ours that holds the keyboard for a pop-up while it grabs the pointer (its
    // owner view): a pop-up never takes the keyboard itself, and a key must reach one of our
    // windows to be routed to the grab, as X11's keyboard grab routes every key.
    void SetKeyboardStandIn(HWND window) { m_keyboardStandIn = window; }

    // Null once the window is gone or the platform is.
    HWND Window() const { return m_lost || !m_platform ? nullptr : m_window; }
    bool IsOwned() const { return m_kind != ViewKind::Host; }
    // Views directly in a host window watch its visibility: a host may hide its window
    // instead of closing the editor, and no message tells the windows inside.
    void SetWatchesViewability(bool watch) { m_watchViewability = watch; }

    void Deliver(const QueuedEvent& event);
    // What no message tells: a host window's size and end, a watched view's visibility.
    void Poll();
    // The platform goes first: the view's window goes with it, and the view is inert.
    void AbandonPlatform();

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);

    void SetFrame(const RECT& frame) override;
    SIZE Size() const override { return m_size; }
    POINT ScreenOrigin() const override;
    void SetVisible(bool visible) override;
    void Raise() override;
    void SetTitle(const char* utf8Title) override;
    void Present(cairo_surface_t* pixels, const RECT& area) override;
    void TakeKeyboardFocus() override;
    void ReturnKeyboardFocus() override;
    void GrabPointer() override;
    void ReleasePointer() override;
    uintptr_t SystemHandle() const override { return reinterpret_cast<uintptr_t>(Window()); }

private:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void HandleButton(bool down, int x, int y);
    void HandleCaptureChanged(HWND newCapture);
    void HandleMouseLeave();
    void HandleWheel(WPARAM wParam, LPARAM lParam);
    void HandleKeyDown(WPARAM virtualKey, LPARAM flags);
    void HandleChar(WPARAM unit);
    void HandleDestroyed();
    // Queues a mouse event at a point of this window, for the grabbing view if there is one
    // (in its coordinates), else for this view; the pointer leaving is this view's own.
    void QueueMouse(MouseAction action, int x, int y);
    // Queues a key for the grabbing view if there is one, else for this view.
    void QueueKey(const TranslatedKey& key);
    void QueueSimple(QueuedEvent::Kind kind);
    // The window's frame for a frame of its client area (a dialog's caption and border).
    tagRECT OuterFrame(const RECT& frame) const;
    SIZE ClientSize() const;
    void SetViewable(bool viewable);

    Win32Platform* m_platform;
    const ViewKind m_kind;
    ViewEvents& m_events;
    HWND m_window = nullptr;
    SIZE m_size{0, 0};
    bool m_lost = false;       // the window was destroyed by someone else
    bool m_destroying = false; // the view destroys its window itself
    bool m_watchViewability = false;
    bool m_viewable = true;
    bool m_grabbed = false;
    HWND m_keyboardStandIn = nullptr;
    bool m_standInTookKeyboard = false;
    bool m_buttonDown = false; // holding the capture for a press of its own
    bool m_trackingLeave = false;
    POINT m_lastMouse{0, 0};
    unsigned m_charKeyCode = 0; // the key code for the text the last key press types
    Utf16Joiner m_typed;
};

} // namespace native
