// Mouse and keyboard input beyond a plain click (the end-to-end scenario plays those; a dialog's
// disabled owner, dropped clicks): double click limits, drags, capture, modifiers, keys.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/CWnd.h"
#include "toolkit/WinMessages.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>

namespace {

using InputTest = WindowFixture<RecordingWnd, true>;

TEST_F(InputTest, SlowOrDistantSecondPressIsASingleClick) {
    driver.Click(&wnd, CPoint(50, 50));
    driver.Click(&wnd, CPoint(50, 50));
    driver.Platform().AdvanceClock(100);
    driver.Press(&wnd, CPoint(60, 50));
    EXPECT_EQ(wnd.Only(WM_LBUTTONDOWN).size(), 3u);
    EXPECT_TRUE(wnd.Only(WM_LBUTTONDBLCLK).empty());
}

TEST_F(InputTest, DragKeepsReportingToThePressedWindowOutsideIt) {
    driver.Press(&wnd, CPoint(10, 10));
    driver.Move(&wnd, CPoint(-15, 250));
    driver.Release(&wnd, CPoint(-15, 250));
    EXPECT_EQ(wnd.Points(WM_MOUSEMOVE), std::vector<CPoint>{CPoint(-15, 250)});
    EXPECT_EQ(wnd.Only(WM_LBUTTONUP).size(), 1u);
}

// Capture changes no routing; a destroyed window gives up capture and focus.
TEST_F(InputTest, CaptureIsBookkeepingOnly) {
    auto other = std::make_unique<RecordingWnd>();
    ASSERT_TRUE(other->CreateChild(&frame, CRect(320, 30, 380, 90)));
    EXPECT_EQ(wnd.SetCapture(), nullptr);
    EXPECT_EQ(other->SetCapture(), &wnd);
    EXPECT_EQ(CWnd::GetCapture(), other.get());
    driver.Click(&wnd, CPoint(5, 5));
    EXPECT_EQ(wnd.Only(WM_LBUTTONDOWN).size(), 1u)
        << "events still go to the window under the mouse";
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_FALSE(ReleaseCapture());
    EXPECT_EQ(CWnd::GetCapture(), nullptr);

    other->SetCapture();
    other->SetFocus();
    other.reset();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

// Shift (16) is read by the panel's on/off switch and by Shift+Tab, whose tests hold it.
TEST_F(InputTest, KeyStateMapsVirtualKeysOntoModifierBits) {
    const struct {
        int virtualKey;
        unsigned modifiers;
        DWORD expected;
    } cases[] = {
        {17, kModifierControl, 0xFFFF8000u},
        {18, kModifierCommand, 0xFFFF8000u},
        {18, kModifierOption, 0},
        {19, kModifierOption, 0xFFFF8000u},
        {19, kModifierCommand, 0},
        {20, 0xFFFFu, 0},
        {65, 0xFFFFu, 0},
    };
    for (const auto& c : cases) {
        driver.SetModifiers(c.modifiers);
        EXPECT_EQ(GetKeyState(c.virtualKey), c.expected)
            << "key " << c.virtualKey << " with modifiers " << std::hex << c.modifiers;
    }
    driver.SetModifiers(0);
}

// Takes the keyboard, and swallows Escape before it is dispatched.
class FilteringWnd : public RecordingWnd {
public:
    std::vector<MSG> seen;
    bool TakesKeyboard() const override { return true; }
    bool PreTranslateMessage(MSG* msg) override {
        seen.push_back(*msg);
        return msg->wParam == kKeyEscape;
    }
};

// Keys reach only a window that takes the keyboard; PreTranslateMessage of the window, then
// of its parents, sees them first, then the window gets the key down and the character. The
// focus moves with a kill-focus message and goes when the native focus goes elsewhere.
TEST_F(InputTest, KeysPassPreTranslateUpTheParentsThenArriveAsKeyDownAndChar) {
    wnd.SetFocus();
    driver.Key(kKeyReturn, kCharReturn);
    EXPECT_TRUE(wnd.Only(WM_KEYDOWN).empty()) << "the window leaves the keyboard to the host";

    FilteringWnd parent, field;
    ASSERT_TRUE(parent.CreateChild(&wnd, CRect(0, 0, 50, 50)));
    ASSERT_TRUE(field.CreateChild(&parent, CRect(0, 0, 20, 20)));
    field.SetFocus();
    driver.Key(kKeyReturn, kCharReturn);
    driver.Key(kKeyEscape, kCharEscape);
    driver.Key(kKeyLeft, kCharLeft);
    ASSERT_EQ(field.seen.size(), 3u);
    EXPECT_EQ(field.seen[0].message, WM_KEYDOWN);
    EXPECT_EQ(field.seen[0].character, kCharReturn);
    EXPECT_EQ(field.seen[0].hwnd, field.GetSafeHwnd());
    ASSERT_EQ(parent.seen.size(), 2u) << "the field itself swallowed Escape";
    EXPECT_EQ(parent.seen[1].hwnd, field.GetSafeHwnd());
    EXPECT_EQ(field.WParams(WM_KEYDOWN), (std::vector<WPARAM>{kKeyReturn, kKeyLeft}));
    EXPECT_EQ(field.WParams(WM_CHAR), (std::vector<WPARAM>{kCharReturn, kCharLeft}));
    EXPECT_TRUE(parent.Only(WM_KEYDOWN).empty());

    parent.SetFocus();
    EXPECT_EQ(field.WParams(WM_KILLFOCUS),
              std::vector<WPARAM>{reinterpret_cast<WPARAM>(parent.GetSafeHwnd())});
    EXPECT_EQ(CWnd::GetFocus(), &parent);
    driver.Platform().FocusElsewhere();
    EXPECT_EQ(parent.Only(WM_KILLFOCUS).size(), 1u);
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

} // namespace
