// Modal dialogs laid out in code: how they end and report, their owner, focus and Tab, the
// traces a host log shows, menus over them and message boxes.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/AfxMessageBox.h"
#include "toolkit/CButton.h"
#include "toolkit/CComboBox.h"
#include "toolkit/CDialog.h"
#include "toolkit/CEdit.h"
#include "toolkit/CMenu.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/WinMessages.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr UINT kTemplate = 5901;
constexpr int kList = 1120;
constexpr int kName = 5000;

DialogTemplate SaveLayout() {
    return {"Save program",
            320,
            150,
            {{DialogItemKind::Static, 0xFFFF, RECT{16, 16, 80, 40}, "Program", 0},
             {DialogItemKind::ComboBox, kList, RECT{90, 14, 300, 40}, "", 0},
             {DialogItemKind::Static, 0xFFFF, RECT{16, 56, 80, 80}, "Name", 0},
             {DialogItemKind::Edit, kName, RECT{90, 54, 300, 80}, "initial", 0},
             {DialogItemKind::Button, IDCANCEL, RECT{110, 106, 200, 134}, "Cancel", 0},
             {DialogItemKind::DefaultButton, IDOK, RECT{210, 106, 300, 134}, "OK", 0}}};
}

// A dialog shaped like the preset dialog: a bound list, a name field read on OK.
class SaveDialog : public CDialog {
public:
    explicit SaveDialog(CWnd* owner) : CDialog(SaveLayout(), owner, kTemplate), owner(owner) {}

    CComboBox list;
    int chosen = -2;
    CString name;
    bool ownerDisabledDuringInit = false;
    CWnd* owner;

    void DoDataExchange(CDataExchange* exchange) override {
        CDialog::DoDataExchange(exchange);
        DDX_Control(exchange, kList, list);
    }
    bool OnInitDialog() override {
        CDialog::OnInitDialog();
        for (int i = 1; i <= 3; ++i) {
            CString entry;
            entry.Format("%d:Program %d", i, i);
            list.AddString(entry);
        }
        list.SetCurSel(1);
        ownerDisabledDuringInit = !owner->IsWindowEnabled();
        return true;
    }
    void OnOK() override {
        chosen = list.GetCurSel();
        GetDlgItemText(kName, name);
        CDialog::OnOK();
    }
};

// Takes any command of the program range, wherever it comes from.
class CommandTarget : public RecordingWnd {
public:
    std::vector<UINT> ids;
    void OnAny(UINT id) { ids.push_back(id); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CommandTarget, RecordingWnd)
ON_COMMAND_RANGE(1010, 1110, OnAny)
END_MESSAGE_MAP()

// The dialog's owner is the fixture's window.
class DialogTest : public WindowFixture<> {
protected:
    // Starts the dialog; it is running once the call has returned.
    void Start() {
        ASSERT_EQ(dialog.DoModal([this](int result) { results.push_back(result); }), 0);
    }
    // What the dialogs reported once the pump has run.
    std::vector<int> Ended() {
        driver.Pump();
        return results;
    }
    CWnd* Item(int id) { return dialog.GetDlgItem(id); }

    SaveDialog dialog{&wnd};
    std::vector<int> results;
};

// Whatever ends it, the dialog runs once DoModal has returned, reports once after the handler
// has returned, and is gone once it has reported; only OK reads the controls. Return presses
// the focused button, OK when none has the focus.
TEST_F(DialogTest, EachWayOfEndingReportsItsResultOnce) {
    const struct {
        const char* how;
        std::function<void()> end;
        int result;
    } cases[] = {
        {"the OK button", [&] { driver.Click(Item(IDOK), CPoint(10, 10)); }, IDOK},
        {"Return, then Escape",
         [&] {
             driver.Key(kKeyReturn, kCharReturn);
             driver.Key(kKeyEscape, kCharEscape);
         },
         IDOK},
        {"the Cancel button", [&] { driver.Click(Item(IDCANCEL), CPoint(10, 10)); }, IDCANCEL},
        {"the close box", [&] { driver.Click(&dialog, CPoint(306, 14)); }, IDCANCEL},
        {"Escape", [&] { driver.Key(kKeyEscape, kCharEscape); }, IDCANCEL},
        {"Return on the focused Cancel button",
         [&] {
             Item(IDCANCEL)->SetFocus();
             driver.Key(kKeyReturn, kCharReturn);
         },
         IDCANCEL},
    };
    for (const auto& c : cases) {
        results.clear();
        dialog.chosen = -2;
        Start();
        EXPECT_NE(dialog.GetSafeHwnd(), nullptr) << c.how;
        c.end();
        EXPECT_TRUE(results.empty()) << c.how;
        EXPECT_EQ(Ended(), std::vector<int>{c.result}) << c.how;
        EXPECT_EQ(dialog.chosen, c.result == IDOK ? 1 : -2) << c.how;
        EXPECT_EQ(dialog.GetSafeHwnd(), nullptr) << c.how;
    }
    EXPECT_EQ(dialog.name, "initial");
}

TEST_F(DialogTest, OwnerIsDisabledOnlyWhileTheDialogRuns) {
    Start();
    driver.Click(&wnd, CPoint(5, 5));
    driver.Key(kKeyEscape, kCharEscape);
    Ended();
    EXPECT_TRUE(dialog.ownerDisabledDuringInit);
    EXPECT_TRUE(wnd.Only(WM_LBUTTONDOWN).empty()) << "clicks on the owner are dropped";
    EXPECT_TRUE(wnd.IsWindowEnabled());
}

TEST_F(DialogTest, TabMovesBetweenControlsAndTypingGoesToTheField) {
    Start();
    const std::vector<CWnd*> expected = {&dialog.list, Item(kName),  Item(IDCANCEL),
                                         Item(IDOK),   &dialog.list, Item(IDOK)};
    std::vector<CWnd*> focusSeen{CWnd::GetFocus()};
    const auto tab = [&](unsigned modifiers) {
        driver.SetModifiers(modifiers);
        driver.Key(kKeyTab, kCharTab);
        driver.SetModifiers(0);
        focusSeen.push_back(CWnd::GetFocus());
    };
    tab(0);
    driver.Type("Warm");
    for (unsigned modifiers : {0u, 0u, 0u, kModifierShift})
        tab(modifiers);
    driver.Key(kKeyReturn, kCharReturn);
    EXPECT_EQ(Ended(), std::vector<int>{IDOK});
    EXPECT_EQ(focusSeen, expected);
    EXPECT_EQ(dialog.name, "Warm") << "Tab selects the field's text, typing replaces it";
}

// The dialog's own trace, then the one every posted activation leaves.
TEST_F(DialogTest, DoModalActivatesTheDialogWithTraces) {
    testing::internal::CaptureStdout();
    Start();
    driver.Key(kKeyEscape, kCharEscape);
    Ended();
    const unsigned address = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&dialog));
    char expected[96];
    std::snprintf(expected, sizeof expected,
                  "PostMessage(%x,WM_ACTIVATE)\r\nPostMessage(WM_ACTIVATE,%x)\r\n", address,
                  address);
    const std::string trace = testing::internal::GetCapturedStdout();
    EXPECT_EQ(trace.rfind(expected, 0), 0u) << trace;
}

// A dialog known only by a template id, or whose exchange fails, ends at once and never reports.
TEST_F(DialogTest, DialogThatCannotBeBuiltFailsWithMinusOne) {
    CDialog unknown(kTemplate, &wnd);
    testing::internal::CaptureStdout();
    EXPECT_EQ(unknown.DoModal(nullptr), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "CreateWindowFromNib Err: 2\n");

    class Broken : public CDialog {
    public:
        explicit Broken(CWnd* parent) : CDialog(SaveLayout(), parent) {}
        CComboBox list;
        void DoDataExchange(CDataExchange* exchange) override { DDX_Control(exchange, 4242, list); }
    } broken(&wnd);
    EXPECT_EQ(broken.DoModal([this](int result) { results.push_back(result); }), -1);
    EXPECT_TRUE(Ended().empty());
    EXPECT_TRUE(wnd.IsWindowEnabled());
}

TEST_F(DialogTest, MenuOpenedWhileADialogRunsStillDeliversItsCommand) {
    CommandTarget receiver;
    ASSERT_TRUE(receiver.CreateChild(&frame, CRect(0, 0, 50, 50)));
    Start();
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 1011, "copy");
    ASSERT_TRUE(menu.TrackPopupMenu(0, 0, 0, &receiver));
    PopupListWnd* open = PopupListWnd::Active();
    ASSERT_NE(open, nullptr);
    driver.Click(open, open->ItemRect(0).CenterPoint());
    driver.Pump();
    EXPECT_EQ(receiver.ids, std::vector<UINT>{1011});
    EXPECT_NE(dialog.GetSafeHwnd(), nullptr) << "the dialog still runs";
}

// A message box returns at once; it goes when read, or with the window it was shown for (the
// panel's tests read its text).
TEST_F(DialogTest, MessageBoxGoesWhenReadOrWithItsWindow) {
    EXPECT_EQ(AfxMessageBox("The default bank file could not be written."), IDOK);
    CWnd* field = CWnd::GetFocus();
    ASSERT_NE(field, nullptr);
    driver.Key(kKeyReturn, kCharReturn);
    driver.Pump();
    EXPECT_NE(CWnd::GetFocus(), field) << "the box has gone";

    AfxMessageBox("shown while the editor closes");
    ASSERT_NE(CWnd::GetFocus(), nullptr);
    frame.SetNativeHandle(nullptr);
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

} // namespace

TEST(MessageBoxWithoutDisplay, PrintsTheText) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(AfxMessageBox("nothing open"), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "nothing open\n");
}
