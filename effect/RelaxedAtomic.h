// A value shared between the audio and user-interface threads without a lock. The
// program's design relies on single aligned 32-bit stores; relaxed atomics say so in the
// language's memory model and compile to the same plain loads and stores.
#pragma once

#include <atomic>

template <typename T> class Relaxed {
public:
    Relaxed(T value = T()) : m_value(value) {}
    Relaxed(const Relaxed& other) : m_value(other.load()) {}
    Relaxed& operator=(const Relaxed& other) {
        store(other.load());
        return *this;
    }
    Relaxed& operator=(T value) {
        store(value);
        return *this;
    }
    operator T() const { return load(); }
    T load() const { return m_value.load(std::memory_order_relaxed); }
    void store(T value) { m_value.store(value, std::memory_order_relaxed); }

private:
    std::atomic<T> m_value;
    static_assert(std::atomic<T>::is_always_lock_free);
};
