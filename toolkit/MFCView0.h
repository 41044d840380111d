// The native view of a CWnd: wraps one window of the backend and turns its events into
// messages for the CWnd (mouse, keys, focus, size, painting). It keeps the window's pixels
// in a Cairo image surface: painting draws there and then shows the painted area.
// Owned by its CWnd; the CWnd pointer is cleared when the window is destroyed.
#pragma once

#include "base/CPoint.h"
#include "base/CRect.h"
#include "base/CSize.h"
#include "toolkit/ClickCounter.h"
#include "toolkit/TouchedArea.h"
#include "toolkit/platform/NativePlatform.h"

#include <cairo.h>
#include <cstdint>
#include <memory>
#include <vector>

class CWnd;
class MFCWindow;

class MFCView0 final : private native::ViewEvents {
public:
    // A child view at (x, y) in the parent's coordinates.
    static std::unique_ptr<MFCView0> CreateViewNS(MFCView0& parent, int x, int y, int cx, int cy,
                                                  CWnd* wnd);
    // A top-level view placed in screen coordinates, owned (kept above) by owner if given.
    static std::unique_ptr<MFCView0>
    CreateTopLevelNS(const std::shared_ptr<native::NativePlatform>& platform,
                     native::TopLevelKind kind, MFCView0* owner, const RECT& screenFrame,
                     CWnd* wnd);
    // The host's window as a view: children can be made inside it; it is never painted.
    static std::unique_ptr<MFCView0>
    WrapHostNS(const std::shared_ptr<native::NativePlatform>& platform, void* handle, CWnd* wnd);
    ~MFCView0();
    MFCView0(const MFCView0&) = delete;
    MFCView0& operator=(const MFCView0&) = delete;

    CWnd* GetCWnd() const { return m_pWnd; }
    void SetCWnd(CWnd* wnd) { m_pWnd = wnd; }
    void SetWindow(MFCWindow* window) { m_window = window; }
    // Views are found again by serial number, so that late work never reaches a dead view.
    std::uint64_t Serial() const { return m_serial; }
    static MFCView0* FromSerial(std::uint64_t serial);
    const std::shared_ptr<native::NativePlatform>& Platform() const { return m_platform; }
    const native::NativeView* Native() const { return m_native.get(); }
    // Device pixels per layout pixel, fixed when the view is made (a child takes its
    // parent's). Frames, sizes, areas and mouse positions here are in layout pixels.
    double Scale() const { return m_scale; }
    // The screen's bounds in layout pixels at the scale in force.
    static RECT ScreenBounds(native::NativePlatform& platform);

    void SetFrame(const RECT& frame);
    CSize BoundsSize() const;
    CPoint ScreenOrigin() const;
    void SetHidden(bool hidden);
    bool IsHidden() const { return m_hidden; }
    // Not hidden itself or through a parent, on screen, and with a native window.
    bool CanDraw() const;

    void SetNeedsDisplay();
    void SetNeedsDisplayInRect(const RECT& rect);
    // Paints the pending area of every view that can draw, parents before children.
    static void DisplayAllPending();
    void DisplayIfNeeded();
    // Drawing outside a paint: a context on the pixels, or null when the view cannot draw;
    // unlocking shows the touched area.
    cairo_t* LockFocusIfCanDraw();
    void UnlockFocus(cairo_t* context, const TouchedArea& touched);
    cairo_surface_t* Pixels() const { return m_pixels; }

    void TakeKeyboardFocus();
    void ReturnKeyboardFocus();
    void GrabInput();
    void ReleaseInput();
    void Raise();
    void SetTitle(const char* utf8Title);

private:
    MFCView0(std::shared_ptr<native::NativePlatform> platform, MFCView0* superview, CWnd* wnd,
             bool hostView);
    void EnsurePixels();
    void Orphan();
    void SetTreeNeedsDisplay();
    bool AcceptsInput() const;

    void NativeExposed(const RECT& area) override;
    void NativeMouse(native::MouseAction action, int deviceX, int deviceY,
                     unsigned long timeMs) override;
    void NativeKey(const native::KeyInput& key) override;
    void NativeFocusLost() override;
    void NativeResized(int deviceWidth, int deviceHeight) override;
    void NativeViewable(bool viewable) override;
    void NativeCloseRequested() override;
    void NativeDestroyed() override;

    const std::uint64_t m_serial;
    std::shared_ptr<native::NativePlatform> m_platform;
    std::unique_ptr<native::NativeView> m_native;
    MFCView0* m_superview;
    std::vector<MFCView0*> m_subviews;
    CWnd* m_pWnd;
    MFCWindow* m_window = nullptr;
    const bool m_hostView;
    const double m_scale;
    CRect m_frame;
    bool m_hidden = false;
    bool m_viewable = true;
    bool m_grabbing = false;
    CRect m_dirty;
    cairo_surface_t* m_pixels = nullptr;
    ClickCounter m_clicks;
};
