// The native layer on Windows: windows inside the host's window, tool-window pop-ups and
// captioned dialogs. One platform per editor, made on the host's UI thread; every call but
// Wake comes from that thread. The host's own message loop runs the window procedures, which
// only queue what they learn; ProcessEvents delivers the queue. A hidden message-only window
// of the platform gets the toolkit's main-thread work run on that thread (the toolkit passes
// its pump, which calls ProcessEvents), since some hosts never call the editor's idle.
// This header does not bring in <windows.h>, whose names the toolkit's types share.
#pragma once

#include "toolkit/platform/NativePlatform.h"
#include "toolkit/platform/win32/QueuedEvent.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <vector>

struct HWND__;

namespace native {

class Win32View;

class Win32Platform final : public NativePlatform,
                            public std::enable_shared_from_this<Win32Platform> {
public:
    // runMainThreadWork is called on this thread every 16 ms, and soon after a window
    // procedure queues an event or Wake is called; never while it is running already. Null
    // when the hidden window cannot be made.
    static std::shared_ptr<Win32Platform> Open(std::function<void()> runMainThreadWork);
    // Destroys the windows of the views still open; those views do nothing from then on.
    ~Win32Platform() override;
    Win32Platform(const Win32Platform&) = delete;
    Win32Platform& operator=(const Win32Platform&) = delete;

    // Has runMainThreadWork called soon. Any thread, while the platform lives.
    void Wake();

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
    bool RunsMainThreadWork() const override { return true; }

    // Win32View's needs.
    void Register(HWND__* window, Win32View* view);
    void Unregister(HWND__* window);
    void RegisterHost(Win32View* view);
    void UnregisterHost(Win32View* view);
    Win32View* ViewOf(HWND__* window) const;
    // Whether the window belongs to a view this platform made (not a wrapped host window).
    bool IsOurs(HWND__* window) const { return ViewOf(window) != nullptr; }
    void Queue(const QueuedEvent& event);
    // The view that holds the pointer grab, if any.
    Win32View* Grabber() const { return m_grabber; }
    void SetGrabber(Win32View* view) { m_grabber = view; }
    // The window that had the keyboard before one of ours took it.
    HWND__*& FocusToRestore() { return m_focusToRestore; }

private:
    explicit Win32Platform(std::function<void()> runMainThreadWork);
    bool CreatePumpWindow();
    void RunMainThreadWork();
    void PollViews();
    // The hidden window's procedure (timer ticks and wake-ups); the Win32 window procedure
    // signature in the toolkit's spelling of its types.
    static LRESULT __stdcall PumpWindowProcedure(HWND__* window, UINT message, WPARAM wParam,
                                                 LPARAM lParam);
    friend bool AcquireWindowClasses();

    std::function<void()> m_runMainThreadWork;
    bool m_ownsWindowClasses = false;
    HWND__* m_pumpWindow = nullptr;
    std::atomic<bool> m_wakePosted{false};
    bool m_running = false;
    std::map<HWND__*, Win32View*> m_views;
    std::vector<Win32View*> m_hostViews;
    std::vector<QueuedEvent> m_queue;
    Win32View* m_grabber = nullptr;
    HWND__* m_focusToRestore = nullptr;
    // The modifiers of the input event being delivered, if one is.
    bool m_deliveringInput = false;
    unsigned m_eventModifiers = 0;
};

} // namespace native
