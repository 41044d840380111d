// Mouse and keyboard as the Win32 backend reports them: view coordinates, drags and grabs that
// keep the pointer, key codes and characters as the X11 backend gives them, and focus.
#include "tests/windows/Win32TestHost.h"
#include "toolkit/platform/KeyCodes.h"
#include "toolkit/platform/KeyTranslation.h"

namespace win32test {
namespace {

using native::MouseAction;
using Kind = Event::Kind;

struct Click {
    MouseAction action;
    int x;
    int y;
};

void ExpectClicks(const Recorder& recorder, const std::vector<Click>& expected) {
    const std::vector<Event> clicks = recorder.Clicks();
    ASSERT_EQ(clicks.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(clicks[i].action, expected[i].action) << "click " << i;
        EXPECT_EQ(clicks[i].x, expected[i].x) << "click " << i;
        EXPECT_EQ(clicks[i].y, expected[i].y) << "click " << i;
    }
}

class Input : public HostFixture {};

TEST_F(Input, LeavingTheViewIsReportedOnceThePointerIsOut) {
    MovePointer(ScreenPoint(*child, 60, 60));
    MovePointer(ScreenPoint(*child, 250, 60));
    ASSERT_TRUE(PumpUntil([&] { return !childEvents.Clicks().empty(); }));
    ExpectClicks(childEvents, {{MouseAction::Leave, 250, 60}});
}

TEST_F(Input, WheelTurnsAreNotchesAtThePointer) {
    child->TakeKeyboardFocus();
    MovePointer(ScreenPoint(*child, 70, 20));

    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<Win32DWORD>(2 * WHEEL_DELTA);
    ASSERT_EQ(SendInput(1, &input, sizeof input), 1u);
    // A fine-grained wheel's small step still counts as a notch.
    input.mi.mouseData = static_cast<Win32DWORD>(-WHEEL_DELTA / 4);
    ASSERT_EQ(SendInput(1, &input, sizeof input), 1u);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Clicks().size() == 3; }));
    ExpectClicks(childEvents, {{MouseAction::WheelUp, 70, 20},
                               {MouseAction::WheelUp, 70, 20},
                               {MouseAction::WheelDown, 70, 20}});
}

TEST_F(Input, GrabTakesEveryClickAndKeyUntilReleased) {
    Recorder popupEvents{current};
    auto popup = platform->CreateTopLevelView(native::TopLevelKind::Popup, child.get(),
                                              RECT{600, 200, 700, 300}, popupEvents);
    ASSERT_NE(popup, nullptr);
    popup->SetVisible(true);
    PumpFor(100);
    EXPECT_NE(GetActiveWindow(), Handle(*popup));
    // The host's window has the keyboard: the grab lends it to the popup's owner view, so
    // that keys come to the popup (as X11's keyboard grab sends them) and go back after.
    SetFocus(host);
    popup->GrabPointer();
    EXPECT_EQ(GetFocus(), Handle(*child));

    // A click on another view of ours and one on the host's window, in the popup's
    // coordinates; a key typed goes to the popup too.
    ClickAt(ScreenPoint(*child, 10, 10));
    ClickAt(POINT{150, 350});
    TypeKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return popupEvents.Clicks().size() == 4; }));
    PumpFor(50);
    const POINT onChild = ScreenPoint(*child, 10, 10);
    ExpectClicks(popupEvents, {{MouseAction::Down, onChild.x - 600, onChild.y - 200},
                               {MouseAction::Up, onChild.x - 600, onChild.y - 200},
                               {MouseAction::Down, 150 - 600, 350 - 200},
                               {MouseAction::Up, 150 - 600, 350 - 200}});
    ASSERT_EQ(popupEvents.Of(Kind::Key).size(), 1u);
    EXPECT_EQ(popupEvents.Of(Kind::Key)[0].key.keyCode, kKeyEscape);
    EXPECT_TRUE(childEvents.Clicks().empty());
    EXPECT_TRUE(childEvents.Of(Kind::Key).empty());

    popup->ReleasePointer();
    EXPECT_EQ(GetFocus(), host);
    popupEvents.events.clear();
    ClickAt(ScreenPoint(*child, 10, 10));
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Clicks().size() == 2; }));
    ExpectClicks(childEvents, {{MouseAction::Down, 10, 10}, {MouseAction::Up, 10, 10}});
    EXPECT_TRUE(popupEvents.Clicks().empty());
}

// The host (or another program) taking the pointer ends a grab as a click elsewhere would,
// and ends a drag where the pointer last was, outside the view that kept it.
TEST_F(Input, CaptureTakenAwayEndsGrabAndDrag) {
    Recorder popupEvents{current};
    auto popup = platform->CreateTopLevelView(native::TopLevelKind::Popup, nullptr,
                                              RECT{600, 200, 700, 300}, popupEvents);
    ASSERT_NE(popup, nullptr);
    popup->SetVisible(true);
    popup->GrabPointer();
    SetCapture(host);
    ASSERT_TRUE(PumpUntil([&] { return popupEvents.Clicks().size() == 1; }));
    ExpectClicks(popupEvents, {{MouseAction::Down, -1, -1}});
    // The grab is over: clicks reach the view under the pointer again.
    ReleaseCapture();
    ClickAt(ScreenPoint(*child, 5, 5));
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Clicks().size() == 2; }));
    EXPECT_EQ(popupEvents.Clicks().size(), 1u);

    childEvents.events.clear();
    MovePointer(ScreenPoint(*child, 30, 40));
    PressButton(true);
    MovePointer(ScreenPoint(*child, -10, -5));
    SetCapture(host);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Clicks().size() == 2; }));
    ExpectClicks(childEvents, {{MouseAction::Down, 30, 40}, {MouseAction::Up, -10, -5}});
    ReleaseCapture();
    PressButton(false);
}

TEST_F(Input, KeysGiveTheKeyCodesAndCharactersOfKeyCodes) {
    child->TakeKeyboardFocus();
    ASSERT_EQ(GetFocus(), Handle(*child));

    struct Typed {
        WORD virtualKey;
        unsigned keyCode;
        unsigned character;
    };
    const Typed typed[] = {
        {'Q', native::KeyCodeForCharacter('q'), 'q'},
        {'7', native::KeyCodeForCharacter('7'), '7'},
        {VK_OEM_MINUS, native::KeyCodeForCharacter('-'), '-'},
        {VK_LEFT, kKeyLeft, kCharLeft},
        {VK_DOWN, kKeyDown, kCharDown},
        {VK_RETURN, kKeyReturn, kCharReturn},
        {VK_ESCAPE, kKeyEscape, kCharEscape},
        {VK_BACK, kKeyBackSpace, kCharBackSpace},
        {VK_DELETE, kKeyDelete, kCharDelete},
        {VK_TAB, kKeyTab, kCharTab},
        {VK_HOME, kKeyHome, 0},
    };
    for (const Typed& key : typed)
        TypeKey(key.virtualKey);
    // The keypad's digits carry its own key codes. Wine types nothing for them under
    // SendInput (it reads them with Num Lock off): the messages TranslateMessage gives with
    // Num Lock on are posted instead.
    const HWND window = Handle(*child);
    PostMessageW(window, WM_KEYDOWN, VK_NUMPAD3, 1);
    PostMessageW(window, WM_CHAR, '3', 1);
    PostMessageW(window, WM_KEYUP, VK_NUMPAD3, 0xC0000001);
    // Text that no key of the layout types: a letter with an accent, and a character outside
    // the Basic Multilingual Plane, whose two UTF-16 halves arrive one by one.
    PostMessageW(window, WM_CHAR, 0xE9, 1);
    PostMessageW(window, WM_CHAR, 0xD83C, 1);
    PostMessageW(window, WM_CHAR, 0xDFB5, 1);
    const size_t expectedCount = std::size(typed) + 3;
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::Key).size() >= expectedCount; }));
    PumpFor(50);

    const std::vector<Event> keys = childEvents.Of(Kind::Key);
    ASSERT_EQ(keys.size(), expectedCount);
    for (size_t i = 0; i < std::size(typed); ++i) {
        EXPECT_EQ(keys[i].key.keyCode, typed[i].keyCode) << "key " << i;
        EXPECT_EQ(keys[i].key.character, typed[i].character) << "key " << i;
        EXPECT_NE(keys[i].key.timeMs, 0u) << "key " << i;
    }
    const Event* posted = &keys[std::size(typed)];
    EXPECT_EQ(posted[0].key.keyCode, kKeyPad0 + 3);
    EXPECT_EQ(posted[0].key.character, static_cast<unsigned>('3'));
    EXPECT_EQ(posted[1].key.keyCode, 0u);
    EXPECT_EQ(posted[1].key.character, 0xE9u);
    EXPECT_EQ(posted[2].key.keyCode, 0u);
    EXPECT_EQ(posted[2].key.character, 0x1F3B5u);
}

TEST_F(Input, ModifiersAreThoseHeldWhenTheKeyWasTyped) {
    child->TakeKeyboardFocus();
    PressKey(VK_SHIFT, true);
    TypeKey('A');
    PressKey(VK_SHIFT, false);
    PressKey(VK_CONTROL, true);
    TypeKey(VK_RIGHT);
    // Control with a letter types a control character: no key event, as on X11.
    TypeKey('C');
    PressKey(VK_CONTROL, false);
    TypeKey(VK_UP);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::Key).size() >= 3; }));
    PumpFor(50);

    const std::vector<Event> keys = childEvents.Of(Kind::Key);
    ASSERT_EQ(keys.size(), 3u);
    EXPECT_EQ(keys[0].key.character, static_cast<unsigned>('A'));
    EXPECT_EQ(keys[0].key.keyCode, native::KeyCodeForCharacter('a'));
    EXPECT_EQ(keys[0].modifiers, kModifierShift);
    EXPECT_EQ(keys[1].key.keyCode, kKeyRight);
    EXPECT_EQ(keys[1].modifiers, kModifierControl);
    EXPECT_EQ(keys[2].key.keyCode, kKeyUp);
    EXPECT_EQ(keys[2].modifiers, 0u);
}

TEST_F(Input, FocusLostOnlyToWindowsThatAreNotOurs) {
    const HWND field = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 250, 10, 100, 20,
                                       host, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(field, nullptr);
    SetFocus(field);
    Recorder second{current};
    auto secondView = ShowChild(second, RECT{230, 30, 330, 130});
    ASSERT_NE(secondView, nullptr);

    // Between the views: the toolkit moved it itself.
    child->TakeKeyboardFocus();
    secondView->TakeKeyboardFocus();
    EXPECT_EQ(GetFocus(), Handle(*secondView));
    // Given back: to the host's field that had it.
    secondView->ReturnKeyboardFocus();
    EXPECT_EQ(GetFocus(), field);
    PumpFor(100);
    EXPECT_TRUE(childEvents.Of(Kind::FocusLost).empty());
    EXPECT_EQ(second.Of(Kind::FocusLost).size(), 1u);

    // Taken by the host.
    child->TakeKeyboardFocus();
    SetFocus(host);
    ASSERT_TRUE(PumpUntil([&] { return childEvents.Of(Kind::FocusLost).size() == 1; }));
}

} // namespace
} // namespace win32test
