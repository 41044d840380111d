#include "tests/windows/Win32TestHost.h"

#include <chrono>

namespace win32test {

namespace {

constexpr wchar_t kHostClass[] = L"Win32TestHostWindow";
// Without a caption, and shown without activation: wine hands a captioned or active window to
// the window manager and, with none on the test display, waits two seconds each time such a
// window is hidden or destroyed.
constexpr Win32DWORD kHostStyle = WS_POPUP | WS_CLIPCHILDREN;

void RegisterHostClass() {
    static const bool registered = [] {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
        windowClass.lpszClassName = kHostClass;
        return RegisterClassExW(&windowClass) != 0;
    }();
    ASSERT_TRUE(registered);
}

void Send(INPUT input) {
    ASSERT_EQ(SendInput(1, &input, sizeof input), 1u);
}

} // namespace

std::vector<Event> Recorder::Of(Event::Kind kind) const {
    std::vector<Event> found;
    for (const Event& event : events) {
        if (event.kind == kind)
            found.push_back(event);
    }
    return found;
}

std::vector<Event> Recorder::Clicks() const {
    std::vector<Event> found;
    for (const Event& event : Of(Event::Kind::Mouse)) {
        if (event.action != native::MouseAction::Move)
            found.push_back(event);
    }
    return found;
}

void Recorder::NativeExposed(const RECT& area) {
    Event event{Event::Kind::Exposed};
    event.area = area;
    Add(event);
}

void Recorder::NativeMouse(native::MouseAction action, int x, int y, unsigned long timeMs) {
    EXPECT_NE(timeMs, 0u);
    Event event{Event::Kind::Mouse};
    event.action = action;
    event.x = x;
    event.y = y;
    Add(event);
}

void Recorder::NativeKey(const native::KeyInput& key) {
    Event event{Event::Kind::Key};
    event.key = key;
    Add(event);
}

void Recorder::NativeResized(int width, int height) {
    Event event{Event::Kind::Resized};
    event.x = width;
    event.y = height;
    Add(event);
}

void Recorder::NativeViewable(bool viewable) {
    Event event{Event::Kind::Viewable};
    event.viewable = viewable;
    Add(event);
}

void Recorder::Add(Event event) {
    if (m_platform)
        event.modifiers = m_platform->CurrentModifiers();
    events.push_back(event);
}

void PumpFor(int ms) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (std::chrono::steady_clock::now() < end) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

bool PumpUntil(const std::function<bool()>& done) {
    for (int waited = 0; waited < 5000; waited += 20) {
        if (done())
            return true;
        PumpFor(20);
    }
    return done();
}

void MovePointer(POINT screen) {
    SetCursorPos(screen.x, screen.y);
    PumpFor(50);
}

void PressButton(bool down) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    Send(input);
    PumpFor(50);
}

void ClickAt(POINT screen) {
    MovePointer(screen);
    PressButton(true);
    PressButton(false);
}

void PressKey(WORD virtualKey, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    Send(input);
}

void TypeKey(WORD virtualKey) {
    PressKey(virtualKey, true);
    PressKey(virtualKey, false);
    PumpFor(50);
}

unsigned long ShownColour(HWND window, int x, int y) {
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

void HostFixture::SetUp() {
    RegisterHostClass();
    tagRECT frame{100, 100, 500, 400};
    AdjustWindowRectEx(&frame, kHostStyle, FALSE, 0);
    host = CreateWindowExW(0, kHostClass, L"Host", kHostStyle, frame.left, frame.top,
                           frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(host, nullptr);
    ShowWindow(host, SW_SHOWNOACTIVATE);
    PumpFor(100);
    platform = native::Win32Platform::Open([this] {
        ++workRuns;
        platform->ProcessEvents();
    });
    ASSERT_NE(platform, nullptr);
    current = platform.get();
    hostView = platform->WrapHostView(host, hostEvents);
    ASSERT_NE(hostView, nullptr);
    child = ShowChild(childEvents, RECT{20, 30, 220, 130});
    ASSERT_NE(child, nullptr);
}

void HostFixture::TearDown() {
    child.reset();
    hostView.reset();
    current = nullptr;
    platform.reset();
    if (IsWindow(host))
        DestroyWindow(host);
    PumpFor(20);
}

std::unique_ptr<native::NativeView> HostFixture::ShowChild(Recorder& recorder, const RECT& frame) {
    auto view = platform->CreateChildView(*hostView, frame, recorder);
    if (!view)
        return nullptr;
    view->SetVisible(true);
    PumpUntil([&] { return !recorder.Of(Event::Kind::Exposed).empty(); });
    recorder.events.clear();
    return view;
}

POINT HostFixture::ScreenPoint(const native::NativeView& view, int x, int y) const {
    const POINT origin = view.ScreenOrigin();
    return POINT{origin.x + x, origin.y + y};
}

HWND HostFixture::Handle(const native::NativeView& view) {
    return reinterpret_cast<HWND>(view.SystemHandle());
}

} // namespace win32test
