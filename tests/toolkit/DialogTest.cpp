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
#include <memory>

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
    int selectionChanges = 0;
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
    void OnSelectionChanged() {
        ++selectionChanges;
        CString entry;
        list.GetLBText(list.GetCurSel(), entry);
        SetDlgItemText(kName, entry);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SaveDialog, CDialog)
ON_CBN_SELCHANGE(kList, OnSelectionChanged)
END_MESSAGE_MAP()

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
    void Start(SaveDialog& shown) {
        ASSERT_EQ(shown.DoModal([this](int result) { results.push_back(result); }), 0);
    }
    void Start() { Start(dialog); }
    // What the dialogs reported once the pump has run.
    std::vector<int> Ended() {
        driver.Pump();
        return results;
    }
    CWnd* Item(int id) { return dialog.GetDlgItem(id); }

    SaveDialog dialog{&wnd};
    std::vector<int> results;
};

TEST_F(DialogTest, OkButtonEndsWithIdOkAfterReadingTheControls) {
    Start();
    EXPECT_NE(dialog.GetSafeHwnd(), nullptr) << "running after DoModal has returned";
    driver.Click(Item(IDOK), CPoint(10, 10));
    EXPECT_TRUE(results.empty()) << "told only after the handler has returned";
    EXPECT_EQ(Ended(), std::vector<int>{IDOK});
    EXPECT_EQ(dialog.chosen, 1);
    EXPECT_EQ(dialog.name, "initial");
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr) << "the dialog is gone once it has reported";
}

TEST_F(DialogTest, CancelButtonCloseBoxAndEscapeEndWithoutOnOk) {
    Start();
    driver.Click(Item(IDCANCEL), CPoint(10, 10));
    EXPECT_EQ(Ended(), std::vector<int>{IDCANCEL});
    Start();
    driver.Click(&dialog, CPoint(306, 14));
    EXPECT_EQ(Ended(), (std::vector<int>{IDCANCEL, IDCANCEL}));
    Start();
    driver.Key(kKeyEscape, kCharEscape);
    EXPECT_EQ(Ended(), (std::vector<int>{IDCANCEL, IDCANCEL, IDCANCEL}));
    EXPECT_EQ(dialog.chosen, -2);
}

// Return presses the focused button, OK when none has the focus; an end is reported once.
TEST_F(DialogTest, ReturnPressesTheFocusedButtonOrOk) {
    Start();
    driver.Key(kKeyReturn, kCharReturn);
    driver.Key(kKeyEscape, kCharEscape);
    EXPECT_EQ(Ended(), std::vector<int>{IDOK});
    Start();
    Item(IDCANCEL)->SetFocus();
    driver.Key(kKeyReturn, kCharReturn);
    EXPECT_EQ(Ended(), (std::vector<int>{IDOK, IDCANCEL}));
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

// The editor closing while its dialog is open: the dialog goes without reporting, and its
// owner is not touched once it has gone.
TEST_F(DialogTest, DestroyedWhileRunningReportsNothing) {
    auto running = std::make_unique<SaveDialog>(&wnd);
    Start(*running);
    driver.Key(kKeyReturn, kCharReturn);
    running.reset();
    EXPECT_TRUE(Ended().empty());
    EXPECT_TRUE(wnd.IsWindowEnabled());
}

TEST_F(DialogTest, ChoosingFromTheBoundListNotifiesTheDialog) {
    Start();
    EXPECT_EQ(Item(kList), &dialog.list);
    driver.Click(&dialog.list, CPoint(20, 10));
    PopupListWnd* open = PopupListWnd::Active();
    ASSERT_NE(open, nullptr);
    driver.Click(open, open->ItemRect(2).CenterPoint());
    driver.Pump();
    EXPECT_EQ(dialog.selectionChanges, 1);
    driver.Click(Item(IDOK), CPoint(10, 10));
    EXPECT_EQ(Ended(), std::vector<int>{IDOK});
    EXPECT_EQ(dialog.chosen, 2);
    EXPECT_EQ(dialog.name, "3:Program 3") << "the handler replaced the typed name";
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

TEST_F(DialogTest, DialogWithOnlyATemplateIdFailsWithMinusOne) {
    CDialog unknown(kTemplate, &wnd);
    testing::internal::CaptureStdout();
    EXPECT_EQ(unknown.DoModal(nullptr), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "CreateWindowFromNib Err: 2\n");
}

TEST_F(DialogTest, DoModalActivatesTheDialogWithTraces) {
    testing::internal::CaptureStdout();
    Start();
    driver.Key(kKeyEscape, kCharEscape);
    Ended();
    char expected[64];
    std::snprintf(expected, sizeof expected, "PostMessage(%x,WM_ACTIVATE)\r\n",
                  static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&dialog)));
    const std::string trace = testing::internal::GetCapturedStdout();
    EXPECT_EQ(trace.rfind(expected, 0), 0u) << trace;
}

TEST_F(DialogTest, FailedExchangeEndsTheDialogAtOnce) {
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

TEST_F(DialogTest, MessageBoxShowsTheTextReturnsAtOnceAndGoesWhenRead) {
    EXPECT_EQ(AfxMessageBox("The default bank file could not be written."), IDOK);
    CWnd* field = CWnd::GetFocus();
    ASSERT_NE(field, nullptr);
    CString text;
    field->GetParent()->GetDlgItemText(0xFFFF, text);
    EXPECT_EQ(text, "The default bank file could not be written.");
    driver.Key(kKeyReturn, kCharReturn);
    driver.Pump();
    EXPECT_NE(CWnd::GetFocus(), field) << "the box has gone";
}

TEST_F(DialogTest, MessageBoxGoesWithTheWindowItWasShownFor) {
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
