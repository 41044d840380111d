#include "toolkit/platform/x11/X11Platform.h"

#include "toolkit/platform/KeyCodes.h"
#include "toolkit/platform/SystemPlatform.h"
#include "toolkit/platform/x11/X11View.h"

#include <X11/Xatom.h>
#include <X11/Xresource.h>
#include <X11/Xutil.h>
#include <poll.h>

#include <chrono>
#include <cstdlib>
#include <set>
#include <vector>

namespace native {

namespace {

constexpr long kViewEvents = ExposureMask | ButtonPressMask | ButtonReleaseMask |
                             PointerMotionMask | LeaveWindowMask | KeyPressMask | FocusChangeMask |
                             StructureNotifyMask;
constexpr unsigned long kViewabilityCheckMs = 200;

// Errors on our own connections are expected (the host may destroy its window, and ours
// with it, at any time) and ignored; errors on other connections go to whoever handled them
// before. The handler is process-wide, so it stays only while one of our displays is open.
std::set<Display*>& OurDisplays() {
    static std::set<Display*> displays;
    return displays;
}
XErrorHandler g_previousHandler = nullptr;

int OnXError(Display* display, XErrorEvent* error) {
    if (OurDisplays().count(display))
        return 0;
    return g_previousHandler ? g_previousHandler(display, error) : 0;
}

void AdoptDisplay(Display* display) {
    if (OurDisplays().empty())
        g_previousHandler = XSetErrorHandler(OnXError);
    OurDisplays().insert(display);
}

void ReleaseDisplay(Display* display) {
    OurDisplays().erase(display);
    if (!OurDisplays().empty())
        return;
    const XErrorHandler current = XSetErrorHandler(g_previousHandler);
    // Someone installed a handler after ours: leave theirs in place.
    if (current != OnXError)
        XSetErrorHandler(current);
    g_previousHandler = nullptr;
}

unsigned long NowMs() {
    using namespace std::chrono;
    return static_cast<unsigned long>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// The top-level ancestor of a window (the child of the root), for transient-for hints.
Window TopLevelOf(Display* display, Window window) {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    while (window != None && XQueryTree(display, window, &root, &parent, &children, &count)) {
        if (children)
            XFree(children);
        if (parent == root || parent == None)
            return window;
        window = parent;
    }
    return None;
}

void SetAtomProperty(Display* display, Window window, const char* property, const char* value) {
    const Atom atom = XInternAtom(display, value, False);
    XChangeProperty(display, window, XInternAtom(display, property, False), XA_ATOM, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&atom), 1);
}

} // namespace

// The toolkit's main-thread work runs on the host's idle calls and the fallback driver.
std::shared_ptr<NativePlatform> OpenSystemPlatform(std::function<void()>) {
    return X11Platform::Open();
}

std::shared_ptr<X11Platform> X11Platform::Open(const char* displayName) {
    Display* display = XOpenDisplay(displayName);
    if (!display)
        return nullptr;
    return std::shared_ptr<X11Platform>(new X11Platform(display));
}

X11Platform::X11Platform(Display* display)
    : m_display(display), m_wmDeleteWindow(XInternAtom(display, "WM_DELETE_WINDOW", False)) {
    AdoptDisplay(display);
}

X11Platform::~X11Platform() {
    XSync(m_display, False);
    XCloseDisplay(m_display);
    ReleaseDisplay(m_display);
}

std::unique_ptr<NativeView> X11Platform::CreateChildView(NativeView& parent, const RECT& frame,
                                                         ViewEvents& events) {
    auto& parentView = static_cast<X11View&>(parent);
    if (parentView.GetWindow() == None)
        return nullptr;
    XSetWindowAttributes attributes{};
    attributes.background_pixmap = None;
    attributes.event_mask = kViewEvents;
    const SIZE size{frame.right - frame.left, frame.bottom - frame.top};
    const Window window =
        XCreateWindow(m_display, parentView.GetWindow(), frame.left, frame.top,
                      static_cast<unsigned>(size.cx > 0 ? size.cx : 1),
                      static_cast<unsigned>(size.cy > 0 ? size.cy : 1), 0, CopyFromParent,
                      InputOutput, CopyFromParent, CWBackPixmap | CWEventMask, &attributes);
    auto view = std::make_unique<X11View>(*this, window, events, true, size);
    // A host may hide its window instead of closing the editor: the windows directly inside
    // it are watched for that.
    view->SetWatchesViewability(!parentView.IsOwned());
    XFlush(m_display);
    return view;
}

std::unique_ptr<NativeView> X11Platform::CreateTopLevelView(TopLevelKind kind, NativeView* owner,
                                                            const RECT& screenFrame,
                                                            ViewEvents& events) {
    const Window root = DefaultRootWindow(m_display);
    XSetWindowAttributes attributes{};
    attributes.background_pixel = WhitePixel(m_display, DefaultScreen(m_display));
    attributes.event_mask = kViewEvents;
    attributes.override_redirect = kind == TopLevelKind::Popup ? True : False;
    attributes.save_under = kind == TopLevelKind::Popup ? True : False;
    const SIZE size{screenFrame.right - screenFrame.left, screenFrame.bottom - screenFrame.top};
    const unsigned width = static_cast<unsigned>(size.cx > 0 ? size.cx : 1);
    const unsigned height = static_cast<unsigned>(size.cy > 0 ? size.cy : 1);
    const Window window =
        XCreateWindow(m_display, root, screenFrame.left, screenFrame.top, width, height, 0,
                      CopyFromParent, InputOutput, CopyFromParent,
                      CWBackPixel | CWEventMask | CWOverrideRedirect | CWSaveUnder, &attributes);
    XClassHint classHint{
        const_cast<char*>("zephyra"),
        const_cast<char*>(kind == TopLevelKind::Popup ? "ZephyraPopup" : "ZephyraDialog")};
    XSetClassHint(m_display, window, &classHint);
    if (kind == TopLevelKind::Dialog) {
        XSetWMProtocols(m_display, window, &m_wmDeleteWindow, 1);
        // The toolkit draws the dialog's frame and title itself.
        const long motifHints[5] = {2 /* decorations field */, 0, 0 /* none */, 0, 0};
        const Atom motif = XInternAtom(m_display, "_MOTIF_WM_HINTS", False);
        XChangeProperty(m_display, window, motif, motif, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(motifHints), 5);
        SetAtomProperty(m_display, window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG");
        XSizeHints hints{};
        hints.flags = USPosition | PPosition | PMinSize | PMaxSize;
        hints.x = screenFrame.left;
        hints.y = screenFrame.top;
        hints.min_width = hints.max_width = static_cast<int>(width);
        hints.min_height = hints.max_height = static_cast<int>(height);
        XSetWMNormalHints(m_display, window, &hints);
        if (owner) {
            const Window ownerTop =
                TopLevelOf(m_display, static_cast<X11View*>(owner)->GetWindow());
            if (ownerTop != None)
                XSetTransientForHint(m_display, window, ownerTop);
        }
    } else {
        SetAtomProperty(m_display, window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_POPUP_MENU");
    }
    XFlush(m_display);
    return std::make_unique<X11View>(*this, window, events, true, size);
}

std::unique_ptr<NativeView> X11Platform::WrapHostView(void* handle, ViewEvents& events) {
    const auto window = static_cast<Window>(reinterpret_cast<std::uintptr_t>(handle));
    XWindowAttributes attributes{};
    if (window == None || !XGetWindowAttributes(m_display, window, &attributes))
        return nullptr;
    XSelectInput(m_display, window, StructureNotifyMask);
    return std::make_unique<X11View>(*this, window, events, false,
                                     SIZE{attributes.width, attributes.height});
}

namespace {

unsigned ModifiersOf(unsigned mask) {
    unsigned modifiers = 0;
    if (mask & ShiftMask)
        modifiers |= kModifierShift;
    if (mask & ControlMask)
        modifiers |= kModifierControl;
    if (mask & Mod4Mask)
        modifiers |= kModifierCommand;
    if (mask & Mod1Mask)
        modifiers |= kModifierOption;
    return modifiers;
}

// The modifier mask an input event carries: the state as the user had it when the event
// happened, which a handler must see rather than the state now.
bool EventModifierMask(const XEvent& event, unsigned* mask) {
    switch (event.type) {
    case KeyPress:
    case KeyRelease:
        *mask = event.xkey.state;
        return true;
    case ButtonPress:
    case ButtonRelease:
        *mask = event.xbutton.state;
        return true;
    case MotionNotify:
        *mask = event.xmotion.state;
        return true;
    default:
        return false;
    }
}

} // namespace

// Like Win32's GetKeyState: while an input event is handled, the modifiers that came with
// it. The host's thread handles events some time after they happen (at its next idle call),
// and a live query then reports keys pressed since: a Tab typed before a capital letter
// would count as Shift+Tab.
unsigned X11Platform::CurrentModifiers() {
    if (m_handlingInput)
        return ModifiersOf(m_eventModifierMask);
    Window root = None;
    Window child = None;
    int rootX = 0, rootY = 0, x = 0, y = 0;
    unsigned mask = 0;
    XQueryPointer(m_display, DefaultRootWindow(m_display), &root, &child, &rootX, &rootY, &x, &y,
                  &mask);
    return ModifiersOf(mask);
}

RECT X11Platform::ScreenBounds() {
    const int screen = DefaultScreen(m_display);
    return RECT{0, 0, DisplayWidth(m_display, screen), DisplayHeight(m_display, screen)};
}

// The Xft.dpi resource, which desktops set to their scale times 96 (the resource database
// the root window carries, as every X toolkit reads it).
double X11Platform::DesktopDpi() {
    const char* resources = XResourceManagerString(m_display);
    if (!resources)
        return 0.0;
    XrmDatabase database = XrmGetStringDatabase(resources);
    char* type = nullptr;
    XrmValue value{};
    double dpi = 0.0;
    if (XrmGetResource(database, "Xft.dpi", "Xft.Dpi", &type, &value) && value.addr)
        dpi = std::strtod(value.addr, nullptr);
    XrmDestroyDatabase(database);
    return dpi > 0.0 ? dpi : 0.0;
}

void X11Platform::ProcessEvents() {
    while (XPending(m_display) > 0) {
        XEvent event;
        XNextEvent(m_display, &event);
        // Only the latest position of a run of motion matters.
        if (event.type == MotionNotify) {
            while (XCheckTypedWindowEvent(m_display, event.xmotion.window, MotionNotify, &event)) {
            }
        }
        Dispatch(event);
    }
    GivePendingFocus();
    CheckViewability();
    XFlush(m_display);
}

bool X11Platform::IsOurs(Window window) const {
    const auto found = m_views.find(window);
    return found != m_views.end() && found->second->IsOwned();
}

void X11Platform::Dispatch(XEvent& event) {
    const auto found = m_views.find(event.xany.window);
    if (found == m_views.end())
        return;
    m_handlingInput = EventModifierMask(event, &m_eventModifierMask);
    found->second->HandleEvent(event);
    m_handlingInput = false;
}

void X11Platform::GivePendingFocus() {
    if (m_pendingFocus == None)
        return;
    XWindowAttributes attributes{};
    if (!XGetWindowAttributes(m_display, m_pendingFocus, &attributes)) {
        m_pendingFocus = None;
        return;
    }
    if (attributes.map_state != IsViewable)
        return;
    XSetInputFocus(m_display, m_pendingFocus, RevertToParent, CurrentTime);
    m_pendingFocus = None;
}

void X11Platform::CheckViewability() {
    const unsigned long now = NowMs();
    if (now - m_lastViewabilityCheckMs < kViewabilityCheckMs)
        return;
    m_lastViewabilityCheckMs = now;
    std::vector<Window> watched;
    for (const auto& [window, view] : m_views) {
        if (view->WatchesViewability())
            watched.push_back(window);
    }
    for (Window window : watched) {
        const auto found = m_views.find(window);
        if (found != m_views.end())
            found->second->CheckViewability();
    }
}

void X11Platform::WaitForEvents(int timeoutMs) {
    XFlush(m_display);
    if (XPending(m_display) > 0)
        return;
    pollfd connection{ConnectionNumber(m_display), POLLIN, 0};
    poll(&connection, 1, timeoutMs);
}

} // namespace native
