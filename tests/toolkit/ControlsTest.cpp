// The edit field, spin button and drop-down list under keys and clicks: their text, caret,
// limits, positions and the notifications their parent receives.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/CComboBox.h"
#include "toolkit/CEdit.h"
#include "toolkit/CSpinButtonCtrl.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/ToolkitTheme.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kField = 18001, kSpin = 18000, kList = 1120;

// A field in the window, which takes the controls' notifications.
class ControlsTest : public WindowFixture<> {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        ASSERT_TRUE(
            field.Create(WS_CHILD | WS_VISIBLE | ES_RIGHT, CRect(10, 10, 110, 34), &wnd, kField));
        Settle();
    }

    CString Text() const {
        CString text;
        field.GetWindowText(text);
        return text;
    }
    std::vector<UINT> Notifications(UINT id) const {
        std::vector<UINT> codes;
        for (const ReceivedMessage& m : wnd.Only(WM_COMMAND)) {
            if (LOWORD(m.wParam) == id)
                codes.push_back(HIWORD(m.wParam));
        }
        return codes;
    }

    CEdit field;
};

TEST_F(ControlsTest, TypingInsertsAtTheCaretAndNotifies) {
    field.SetFocus();
    driver.Type("12");
    driver.Key(kKeyLeft, kCharLeft);
    driver.Type(".");
    EXPECT_EQ(Text(), "1.2");
    EXPECT_EQ(Notifications(kField),
              (std::vector<UINT>{EN_SETFOCUS, EN_CHANGE, EN_CHANGE, EN_CHANGE}));
}

// The entry field's tests type digits past its limit; here a limit of three characters holds
// three of three bytes each.
TEST_F(ControlsTest, LimitCountsCharactersNotBytes) {
    field.SetLimitText(3);
    field.SetFocus();
    for (unsigned character : {0x3042u, 0x3044u, 0x3046u, 0x3048u})
        driver.Key(0, character);
    EXPECT_EQ(Text(), "\xE3\x81\x82\xE3\x81\x84\xE3\x81\x86");
    driver.Key(kKeyBackSpace, kCharBackSpace);
    EXPECT_EQ(Text(), "\xE3\x81\x82\xE3\x81\x84");
}

TEST_F(ControlsTest, TypingReplacesTheSelectionAndDeleteKeysRemoveACharacter) {
    field.SetWindowText("999");
    field.SetFocus();
    field.SetSel(0, -1);
    driver.Type("abcd");
    field.SetSel(2, 2);
    driver.Key(kKeyBackSpace, kCharBackSpace);
    driver.Key(kKeyDelete, kCharDelete);
    EXPECT_EQ(Text(), "ad");
    field.SetSel(0, 0);
    driver.Key(kKeyBackSpace, kCharBackSpace);
    EXPECT_EQ(Text(), "ad");
}

TEST_F(ControlsTest, CaretPositionIsClampedToTheText) {
    field.SetWindowText("42");
    field.SetSel(8, 8);
    int start = -1, end = -1;
    field.GetSel(start, end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(2, 2));
    field.SetSel(-1, 0);
    field.GetSel(start, end);
    EXPECT_EQ(start, end);
}

TEST_F(ControlsTest, ArrowCharactersAfterAnArrowKeyMoveTheCaret) {
    field.SetWindowText("12");
    field.SetFocus();
    field.SetSel(2, 2);
    field.SendMessage(WM_KEYDOWN, kKeyLeft, 1);
    field.SendMessage(WM_CHAR, 37, 1);
    field.SendMessage(WM_CHAR, '5', 1);
    EXPECT_EQ(Text(), "152");
    field.SendMessage(WM_KEYDOWN, 23, 1);
    field.SendMessage(WM_CHAR, 37, 1);
    EXPECT_EQ(Text(), "15%2") << "a typed percent sign stays a percent sign";
}

TEST_F(ControlsTest, SilentTextChangeSendsNoNotification) {
    field.SetTextForSpin("3");
    EXPECT_TRUE(Notifications(kField).empty());
    field.SetWindowText("4");
    EXPECT_EQ(Notifications(kField), std::vector<UINT>{EN_CHANGE});
}

TEST_F(ControlsTest, FocusedFieldShowsTheAccentBorder) {
    driver.Pump();
    const std::uint32_t idle = driver.PixelAt(&field, 50, 0);
    field.SetFocus();
    driver.Pump();
    const std::uint32_t focused = driver.PixelAt(&field, 50, 0);
    EXPECT_NE(idle, focused);
    const COLORREF accent = theme::kAccent;
    EXPECT_EQ(focused, GetRValue(accent) << 16 | GetGValue(accent) << 8 | GetBValue(accent));
}

class SpinTest : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        ASSERT_TRUE(spin.Create(WS_CHILD | WS_VISIBLE | UDS_SETBUDDYINT | UDS_ARROWKEYS,
                                CRect(110, 10, 126, 34), &wnd, kSpin));
        spin.SetBase(10);
        spin.SetBuddy(&field);
        spin.SetRange32(-20, 20);
    }
    CSpinButtonCtrl spin;
};

TEST_F(SpinTest, SetPosWritesTheBuddyInDecimalWithinTheRange) {
    EXPECT_EQ(spin.SetPos(7), 0);
    EXPECT_EQ(Text(), "7");
    spin.SetPos(99);
    EXPECT_EQ(spin.GetPos(), 20);
    EXPECT_EQ(Text(), "20");
    spin.SetPosForSpin(-3);
    EXPECT_EQ(spin.GetPos(), -3);
    EXPECT_EQ(Text(), "20") << "the position alone does not touch the buddy";
}

TEST_F(SpinTest, ArrowClicksStepAndStopAtTheEnds) {
    spin.SetPos(19);
    for (int click = 0; click < 2; ++click) {
        driver.Click(&spin, CPoint(8, 4));
        EXPECT_EQ(spin.GetPos(), 20);
    }
    driver.Click(&spin, CPoint(8, 20));
    EXPECT_EQ(Text(), "19");
}

TEST_F(SpinTest, HeldArrowRepeats) {
    spin.SetPos(-20);
    driver.Press(&spin, CPoint(8, 4));
    driver.PumpFor(CSpinButtonCtrl::kRepeatTimerMs * (CSpinButtonCtrl::kRepeatDelayTicks + 5));
    driver.Release(&spin, CPoint(8, 4));
    EXPECT_GT(spin.GetPos(), -18);
    const int held = spin.GetPos();
    driver.PumpFor(CSpinButtonCtrl::kRepeatTimerMs * 3);
    EXPECT_EQ(spin.GetPos(), held);
}

class ComboTest : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(10, 50, 210, 76),
                                &wnd, kList));
    }
    CComboBox list;
};

TEST_F(ComboTest, SelectionInCodeDoesNotNotify) {
    EXPECT_EQ(list.SetCurSel(0), CB_ERR) << "an empty list has nothing to select";
    EXPECT_EQ(list.GetCurSel(), -1);
    for (const char* entry : {"1:Flat", "2:Warm"})
        list.AddString(entry);
    EXPECT_EQ(list.SetCurSel(1), 1);
    CString shown;
    list.GetWindowText(shown);
    EXPECT_EQ(shown, "2:Warm");
    EXPECT_TRUE(Notifications(kList).empty());
    EXPECT_EQ(list.SetCurSel(-1), -1);
    EXPECT_EQ(list.GetCurSel(), -1);
}

TEST_F(ComboTest, UserChoiceFromTheDropDownNotifiesSelectionChange) {
    for (int i = 0; i < 64; ++i) {
        CString entry;
        entry.Format("%d:Program", i + 1);
        list.AddString(entry);
    }
    driver.Click(&list, CPoint(30, 10));
    PopupListWnd* open = PopupListWnd::Active();
    ASSERT_NE(open, nullptr);
    CRect listRect, comboRect;
    open->GetWindowRect(&listRect);
    list.GetWindowRect(&comboRect);
    driver.Key(kKeyEnd, 0);
    const int firstVisible = open->GetFirstVisible();
    driver.Key(kKeyReturn, kCharReturn);
    EXPECT_TRUE(Notifications(kList).empty()) << "told once the list has closed";
    driver.Pump();
    EXPECT_GT(listRect.top, comboRect.bottom - 1) << "the list opens below";
    EXPECT_EQ(listRect.Width(), comboRect.Width());
    EXPECT_EQ(firstVisible, 64 - PopupListWnd::kMaxScrollingRows) << "the list scrolls";
    EXPECT_EQ(list.GetCurSel(), 63);
    EXPECT_EQ(Notifications(kList), std::vector<UINT>{CBN_SELCHANGE});
    EXPECT_EQ(wnd.Only(WM_COMMAND).back().lParam, reinterpret_cast<LPARAM>(list.GetSafeHwnd()));
}

TEST_F(ComboTest, KeysChangeTheSelectionAndNotify) {
    for (const char* entry : {"a", "b", "c"})
        list.AddString(entry);
    list.SetFocus();
    for (int press = 0; press < 4; ++press)
        driver.Key(kKeyDown, kCharDown);
    EXPECT_EQ(list.GetCurSel(), 2) << "held at the last entry";
    driver.Key(kKeyUp, kCharUp);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(Notifications(kList).size(), 5u);
}

} // namespace
