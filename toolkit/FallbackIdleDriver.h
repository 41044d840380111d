// Runs the main thread's work (native events, posts, timer ticks, painting) on a thread of
// its own, for hosts that never idle the editor, until the host's first idle call. Each pass
// holds the toolkit lock and only tries it, so a host thread that holds the lock (and perhaps
// waits for this driver to end) is never kept waiting. Owned by the host frame.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

class FallbackIdleDriver {
public:
    static constexpr int kPeriodMs = 16;

    FallbackIdleDriver();
    // Returns once the thread has ended.
    ~FallbackIdleDriver();
    FallbackIdleDriver(const FallbackIdleDriver&) = delete;
    FallbackIdleDriver& operator=(const FallbackIdleDriver&) = delete;

private:
    void Run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stop = false;
    std::thread m_thread;
};

// The lock that every thread running toolkit code holds while the fallback driver may run:
// the host's editor calls take it, and the driver takes it for each pass.
std::recursive_mutex& AfxUiLock();
// One pass of the main thread's work (AfxPumpMessages) if the lock is free now; skipped
// otherwise, so that a thread holding the lock (and perhaps waiting for the caller) is never
// kept waiting. What the fallback driver and a platform's own timer run.
void AfxRunMainThreadPass();
