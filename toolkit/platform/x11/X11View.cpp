#include "toolkit/platform/x11/X11View.h"

#include "toolkit/platform/CopyArea.h"
#include "toolkit/platform/KeyCodes.h"
#include "toolkit/platform/KeyTranslation.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <cairo-xlib.h>

#include <cstring>

namespace native {

namespace {

struct TranslatedKey {
    unsigned keyCode;
    unsigned character;
};

// Keys that type no text, or whose text the handlers expect as a control character.
bool TranslateSpecialKey(KeySym keysym, TranslatedKey* key) {
    switch (keysym) {
    case XK_Return:
        *key = {kKeyReturn, kCharReturn};
        return true;
    case XK_KP_Enter:
        *key = {kKeyEnter, kCharEnter};
        return true;
    case XK_Tab:
    case XK_ISO_Left_Tab:
        *key = {kKeyTab, kCharTab};
        return true;
    case XK_BackSpace:
        *key = {kKeyBackSpace, kCharBackSpace};
        return true;
    case XK_Escape:
        *key = {kKeyEscape, kCharEscape};
        return true;
    case XK_Left:
    case XK_KP_Left:
        *key = {kKeyLeft, kCharLeft};
        return true;
    case XK_Right:
    case XK_KP_Right:
        *key = {kKeyRight, kCharRight};
        return true;
    case XK_Up:
    case XK_KP_Up:
        *key = {kKeyUp, kCharUp};
        return true;
    case XK_Down:
    case XK_KP_Down:
        *key = {kKeyDown, kCharDown};
        return true;
    case XK_Delete:
    case XK_KP_Delete:
        *key = {kKeyDelete, kCharDelete};
        return true;
    case XK_Home:
    case XK_KP_Home:
        *key = {kKeyHome, 0};
        return true;
    case XK_End:
    case XK_KP_End:
        *key = {kKeyEnd, 0};
        return true;
    case XK_Prior:
        *key = {kKeyPageUp, 0};
        return true;
    case XK_Next:
        *key = {kKeyPageDown, 0};
        return true;
    default:
        return false;
    }
}

unsigned KeypadKeyCode(KeySym keysym) {
    if (keysym >= XK_KP_0 && keysym <= XK_KP_7)
        return kKeyPad0 + static_cast<unsigned>(keysym - XK_KP_0);
    switch (keysym) {
    case XK_KP_8:
        return kKeyPad8;
    case XK_KP_9:
        return kKeyPad9;
    case XK_KP_Decimal:
        return kKeyPadDecimal;
    case XK_KP_Add:
        return kKeyPadAdd;
    case XK_KP_Subtract:
        return kKeyPadSubtract;
    case XK_KP_Multiply:
        return kKeyPadMultiply;
    case XK_KP_Divide:
        return kKeyPadDivide;
    default:
        return 0;
    }
}

} // namespace

X11View::X11View(X11Platform& platform, Window window, ViewEvents& events, bool owned, SIZE size)
    : m_platform(platform), m_display(platform.GetDisplay()), m_window(window), m_events(events),
      m_owned(owned), m_size(size) {
    m_platform.Register(m_window, this);
}

X11View::~X11View() {
    if (m_window == None)
        return;
    if (m_grabbed)
        ReleasePointer();
    ReturnKeyboardFocus();
    if (m_surface)
        cairo_surface_destroy(m_surface);
    m_platform.Unregister(m_window);
    if (m_owned)
        XDestroyWindow(m_display, m_window);
    XFlush(m_display);
}

void X11View::Forget() {
    if (m_platform.PendingFocus() == m_window)
        m_platform.PendingFocus() = None;
    if (m_surface) {
        cairo_surface_finish(m_surface);
        cairo_surface_destroy(m_surface);
        m_surface = nullptr;
    }
    m_platform.Unregister(m_window);
    m_window = None;
}

void X11View::HandleEvent(XEvent& event) {
    switch (event.type) {
    case Expose:
        m_events.NativeExposed(RECT{event.xexpose.x, event.xexpose.y,
                                    event.xexpose.x + event.xexpose.width,
                                    event.xexpose.y + event.xexpose.height});
        break;
    case ButtonPress:
        if (event.xbutton.button == Button1)
            m_events.NativeMouse(MouseAction::Down, event.xbutton.x, event.xbutton.y,
                                 event.xbutton.time);
        else if (event.xbutton.button == Button4 || event.xbutton.button == Button5)
            m_events.NativeMouse(event.xbutton.button == Button4 ? MouseAction::WheelUp
                                                                 : MouseAction::WheelDown,
                                 event.xbutton.x, event.xbutton.y, event.xbutton.time);
        break;
    case ButtonRelease:
        if (event.xbutton.button == Button1)
            m_events.NativeMouse(MouseAction::Up, event.xbutton.x, event.xbutton.y,
                                 event.xbutton.time);
        break;
    case MotionNotify:
        m_events.NativeMouse(MouseAction::Move, event.xmotion.x, event.xmotion.y,
                             event.xmotion.time);
        break;
    case KeyPress:
        HandleKey(event.xkey);
        break;
    case LeaveNotify:
        if (event.xcrossing.mode == NotifyNormal && event.xcrossing.detail != NotifyInferior)
            m_events.NativeMouse(MouseAction::Leave, event.xcrossing.x, event.xcrossing.y,
                                 event.xcrossing.time);
        break;
    case FocusOut:
        // Focus moving inside our window or to a grab is not a loss.
        if ((event.xfocus.mode == NotifyNormal || event.xfocus.mode == NotifyWhileGrabbed) &&
            event.xfocus.detail != NotifyInferior && event.xfocus.detail != NotifyPointer)
            m_events.NativeFocusLost();
        break;
    case ConfigureNotify:
        if (event.xconfigure.width != m_size.cx || event.xconfigure.height != m_size.cy) {
            m_size = SIZE{event.xconfigure.width, event.xconfigure.height};
            m_events.NativeResized(m_size.cx, m_size.cy);
        }
        break;
    case ClientMessage:
        if (static_cast<Atom>(event.xclient.data.l[0]) == m_platform.DeleteWindowAtom())
            m_events.NativeCloseRequested();
        break;
    case DestroyNotify:
        if (event.xdestroywindow.window == m_window) {
            Forget();
            m_events.NativeDestroyed();
        }
        break;
    default:
        break;
    }
}

void X11View::HandleKey(XKeyEvent& event) {
    char text[8] = {};
    KeySym keysym = NoSymbol;
    const int length = XLookupString(&event, text, sizeof text - 1, &keysym, nullptr);
    TranslatedKey key{0, 0};
    if (!TranslateSpecialKey(keysym, &key)) {
        const auto typed = static_cast<unsigned char>(text[0]);
        // Control combinations type control characters: nothing a field takes.
        if (length != 1 || typed < 32 || typed == 127)
            return;
        const unsigned keypad = KeypadKeyCode(keysym);
        key = {keypad ? keypad : KeyCodeForCharacter(typed), typed};
    }
    m_events.NativeKey(KeyInput{key.keyCode, key.character, event.time});
}

void X11View::CheckViewability() {
    XWindowAttributes attributes{};
    if (m_window == None || !XGetWindowAttributes(m_display, m_window, &attributes))
        return;
    // A window that is itself unmapped is hidden, not hidden by its host.
    if (attributes.map_state == IsUnmapped)
        return;
    const bool viewable = attributes.map_state == IsViewable;
    if (viewable != m_viewable) {
        m_viewable = viewable;
        m_events.NativeViewable(viewable);
    }
}

void X11View::SetFrame(const RECT& frame) {
    if (m_window == None)
        return;
    m_size = SIZE{frame.right - frame.left, frame.bottom - frame.top};
    XMoveResizeWindow(m_display, m_window, frame.left, frame.top,
                      static_cast<unsigned>(m_size.cx > 0 ? m_size.cx : 1),
                      static_cast<unsigned>(m_size.cy > 0 ? m_size.cy : 1));
    if (m_surface)
        cairo_xlib_surface_set_size(m_surface, m_size.cx > 0 ? m_size.cx : 1,
                                    m_size.cy > 0 ? m_size.cy : 1);
    XFlush(m_display);
}

SIZE X11View::Size() const {
    return m_size;
}

POINT X11View::ScreenOrigin() const {
    int x = 0, y = 0;
    Window child = None;
    if (m_window != None)
        XTranslateCoordinates(m_display, m_window, DefaultRootWindow(m_display), 0, 0, &x, &y,
                              &child);
    return POINT{x, y};
}

void X11View::SetVisible(bool visible) {
    if (m_window == None || !m_owned)
        return;
    if (visible)
        XMapRaised(m_display, m_window);
    else
        XUnmapWindow(m_display, m_window);
    XFlush(m_display);
}

void X11View::Raise() {
    if (m_window != None && m_owned)
        XRaiseWindow(m_display, m_window);
}

void X11View::SetTitle(const char* utf8Title) {
    if (m_window == None || !m_owned)
        return;
    XStoreName(m_display, m_window, utf8Title);
    XChangeProperty(m_display, m_window, XInternAtom(m_display, "_NET_WM_NAME", False),
                    XInternAtom(m_display, "UTF8_STRING", False), 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(utf8Title),
                    static_cast<int>(std::strlen(utf8Title)));
}

void X11View::Present(cairo_surface_t* pixels, const RECT& area) {
    if (m_window == None || !m_owned || !pixels)
        return;
    const int width = m_size.cx > 0 ? m_size.cx : 1;
    const int height = m_size.cy > 0 ? m_size.cy : 1;
    if (!m_surface) {
        const int screen = DefaultScreen(m_display);
        m_surface = cairo_xlib_surface_create(m_display, m_window, DefaultVisual(m_display, screen),
                                              width, height);
    }
    native::CopyArea(pixels, area, m_surface);
    cairo_surface_flush(m_surface);
    XFlush(m_display);
}

void X11View::TakeKeyboardFocus() {
    if (m_window == None)
        return;
    Window focused = None;
    int revert = 0;
    XGetInputFocus(m_display, &focused, &revert);
    if (focused == m_window)
        return;
    if (!m_platform.IsOurs(focused))
        m_platform.FocusToRestore() = focused;
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(m_display, m_window, &attributes) &&
        attributes.map_state == IsViewable) {
        XSetInputFocus(m_display, m_window, RevertToParent, CurrentTime);
        m_platform.PendingFocus() = None;
    } else {
        m_platform.PendingFocus() = m_window;
    }
    XFlush(m_display);
}

void X11View::ReturnKeyboardFocus() {
    if (m_window == None)
        return;
    if (m_platform.PendingFocus() == m_window)
        m_platform.PendingFocus() = None;
    Window focused = None;
    int revert = 0;
    XGetInputFocus(m_display, &focused, &revert);
    if (focused != m_window)
        return;
    Window& restore = m_platform.FocusToRestore();
    if (restore != None && restore != PointerRoot)
        XSetInputFocus(m_display, restore, RevertToParent, CurrentTime);
    else
        XSetInputFocus(m_display, PointerRoot, RevertToPointerRoot, CurrentTime);
    restore = None;
    XFlush(m_display);
}

void X11View::GrabPointer() {
    if (m_window == None)
        return;
    XGrabPointer(m_display, m_window, False,
                 ButtonPressMask | ButtonReleaseMask | PointerMotionMask, GrabModeAsync,
                 GrabModeAsync, None, None, CurrentTime);
    XGrabKeyboard(m_display, m_window, False, GrabModeAsync, GrabModeAsync, CurrentTime);
    m_grabbed = true;
}

void X11View::ReleasePointer() {
    if (!m_grabbed)
        return;
    XUngrabPointer(m_display, CurrentTime);
    XUngrabKeyboard(m_display, CurrentTime);
    XFlush(m_display);
    m_grabbed = false;
}

} // namespace native
