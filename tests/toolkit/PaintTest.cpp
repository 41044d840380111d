#include "tests/toolkit/HostFixture.h"
#include "toolkit/MFCView0.h"
#include "tests/toolkit/RecordingWnd.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WinStyles.h"

#include <gtest/gtest.h>

namespace {

// Paints its whole update area in one colour, so that tests can see what reached the screen.
class SolidWnd : public RecordingWnd {
public:
    double red = 1.0, green = 0.0, blue = 0.0;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_PAINT && GetPaintContext()) {
            cairo_t* cr = GetPaintContext();
            cairo_set_source_rgb(cr, red, green, blue);
            cairo_paint(cr);
        }
        return RecordingWnd::WindowProc(message, wParam, lParam);
    }
};

class PaintTest : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        ASSERT_TRUE(wnd.CreateChild(&frame, CRect(10, 10, 110, 60)));
    }

    SolidWnd wnd;
};

// Erasing comes just before painting, with a context that lives for that one paint.
TEST_F(PaintTest, PaintingWaitsForThePumpAndFollowsTheErase) {
    EXPECT_TRUE(wnd.paintedAreas.empty());
    driver.Pump();
    ASSERT_EQ(wnd.paintedAreas.size(), 1u);
    EXPECT_EQ(wnd.paintedAreas[0], CRect(0, 0, 100, 50));
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
    const CRect first(5, 5, 10, 10);
    const CRect second(20, 8, 30, 12);
    wnd.InvalidateRect(&first, false);
    wnd.InvalidateRect(&second, true);
    driver.Pump();
    ASSERT_EQ(wnd.paintedAreas.size(), 1u);
    EXPECT_EQ(wnd.paintedAreas[0], CRect(5, 5, 30, 12));
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
    EXPECT_EQ(driver.PixelAt(&wnd, 5, 5), 0x0000FFu);
    EXPECT_EQ(driver.PixelAt(&wnd, 50, 25), 0xFF0000u);
}

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
}

TEST_F(PaintTest, HostThatHidesTheEditorGetsAFullRepaintWhenShowingItAgain) {
    driver.Pump();
    driver.Platform().SetHostWindowVisible(host, false);
    wnd.paintedAreas.clear();
    const CRect small(0, 0, 5, 5);
    wnd.InvalidateRect(&small);
    driver.Pump();
    EXPECT_TRUE(wnd.paintedAreas.empty()) << "no drawing while unmapped";
    driver.Platform().SetHostWindowVisible(host, true);
    driver.Pump();
    ASSERT_EQ(wnd.paintedAreas.size(), 1u);
    EXPECT_EQ(wnd.paintedAreas[0], CRect(0, 0, 100, 50));
}

TEST_F(PaintTest, ChildWindowsShowAboveTheirParent) {
    SolidWnd child;
    child.green = 1.0;
    child.red = 0.0;
    ASSERT_TRUE(child.CreateChild(&wnd, CRect(10, 10, 20, 20)));
    driver.Pump();
    EXPECT_EQ(driver.PixelAt(&wnd, 15, 15), 0x00FF00u);
    EXPECT_EQ(driver.PixelAt(&wnd, 25, 15), 0xFF0000u);
    EXPECT_EQ(driver.PixelAt(&frame, 25, 25), 0x00FF00u);
}

} // namespace
