// A host as the Win32 backend meets one: its own top-level window and message loop on this
// thread, real input sent through the system, and a record of what each view tells the toolkit.
#pragma once

#include "toolkit/platform/win32/Win32Api.h"

#include "toolkit/platform/win32/Win32Platform.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace win32test {

struct Event {
    enum class Kind { Exposed, Mouse, Key, FocusLost, Resized, Viewable, Close, Destroyed };
    explicit Event(Kind what) : kind(what) {}
    Kind kind;
    RECT area{0, 0, 0, 0};
    native::MouseAction action = native::MouseAction::Move;
    int x = 0; // Mouse; Resized: the width
    int y = 0; // Mouse; Resized: the height
    native::KeyInput key;
    bool viewable = false;
    unsigned modifiers = 0; // CurrentModifiers() while the event was delivered
};

// What one view told the toolkit, in order.
class Recorder final : public native::ViewEvents {
public:
    explicit Recorder(native::NativePlatform*& platform) : m_platform(platform) {}

    std::vector<Event> events;
    std::vector<Event> Of(Event::Kind kind) const;
    // The mouse events, without the motion.
    std::vector<Event> Clicks() const;

    void NativeExposed(const RECT& area) override;
    void NativeMouse(native::MouseAction action, int x, int y, unsigned long timeMs) override;
    void NativeKey(const native::KeyInput& key) override;
    void NativeFocusLost() override { Add(Event{Event::Kind::FocusLost}); }
    void NativeResized(int width, int height) override;
    void NativeViewable(bool viewable) override;
    void NativeCloseRequested() override { Add(Event{Event::Kind::Close}); }
    void NativeDestroyed() override { Add(Event{Event::Kind::Destroyed}); }

private:
    void Add(Event event);
    native::NativePlatform*& m_platform;
};

// Runs the thread's messages, as the host's loop does, for the time given.
void PumpFor(int ms);
// Runs them until the condition holds or five seconds have passed; whether it held.
bool PumpUntil(const std::function<bool()>& done);

// Real input through SendInput, at screen coordinates.
void MovePointer(POINT screen);
void PressButton(bool down);
void ClickAt(POINT screen);
void PressKey(WORD virtualKey, bool down);
void TypeKey(WORD virtualKey);

// The colour shown at a point of a window (0x00BBGGRR).
unsigned long ShownColour(HWND window, int x, int y);

// A host window (client 400 x 300 at screen (100, 100)) wrapped by a platform whose
// main-thread work delivers its events, with a view made in it and a child view of that
// (200 x 100 at (20, 30)) shown and painted once.
class HostFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A visible child view of the host's view, painted once.
    std::unique_ptr<native::NativeView> ShowChild(Recorder& recorder, const RECT& frame);
    POINT ScreenPoint(const native::NativeView& view, int x, int y) const;
    static HWND Handle(const native::NativeView& view);

    std::shared_ptr<native::Win32Platform> platform;
    native::NativePlatform* current = nullptr; // what the recorders ask for modifiers
    int workRuns = 0;
    HWND host = nullptr;
    Recorder hostEvents{current};
    std::unique_ptr<native::NativeView> hostView;
    Recorder childEvents{current};
    std::unique_ptr<native::NativeView> child;
};

} // namespace win32test
