// The floating entry window and its field: what typing does to the text, how the value is
// reported in tenths, limits on leaving the field, Return and Escape, and the window's size.
#include "editor/CQMTFloatEditWnd.h"
#include "editor/PanelIds.h"
#include "tests/toolkit/HostFixture.h"
#include "toolkit/CDC.h"
#include "toolkit/WinStyles.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using Told = std::vector<std::pair<UINT, WPARAM>>;

class EntryField : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        ASSERT_TRUE(owner.CreateChild(&frame, CRect(0, 0, 400, 200)));
        font.CreatePointFont(12, "Osaka");
        ASSERT_TRUE(entry.MakeWindow(&owner, &owner, "", CRect(), 6, &font, true));
    }
    void TearDown() override {
        owner.DestroyWindow();
        HostFixture::TearDown();
    }

    // Opens the entry as the panel does: a value in tenths, selected in full.
    void Start(int tenths, bool sign, int digits) {
        entry.SetNewValue(tenths, -1000, 1000);
        entry.SetSingnFlag(sign);
        entry.ChangeSize(digits, sign);
        entry.SetWindowPos(nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        Field().SetSel(0, -1);
        entry.ShowWindow(SW_SHOW);
        Field().SetFocus();
        driver.Pump();
    }

    CNormalFloatEdit& Field() { return entry.GetEdit(); }
    std::string Text() {
        CString text;
        Field().GetWindowText(text);
        return text.GetString();
    }
    std::string Reported() {
        char text[64] = {};
        Field().GetWindowText(text, sizeof text);
        return text;
    }

    // How the entry told its owner it ended, with the message's wParam.
    Told Ends() const {
        Told ends;
        for (const ReceivedMessage& m : owner.received) {
            if (m.message == WM_ENTRY_RETURN || m.message == WM_ENTRY_ESCAPE)
                ends.emplace_back(m.message, m.wParam);
        }
        return ends;
    }

    // Stands in for the panel: holds the entry window and writes down what it is told.
    RecordingWnd owner;
    CFont font;
    CQMTFloatEditWnd entry;
};

// One decimal shown and tenths reported: the spin button's test below, and the panel's typed
// values.
TEST_F(EntryField, ANewNegativeValueIsShownWithItsSignAndTheCaretAfterIt) {
    Start(42, true, 4);
    entry.SetNewValue(-7, -1000, 1000);
    int start = 0, end = 0;
    Field().GetSel(start, end);
    EXPECT_EQ(Text(), "-0.7");
    EXPECT_EQ(end, 4) << "the caret after the text";
}

// Return, with the value it reports, is checked on the panel's typed values.
TEST_F(EntryField, KeyCode35EndsTheEntryAsReturnDoes) {
    Start(10, false, 3);
    driver.Key(35, 'p');
    EXPECT_EQ(Ends(), (Told{{WM_ENTRY_RETURN, 0}}));
    EXPECT_FALSE(entry.IsWindowVisible());
}

TEST_F(EntryField, EscapeHidesTheWindowAndGivesTheFocusBack) {
    Start(10, false, 3);
    driver.Type("9");
    driver.Key(kKeyEscape, kCharEscape);
    EXPECT_EQ(Ends(), (Told{{WM_ENTRY_ESCAPE, 0}}));
    EXPECT_FALSE(entry.IsWindowVisible());
    EXPECT_EQ(CWnd::GetFocus(), &owner);
}

TEST_F(EntryField, RefusedCharactersLeaveTheValueInTheDisplayFormat) {
    const struct {
        const char* what;
        bool sign;
        const char *typed, *shown, *reported;
    } cases[] = {
        {"a minus sign in an unsigned field", false, "12-", "12.0", "120"},
        {"a minus sign in a signed field", true, "-12", "-12", "-120"},
        {"a letter", true, "7x", "7.0", "70"},
        {"two decimals, rounded as the C library rounds", true, "1.25x", "1.2", "12"},
        {"only what the field holds", true, "123456789", "12345", "123450"},
    };
    for (const auto& c : cases) {
        Start(0, c.sign, 4);
        driver.Type(c.typed);
        EXPECT_EQ(Text(), c.shown) << c.what;
        EXPECT_EQ(Field().GetReportedText(), c.reported) << c.what;
    }
}

TEST_F(EntryField, LeavingTheFieldLimitsAndRewritesItsValue) {
    Start(0, false, 6);
    Field().SetInputMinMax(0.0, 100.0);
    Field().SetInputMinMax(5.0, 1.0);
    driver.Type("999");
    owner.SetFocus();
    EXPECT_EQ(Text(), "100.0") << "limited to the range set first";
    EXPECT_EQ(Field().GetReportedText(), "1000");
    EXPECT_TRUE(entry.IsWindowVisible()) << "losing the focus does not end the entry";
    EXPECT_TRUE(Ends().empty());
}

TEST_F(EntryField, TheSpinButtonStepsTheValueByATenth) {
    Start(42, true, 4);
    entry.GetSpin().Step(1);
    EXPECT_EQ(Text(), "4.3");
    for (int press = 0; press < 2; ++press)
        driver.Key(kKeyDown, 0);
    EXPECT_EQ(Reported(), "41");
}

TEST_F(EntryField, TheWindowIsSizedForItsDigitsInItsFont) {
    CRect narrow, wide;
    Start(0, false, 3);
    entry.GetWindowRect(&narrow);
    Start(0, false, 6);
    entry.GetWindowRect(&wide);
    CDC measure;
    measure.SelectObject(&font);
    const CSize letter = measure.GetTextExtent("A", 1);
    EXPECT_EQ(wide.Width() - narrow.Width(), 3 * letter.cx);
    EXPECT_EQ(wide.Height(), letter.cy + letter.cy / 2);
    EXPECT_EQ(narrow.Width(), 16 + 4 * letter.cx + 2 * 2) << "spin, digits and a sign, frame";
    CRect field;
    Field().GetWindowRect(&field);
    EXPECT_EQ(field.Width(), wide.Width() - 16);
    EXPECT_EQ(Field().GetLimitText(), 7u);
}

} // namespace
