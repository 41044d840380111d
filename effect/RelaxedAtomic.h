// A value shared between the audio and user-interface threads without a lock. The
// program's design relies on single aligned 32-bit stores; relaxed atomics say so in the
// language's memory model and compile to the same plain loads and stores.
#pragma once

#include <atomic>
#include <type_traits>

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

// The same relaxed access to a plain object that is shared only in part: the program
// banks keep their plain layout (hosts store them as memory) and the current program
// number is the base class's, so the words the audio thread may touch are reached through
// these wherever both threads can meet. The standard's atomic_ref only comes with C++20;
// these builtins are what it is made of.
template <typename T> T RelaxedLoad(const T& object) {
    static_assert(std::is_trivially_copyable_v<T> && (sizeof(T) == 4 || sizeof(T) == 8));
    T value;
    __atomic_load(&object, &value, __ATOMIC_RELAXED);
    return value;
}

template <typename T> void RelaxedStore(T& object, T value) {
    static_assert(std::is_trivially_copyable_v<T> && (sizeof(T) == 4 || sizeof(T) == 8));
    __atomic_store(&object, &value, __ATOMIC_RELAXED);
}
