#include "toolkit/FallbackIdleDriver.h"

#include "toolkit/MessagePump.h"

#include <chrono>
#include <pthread.h>

std::recursive_mutex& AfxUiLock() {
    static std::recursive_mutex lock;
    return lock;
}

void AfxRunMainThreadPass() {
    std::unique_lock<std::recursive_mutex> ui(AfxUiLock(), std::try_to_lock);
    if (ui.owns_lock())
        AfxPumpMessages();
}

FallbackIdleDriver::FallbackIdleDriver() : m_thread(&FallbackIdleDriver::Run, this) {}

FallbackIdleDriver::~FallbackIdleDriver() {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void FallbackIdleDriver::Run() {
    pthread_setname_np(pthread_self(), "zephyra-idle");
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_wake.wait_for(lock, std::chrono::milliseconds(kPeriodMs), [this] { return m_stop; }))
        AfxRunMainThreadPass();
}
