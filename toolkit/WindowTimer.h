// A window's timer: a thread of its own that sleeps for the period, then counts one tick
// for the main thread, and again, until stopped. A tick carries nothing but its window, so
// the count is the timer's whole queue; the main thread's pump takes the counts of every
// timer. Owned by its CWnd; made, stopped and destroyed on the main thread.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

class WindowTimer {
public:
    // Ticks that may wait undelivered: a host that stops idling must not build a backlog.
    static constexpr int kMaxPendingTicks = 8;

    WindowTimer(std::uint64_t viewSerial, unsigned periodMs);
    ~WindowTimer();
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;

    // Returns once the thread has ended; ticks still counted are not delivered.
    void Stop();
    bool IsRunning() const { return m_running.load(std::memory_order_acquire); }
    std::uint32_t Generation() const { return m_generation; }

    // Ticks taken from one timer: each is delivered to the view's window only while that
    // window still runs the same timer (generation).
    struct DueTicks {
        std::uint64_t viewSerial;
        std::uint32_t generation;
        int count;
    };
    // Main thread: takes the ticks counted so far from every timer.
    static std::vector<DueTicks> TakeDueTicks();
    // Main thread: whether any timer has a tick counted.
    static bool AnyTickDue();

private:
    void Run();

    const std::uint64_t m_viewSerial;
    const unsigned m_periodMs;
    const std::uint32_t m_generation;
    std::atomic<bool> m_running{true};
    std::atomic<int> m_pendingTicks{0};
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopRequested = false;
    std::thread m_thread;
};
