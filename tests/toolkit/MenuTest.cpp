#include "CMenu.h"
#include "HostFixture.h"
#include "KeyCodes.h"
#include "PopupListWnd.h"
#include "RecordingWnd.h"
#include "WinMessages.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kFirstProgram = 1010;

// A panel that routes a range of commands to one handler, as the editor's panel does, and
// greys one item whenever a menu opens.
class MenuOwner : public RecordingWnd {
public:
    std::vector<UINT> commands;
    HMENU openedMenu = nullptr;
    UINT greyWhenOpening = 0;

    void OnProgram(UINT id) { commands.push_back(id); }
    LRESULT OnInitMenuPopup(WPARAM menu, LPARAM) {
        openedMenu = reinterpret_cast<HMENU>(menu);
        if (greyWhenOpening)
            CMenu::FromHandle(openedMenu)->EnableMenuItem(greyWhenOpening, MF_GRAYED);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MenuOwner, RecordingWnd)
ON_COMMAND_RANGE(1010, 1110, OnProgram)
ON_MESSAGE(WM_INITMENUPOPUP, OnInitMenuPopup)
END_MESSAGE_MAP()

class MenuTest : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        ASSERT_TRUE(owner.CreateChild(&frame, CRect(10, 10, 210, 160)));
        menu.CreatePopupMenu();
        for (UINT i = 0; i < 5; ++i) {
            CString title;
            title.Format("%u: Program", i + 1);
            menu.AppendMenu(MF_STRING, kFirstProgram + i, title);
        }
    }

    // Clicks the item of the menu that is open at the next pump.
    void ClickItemWhenOpen(int index) {
        driver.WhileModal([this, index] {
            PopupListWnd* list = PopupListWnd::Active();
            ASSERT_NE(list, nullptr);
            driver.Click(list, list->ItemRect(index).CenterPoint());
        });
    }

    MenuOwner owner;
    CMenu menu;
};

TEST_F(MenuTest, ChosenItemArrivesAsCommandBeforeTrackReturns) {
    ClickItemWhenOpen(2);
    EXPECT_TRUE(menu.TrackPopupMenu(0, 30, 40, &owner));
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram + 2});
    EXPECT_EQ(PopupListWnd::Active(), nullptr);
}

TEST_F(MenuTest, ClickOutsideChoosesNothing) {
    driver.WhileModal([this] { driver.Click(&owner, CPoint(190, 150)); });
    EXPECT_FALSE(menu.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_TRUE(owner.commands.empty());
}

TEST_F(MenuTest, EscapeChoosesNothing) {
    driver.WhileModal([this] { driver.Key(kKeyEscape, kCharEscape); });
    EXPECT_FALSE(menu.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_TRUE(owner.commands.empty());
}

TEST_F(MenuTest, OpensAtThePointInTheOwnersClientCoordinates) {
    CRect placed;
    driver.WhileModal([&] {
        PopupListWnd::Active()->GetWindowRect(&placed);
        driver.Key(kKeyEscape, kCharEscape);
    });
    menu.TrackPopupMenu(0, 0, 0, &owner);
    CRect ownerRect;
    owner.GetWindowRect(&ownerRect);
    EXPECT_EQ(placed.TopLeft(), ownerRect.TopLeft());
}

TEST_F(MenuTest, KeyboardMovesAndChooses) {
    driver.WhileModal([this] {
        driver.Key(kKeyDown, kCharDown);
        driver.Key(kKeyDown, kCharDown);
        driver.Key(kKeyUp, kCharUp);
        driver.Key(kKeyDown, kCharDown);
        driver.Key(kKeyReturn, kCharReturn);
    });
    EXPECT_TRUE(menu.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram + 1});
}

TEST_F(MenuTest, OpeningEnablesItemsThenTheOwnerMayGreyThem) {
    CMenu greyed;
    greyed.CreatePopupMenu();
    greyed.AppendMenu(MF_GRAYED, kFirstProgram, "greyed when appended");
    greyed.AppendMenu(MF_STRING, kFirstProgram + 1, "greyed by the owner");
    owner.greyWhenOpening = kFirstProgram + 1;
    ClickItemWhenOpen(0);
    EXPECT_TRUE(greyed.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_EQ(owner.openedMenu, greyed.GetSafeHmenu());
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram});

    ClickItemWhenOpen(1);
    driver.WhileModal([this] { driver.Key(kKeyEscape, kCharEscape); });
    EXPECT_FALSE(greyed.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_EQ(owner.commands.size(), 1u);
}

TEST_F(MenuTest, ItemWithoutCommandIdSendsNothingButCountsAsChosen) {
    CMenu plain;
    plain.CreatePopupMenu();
    plain.AppendMenu(MF_STRING, 0, "no command");
    ClickItemWhenOpen(0);
    EXPECT_TRUE(plain.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_TRUE(owner.Only(WM_COMMAND).empty());
}

TEST_F(MenuTest, SixtyFourItemsUseColumnsOnAShortScreenAndAllCanBeChosen) {
    driver.Platform().SetScreenBounds(CRect(0, 0, 1280, 600));
    CMenu programs;
    programs.CreatePopupMenu();
    for (UINT i = 0; i < 64; ++i) {
        CString title;
        title.Format("%u:Program %u", i + 1, i + 1);
        programs.AppendMenu(MF_STRING, kFirstProgram + i, title);
    }
    int columns = 0;
    CRect placed;
    driver.WhileModal([&] {
        PopupListWnd* list = PopupListWnd::Active();
        columns = list->GetColumnCount();
        list->GetWindowRect(&placed);
        driver.Click(list, list->ItemRect(63).CenterPoint());
    });
    EXPECT_TRUE(programs.TrackPopupMenu(0, 5, 5, &owner));
    EXPECT_GE(columns, 2);
    EXPECT_LE(placed.bottom, 600);
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram + 63});
    driver.Platform().SetScreenBounds(CRect(0, 0, 1920, 1080));
}

TEST_F(MenuTest, HighlightFollowsThePointerAndIsDrawn) {
    std::uint32_t hotPixel = 0;
    std::uint32_t coldPixel = 0;
    driver.WhileModal([&] {
        PopupListWnd* list = PopupListWnd::Active();
        driver.Move(list, list->ItemRect(1).CenterPoint());
        EXPECT_EQ(list->GetHighlighted(), 1);
    });
    driver.WhileModal([&] {
        PopupListWnd* list = PopupListWnd::Active();
        const CRect hot = list->ItemRect(1);
        hotPixel = driver.PixelAt(list, hot.right - 8, hot.top + hot.Height() / 2);
        const CRect cold = list->ItemRect(3);
        coldPixel = driver.PixelAt(list, cold.right - 8, cold.top + cold.Height() / 2);
        driver.Key(kKeyEscape, kCharEscape);
    });
    menu.TrackPopupMenu(0, 5, 5, &owner);
    EXPECT_NE(hotPixel, coldPixel);
}

TEST(CMenuItems, CheckAndEnableReportThePreviousState) {
    CMenu menu;
    EXPECT_FALSE(menu.AppendMenu(MF_STRING, 1, "before creation"));
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 7, "seven");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_CHECKED, 8, "eight");
    EXPECT_EQ(menu.GetMenuItemCount(), 3);
    EXPECT_EQ(menu.CheckMenuItem(8, MF_UNCHECKED), static_cast<int>(MF_CHECKED));
    EXPECT_EQ(menu.CheckMenuItem(8, MF_CHECKED), static_cast<int>(MF_UNCHECKED));
    EXPECT_EQ(menu.EnableMenuItem(0, MF_BYPOSITION | MF_GRAYED), static_cast<int>(MF_ENABLED));
    EXPECT_EQ(menu.EnableMenuItem(7, MF_ENABLED), static_cast<int>(MF_GRAYED));
    EXPECT_EQ(menu.EnableMenuItem(99, MF_GRAYED), -1);
    EXPECT_EQ(CMenu::FromHandle(menu.GetSafeHmenu()), &menu);
}

} // namespace
