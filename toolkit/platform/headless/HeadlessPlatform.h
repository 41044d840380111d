// The native layer in memory: windows are nodes of a tree on a virtual screen, pixels that
// the toolkit shows are kept per window, and input comes from the test driver, which
// injects it in screen coordinates. Input is routed the way a display server routes it:
// to the grabbing window, to the window that took the button press, or to the topmost
// window under the pointer; keys to the grabbing or focused window.
#pragma once

#include "toolkit/platform/NativePlatform.h"

#include <memory>
#include <string>
#include <vector>

namespace native {

class HeadlessView;

struct HeadlessNode {
    HeadlessNode* parent = nullptr;
    std::vector<HeadlessNode*> children; // bottom to top
    RECT frame{0, 0, 0, 0};              // in the parent, or on the screen for top-levels
    bool visible = false;
    bool topLevel = false;
    bool hostWindow = false;
    bool destroyed = false; // a host window that went away (kept for views that wrap it)
    TopLevelKind kind = TopLevelKind::Popup;
    ViewEvents* events = nullptr;
    HeadlessView* view = nullptr;
    cairo_surface_t* shown = nullptr; // what Present put on the screen
    std::string title;
};

class HeadlessPlatform : public NativePlatform {
public:
    HeadlessPlatform();
    ~HeadlessPlatform() override;
    // The one in-memory platform of the process.
    static std::shared_ptr<HeadlessPlatform> Shared();

    std::unique_ptr<NativeView> CreateChildView(NativeView& parent, const RECT& frame,
                                                ViewEvents& events) override;
    std::unique_ptr<NativeView> CreateTopLevelView(TopLevelKind kind, NativeView* owner,
                                                   const RECT& screenFrame,
                                                   ViewEvents& events) override;
    std::unique_ptr<NativeView> WrapHostView(void* handle, ViewEvents& events) override;
    unsigned CurrentModifiers() override { return m_modifiers; }
    RECT ScreenBounds() override { return m_screen; }
    double DesktopDpi() override { return m_desktopDpi; }
    void ProcessEvents() override;
    void WaitForEvents(int timeoutMs) override;
    bool RunsMainThreadWork() const override { return false; }

    // A host's window on the screen; the handle goes to the toolkit like a real one.
    void* CreateHostWindow(const RECT& screenFrame);
    // Destroys a host window and, with it, every window inside it.
    void DestroyHostWindow(void* handle);
    // Hides or shows a host window (a host that hides the editor instead of closing it).
    void SetHostWindowVisible(void* handle, bool visible);
    void SetScreenBounds(const RECT& screen) { m_screen = screen; }
    void SetDesktopDpi(double dpi) { m_desktopDpi = dpi; }

    // Input, in screen coordinates; the clock is the event time in milliseconds.
    void MouseDown(int x, int y);
    void MouseUp(int x, int y);
    void MouseMove(int x, int y);
    // One notch of the wheel, away from the user when up is true.
    void MouseWheel(int x, int y, bool up);
    void Key(unsigned keyCode, unsigned character);
    void SetModifiers(unsigned modifiers) { m_modifiers = modifiers; }
    void AdvanceClock(unsigned long ms) { m_clockMs += ms; }
    // Moves the keyboard focus away from every toolkit window (to the host).
    void FocusElsewhere();

    // The node's pixels as they are on screen, with the visible windows inside it on top.
    cairo_surface_t* Compose(const HeadlessNode& node) const;
    HeadlessNode* NodeAt(int screenX, int screenY) const;
    POINT ScreenOriginOf(const HeadlessNode& node) const;

    // HeadlessView's needs.
    void AttachChild(HeadlessNode& parent, HeadlessNode& child);
    void Detach(HeadlessNode& node);
    void Raise(HeadlessNode& node);
    void SetFocus(HeadlessNode* node);
    HeadlessNode* Focus() const { return m_focus; }
    void SetGrab(HeadlessNode* node) { m_grab = node; }
    HeadlessNode* Grab() const { return m_grab; }
    void Forget(HeadlessNode& node);
    void NotifyViewable(HeadlessNode& node, bool viewable);

private:
    void DeliverMouse(MouseAction action, int x, int y);
    HeadlessNode* DeepestAt(HeadlessNode& node, int x, int y) const;
    void ComposeInto(cairo_t* cr, const HeadlessNode& node, double x, double y) const;

    RECT m_screen{0, 0, 1920, 1080};
    double m_desktopDpi = 0.0;
    std::vector<HeadlessNode*> m_topLevels; // bottom to top
    // Host windows, destroyed ones included: views may still wrap them.
    std::vector<std::unique_ptr<HeadlessNode>> m_hostWindows;
    HeadlessNode* m_focus = nullptr;
    HeadlessNode* m_grab = nullptr;
    HeadlessNode* m_pressed = nullptr;
    HeadlessNode* m_hovered = nullptr;
    unsigned m_modifiers = 0;
    unsigned long m_clockMs = 1000;
};

} // namespace native
