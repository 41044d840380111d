// Windows of the Win32 backend: what the toolkit is told and when (never from inside its own
// calls), pixels on screen, dialogs, and windows that the host takes away or hides.
#include "tests/windows/Win32TestHost.h"

#include <cairo.h>

#include <string>

namespace win32test {
namespace {

using Kind = Event::Kind;

constexpr unsigned long kRed = 0x0000FF; // as GetPixel reads it: 0x00BBGGRR
constexpr unsigned long kBlue = 0xFF0000;
constexpr unsigned long kGreen = 0x00FF00;

// Finished pixels as the toolkit keeps them: device-sized, with its scale as device scale.
cairo_surface_t* Pixels(int width, int height, double scale) {
    cairo_surface_t* pixels = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_surface_set_device_scale(pixels, scale, scale);
    return pixels;
}

void Fill(cairo_surface_t* pixels, double x, double y, double width, double height, double red,
          double green, double blue) {
    cairo_t* cr = cairo_create(pixels);
    cairo_set_source_rgb(cr, red, green, blue);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
    cairo_destroy(cr);
    cairo_surface_flush(pixels);
}

class Windows : public HostFixture {};

TEST_F(Windows, EventsWaitForTheHostsLoop) {
    Recorder events{current};
    auto view = platform->CreateChildView(*hostView, RECT{20, 30, 220, 130}, events);
    ASSERT_NE(view, nullptr);
    // Windows sends its messages inside these calls; none of them reaches the toolkit there.
    view->SetVisible(true);
    view->SetFrame(RECT{10, 20, 310, 220});
    view->TakeKeyboardFocus();
    SetFocus(host);
    Recorder innerEvents{current};
    auto inner = platform->CreateChildView(*view, RECT{0, 0, 50, 50}, innerEvents);
    ASSERT_NE(inner, nullptr);
    inner->SetVisible(true);
    inner.reset();
    EXPECT_TRUE(events.events.empty());
    EXPECT_TRUE(innerEvents.events.empty());

    // The loop delivers them: the view lost the keyboard and must be painted. Its size is
    // the toolkit's own and is not reported back.
    ASSERT_TRUE(PumpUntil([&] { return !events.Of(Kind::Exposed).empty(); }));
    PumpFor(100);
    EXPECT_EQ(events.Of(Kind::FocusLost).size(), 1u);
    EXPECT_TRUE(events.Of(Kind::Resized).empty());
    const RECT exposed = events.Of(Kind::Exposed)[0].area;
    EXPECT_EQ(exposed.left, 0);
    EXPECT_EQ(exposed.top, 0);
    EXPECT_EQ(exposed.right, 300);
    EXPECT_EQ(exposed.bottom, 200);
    EXPECT_TRUE(innerEvents.events.empty());
    EXPECT_GT(workRuns, 0);
}

// The finished pixels are device pixels whatever their scale: at 2, where the toolkit draws in
// layout pixels, (10, 10, 5, 5) covers device (20..30).
TEST_F(Windows, PresentPutsTheAreaOnScreenOneDevicePixelForOne) {
    cairo_surface_t* pixels = Pixels(200, 100, 2.0);
    Fill(pixels, 0, 0, 100, 50, 1, 0, 0);
    Fill(pixels, 10, 10, 5, 5, 0, 0, 1);
    child->Present(pixels, RECT{0, 0, 200, 100});
    EXPECT_EQ(ShownColour(Handle(*child), 19, 19), kRed);
    EXPECT_EQ(ShownColour(Handle(*child), 20, 20), kBlue);
    EXPECT_EQ(ShownColour(Handle(*child), 29, 29), kBlue);
    EXPECT_EQ(ShownColour(Handle(*child), 30, 30), kRed);
    EXPECT_EQ(ShownColour(Handle(*child), 199, 99), kRed);

    // Only the area given is copied, from its own place: the top rows and the left columns,
    // blue, stay elsewhere.
    Fill(pixels, 0, 0, 100, 50, 0, 1, 0);
    Fill(pixels, 0, 0, 10, 50, 0, 0, 1);
    Fill(pixels, 0, 0, 100, 10, 0, 0, 1);
    child->Present(pixels, RECT{100, 50, 150, 80});
    EXPECT_EQ(ShownColour(Handle(*child), 100, 50), kGreen);
    EXPECT_EQ(ShownColour(Handle(*child), 149, 79), kGreen);
    EXPECT_EQ(ShownColour(Handle(*child), 99, 50), kRed);
    EXPECT_EQ(ShownColour(Handle(*child), 150, 79), kRed);
    cairo_surface_destroy(pixels);
}

TEST_F(Windows, DialogFramesItsClientAreaAndAsksToClose) {
    Recorder events{current};
    auto dialog = platform->CreateTopLevelView(native::TopLevelKind::Dialog, child.get(),
                                               RECT{300, 200, 500, 350}, events);
    ASSERT_NE(dialog, nullptr);
    const HWND window = Handle(*dialog);
    EXPECT_EQ(GetWindow(window, GW_OWNER), host);
    dialog->SetTitle("\xC3\x89galiseur"); // "Égaliseur"
    wchar_t title[32] = {};
    GetWindowTextW(window, title, 32);
    EXPECT_EQ(std::wstring(title), L"\u00C9galiseur");
    dialog->SetVisible(true);
    PumpFor(100);

    const POINT origin = dialog->ScreenOrigin();
    EXPECT_EQ(origin.x, 300);
    EXPECT_EQ(origin.y, 200);
    tagRECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 200);
    EXPECT_EQ(client.bottom, 150);

    // The user (or the system) sizing the window is news; the toolkit's own size is not.
    SetWindowPos(window, nullptr, 0, 0, 320, 260, SWP_NOMOVE | SWP_NOZORDER);
    GetClientRect(window, &client);
    ASSERT_TRUE(PumpUntil([&] { return !events.Of(Kind::Resized).empty(); }));
    dialog->SetFrame(RECT{310, 210, 510, 360});
    PumpFor(100);
    ASSERT_EQ(events.Of(Kind::Resized).size(), 1u);
    EXPECT_EQ(events.Of(Kind::Resized)[0].x, client.right);
    EXPECT_EQ(events.Of(Kind::Resized)[0].y, client.bottom);
    EXPECT_EQ(dialog->Size().cx, 200);

    SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(PumpUntil([&] { return events.Of(Kind::Close).size() == 1; }));
    EXPECT_TRUE(IsWindow(window));
    dialog.reset();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Windows, HostDestroyingItsWindowFirstIsReported) {
    child->TakeKeyboardFocus();
    child->GrabPointer();
    DestroyWindow(host);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::Destroyed).size() == 1; }));
    ASSERT_TRUE(PumpUntil([&] { return hostEvents.Of(Kind::Destroyed).size() == 1; }));
    // The view is inert: nothing reaches the dead window, and it can still be destroyed.
    EXPECT_EQ(child->SystemHandle(), 0u);
    child->SetFrame(RECT{0, 0, 10, 10});
    child->SetVisible(true);
    child->ReleasePointer();
    cairo_surface_t* pixels = Pixels(200, 100, 1.0);
    child->Present(pixels, RECT{0, 0, 200, 100});
    cairo_surface_destroy(pixels);
    child.reset();
    hostView.reset();
    PumpFor(50);
    EXPECT_EQ(childEvents.Of(Kind::Destroyed).size(), 1u);
}

TEST_F(Windows, HostHidingItsWindowMakesTheViewUnviewable) {
    ShowWindow(host, SW_HIDE);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::Viewable).size() == 1; }));
    EXPECT_FALSE(childEvents.Of(Kind::Viewable)[0].viewable);
    ShowWindow(host, SW_SHOWNA);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::Viewable).size() == 2; }));
    EXPECT_TRUE(childEvents.Of(Kind::Viewable)[1].viewable);

    // A child the toolkit hid itself is not told about its host.
    child->SetVisible(false);
    ShowWindow(host, SW_HIDE);
    PumpFor(200);
    EXPECT_EQ(childEvents.Of(Kind::Viewable).size(), 2u);
}

// Windows hides the windows a window owns when it is minimised, with ShowOwnedPopups (wine
// minimises without it: it is called here directly).
TEST_F(Windows, WindowsHiddenWithTheirOwnerAreUnviewable) {
    Recorder events{current};
    auto popup = platform->CreateTopLevelView(native::TopLevelKind::Popup, child.get(),
                                              RECT{600, 200, 700, 300}, events);
    ASSERT_NE(popup, nullptr);
    popup->SetVisible(true);
    PumpFor(50);
    ShowOwnedPopups(host, FALSE);
    ASSERT_TRUE(PumpUntil([&] { return events.Of(Kind::Viewable).size() == 1; }));
    EXPECT_FALSE(events.Of(Kind::Viewable)[0].viewable);
    ShowOwnedPopups(host, TRUE);
    ASSERT_TRUE(PumpUntil([&] { return events.Of(Kind::Viewable).size() == 2; }));
    EXPECT_TRUE(events.Of(Kind::Viewable)[1].viewable);
}

TEST_F(Windows, ViewsOutlivingThePlatformLoseTheirWindows) {
    const HWND window = Handle(*child);
    current = nullptr;
    platform.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(IsWindow(host));
    child->SetFrame(RECT{0, 0, 10, 10});
    child.reset();
    hostView.reset();
}

TEST_F(Windows, WrapsOnlyLiveWindowsAndReadsTheDesktopDpi) {
    Recorder events{current};
    EXPECT_EQ(platform->WrapHostView(nullptr, events), nullptr);
    const HWND gone = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, nullptr, nullptr,
                                      GetModuleHandleW(nullptr), nullptr);
    DestroyWindow(gone);
    EXPECT_EQ(platform->WrapHostView(gone, events), nullptr);
    const SIZE size = hostView->Size();
    EXPECT_EQ(size.cx, 400);
    EXPECT_EQ(size.cy, 300);
    EXPECT_EQ(platform->DesktopDpi(), 96.0);
}

} // namespace
} // namespace win32test
