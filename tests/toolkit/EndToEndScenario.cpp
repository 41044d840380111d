#include "tests/toolkit/EndToEndScenario.h"

#include "toolkit/CDialog.h"
#include "toolkit/CMenu.h"
#include "toolkit/CPaintDC.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

#include <gtest/gtest.h>

const CRect ScenarioWnd::kSquareRect(20, 20, 60, 60);

LRESULT ScenarioWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(client, kBackground);
        dc.FillSolidRect(kSquareRect, kSquare);
        dc.SetTextColor(RGB(255, 255, 255));
        dc.ExtTextOut(80, 20, 0, nullptr, CString("Zephyra"));
        break;
    }
    case WM_LBUTTONDOWN:
        SetFocus();
        break;
    case WM_COMMAND:
        commands.push_back(static_cast<UINT>(wParam));
        break;
    case WM_CHAR:
        if (wParam >= 32 && wParam < 127)
            typed += static_cast<char>(wParam);
        break;
    default:
        break;
    }
    return RecordingWnd::WindowProc(message, wParam, lParam);
}

namespace {

// A dialog laid out in code with one name field and OK, which reads the field on OK.
class NameDialog : public CDialog {
public:
    explicit NameDialog(CWnd* owner) : CDialog(Layout(), owner) {}
    CString name;
    void OnOK() override {
        GetDlgItemText(5000, name);
        CDialog::OnOK();
    }

private:
    static DialogTemplate Layout() {
        return {"Name",
                220,
                90,
                {{DialogItemKind::Edit, 5000, RECT{12, 12, 208, 38}, "", 0},
                 {DialogItemKind::DefaultButton, IDOK, RECT{118, 52, 208, 80}, "OK", 0}}};
    }
};

} // namespace

void PlayScenario(CFrameWnd& frame, ScenarioBackend& backend) {
    ScenarioWnd wnd;
    ASSERT_TRUE(
        wnd.Create(nullptr, "scenario", WS_CHILD | WS_VISIBLE, CRect(10, 10, 250, 150), &frame, 1));

    ASSERT_TRUE(backend.RunUntil([&] { return !wnd.paintedAreas.empty(); }));
    ASSERT_TRUE(backend.RunUntil([&] { return backend.ScreenPixel(&wnd, 30, 30) == 0xFFC000u; }))
        << std::hex << backend.ScreenPixel(&wnd, 30, 30);
    EXPECT_EQ(backend.ScreenPixel(&wnd, 5, 100), 0x202830u);
    EXPECT_EQ(backend.ScreenPixel(&wnd, 239, 139), 0x202830u);

    backend.Click(&wnd, 100, 70);
    ASSERT_TRUE(backend.RunUntil([&] { return !wnd.Only(WM_LBUTTONUP).empty(); }));
    EXPECT_EQ(wnd.Points(WM_LBUTTONDOWN), std::vector<CPoint>{CPoint(100, 70)});
    EXPECT_EQ(CWnd::GetFocus(), &wnd);

    backend.Type("12.5");
    ASSERT_TRUE(backend.RunUntil([&] { return wnd.typed.size() >= 4; }));
    EXPECT_EQ(wnd.typed, "12.5");
    backend.PressReturn();
    ASSERT_TRUE(backend.RunUntil([&] {
        const auto keys = wnd.Only(WM_KEYDOWN);
        return !keys.empty() && keys.back().wParam == 36;
    }));
    // The key codes of 1, 2, the full stop, 5 and Return.
    EXPECT_EQ(wnd.WParams(WM_KEYDOWN), (std::vector<WPARAM>{18, 19, 47, 23, 36}));
    EXPECT_EQ(wnd.WParams(WM_CHAR).back(), 13u);

    backend.DoubleClick(&wnd, 40, 40);
    ASSERT_TRUE(backend.RunUntil([&] { return wnd.Only(WM_LBUTTONUP).size() >= 3; }));
    EXPECT_EQ(wnd.Only(WM_LBUTTONDOWN).size(), 2u);
    EXPECT_EQ(wnd.Only(WM_LBUTTONDBLCLK).size(), 1u);

    // A menu at a point of the window, chosen with the keyboard (three down, one back up).
    CMenu menu;
    menu.CreatePopupMenu();
    for (UINT id = 1010; id < 1014; ++id)
        menu.AppendMenu(MF_STRING, id, "Program");
    std::vector<bool> menuClosed;
    ASSERT_TRUE(menu.TrackPopupMenu(0, 30, 30, &wnd, nullptr,
                                    [&](bool chosen) { menuClosed.push_back(chosen); }));
    backend.KeysIntoOpenWindow("Down Down Down Up Return", false);
    ASSERT_TRUE(backend.RunUntil([&] { return !menuClosed.empty(); }));
    EXPECT_EQ(wnd.commands, std::vector<UINT>{1011});

    // A dialog with a field: typed into, ended with Return.
    NameDialog dialog(&wnd);
    std::vector<int> dialogEnded;
    ASSERT_EQ(dialog.DoModal([&](int result) { dialogEnded.push_back(result); }), 0);
    backend.KeysIntoOpenWindow("W a r m Return", true);
    ASSERT_TRUE(backend.RunUntil([&] { return !dialogEnded.empty(); }));
    EXPECT_EQ(dialogEnded, std::vector<int>{IDOK});
    EXPECT_EQ(dialog.name, "Warm");
    EXPECT_TRUE(wnd.IsWindowEnabled());

    EXPECT_TRUE(wnd.DestroyWindow());
}
