// Toolkit windows in a host's window: creation and its refusals, destruction, showing,
// placing, and the host window going first.
#include "tests/toolkit/HostFixture.h"
#include "tests/toolkit/RecordingWnd.h"
#include "toolkit/MFCView0.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

#include <gtest/gtest.h>

namespace {

using WindowTest = HostFixture;

TEST_F(WindowTest, CreationDeliversCreateMoveAndSizeInOrder) {
    RecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateChild(&frame, CRect(10, 20, 110, 70), 7));
    const std::vector<UINT> messages = wnd.Messages();
    ASSERT_GE(messages.size(), 3u);
    EXPECT_EQ(std::vector<UINT>(messages.begin(), messages.begin() + 3),
              (std::vector<UINT>{WM_CREATE, WM_MOVE, WM_SIZE}));
    const CREATESTRUCT& create = wnd.lastCreate;
    EXPECT_EQ(CRect(CPoint(create.x, create.y), CSize(create.cx, create.cy)),
              CRect(10, 20, 110, 70));
    EXPECT_EQ(create.hwndParent, frame.GetSafeHwnd());
    EXPECT_EQ(create.hMenu, reinterpret_cast<void*>(7));
    EXPECT_EQ(wnd.Points(WM_MOVE), std::vector<CPoint>{CPoint(10, 20)});
    EXPECT_EQ(wnd.Points(WM_SIZE), std::vector<CPoint>{CPoint(100, 50)});
    EXPECT_EQ(wnd.WParams(WM_SIZE), std::vector<WPARAM>{0});
    EXPECT_EQ(wnd.GetParent(), &frame);
    CRect client;
    wnd.GetClientRect(&client);
    EXPECT_EQ(client, CRect(0, 0, 100, 50));
}

// Refused by OnCreate, the window is torn down (PostNcDestroy) before it is placed; refused
// by PreCreateWindow, nothing is sent at all and there is nothing to destroy. A window needs
// a parent with a view, and is a child whatever style it asks for.
TEST_F(WindowTest, RefusedCreationLeavesNoView) {
    RecordingWnd orphan, forced;
    EXPECT_FALSE(orphan.Create(nullptr, "w", WS_VISIBLE, CRect(0, 0, 10, 10), nullptr, 1));
    EXPECT_EQ(orphan.GetSafeHwnd(), nullptr);
    ASSERT_TRUE(forced.Create(nullptr, "w", WS_VISIBLE, CRect(0, 0, 10, 10), &frame, 1));
    EXPECT_TRUE(forced.GetStyle() & WS_CHILD);

    RecordingWnd byOnCreate;
    byOnCreate.createResult = -1;
    EXPECT_FALSE(byOnCreate.CreateChild(&frame, CRect(0, 0, 10, 10)));
    EXPECT_EQ(byOnCreate.GetSafeHwnd(), nullptr);
    EXPECT_EQ(byOnCreate.postNcDestroyCalls, 1);
    EXPECT_EQ(byOnCreate.Only(WM_MOVE).size(), 0u);

    RecordingWnd byPreCreate;
    byPreCreate.allowCreate = false;
    EXPECT_FALSE(byPreCreate.CreateChild(&frame, CRect(0, 0, 10, 10)));
    EXPECT_TRUE(byPreCreate.received.empty());
    EXPECT_FALSE(byPreCreate.DestroyWindow()) << "a window never created cannot be destroyed";
    EXPECT_EQ(byPreCreate.postNcDestroyCalls, 0);
}

TEST_F(WindowTest, DestroyTakesChildrenFirstThenDetaches) {
    RecordingWnd parent, child;
    ASSERT_TRUE(parent.CreateChild(&frame, CRect(0, 0, 100, 100)));
    ASSERT_TRUE(child.CreateChild(&parent, CRect(5, 5, 20, 20), 3));
    EXPECT_EQ(parent.GetDlgItem(3), &child);
    parent.received.clear();

    EXPECT_TRUE(parent.DestroyWindow());
    EXPECT_EQ(child.Only(WM_DESTROY).size(), 1u);
    EXPECT_EQ(parent.Only(WM_DESTROY).size(), 1u);
    EXPECT_EQ(parent.GetSafeHwnd(), nullptr);
    EXPECT_EQ(child.GetSafeHwnd(), nullptr);
    EXPECT_EQ(parent.postNcDestroyCalls, 1);
    EXPECT_EQ(child.postNcDestroyCalls, 1);
    EXPECT_EQ(parent.GetDlgItem(3), nullptr);
    EXPECT_FALSE(parent.DestroyWindow());
}

TEST_F(WindowTest, ShowWindowHidesAndShowsWithPositionNotice) {
    RecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateChild(&frame, CRect(0, 0, 10, 10)));
    wnd.received.clear();
    EXPECT_TRUE(wnd.ShowWindow(SW_HIDE));
    EXPECT_FALSE(wnd.IsWindowVisible());
    EXPECT_TRUE(wnd.GetSafeHwnd()->IsHidden());
    EXPECT_TRUE(wnd.ShowWindow(SW_SHOW));
    EXPECT_TRUE(wnd.IsWindowVisible());
    EXPECT_FALSE(wnd.GetSafeHwnd()->IsHidden());
    EXPECT_EQ(wnd.windowPosFlags, (std::vector<UINT>{0x80, 0x40}));
    wnd.received.clear();
    EXPECT_TRUE(wnd.ShowWindow(10)) << "commands above nine are ignored";
    EXPECT_TRUE(wnd.received.empty());
    EXPECT_TRUE(wnd.IsWindowVisible());

    RecordingWnd viewless;
    EXPECT_TRUE(viewless.ShowWindow(SW_SHOW));
    EXPECT_TRUE(viewless.IsWindowVisible()) << "without a view only the visibility is kept";
    EXPECT_TRUE(viewless.received.empty());
}

// The frame taking the host window's size is checked under X, on a real host window.
TEST_F(WindowTest, MoveWindowPlacesWithinTheHostFrame) {
    RecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateChild(&frame, CRect(0, 0, 10, 10)));
    wnd.received.clear();
    wnd.MoveWindow(30, 40, 50, 60, true);
    EXPECT_EQ(wnd.Points(WM_SIZE), std::vector<CPoint>{CPoint(50, 60)});
    CRect screen;
    wnd.GetWindowRect(&screen);
    EXPECT_EQ(screen, CRect(kHostLeft + 30, kHostTop + 40, kHostLeft + 80, kHostTop + 100));
    wnd.received.clear();
    wnd.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_TRUE(wnd.Only(WM_SIZE).empty());
    wnd.GetWindowRect(&screen);
    EXPECT_EQ(screen.TopLeft(), CPoint(kHostLeft, kHostTop));
}

TEST_F(WindowTest, DestroyingTheHostWindowLeavesTheToolkitWindowHarmless) {
    RecordingWnd wnd;
    ASSERT_TRUE(wnd.CreateChild(&frame, CRect(0, 0, 10, 10)));
    driver.DestroyHostWindow(host);
    wnd.Invalidate();
    driver.Pump();
    EXPECT_TRUE(wnd.paintedAreas.empty());
    EXPECT_TRUE(wnd.DestroyWindow());
}

} // namespace
