// Drives the toolkit in memory, for tests, fuzzers and benches: makes the in-memory
// platform the one that editors open, stands in for the host's window, injects mouse and
// key input at window coordinates, runs the main thread's work, and reads what windows
// show. Main thread only.
#pragma once

#include "base/CPoint.h"
#include "base/CRect.h"
#include "base/WinTypes.h"
#include "toolkit/platform/headless/HeadlessPlatform.h"

#include <cairo.h>
#include <memory>

class CWnd;

class CHeadlessDriver {
public:
    CHeadlessDriver();
    ~CHeadlessDriver();

    native::HeadlessPlatform& Platform() { return *m_platform; }

    // A host window at the given place on the virtual screen; its handle goes to
    // CFrameWnd::SetNativeHandle as a host's would. Host windows are destroyed with the driver.
    void* CreateHostWindow(const RECT& screenFrame);
    void DestroyHostWindow(void* handle);

    // The main thread's work: native input steps, posted messages, timer ticks, painting.
    void Pump();
    // Pumps for about this long (for timers).
    void PumpFor(int ms);

    // Input at a point in the window's client coordinates.
    void Press(CWnd* wnd, CPoint point);
    void Release(CWnd* wnd, CPoint point);
    void Move(CWnd* wnd, CPoint point);
    void Wheel(CWnd* wnd, CPoint point, bool up);
    // A press and a release, far enough in time from any earlier click not to pair with it.
    void Click(CWnd* wnd, CPoint point);
    void DoubleClick(CWnd* wnd, CPoint point);
    void Key(unsigned keyCode, unsigned character = 0);
    // Types printable ASCII text, one key per character, with the keys' own key codes.
    void Type(const char* text);
    void SetModifiers(unsigned modifiers) { m_platform->SetModifiers(modifiers); }

    // What the window shows, its child windows included; the caller destroys the surface.
    cairo_surface_t* Snapshot(const CWnd* wnd) const;
    // One pixel of the window as 0xRRGGBB (alpha dropped), or 0 outside.
    std::uint32_t PixelAt(const CWnd* wnd, int x, int y) const;
    bool SavePng(const CWnd* wnd, const char* path) const;

private:
    CPoint ToScreen(CWnd* wnd, CPoint point) const;

    std::shared_ptr<native::HeadlessPlatform> m_platform;
    std::vector<void*> m_hostWindows;
};
