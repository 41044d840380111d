// Timers on their own threads, posts from other threads, and the fallback that runs the toolkit
// until the host first idles it: what arrives on the UI thread, and that nothing arrives late.
#include "tests/toolkit/HostFixture.h"
#include "toolkit/FallbackIdleDriver.h"
#include "toolkit/WinMessages.h"
#include "toolkit/WindowTimer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace {

constexpr UINT kFromWorker = WM_USER + 2;

using Clock = std::chrono::steady_clock;

class TimedWnd : public RecordingWnd {
public:
    std::vector<Clock::time_point> ticks;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER)
            ticks.push_back(Clock::now());
        return RecordingWnd::WindowProc(message, wParam, lParam);
    }
};

using ThreadTest = WindowFixture<TimedWnd>;

TEST_F(ThreadTest, TimerTicksArriveAsTimerMessagesWithZeroId) {
    const auto start = Clock::now();
    EXPECT_EQ(wnd.SetTimer(5, 50), 5u);
    driver.PumpFor(30);
    EXPECT_TRUE(wnd.ticks.empty()) << "the first tick comes one period after the start";
    driver.PumpFor(260);
    EXPECT_TRUE(wnd.KillTimer(5));
    ASSERT_GE(wnd.ticks.size(), 3u);
    EXPECT_LE(wnd.ticks.size(), 6u);
    EXPECT_GE(wnd.ticks.front() - start, std::chrono::milliseconds(45));
    EXPECT_EQ(wnd.WParams(WM_TIMER), std::vector<WPARAM>(wnd.ticks.size(), 0));
    EXPECT_EQ(wnd.Points(WM_TIMER), std::vector<CPoint>(wnd.ticks.size(), CPoint(0, 0)));
}

// Ticks already counted when the timer stops are not delivered either.
TEST_F(ThreadTest, NoTickArrivesOnceKilledOrDestroyed) {
    EXPECT_TRUE(wnd.KillTimer(3)) << "killing no timer is harmless";
    const std::function<void()> stops[] = {[this] { EXPECT_TRUE(wnd.KillTimer(1)); },
                                           [this] { wnd.DestroyWindow(); }};
    for (const auto& stop : stops) {
        wnd.SetTimer(1, 10);
        driver.PumpFor(50);
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        stop();
        const size_t ticks = wnd.ticks.size();
        driver.PumpFor(50);
        EXPECT_EQ(wnd.ticks.size(), ticks);
    }
}

TEST_F(ThreadTest, SecondSetTimerReplacesTheFirst) {
    wnd.SetTimer(1, 500);
    wnd.SetTimer(2, 10);
    driver.PumpFor(80);
    EXPECT_GE(wnd.ticks.size(), 2u);
    wnd.KillTimer(2);
}

TEST_F(ThreadTest, StopFromAnotherThreadReturnsOnceTheTimerHasEnded) {
    WindowTimer timer(0, 1000);
    std::thread([&] { timer.Stop(); }).join();
    EXPECT_FALSE(timer.IsRunning());
}

TEST_F(ThreadTest, UndeliveredTicksAreBounded) {
    wnd.SetTimer(1, 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    // The timer goes on ticking while the pump delivers: what arrives meanwhile comes on
    // top of the bounded backlog of a hundred periods.
    const auto pumpStart = Clock::now();
    driver.Pump();
    const auto pumpMs =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - pumpStart).count();
    wnd.KillTimer(1);
    EXPECT_LE(wnd.ticks.size(), static_cast<size_t>(WindowTimer::kMaxPendingTicks + pumpMs + 1));
    EXPECT_GE(wnd.ticks.size(), 1u);
}

TEST_F(ThreadTest, PostsFromOtherThreadsAllArrive) {
    constexpr int kThreads = 4, kPostsEach = 50;
    std::vector<std::thread> workers;
    for (int t = 0; t < kThreads; ++t) {
        workers.emplace_back([this, t] {
            for (int i = 0; i < kPostsEach; ++i)
                wnd.PostMessage(kFromWorker, static_cast<WPARAM>(t), i);
        });
    }
    for (auto& worker : workers)
        worker.join();
    driver.Pump();
    std::vector<int> perThread(kThreads, 0);
    for (WPARAM thread : wnd.WParams(kFromWorker))
        ++perThread.at(thread);
    EXPECT_EQ(perThread, std::vector<int>(kThreads, kPostsEach));
}

TEST_F(ThreadTest, PostingWhileTheMainThreadPumps) {
    constexpr int kPosts = 5000;
    std::atomic<bool> done{false};
    std::thread worker([&] {
        for (int i = 0; i < kPosts; ++i)
            wnd.PostMessage(kFromWorker, 0, i);
        done = true;
    });
    while (!done)
        driver.Pump();
    worker.join();
    driver.Pump();
    // When posts outrun the pump, slots are overwritten and a full queue drops posts; what
    // arrives is always something that was posted, and the queue recovers afterwards.
    const auto received = wnd.Only(kFromWorker);
    ASSERT_FALSE(received.empty());
    for (const ReceivedMessage& m : received) {
        ASSERT_GE(m.lParam, 0);
        ASSERT_LT(m.lParam, kPosts);
    }
    wnd.PostMessage(kFromWorker, 1, kPosts);
    driver.Pump();
    EXPECT_EQ(wnd.Only(kFromWorker).back().lParam, kPosts);
}

TEST(FallbackIdle, RunsTheToolkitUntilTheHostIdles) {
    CHeadlessDriver driver;
    void* host = driver.CreateHostWindow(CRect(0, 0, 100, 100));
    CFrameWnd frame;
    RecordingWnd wnd;
    {
        std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
        ASSERT_TRUE(frame.SetNativeHandle(host));
        ASSERT_TRUE(frame.IsFallbackRunning());
        ASSERT_TRUE(wnd.CreateChild(&frame, CRect(0, 0, 10, 10)));
        wnd.PostMessage(kFromWorker, 1, 0);
    }
    const auto deadline = Clock::now() + std::chrono::seconds(2);
    bool delivered = false;
    while (!delivered && Clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
        delivered = !wnd.Only(kFromWorker).empty() && !wnd.paintedAreas.empty();
    }
    EXPECT_TRUE(delivered) << "posts and painting run without the host";

    frame.HostIdle();
    EXPECT_FALSE(frame.IsFallbackRunning());
    wnd.PostMessage(kFromWorker, 2, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(wnd.Only(kFromWorker).size(), 1u) << "after the first idle only the host drives";
    frame.HostIdle();
    EXPECT_EQ(wnd.Only(kFromWorker).size(), 2u);
    std::lock_guard<std::recursive_mutex> lock(AfxUiLock());
    wnd.DestroyWindow();
    frame.SetNativeHandle(nullptr);
}

} // namespace
