#include "WindowTimer.h"

#include "MainThreadQueue.h"

#include <chrono>
#include <pthread.h>

namespace {
std::atomic<std::uint32_t> g_nextGeneration{1};
}

WindowTimer::WindowTimer(std::uint64_t viewSerial, unsigned periodMs)
    : m_viewSerial(viewSerial), m_periodMs(periodMs),
      m_generation(g_nextGeneration.fetch_add(1, std::memory_order_relaxed)),
      m_thread(&WindowTimer::Run, this) {}

WindowTimer::~WindowTimer() {
    Stop();
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

bool WindowTimer::TakeTick() {
    if (!IsRunning())
        return false;
    m_pendingTicks.fetch_sub(1, std::memory_order_acq_rel);
    return true;
}

// The period is a sleep between ticks, not a fixed rate; the first tick comes one period
// after the start.
void WindowTimer::Run() {
    pthread_setname_np(pthread_self(), "zephyra-timer");
    const auto period = std::chrono::milliseconds(m_periodMs);
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_wake.wait_for(lock, period, [this] { return m_stopRequested; })) {
        if (m_pendingTicks.load(std::memory_order_acquire) >= kMaxPendingTicks)
            continue;
        m_pendingTicks.fetch_add(1, std::memory_order_acq_rel);
        if (!TheMainThreadQueue().TryPush(
                {MainThreadTaskKind::TimerTick, m_viewSerial, m_generation}))
            m_pendingTicks.fetch_sub(1, std::memory_order_acq_rel);
    }
}
