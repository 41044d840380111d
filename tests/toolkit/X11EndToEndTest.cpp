// The toolkit under a real X server: a window inside another connection's window, painted,
// clicked and typed into with xdotool, and closed leaving no windows, threads or connections.
#include "tests/toolkit/EndToEndScenario.h"
#include "tests/toolkit/ToolkitThreads.h"
#include "toolkit/CFrameWnd.h"
#include "toolkit/FallbackIdleDriver.h"
#include "toolkit/MessagePump.h"
#include "toolkit/WinStyles.h"

// Before Xlib, whose macros (None, Status) would break it.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

constexpr int kHostX = 40, kHostY = 30;

bool RunTool(const std::string& command) {
    return std::system(command.c_str()) == 0;
}

// Stands in for the host: its own connection and its own top-level window.
class HostWindow {
public:
    HostWindow() : m_display(XOpenDisplay(nullptr)) {
        if (!m_display)
            return;
        const int screen = DefaultScreen(m_display);
        m_window =
            XCreateSimpleWindow(m_display, RootWindow(m_display, screen), kHostX, kHostY, 320, 220,
                                0, BlackPixel(m_display, screen), BlackPixel(m_display, screen));
        SetMapped(true);
    }
    ~HostWindow() {
        if (!m_display)
            return;
        if (m_window)
            XDestroyWindow(m_display, m_window);
        XCloseDisplay(m_display);
    }
    Display* display() const { return m_display; }
    void* Handle() const { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(m_window)); }
    unsigned ChildCount() const {
        Window root, parent, *children = nullptr;
        unsigned count = 0;
        XQueryTree(m_display, m_window, &root, &parent, &children, &count);
        if (children)
            XFree(children);
        return count;
    }
    std::uint32_t Pixel(int x, int y) const {
        XImage* image = XGetImage(m_display, m_window, x, y, 1, 1, AllPlanes, ZPixmap);
        if (!image)
            return 0xDEADBEEF;
        const std::uint32_t pixel = static_cast<std::uint32_t>(XGetPixel(image, 0, 0)) & 0xFFFFFF;
        XDestroyImage(image);
        return pixel;
    }
    void SetMapped(bool mapped) {
        (mapped ? XMapWindow : XUnmapWindow)(m_display, m_window);
        XSync(m_display, False);
    }
    void Destroy() {
        XDestroyWindow(m_display, m_window);
        XSync(m_display, False);
        m_window = 0;
    }

private:
    Display* m_display;
    Window m_window = 0;
};

class X11Backend : public ScenarioBackend {
public:
    explicit X11Backend(HostWindow& host) : m_host(host) {}
    ~X11Backend() override {
        if (m_keys.joinable())
            m_keys.join();
    }

    void Click(CWnd* wnd, int x, int y) override { RunTool(MoveTo(wnd, x, y) + " click 1"); }
    void DoubleClick(CWnd* wnd, int x, int y) override {
        RunTool(MoveTo(wnd, x, y) + " click --repeat 2 --delay 80 1");
    }
    void Type(const char* text) override {
        RunTool(std::string("xdotool type --delay 20 '") + text + "'");
    }
    void PressReturn() override { RunTool("xdotool key Return"); }
    // xdotool waits for the window to be mapped; the short pause lets the toolkit take the
    // keyboard before the keys arrive.
    void KeysIntoOpenWindow(const char* keys, bool dialog) override {
        const std::string command =
            std::string("timeout 10 xdotool search --sync --onlyvisible --class ") +
            (dialog ? "ZephyraDialog" : "ZephyraPopup") + " sleep 0.2 key --delay 30 " + keys;
        if (m_keys.joinable())
            m_keys.join();
        m_keys = std::thread([command] { RunTool(command); });
    }
    bool RunUntil(const std::function<bool()>& condition) override {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (std::chrono::steady_clock::now() < deadline) {
            AfxPumpMessages();
            if (condition())
                return true;
            AfxWaitForWork(10);
        }
        return false;
    }
    std::uint32_t ScreenPixel(CWnd* wnd, int x, int y) override {
        const CPoint at = Screen(wnd, x, y);
        return m_host.Pixel(at.x - kHostX, at.y - kHostY);
    }

private:
    static CPoint Screen(CWnd* wnd, int x, int y) {
        CPoint at(x, y);
        wnd->ClientToScreen(&at);
        return at;
    }
    static std::string MoveTo(CWnd* wnd, int x, int y) {
        const CPoint at = Screen(wnd, x, y);
        return "xdotool mousemove --sync " + std::to_string(at.x) + " " + std::to_string(at.y);
    }

    HostWindow& m_host;
    std::thread m_keys;
};

class X11EndToEnd : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("DISPLAY") || !host.display())
            GTEST_SKIP() << "needs an X server (run under xvfb-run)";
    }
    // The frame in the host's window and the test's window in it, as an editor opens.
    void Open() {
        ASSERT_TRUE(frame.SetNativeHandle(host.Handle()));
        frame.HostIdle();
        ASSERT_TRUE(
            wnd.Create(nullptr, "w", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &frame, 1));
    }
    // Five rounds of pumping, each with a short wait for work.
    static void PumpAWhile() {
        for (int i = 0; i < 5; ++i) {
            AfxPumpMessages();
            AfxWaitForWork(10);
        }
    }

    HostWindow host;
    CFrameWnd frame;
    ScenarioWnd wnd;
};

TEST_F(X11EndToEnd, WindowInAForeignParentIsPaintedClickedAndTypedInto) {
    ASSERT_TRUE(frame.SetNativeHandle(host.Handle()));
    CRect client;
    frame.GetClientRect(&client);
    EXPECT_EQ(client, CRect(0, 0, 320, 220));
    frame.HostIdle();
    {
        X11Backend backend(host);
        PlayScenario(frame, backend);
    }
    EXPECT_EQ(host.ChildCount(), 0u) << "the destroyed window left the host's window";
    frame.SetNativeHandle(nullptr);
    EXPECT_EQ(ToolkitThreadCount(), 0);
    host.Destroy();
}

TEST_F(X11EndToEnd, HostDestroyingItsWindowRightAfterCloseIsHarmless) {
    {
        std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
        ASSERT_TRUE(frame.SetNativeHandle(host.Handle()));
        ASSERT_TRUE(
            wnd.Create(nullptr, "w", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &frame, 1));
        wnd.SetTimer(1, 20);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    {
        std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
        EXPECT_FALSE(wnd.paintedAreas.empty()) << "the fallback painted before any idle";
        EXPECT_EQ(ToolkitThreadCount(), 2) << "the timer and the fallback driver";
        wnd.DestroyWindow();
        frame.SetNativeHandle(nullptr);
    }
    EXPECT_EQ(ToolkitThreadCount(), 0);
    host.Destroy();
}

TEST_F(X11EndToEnd, HostWindowDestroyedWhileTheEditorIsOpen) {
    Open();
    AfxPumpMessages();
    host.Destroy();
    for (int i = 0; i < 5; ++i) {
        wnd.Invalidate();
        PumpAWhile();
    }
    EXPECT_TRUE(wnd.DestroyWindow());
    frame.SetNativeHandle(nullptr);
}

TEST_F(X11EndToEnd, HostThatHidesTheEditorGetsAFullRepaintOnShowingIt) {
    Open();
    X11Backend backend(host);
    ASSERT_TRUE(backend.RunUntil([&] { return !wnd.paintedAreas.empty(); }));

    host.SetMapped(false);
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    AfxPumpMessages();
    wnd.paintedAreas.clear();
    const CRect corner(0, 0, 5, 5);
    wnd.InvalidateRect(&corner);
    PumpAWhile();
    EXPECT_TRUE(wnd.paintedAreas.empty()) << "nothing is drawn while the host hides it";

    host.SetMapped(true);
    ASSERT_TRUE(backend.RunUntil([&] {
        CRect all;
        for (const CRect& area : wnd.paintedAreas)
            all.UnionRect(all, area);
        return all == CRect(0, 0, 100, 100);
    }));
    EXPECT_EQ(backend.ScreenPixel(&wnd, 30, 30), 0xFFC000u);
    wnd.DestroyWindow();
    frame.SetNativeHandle(nullptr);
}

} // namespace
