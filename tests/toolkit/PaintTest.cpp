// What reaches the screen from a window: its paints and what is drawn outside them.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/CClientDC.h"
#include "toolkit/CPaintDC.h"
#include "toolkit/MFCView0.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// Paints through CPaintDC whatever the test asks for; otherwise its whole update area, in one
// colour, straight into the paint context.
class PaintingWnd : public RecordingWnd {
public:
    double red = 1.0, green = 0.0, blue = 0.0;
    std::function<void(CPaintDC&)> paint;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_PAINT && paint) {
            CPaintDC dc(this);
            paint(dc);
        } else if (message == WM_PAINT && GetPaintContext()) {
            cairo_set_source_rgb(GetPaintContext(), red, green, blue);
            cairo_paint(GetPaintContext());
        }
        return RecordingWnd::WindowProc(message, wParam, lParam);
    }
};

using PaintTest = WindowFixture<PaintingWnd>;

// Erasing comes just before painting, with a context that lives for that one paint.
TEST_F(PaintTest, PaintingWaitsForThePumpAndFollowsTheErase) {
    EXPECT_TRUE(wnd.paintedAreas.empty());
    driver.Pump();
    EXPECT_EQ(wnd.paintedAreas, std::vector<CRect>{CRect(0, 0, 300, 200)});
    EXPECT_EQ(driver.PixelAt(&wnd, 50, 25), 0xFF0000u);
    const auto messages = wnd.Messages();
    const auto paint = std::find(messages.begin(), messages.end(), WM_PAINT);
    ASSERT_NE(paint, messages.end());
    ASSERT_NE(paint, messages.begin());
    EXPECT_EQ(*(paint - 1), WM_ERASEBKGND);
    EXPECT_NE(wnd.Only(WM_ERASEBKGND)[0].wParam, 0u);
    EXPECT_EQ(wnd.GetPaintContext(), nullptr);
    wnd.Invalidate();
    wnd.UpdateWindow();
    EXPECT_EQ(wnd.paintedAreas.size(), 2u) << "UpdateWindow paints at once";
}

TEST_F(PaintTest, InvalidatedRectanglesAreJoinedIntoOnePaint) {
    driver.Pump();
    wnd.paintedAreas.clear();
    const CRect first(5, 5, 10, 10), second(20, 8, 30, 12);
    wnd.InvalidateRect(&first, false);
    wnd.InvalidateRect(&second, true);
    driver.Pump();
    EXPECT_EQ(wnd.paintedAreas, std::vector<CRect>{CRect(5, 5, 30, 12)});
    driver.Pump();
    EXPECT_EQ(wnd.paintedAreas.size(), 1u) << "nothing is painted without invalidation";
}

TEST_F(PaintTest, OnlyTheUpdateAreaChangesOnScreen) {
    driver.Pump();
    wnd.red = 0.0;
    wnd.blue = 1.0;
    const CRect area(0, 0, 10, 10);
    wnd.InvalidateRect(&area);
    driver.Pump();
    EXPECT_EQ(std::make_pair(driver.PixelAt(&wnd, 5, 5), driver.PixelAt(&wnd, 50, 25)),
              std::make_pair(0x0000FFu, 0xFF0000u));
}

// Hidden by the toolkit, the window waits to be shown; hidden by the host, it gets a full
// repaint when shown again.
TEST_F(PaintTest, HiddenWindowIsNotPaintedUntilShown) {
    driver.Pump();
    wnd.ShowWindow(SW_HIDE);
    wnd.paintedAreas.clear();
    wnd.Invalidate();
    driver.Pump();
    EXPECT_TRUE(wnd.paintedAreas.empty());
    wnd.ShowWindow(SW_SHOW);
    driver.Pump();
    EXPECT_EQ(wnd.paintedAreas.size(), 1u);

    driver.Platform().SetHostWindowVisible(host, false);
    wnd.paintedAreas.clear();
    const CRect small(0, 0, 5, 5);
    wnd.InvalidateRect(&small);
    driver.Pump();
    EXPECT_TRUE(wnd.paintedAreas.empty()) << "no drawing while unmapped";
    driver.Platform().SetHostWindowVisible(host, true);
    driver.Pump();
    EXPECT_EQ(wnd.paintedAreas, std::vector<CRect>{CRect(0, 0, 300, 200)});
}

TEST_F(PaintTest, ChildWindowsShowAboveTheirParent) {
    PaintingWnd child;
    std::tie(child.red, child.green) = std::make_pair(0.0, 1.0);
    ASSERT_TRUE(child.CreateChild(&wnd, CRect(10, 10, 20, 20)));
    driver.Pump();
    EXPECT_EQ(
        (std::vector<std::uint32_t>{driver.PixelAt(&wnd, 15, 15), driver.PixelAt(&wnd, 25, 15),
                                    driver.PixelAt(&frame, 25, 25)}),
        (std::vector<std::uint32_t>{0x00FF00, 0xFF0000, 0x00FF00}));
}

// Drawing outside a paint shows what was touched, at both ends of the window, and nothing
// of a hidden window.
TEST_F(PaintTest, ClientDcDrawsOutsideThePaint) {
    driver.Pump();
    {
        CClientDC dc(&wnd);
        ASSERT_NE(dc.GetSafeContext(), nullptr);
        dc.FillSolidRect(CRect(0, 0, 5, 5), RGB(0, 255, 0));
        dc.FillSolidRect(CRect(295, 195, 300, 200), RGB(0, 0, 255));
    }
    // The middle keeps the paint.
    EXPECT_EQ(
        (std::vector<std::uint32_t>{driver.PixelAt(&wnd, 2, 2), driver.PixelAt(&wnd, 297, 197),
                                    driver.PixelAt(&wnd, 150, 100)}),
        (std::vector<std::uint32_t>{0x00FF00, 0x0000FF, 0xFF0000}));
    wnd.ShowWindow(SW_HIDE);
    CClientDC hidden(&wnd);
    EXPECT_EQ(hidden.GetSafeContext(), nullptr);
    hidden.FillSolidRect(CRect(0, 0, 100, 100), 0);
}

TEST_F(PaintTest, SelectingAFontSetsTheWindowFont) {
    CFont font;
    font.CreatePointFont(20, "Osaka");
    wnd.paint = [&](CPaintDC& dc) { dc.SelectObject(&font); };
    driver.Pump();
    EXPECT_EQ(wnd.GetFont()->GetPointSize(), 20);
}

TEST_F(PaintTest, BlitFromAWindowDcWithoutImageIsTraced) {
    wnd.paint = [&](CPaintDC& dc) {
        CDC nothing;
        dc.BitBlt(0, 0, 10, 10, &nothing, 0, 0, SRCCOPY);
    };
    testing::internal::CaptureStdout();
    driver.Pump();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "BitBlt null \x80r\x80n");
}

TEST_F(PaintTest, DisplayDcExistsOnlyWithADisplay) {
    CDC display;
    EXPECT_TRUE(display.CreateDC("DISPLAY"));
    EXPECT_EQ(display.GetSize(), CSize(1024, 1024));
    frame.SetNativeHandle(nullptr);
    CDC none;
    EXPECT_TRUE(none.CreateDC("DISPLAY"));
    EXPECT_EQ(none.GetSafeContext(), nullptr);
}

} // namespace
