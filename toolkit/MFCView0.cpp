#include "toolkit/MFCView0.h"

#include "toolkit/CWnd.h"
#include "toolkit/CairoColour.h"
#include "toolkit/DisplayScale.h"
#include "toolkit/KeyboardRouting.h"
#include "toolkit/MFCWindow.h"
#include "toolkit/PostedMessageRing.h"
#include "toolkit/WinMessages.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

std::uint64_t g_nextSerial = 1;

// Live views by serial number (main thread only); ordered, so parents come before children.
std::map<std::uint64_t, MFCView0*>& LiveViews() {
    static std::map<std::uint64_t, MFCView0*> views;
    return views;
}

// Layout rectangles to device ones and back. Going back, a device area is widened to the
// layout pixels it touches, so that nothing of it is left unpainted.
RECT ToDeviceRect(const RECT& rect, double scale) {
    return {ToDevice(rect.left, scale), ToDevice(rect.top, scale), ToDevice(rect.right, scale),
            ToDevice(rect.bottom, scale)};
}

RECT ToLayoutRect(const RECT& rect, double scale) {
    return {ToLayout(rect.left, scale), ToLayout(rect.top, scale),
            static_cast<std::int32_t>(std::ceil(rect.right / scale)),
            static_cast<std::int32_t>(std::ceil(rect.bottom / scale))};
}

int ToLayoutLength(int device, double scale) {
    return static_cast<int>(std::lround(device / scale));
}

} // namespace

MFCView0::MFCView0(std::shared_ptr<native::NativePlatform> platform, MFCView0* superview, CWnd* wnd,
                   bool hostView)
    : m_serial(g_nextSerial++), m_platform(std::move(platform)), m_superview(superview),
      m_pWnd(wnd), m_hostView(hostView), m_scale(superview ? superview->m_scale : DeviceScale()) {
    LiveViews()[m_serial] = this;
    if (m_superview)
        m_superview->m_subviews.push_back(this);
}

std::unique_ptr<MFCView0> MFCView0::CreateViewNS(MFCView0& parent, int x, int y, int cx, int cy,
                                                 CWnd* wnd) {
    if (!parent.m_native)
        return nullptr;
    std::unique_ptr<MFCView0> view(new MFCView0(parent.m_platform, &parent, wnd, false));
    view->m_frame = CRect(x, y, x + cx, y + cy);
    view->m_hidden = true;
    view->m_native = view->m_platform->CreateChildView(
        *parent.m_native, ToDeviceRect(view->m_frame, view->m_scale), *view);
    if (!view->m_native)
        return nullptr;
    return view;
}

std::unique_ptr<MFCView0>
MFCView0::CreateTopLevelNS(const std::shared_ptr<native::NativePlatform>& platform,
                           native::TopLevelKind kind, MFCView0* owner, const RECT& screenFrame,
                           CWnd* wnd) {
    if (!platform)
        return nullptr;
    std::unique_ptr<MFCView0> view(new MFCView0(platform, nullptr, wnd, false));
    view->m_frame = screenFrame;
    view->m_hidden = true;
    view->m_native = platform->CreateTopLevelView(kind, owner ? owner->m_native.get() : nullptr,
                                                  ToDeviceRect(screenFrame, view->m_scale), *view);
    if (!view->m_native)
        return nullptr;
    return view;
}

std::unique_ptr<MFCView0>
MFCView0::WrapHostNS(const std::shared_ptr<native::NativePlatform>& platform, void* handle,
                     CWnd* wnd) {
    if (!platform)
        return nullptr;
    std::unique_ptr<MFCView0> view(new MFCView0(platform, nullptr, wnd, true));
    view->m_native = platform->WrapHostView(handle, *view);
    if (!view->m_native)
        return nullptr;
    view->m_frame = CRect(CPoint(0, 0), view->BoundsSize());
    return view;
}

MFCView0::~MFCView0() {
    // Children still alive lose their native windows first: the native parent takes them
    // along when it goes.
    for (MFCView0* subview : m_subviews) {
        subview->m_superview = nullptr;
        subview->Orphan();
    }
    if (m_superview) {
        auto& siblings = m_superview->m_subviews;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    if (hTempWnd.load() == this)
        hTempWnd.store(nullptr);
    LiveViews().erase(m_serial);
    m_native.reset();
    if (m_pixels)
        cairo_surface_destroy(m_pixels);
}

void MFCView0::Orphan() {
    for (MFCView0* subview : m_subviews)
        subview->Orphan();
    m_native.reset();
}

MFCView0* MFCView0::FromSerial(std::uint64_t serial) {
    const auto found = LiveViews().find(serial);
    return found == LiveViews().end() ? nullptr : found->second;
}

void MFCView0::SetFrame(const RECT& frame) {
    const CRect newFrame(frame);
    if (newFrame == m_frame)
        return;
    m_frame = newFrame;
    if (m_native && !m_hostView)
        m_native->SetFrame(ToDeviceRect(m_frame, m_scale));
}

CSize MFCView0::BoundsSize() const {
    if (m_hostView && m_native) {
        const SIZE size = m_native->Size();
        return CSize(ToLayoutLength(size.cx, m_scale), ToLayoutLength(size.cy, m_scale));
    }
    return m_frame.Size();
}

CPoint MFCView0::ScreenOrigin() const {
    if (!m_native)
        return m_frame.TopLeft();
    const POINT origin = m_native->ScreenOrigin();
    return CPoint(ToLayout(origin.x, m_scale), ToLayout(origin.y, m_scale));
}

void MFCView0::SetHidden(bool hidden) {
    if (hidden == m_hidden)
        return;
    m_hidden = hidden;
    if (m_native && !m_hostView)
        m_native->SetVisible(!hidden);
    if (!hidden)
        SetNeedsDisplay();
}

bool MFCView0::CanDraw() const {
    for (const MFCView0* view = this; view; view = view->m_superview) {
        if (view->m_hidden || !view->m_viewable || !view->m_native)
            return false;
    }
    return !m_hostView;
}

void MFCView0::SetNeedsDisplay() {
    const CSize size = BoundsSize();
    SetNeedsDisplayInRect(CRect(0, 0, size.cx, size.cy));
}

void MFCView0::SetNeedsDisplayInRect(const RECT& rect) {
    if (m_hostView)
        return;
    CRect dirty;
    dirty.UnionRect(m_dirty, rect);
    m_dirty = dirty;
}

void MFCView0::DisplayAllPending() {
    std::vector<std::uint64_t> serials;
    for (const auto& [serial, view] : LiveViews()) {
        if (!view->m_dirty.IsRectEmpty())
            serials.push_back(serial);
    }
    // A paint may create or destroy views: each one is looked up again.
    for (std::uint64_t serial : serials) {
        if (MFCView0* view = FromSerial(serial))
            view->DisplayIfNeeded();
    }
}

void MFCView0::EnsurePixels() {
    const CSize size = BoundsSize();
    const int width = std::max(1, ToDevice(size.cx, m_scale));
    const int height = std::max(1, ToDevice(size.cy, m_scale));
    if (m_pixels && cairo_image_surface_get_width(m_pixels) == width &&
        cairo_image_surface_get_height(m_pixels) == height)
        return;
    cairo_surface_t* pixels = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    // Everything drawn on the pixels is in layout pixels; Cairo maps it to the device.
    cairo_surface_set_device_scale(pixels, m_scale, m_scale);
    cairo_t* cr = cairo_create(pixels);
    const COLORREF background = m_pWnd ? m_pWnd->GetBackgroundColor() : 0xFFFFFF;
    SetCairoSourceColour(cr, background);
    cairo_paint(cr);
    if (m_pixels) {
        cairo_set_source_surface(cr, m_pixels, 0, 0);
        cairo_paint(cr);
        cairo_surface_destroy(m_pixels);
    }
    cairo_destroy(cr);
    m_pixels = pixels;
}

void MFCView0::DisplayIfNeeded() {
    if (m_dirty.IsRectEmpty() || !m_pWnd || !CanDraw())
        return;
    EnsurePixels();
    const CSize size = BoundsSize();
    CRect area;
    area.IntersectRect(m_dirty, CRect(0, 0, size.cx, size.cy));
    m_dirty.SetRectEmpty();
    if (area.IsRectEmpty())
        return;

    const std::uint64_t serial = m_serial;
    CWnd* wnd = m_pWnd;
    cairo_t* cr = cairo_create(m_pixels);
    cairo_rectangle(cr, area.left, area.top, area.Width(), area.Height());
    cairo_clip(cr);
    wnd->AttachPaintContext(cr, area);
    SendMessage0(wnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(cr), 0);
    SendMessage0(wnd, WM_PAINT, 0, 0);
    if (FromSerial(serial) != this) {
        cairo_destroy(cr);
        return;
    }
    if (m_pWnd == wnd)
        wnd->DetachPaintContext();
    cairo_destroy(cr);
    cairo_surface_flush(m_pixels);
    if (m_native)
        m_native->Present(m_pixels, ToDeviceRect(area, m_scale));
}

cairo_t* MFCView0::LockFocusIfCanDraw() {
    if (!CanDraw())
        return nullptr;
    EnsurePixels();
    return cairo_create(m_pixels);
}

void MFCView0::UnlockFocus(cairo_t* context, const TouchedArea& touched) {
    if (!context)
        return;
    cairo_destroy(context);
    if (touched.IsEmpty())
        return;
    cairo_surface_flush(m_pixels);
    if (!m_native || !CanDraw())
        return;
    const CSize size = BoundsSize();
    for (const CRect& rect : touched) {
        CRect area;
        if (area.IntersectRect(rect, CRect(0, 0, size.cx, size.cy)))
            m_native->Present(m_pixels, ToDeviceRect(area, m_scale));
    }
}

void MFCView0::TakeKeyboardFocus() {
    if (m_native)
        m_native->TakeKeyboardFocus();
}

void MFCView0::ReturnKeyboardFocus() {
    if (m_native)
        m_native->ReturnKeyboardFocus();
}

void MFCView0::GrabInput() {
    m_grabbing = true;
    if (m_native)
        m_native->GrabPointer();
}

void MFCView0::ReleaseInput() {
    m_grabbing = false;
    if (m_native)
        m_native->ReleasePointer();
}

void MFCView0::Raise() {
    if (m_native)
        m_native->Raise();
}

void MFCView0::SetTitle(const char* utf8Title) {
    if (m_native)
        m_native->SetTitle(utf8Title ? utf8Title : "");
}

bool MFCView0::AcceptsInput() const {
    return m_pWnd && m_pWnd->AcceptsInput();
}

void MFCView0::NativeExposed(const RECT& area) {
    SetNeedsDisplayInRect(ToLayoutRect(area, m_scale));
}

void MFCView0::NativeMouse(native::MouseAction action, int deviceX, int deviceY,
                           unsigned long timeMs) {
    if (!AcceptsInput())
        return;
    const int x = ToLayout(deviceX, m_scale);
    const int y = ToLayout(deviceY, m_scale);
    const LPARAM point = MAKELPARAM(x, y);
    switch (action) {
    case native::MouseAction::Down: {
        const int clicks = m_clicks.Press(x, y, timeMs);
        SendMessage0(m_pWnd, clicks >= 2 ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, 0, point);
        break;
    }
    case native::MouseAction::Up:
        SendMessage0(m_pWnd, WM_LBUTTONUP, 0, point);
        break;
    case native::MouseAction::Move:
        SendMessage0(m_pWnd, WM_MOUSEMOVE, 0, point);
        break;
    case native::MouseAction::Leave:
        SendMessage0(m_pWnd, WM_MOUSELEAVE, 0, 0);
        break;
    case native::MouseAction::WheelUp:
    case native::MouseAction::WheelDown: {
        const int turn = action == native::MouseAction::WheelUp ? WHEEL_DELTA : -WHEEL_DELTA;
        SendMessage0(m_pWnd, WM_MOUSEWHEEL, MAKEWPARAM(0, turn), point);
        break;
    }
    }
}

// Keys go to the focus window, except while a pop-up holds the input.
void MFCView0::NativeKey(const native::KeyInput& key) {
    CWnd* receiver = !m_grabbing && pFocusWnd ? pFocusWnd : m_pWnd;
    if (receiver && receiver->AcceptsInput())
        RouteKeyPress(receiver, key);
}

void MFCView0::NativeFocusLost() {
    if (m_pWnd && pFocusWnd == m_pWnd) {
        pFocusWnd = nullptr;
        SendMessage0(m_pWnd, WM_KILLFOCUS, 0, 0);
    }
}

void MFCView0::NativeResized(int deviceWidth, int deviceHeight) {
    const int width = ToLayoutLength(deviceWidth, m_scale);
    const int height = ToLayoutLength(deviceHeight, m_scale);
    if (m_window) {
        m_window->WindowDidResize(width, height);
        return;
    }
    if (!m_hostView) {
        m_frame.right = m_frame.left + width;
        m_frame.bottom = m_frame.top + height;
    }
    SendMessage0(m_pWnd, WM_SIZE, 0, MAKELPARAM(width, height));
}

void MFCView0::NativeViewable(bool viewable) {
    if (viewable == m_viewable)
        return;
    m_viewable = viewable;
    // Whatever was drawn while hidden never reached the screen: everything is painted anew.
    if (viewable)
        SetTreeNeedsDisplay();
}

void MFCView0::SetTreeNeedsDisplay() {
    SetNeedsDisplay();
    for (MFCView0* subview : m_subviews)
        subview->SetTreeNeedsDisplay();
}

void MFCView0::NativeCloseRequested() {
    if (m_window)
        m_window->PerformClose();
}

void MFCView0::NativeDestroyed() {
    Orphan();
}

RECT MFCView0::ScreenBounds(native::NativePlatform& platform) {
    return ToLayoutRect(platform.ScreenBounds(), DeviceScale());
}
