// Pop-up menus: where they open, how a choice or a dismissal is told, greyed items, long
// menus in columns and the highlight.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/CMenu.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/WinMessages.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kFirstProgram = 1010;
// Each end of a menu: whether an item was chosen, and how many commands came before it.
using Ends = std::vector<std::pair<bool, std::size_t>>;

// A panel that routes a range of commands to one handler, as the editor's panel does.
class MenuOwner : public RecordingWnd {
public:
    std::vector<UINT> commands;
    void OnProgram(UINT id) { commands.push_back(id); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MenuOwner, RecordingWnd)
ON_COMMAND_RANGE(1010, 1110, OnProgram)
END_MESSAGE_MAP()

class MenuTest : public WindowFixture<MenuOwner> {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        menu.CreatePopupMenu();
        for (UINT i = 0; i < 5; ++i) {
            CString title;
            title.Format("%u: Program", i + 1);
            menu.AppendMenu(MF_STRING, kFirstProgram + i, title);
        }
    }

    // Shows the menu and returns the list that is open once the call has returned.
    PopupListWnd* Track(CMenu& shown, int x = 5, int y = 5) {
        const bool opened = shown.TrackPopupMenu(0, x, y, &owner, nullptr, [this](bool chosen) {
            closed.push_back({chosen, owner.commands.size()});
        });
        return opened ? PopupListWnd::Active() : nullptr;
    }

    void ClickItem(PopupListWnd* list, int index) {
        ASSERT_NE(list, nullptr);
        driver.Click(list, list->ItemRect(index).CenterPoint());
        driver.Pump();
    }

    MenuOwner& owner = wnd;
    CMenu menu;
    Ends closed;
};

TEST_F(MenuTest, TrackReturnsWithTheMenuOpenAndTheChoiceArrivesBeforeTheEnd) {
    PopupListWnd* list = Track(menu, 30, 40);
    ASSERT_NE(list, nullptr) << "open after the call has returned";
    CRect placed, ownerRect;
    list->GetWindowRect(&placed);
    owner.GetWindowRect(&ownerRect);
    EXPECT_EQ(placed.TopLeft(), ownerRect.TopLeft() + CSize(30, 40))
        << "at the point in the owner's client coordinates";
    EXPECT_TRUE(closed.empty());
    ClickItem(list, 2);
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram + 2});
    EXPECT_EQ(closed, (Ends{{true, 1}})) << "told once, after the command";
    EXPECT_EQ(PopupListWnd::Active(), nullptr);
}

TEST_F(MenuTest, ClickOutsideOrEscapeChoosesNothing) {
    Track(menu);
    driver.Click(&owner, CPoint(190, 150));
    driver.Pump();
    Track(menu);
    driver.Key(kKeyEscape, kCharEscape);
    driver.Pump();
    EXPECT_TRUE(owner.commands.empty());
    EXPECT_EQ(closed, (Ends{{false, 0}, {false, 0}}));
    EXPECT_EQ(PopupListWnd::Active(), nullptr);
}

// The owner greys items as the menu opens (WM_INITMENUPOPUP); the panel's copy menu checks
// that a greyed item cannot be chosen.
TEST_F(MenuTest, OpeningEnablesItemsGreyedWhenAppended) {
    CMenu greyed;
    greyed.CreatePopupMenu();
    greyed.AppendMenu(MF_GRAYED, kFirstProgram, "greyed when appended");
    ClickItem(Track(greyed), 0);
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram});
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
    PopupListWnd* list = Track(programs);
    ASSERT_NE(list, nullptr);
    CRect placed;
    list->GetWindowRect(&placed);
    EXPECT_GE(list->GetColumnCount(), 2);
    EXPECT_LE(placed.bottom, 600);
    ClickItem(list, 63);
    EXPECT_EQ(owner.commands, std::vector<UINT>{kFirstProgram + 63});
    driver.Platform().SetScreenBounds(CRect(0, 0, 1920, 1080));
}

TEST_F(MenuTest, HighlightFollowsThePointerAndIsDrawn) {
    PopupListWnd* list = Track(menu);
    ASSERT_NE(list, nullptr);
    driver.Move(list, list->ItemRect(1).CenterPoint());
    EXPECT_EQ(list->GetHighlighted(), 1);
    driver.Pump();
    const CRect hot = list->ItemRect(1), cold = list->ItemRect(3);
    EXPECT_NE(driver.PixelAt(list, hot.right - 8, hot.CenterPoint().y),
              driver.PixelAt(list, cold.right - 8, cold.CenterPoint().y));
}

} // namespace
