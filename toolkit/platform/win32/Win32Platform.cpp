#include "toolkit/platform/win32/Win32Api.h"

#include "toolkit/platform/SystemPlatform.h"
#include "toolkit/platform/win32/Win32Platform.h"
#include "toolkit/platform/win32/Win32View.h"
#include "toolkit/platform/win32/WindowClasses.h"

#include <algorithm>

namespace native {

namespace {

constexpr UINT_PTR kTimerId = 1;
constexpr UINT kTimerPeriodMs = 16;
// Posted to the hidden window to have the main-thread work run soon.
constexpr UINT kWakeMessage = WM_APP + 1;

} // namespace

std::shared_ptr<NativePlatform> OpenSystemPlatform(std::function<void()> runMainThreadWork) {
    return Win32Platform::Open(std::move(runMainThreadWork));
}

std::shared_ptr<Win32Platform> Win32Platform::Open(std::function<void()> runMainThreadWork) {
    std::shared_ptr<Win32Platform> platform(new Win32Platform(std::move(runMainThreadWork)));
    if (!platform->CreatePumpWindow())
        return nullptr;
    return platform;
}

Win32Platform::Win32Platform(std::function<void()> runMainThreadWork)
    : m_runMainThreadWork(std::move(runMainThreadWork)) {}

bool Win32Platform::CreatePumpWindow() {
    m_ownsWindowClasses = AcquireWindowClasses();
    if (!m_ownsWindowClasses)
        return false;
    m_pumpWindow = CreateWindowExW(0, PumpClassName(), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                   static_cast<HINSTANCE>(WindowClassModule()), this);
    if (!m_pumpWindow)
        return false;
    SetTimer(m_pumpWindow, kTimerId, kTimerPeriodMs, nullptr);
    return true;
}

Win32Platform::~Win32Platform() {
    if (m_pumpWindow) {
        KillTimer(m_pumpWindow, kTimerId);
        DestroyWindow(m_pumpWindow);
    }
    // Views left open lose their windows now, as an X display's windows go with it.
    std::vector<Win32View*> left = m_hostViews;
    for (const auto& [window, view] : m_views)
        left.push_back(view);
    for (Win32View* view : left)
        view->AbandonPlatform();
    if (m_ownsWindowClasses)
        ReleaseWindowClasses();
}

LRESULT __stdcall Win32Platform::PumpWindowProcedure(HWND window, UINT message, WPARAM wParam,
                                                     LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* platform = reinterpret_cast<Win32Platform*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (platform && (message == WM_TIMER || message == kWakeMessage)) {
        if (message == kWakeMessage)
            platform->m_wakePosted = false;
        platform->RunMainThreadWork();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void Win32Platform::Wake() {
    if (!m_wakePosted.exchange(true))
        PostMessageW(m_pumpWindow, kWakeMessage, 0, 0);
}

// A tick or wake-up that arrives while the work runs (a host call inside it pumped the
// thread's messages) does nothing. The work may let go of the last reference to this
// platform: it is kept until the work has returned.
void Win32Platform::RunMainThreadWork() {
    if (m_running)
        return;
    const std::shared_ptr<Win32Platform> keep = shared_from_this();
    m_running = true;
    m_runMainThreadWork();
    m_running = false;
}

std::unique_ptr<NativeView> Win32Platform::CreateChildView(NativeView& parent, const RECT& frame,
                                                           ViewEvents& events) {
    auto& parentView = static_cast<Win32View&>(parent);
    if (!parentView.Window())
        return nullptr;
    auto view = std::make_unique<Win32View>(*this, ViewKind::Child, events);
    if (!view->Create(parentView.Window(), frame))
        return nullptr;
    view->SetWatchesViewability(!parentView.IsOwned());
    return view;
}

std::unique_ptr<NativeView> Win32Platform::CreateTopLevelView(TopLevelKind kind, NativeView* owner,
                                                              const RECT& screenFrame,
                                                              ViewEvents& events) {
    // Owned by the window that holds the owner (the host's window for a view in it), so that
    // it stays above it and goes away with it.
    const HWND ownerView = owner ? static_cast<Win32View*>(owner)->Window() : nullptr;
    const HWND ownerWindow = ownerView ? GetAncestor(ownerView, GA_ROOT) : nullptr;
    auto view = std::make_unique<Win32View>(
        *this, kind == TopLevelKind::Popup ? ViewKind::Popup : ViewKind::Dialog, events);
    if (kind == TopLevelKind::Popup && IsOurs(ownerView))
        view->SetKeyboardStandIn(ownerView);
    if (!view->Create(ownerWindow, screenFrame))
        return nullptr;
    return view;
}

std::unique_ptr<NativeView> Win32Platform::WrapHostView(void* handle, ViewEvents& events) {
    const auto window = static_cast<HWND>(handle);
    if (!window || !IsWindow(window))
        return nullptr;
    auto view = std::make_unique<Win32View>(*this, ViewKind::Host, events);
    view->Wrap(window);
    return view;
}

void Win32Platform::Register(HWND window, Win32View* view) {
    m_views[window] = view;
}

void Win32Platform::Unregister(HWND window) {
    m_views.erase(window);
}

void Win32Platform::RegisterHost(Win32View* view) {
    m_hostViews.push_back(view);
}

void Win32Platform::UnregisterHost(Win32View* view) {
    m_hostViews.erase(std::remove(m_hostViews.begin(), m_hostViews.end(), view), m_hostViews.end());
}

Win32View* Win32Platform::ViewOf(HWND window) const {
    const auto found = m_views.find(window);
    return found == m_views.end() ? nullptr : found->second;
}

// Only the latest position of a run of motion matters.
void Win32Platform::Queue(const QueuedEvent& event) {
    const auto isMotion = [](const QueuedEvent& queued) {
        return queued.kind == QueuedEvent::Kind::Mouse && queued.action == MouseAction::Move;
    };
    if (isMotion(event) && !m_queue.empty() && isMotion(m_queue.back()) &&
        m_queue.back().window == event.window)
        m_queue.back() = event;
    else
        m_queue.push_back(event);
    Wake();
}

// Like GetKeyState itself: while an input event is delivered, the modifiers that came with
// it; the toolkit handles it some time after it happened, when the keys may have changed.
unsigned Win32Platform::CurrentModifiers() {
    return m_deliveringInput ? m_eventModifiers : KeyboardModifiers();
}

RECT Win32Platform::ScreenBounds() {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return RECT{left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

double Win32Platform::DesktopDpi() {
    const HDC screen = GetDC(nullptr);
    if (!screen)
        return 0.0;
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 0.0;
}

// The events queued before this call; those that their handlers cause wait for the next
// one (a wake-up is posted for them).
void Win32Platform::ProcessEvents() {
    std::vector<QueuedEvent> pending;
    pending.swap(m_queue);
    for (const QueuedEvent& event : pending) {
        Win32View* view = ViewOf(event.window);
        if (!view)
            continue;
        m_deliveringInput =
            event.kind == QueuedEvent::Kind::Mouse || event.kind == QueuedEvent::Kind::Key;
        m_eventModifiers = event.modifiers;
        view->Deliver(event);
        m_deliveringInput = false;
    }
    PollViews();
}

// A handler may destroy views: each is looked up again before it is polled.
void Win32Platform::PollViews() {
    const std::vector<Win32View*> hosts = m_hostViews;
    for (Win32View* host : hosts) {
        if (std::find(m_hostViews.begin(), m_hostViews.end(), host) != m_hostViews.end())
            host->Poll();
    }
    std::vector<HWND> windows;
    for (const auto& entry : m_views)
        windows.push_back(entry.first);
    for (HWND window : windows) {
        if (Win32View* view = ViewOf(window))
            view->Poll();
    }
}

void Win32Platform::WaitForEvents(int timeoutMs) {
    if (!m_queue.empty())
        return;
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(std::max(0, timeoutMs)), QS_ALLINPUT,
                                0);
}

} // namespace native
