#include "toolkit/platform/win32/Win32Api.h"

#include "base/windows/WideText.h"
#include "toolkit/platform/KeyTranslation.h"
#include "toolkit/platform/win32/Win32View.h"
#include "toolkit/platform/win32/WindowClasses.h"

#include <algorithm>
#include <cstdlib>

namespace native {

namespace {

struct Styles {
    DWORD style;
    DWORD extended;
};

Styles StylesOf(ViewKind kind) {
    switch (kind) {
    case ViewKind::Child:
        return {WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0};
    case ViewKind::Popup:
        return {WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE};
    case ViewKind::Dialog:
        return {WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0};
    case ViewKind::Host:
        break;
    }
    return {0, 0};
}

bool operator!=(const SIZE& a, const SIZE& b) {
    return a.cx != b.cx || a.cy != b.cy;
}

} // namespace

Win32View::Win32View(Win32Platform& platform, ViewKind kind, ViewEvents& events)
    : m_platform(&platform), m_kind(kind), m_events(events) {}

Win32View::~Win32View() {
    if (!m_platform)
        return;
    if (m_kind == ViewKind::Host) {
        m_platform->UnregisterHost(this);
        return;
    }
    if (!m_window)
        return;
    if (!m_lost) {
        // What the window says while it goes is of no use to anyone.
        m_destroying = true;
        ReleasePointer();
        ReturnKeyboardFocus();
        DestroyWindow(m_window);
    }
    m_platform->Unregister(m_window);
}

bool Win32View::Create(HWND parent, const RECT& frame) {
    m_size = SIZE{frame.right - frame.left, frame.bottom - frame.top};
    const Styles styles = StylesOf(m_kind);
    const tagRECT outer = OuterFrame(frame);
    // The window procedure takes the window at WM_NCCREATE, before the messages that
    // creation sends.
    return CreateWindowExW(styles.extended, ViewClassName(), L"", styles.style, outer.left,
                           outer.top, outer.right - outer.left, outer.bottom - outer.top, parent,
                           nullptr, static_cast<HINSTANCE>(WindowClassModule()), this) != nullptr;
}

void Win32View::Wrap(HWND window) {
    m_window = window;
    m_size = ClientSize();
    m_platform->RegisterHost(this);
}

LRESULT CALLBACK Win32View::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* created =
            static_cast<Win32View*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
        created->m_window = window;
        created->m_platform->Register(window, created);
    }
    auto* view = reinterpret_cast<Win32View*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!view)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        view->HandleDestroyed();
    } else if (!view->m_destroying && view->m_platform) {
        return view->HandleMessage(message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Win32View::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint{};
        BeginPaint(m_window, &paint);
        EndPaint(m_window, &paint);
        const tagRECT& area = paint.rcPaint;
        if (area.right > area.left && area.bottom > area.top) {
            QueuedEvent event;
            event.window = m_window;
            event.kind = QueuedEvent::Kind::Exposed;
            event.area = RECT{area.left, area.top, area.right, area.bottom};
            m_platform->Queue(event);
        }
        return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        HandleButton(message == WM_LBUTTONDOWN, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if (!m_trackingLeave) {
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_window, 0};
            m_trackingLeave = TrackMouseEvent(&track) != FALSE;
        }
        QueueMouse(MouseAction::Move, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        return 0;
    case WM_MOUSELEAVE:
        m_trackingLeave = false;
        HandleMouseLeave();
        return 0;
    case WM_MOUSEWHEEL:
        HandleWheel(wParam, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        HandleCaptureChanged(reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_KEYDOWN:
        HandleKeyDown(wParam, lParam);
        return 0;
    case WM_SYSKEYDOWN:
        // Alt combinations still reach the system (Alt+F4, the host's menu).
        HandleKeyDown(wParam, lParam);
        break;
    case WM_CHAR:
        HandleChar(wParam);
        return 0;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        // The text of a key press comes before its release (TranslateMessage posts it at
        // once); text after that, such as a character posted on its own, has no key.
        m_charKeyCode = 0;
        break;
    case WM_GETDLGCODE:
        // Inside a host's dialog, Tab, Return and the arrows are the editor's, not the dialog's.
        return DLGC_WANTALLKEYS;
    case WM_KILLFOCUS:
        // Focus moving between the views is the toolkit's own doing, and it knows.
        if (!m_platform->IsOurs(reinterpret_cast<HWND>(wParam)))
            QueueSimple(QueuedEvent::Kind::FocusLost);
        return 0;
    case WM_SIZE:
        QueueSimple(QueuedEvent::Kind::Resized);
        return 0;
    case WM_SHOWWINDOW:
        // An owned window hidden or shown with its owner (the host minimised); the toolkit's
        // own showing and hiding sends no such reason.
        if (lParam == SW_PARENTCLOSING || lParam == SW_PARENTOPENING) {
            QueuedEvent event;
            event.window = m_window;
            event.kind = QueuedEvent::Kind::Viewable;
            event.viewable = wParam != FALSE;
            m_platform->Queue(event);
        }
        break;
    case WM_CLOSE:
        // Windows never destroys a window of ours by itself: the toolkit decides.
        QueueSimple(QueuedEvent::Kind::CloseRequested);
        return 0;
    case WM_MOUSEACTIVATE:
        if (m_kind == ViewKind::Popup)
            return MA_NOACTIVATE;
        break;
    default:
        break;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

// The view holds the capture while the button is down, so that a drag outside it still
// reaches it (as X11's implicit grab does); under a grab the grabbing view holds it.
void Win32View::HandleButton(bool down, int x, int y) {
    if (down) {
        if (!m_platform->Grabber()) {
            m_buttonDown = true;
            SetCapture(m_window);
        }
        QueueMouse(MouseAction::Down, x, y);
        return;
    }
    QueueMouse(MouseAction::Up, x, y);
    if (m_buttonDown) {
        m_buttonDown = false;
        if (!m_platform->Grabber())
            ReleaseCapture();
    }
}

void Win32View::HandleCaptureChanged(HWND newCapture) {
    if (newCapture == m_window)
        return;
    const bool toOurs = m_platform->IsOurs(newCapture);
    if (m_platform->Grabber() == this && !toOurs) {
        // Another program or the host took the pointer (the user switched windows): the grab
        // is over. The toolkit sees a press outside the view, as it would have under the grab
        // had the user clicked elsewhere, so that a menu or a list ends as it does then.
        m_platform->SetGrabber(nullptr);
        m_grabbed = false;
        QueueMouse(MouseAction::Down, -1, -1);
        return;
    }
    if (!m_buttonDown)
        return;
    m_buttonDown = false;
    // A view of ours that grabs on this press gets the release; otherwise the drag was
    // broken off and ends where the pointer last was.
    if (!toOurs)
        QueueMouse(MouseAction::Up, m_lastMouse.x, m_lastMouse.y);
}

void Win32View::HandleMouseLeave() {
    tagPOINT cursor{};
    GetCursorPos(&cursor);
    // Moving onto a window inside this one is not leaving it.
    const HWND under = WindowFromPoint(cursor);
    if (under && IsChild(m_window, under))
        return;
    ScreenToClient(m_window, &cursor);
    QueueMouse(MouseAction::Leave, cursor.x, cursor.y);
}

// One notch per WHEEL_DELTA, and at least one for the small steps of fine-grained wheels.
void Win32View::HandleWheel(WPARAM wParam, LPARAM lParam) {
    const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
    if (delta == 0)
        return;
    tagPOINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(m_window, &point);
    const int notches = std::max(1, std::abs(delta) / WHEEL_DELTA);
    for (int notch = 0; notch < notches; ++notch)
        QueueMouse(delta > 0 ? MouseAction::WheelUp : MouseAction::WheelDown, point.x, point.y);
}

void Win32View::HandleKeyDown(WPARAM virtualKey, LPARAM flags) {
    const bool extendedKey = (HIWORD(flags) & KF_EXTENDED) != 0;
    TranslatedKey key{0, 0};
    if (TranslateSpecialKey(static_cast<unsigned>(virtualKey), extendedKey, &key))
        QueueKey(key);
    else
        m_charKeyCode = KeyCodeForVirtualKey(static_cast<unsigned>(virtualKey));
}

void Win32View::HandleChar(WPARAM unit) {
    const unsigned character = m_typed.Add(static_cast<unsigned>(unit));
    // Control combinations type control characters, nothing a field takes; Return, Tab,
    // BackSpace and Escape were reported with their key press.
    if (character < 32 || character == 127)
        return;
    const unsigned keyCode = m_charKeyCode ? m_charKeyCode : KeyCodeForCharacter(character);
    m_charKeyCode = 0;
    QueueKey(TranslatedKey{keyCode, character});
}

void Win32View::HandleDestroyed() {
    if (m_destroying)
        return;
    // The host destroyed a window around ours: from now on the window is never touched.
    m_lost = true;
    if (!m_platform)
        return;
    if (m_platform->Grabber() == this)
        m_platform->SetGrabber(nullptr);
    m_grabbed = false;
    QueueSimple(QueuedEvent::Kind::Destroyed);
}

void Win32View::QueueMouse(MouseAction action, int x, int y) {
    m_lastMouse = POINT{x, y};
    Win32View* receiver = this;
    if (action != MouseAction::Leave && m_platform->Grabber())
        receiver = m_platform->Grabber();
    tagPOINT point{x, y};
    if (receiver != this)
        MapWindowPoints(m_window, receiver->m_window, &point, 1);
    QueuedEvent event;
    event.window = receiver->m_window;
    event.kind = QueuedEvent::Kind::Mouse;
    event.action = action;
    event.x = point.x;
    event.y = point.y;
    event.timeMs = static_cast<unsigned long>(GetMessageTime());
    event.modifiers = KeyboardModifiers();
    m_platform->Queue(event);
}

void Win32View::QueueKey(const TranslatedKey& key) {
    Win32View* receiver = m_platform->Grabber() ? m_platform->Grabber() : this;
    QueuedEvent event;
    event.window = receiver->m_window;
    event.kind = QueuedEvent::Kind::Key;
    event.key = KeyInput{key.keyCode, key.character, static_cast<unsigned long>(GetMessageTime())};
    event.modifiers = KeyboardModifiers();
    m_platform->Queue(event);
}

void Win32View::QueueSimple(QueuedEvent::Kind kind) {
    QueuedEvent event;
    event.window = m_window;
    event.kind = kind;
    m_platform->Queue(event);
}

void Win32View::Deliver(const QueuedEvent& event) {
    switch (event.kind) {
    case QueuedEvent::Kind::Exposed:
        m_events.NativeExposed(event.area);
        break;
    case QueuedEvent::Kind::Mouse:
        m_events.NativeMouse(event.action, event.x, event.y, event.timeMs);
        break;
    case QueuedEvent::Kind::Key:
        m_events.NativeKey(event.key);
        break;
    case QueuedEvent::Kind::FocusLost:
        m_events.NativeFocusLost();
        break;
    case QueuedEvent::Kind::Resized:
        // Sizes the toolkit set are no news: only the window's size now is compared.
        if (Window()) {
            const SIZE size = ClientSize();
            if (size != m_size) {
                m_size = size;
                m_events.NativeResized(size.cx, size.cy);
            }
        }
        break;
    case QueuedEvent::Kind::Viewable:
        SetViewable(event.viewable);
        break;
    case QueuedEvent::Kind::CloseRequested:
        m_events.NativeCloseRequested();
        break;
    case QueuedEvent::Kind::Destroyed:
        m_events.NativeDestroyed();
        break;
    }
}

void Win32View::Poll() {
    if (!Window())
        return;
    if (m_kind == ViewKind::Host) {
        if (!IsWindow(m_window)) {
            m_lost = true;
            m_events.NativeDestroyed();
            return;
        }
        const SIZE size = ClientSize();
        if (size != m_size) {
            m_size = size;
            m_events.NativeResized(size.cx, size.cy);
        }
        return;
    }
    // A view that is itself hidden is hidden, not hidden by its host.
    if (m_watchViewability && (GetWindowLongPtrW(m_window, GWL_STYLE) & WS_VISIBLE))
        SetViewable(IsWindowVisible(m_window) != FALSE);
}

void Win32View::SetViewable(bool viewable) {
    if (viewable == m_viewable)
        return;
    m_viewable = viewable;
    m_events.NativeViewable(viewable);
}

void Win32View::AbandonPlatform() {
    if (IsOwned() && m_window && !m_lost) {
        m_destroying = true;
        DestroyWindow(m_window);
    }
    m_platform = nullptr;
}

tagRECT Win32View::OuterFrame(const RECT& frame) const {
    tagRECT outer{frame.left, frame.top, frame.right, frame.bottom};
    if (m_kind == ViewKind::Dialog) {
        const Styles styles = StylesOf(m_kind);
        AdjustWindowRectEx(&outer, styles.style, FALSE, styles.extended);
    }
    return outer;
}

SIZE Win32View::ClientSize() const {
    tagRECT client{};
    GetClientRect(m_window, &client);
    return SIZE{client.right - client.left, client.bottom - client.top};
}

void Win32View::SetFrame(const RECT& frame) {
    if (!Window() || !IsOwned())
        return;
    m_size = SIZE{frame.right - frame.left, frame.bottom - frame.top};
    const tagRECT outer = OuterFrame(frame);
    SetWindowPos(m_window, nullptr, outer.left, outer.top, outer.right - outer.left,
                 outer.bottom - outer.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

POINT Win32View::ScreenOrigin() const {
    tagPOINT origin{0, 0};
    if (Window())
        ClientToScreen(m_window, &origin);
    return POINT{origin.x, origin.y};
}

void Win32View::SetVisible(bool visible) {
    if (!Window() || !IsOwned())
        return;
    if (!visible) {
        ShowWindow(m_window, SW_HIDE);
        return;
    }
    // Shown on top of its siblings, as X11 maps it raised; only a dialog takes activation.
    SetWindowPos(m_window, HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW |
                     (m_kind == ViewKind::Dialog ? 0 : SWP_NOACTIVATE));
}

void Win32View::Raise() {
    if (Window() && IsOwned())
        SetWindowPos(m_window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32View::SetTitle(const char* utf8Title) {
    if (Window() && IsOwned())
        SetWindowTextW(m_window, WideFromUtf8(utf8Title).c_str());
}

// The finished pixels are the view's device pixels whatever their device scale (the scale
// only maps the toolkit's drawing onto them), so copying them one for one is exactly what
// CopyArea's undoing of the scale comes to. Cairo's ARGB32 rows are a top-down 32-bit DIB.
void Win32View::Present(cairo_surface_t* pixels, const RECT& area) {
    if (!Window() || !IsOwned() || !pixels ||
        cairo_surface_get_type(pixels) != CAIRO_SURFACE_TYPE_IMAGE)
        return;
    cairo_surface_flush(pixels);
    const int stride = cairo_image_surface_get_stride(pixels);
    const int left = std::max(0, static_cast<int>(area.left));
    const int top = std::max(0, static_cast<int>(area.top));
    const int right = std::min(cairo_image_surface_get_width(pixels), static_cast<int>(area.right));
    const int bottom =
        std::min(cairo_image_surface_get_height(pixels), static_cast<int>(area.bottom));
    if (right <= left || bottom <= top)
        return;
    // The area's rows as a DIB of their own, so that no source row is counted bottom-up.
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = stride / 4;
    info.bmiHeader.biHeight = -(bottom - top);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    const unsigned char* rows = cairo_image_surface_get_data(pixels) + top * stride;
    const HDC dc = GetDC(m_window);
    SetDIBitsToDevice(dc, left, top, static_cast<DWORD>(right - left),
                      static_cast<DWORD>(bottom - top), left, 0, 0, static_cast<UINT>(bottom - top),
                      rows, &info, DIB_RGB_COLORS);
    ReleaseDC(m_window, dc);
}

void Win32View::TakeKeyboardFocus() {
    // A pop-up has no keyboard of its own: its keys come through the grab.
    if (!Window() || m_kind == ViewKind::Popup)
        return;
    const HWND focused = GetFocus();
    if (focused == m_window)
        return;
    if (!m_platform->IsOurs(focused))
        m_platform->FocusToRestore() = focused;
    SetFocus(m_window);
}

void Win32View::ReturnKeyboardFocus() {
    if (!Window() || GetFocus() != m_window)
        return;
    HWND& restore = m_platform->FocusToRestore();
    // Without a window to give it back to, the keyboard goes to the host's window around us.
    const HWND target = restore && IsWindow(restore) ? restore : GetAncestor(m_window, GA_ROOT);
    restore = nullptr;
    SetFocus(target != m_window ? target : nullptr);
}

void Win32View::GrabPointer() {
    if (!Window())
        return;
    m_platform->SetGrabber(this);
    m_grabbed = true;
    SetCapture(m_window);
    Win32View* standIn = m_platform->ViewOf(m_keyboardStandIn);
    if (standIn && !m_platform->IsOurs(GetFocus())) {
        standIn->TakeKeyboardFocus();
        m_standInTookKeyboard = true;
    }
}

void Win32View::ReleasePointer() {
    if (!m_grabbed)
        return;
    m_grabbed = false;
    // A view that grabbed later holds the grab now.
    if (!m_platform || m_platform->Grabber() != this)
        return;
    m_platform->SetGrabber(nullptr);
    if (Window() && GetCapture() == m_window)
        ReleaseCapture();
    if (m_standInTookKeyboard) {
        m_standInTookKeyboard = false;
        if (Win32View* standIn = m_platform->ViewOf(m_keyboardStandIn))
            standIn->ReturnKeyboardFocus();
    }
}

} // namespace native
