// Posted messages: their order and delivery at the pump, the 256-slot ring that bounds them,
// and posts to windows that are gone or have no view.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/PostedMessageRing.h"
#include "toolkit/WinMessages.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kPing = WM_USER + 1;

class PostMessageTest : public WindowFixture<RecordingWnd, true> {
protected:
    std::vector<WPARAM> PingsReceived() const { return wnd.WParams(kPing); }
};

TEST_F(PostMessageTest, PostsArriveInOrderAtThePumpNotBefore) {
    for (WPARAM i = 0; i < 10; ++i)
        EXPECT_TRUE(wnd.PostMessage(kPing, i, 40 + i));
    EXPECT_TRUE(wnd.Only(kPing).empty());
    driver.Pump();
    EXPECT_EQ(PingsReceived(), (std::vector<WPARAM>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(wnd.Only(kPing).back().lParam, 49);
}

TEST_F(PostMessageTest, The257thPostOverwritesTheFirstAndArrivesTwice) {
    const int start = g_nEventVST.load();
    for (WPARAM i = 1; i <= 257; ++i)
        wnd.PostMessage(kPing, i, 0);
    driver.Pump();
    const std::vector<WPARAM> pings = PingsReceived();
    ASSERT_EQ(pings.size(), 257u);
    EXPECT_EQ(pings.front(), 257u);
    EXPECT_EQ(pings.back(), 257u);
    EXPECT_EQ(std::count(pings.begin(), pings.end(), 1u), 0);
    EXPECT_EQ(pings[1], 2u);
    EXPECT_EQ(g_nEventVST.load(), (start + 257) % 256);
}

TEST_F(PostMessageTest, PostToAWindowThatIsGoneIsNotDelivered) {
    auto doomed = std::make_unique<RecordingWnd>();
    ASSERT_TRUE(doomed->CreateChild(&frame, CRect(0, 0, 10, 10)));
    doomed->PostMessage(kPing, 1, 0);
    doomed.reset();
    wnd.PostMessage(kPing, 2, 0);
    driver.Pump();
    EXPECT_EQ(PingsReceived(), std::vector<WPARAM>{2});
}

TEST_F(PostMessageTest, WindowWithoutViewPostsThroughTheFallbackView) {
    RecordingWnd viewless;
    viewless.PostMessage(kPing, 5, 0);
    driver.Pump();
    ASSERT_EQ(viewless.Only(kPing).size(), 1u);

    frame.SetNativeHandle(nullptr);
    ASSERT_EQ(hTempWnd.load(), nullptr);
    viewless.PostMessage(kPing, 6, 0);
    driver.Pump();
    EXPECT_EQ(viewless.Only(kPing).size(), 1u);
}

} // namespace
