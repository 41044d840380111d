// The toolkit's main-thread work: run by the platform's timer in the host's message loop, after
// a wake-up from any thread, never inside itself, and safe when it lets go of the platform.
#include "tests/windows/Win32TestHost.h"

#include <thread>

namespace win32test {
namespace {

// Takes the messages posted to the thread except timer ticks (and what precedes them:
// painting, creation), leaving them undelivered.
std::vector<MSG> TakePostedMessages() {
    std::vector<MSG> taken;
    MSG message{};
    while (PeekMessageW(&message, nullptr, WM_TIMER + 1, 0xFFFF, PM_REMOVE))
        taken.push_back(message);
    return taken;
}

TEST(MainThreadWork, RunsOnTheTimerWithoutAnyInput) {
    int runs = 0;
    auto platform = native::Win32Platform::Open([&runs] { ++runs; });
    ASSERT_NE(platform, nullptr);
    PumpFor(1000);
    // Sixty or so at 16 ms; a loaded machine may give fewer.
    EXPECT_GE(runs, 10);
}

TEST(MainThreadWork, WakeFromAnotherThreadPostsOneWakeUp) {
    int runs = 0;
    auto platform = native::Win32Platform::Open([&runs] { ++runs; });
    ASSERT_NE(platform, nullptr);
    PumpFor(50);
    TakePostedMessages();

    std::thread waker([&platform] {
        for (int i = 0; i < 3; ++i)
            platform->Wake();
    });
    waker.join();
    const std::vector<MSG> posted = TakePostedMessages();
    ASSERT_EQ(posted.size(), 1u);
    const int before = runs;
    DispatchMessageW(&posted[0]);
    EXPECT_EQ(runs, before + 1);

    // Once that wake-up has been handled, the next one is posted again.
    platform->Wake();
    EXPECT_EQ(TakePostedMessages().size(), 1u);
}

// A host call inside the work may run the thread's messages, timer ticks among them.
TEST(MainThreadWork, NeverRunsInsideItself) {
    int depth = 0;
    int deepest = 0;
    int runs = 0;
    auto platform = native::Win32Platform::Open([&] {
        ++runs;
        ++depth;
        deepest = std::max(deepest, depth);
        if (runs == 1)
            PumpFor(200);
        --depth;
    });
    ASSERT_NE(platform, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return runs >= 3; }));
    EXPECT_EQ(deepest, 1);
}

TEST(MainThreadWork, MayReleaseThePlatform) {
    int runs = 0;
    std::shared_ptr<native::Win32Platform> platform;
    platform = native::Win32Platform::Open([&] {
        ++runs;
        platform.reset();
    });
    ASSERT_NE(platform, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform == nullptr; }));
    PumpFor(100);
    EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace win32test
