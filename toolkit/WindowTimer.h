// A window's timer: a thread of its own that sleeps for the period, then hands one tick to
// the main thread, and again, until stopped. Owned by its CWnd.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

class WindowTimer {
public:
    // Ticks that may wait undelivered: a host that stops idling must not build a backlog.
    static constexpr int kMaxPendingTicks = 8;

    WindowTimer(std::uint64_t viewSerial, unsigned periodMs);
    ~WindowTimer();
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;

    // Returns once the thread has ended; ticks still queued are not delivered.
    void Stop();
    bool IsRunning() const { return m_running.load(std::memory_order_acquire); }
    std::uint32_t Generation() const { return m_generation; }
    // Main thread: accounts for one delivered tick; false when the timer has stopped.
    bool TakeTick();

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
