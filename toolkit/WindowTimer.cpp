#include "toolkit/WindowTimer.h"

#include <algorithm>
#include <chrono>
#include <pthread.h>

namespace {

std::atomic<std::uint32_t> g_nextGeneration{1};

// Every timer alive (main thread only).
std::vector<WindowTimer*>& LiveTimers() {
    static std::vector<WindowTimer*> timers;
    return timers;
}

} // namespace

WindowTimer::WindowTimer(std::uint64_t viewSerial, unsigned periodMs)
    : m_viewSerial(viewSerial), m_periodMs(periodMs),
      m_generation(g_nextGeneration.fetch_add(1, std::memory_order_relaxed)),
      m_thread(&WindowTimer::Run, this) {
    LiveTimers().push_back(this);
}

WindowTimer::~WindowTimer() {
    Stop();
    auto& timers = LiveTimers();
    timers.erase(std::remove(timers.begin(), timers.end(), this), timers.end());
}

void WindowTimer::Stop() {
    m_running.store(false, std::memory_order_release);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopRequested = true;
    }
    m_wake.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

std::vector<WindowTimer::DueTicks> WindowTimer::TakeDueTicks() {
    std::vector<DueTicks> due;
    for (WindowTimer* timer : LiveTimers()) {
        if (!timer->IsRunning())
            continue;
        if (const int count = timer->m_pendingTicks.exchange(0, std::memory_order_acq_rel))
            due.push_back({timer->m_viewSerial, timer->m_generation, count});
    }
    return due;
}

bool WindowTimer::AnyTickDue() {
    return std::any_of(LiveTimers().begin(), LiveTimers().end(), [](const WindowTimer* timer) {
        return timer->IsRunning() && timer->m_pendingTicks.load(std::memory_order_relaxed) > 0;
    });
}

// The period is a sleep between ticks, not a fixed rate; the first tick comes one period
// after the start.
void WindowTimer::Run() {
    pthread_setname_np(pthread_self(), "zephyra-timer");
    const auto period = std::chrono::milliseconds(m_periodMs);
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_wake.wait_for(lock, period, [this] { return m_stopRequested; })) {
        // Only this thread adds and the main thread only takes all, so the bound holds.
        if (m_pendingTicks.load(std::memory_order_relaxed) < kMaxPendingTicks)
            m_pendingTicks.fetch_add(1, std::memory_order_release);
    }
}
