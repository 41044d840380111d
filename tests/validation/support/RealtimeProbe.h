// Watches the calling thread for what the audio thread must never do: allocate or free
// memory, or take a lock other than the few it is allowed. The test binary that links
// RealtimeProbe.cpp replaces the allocation functions and the mutex entry points of the
// C library for the whole process; only the thread inside a RealtimeProbe scope is
// counted, so the test framework on other threads does not disturb the figures.
#pragma once

#include <pthread.h>

#include <cstddef>

class RealtimeProbe {
public:
    static constexpr int kMaxLocks = 16;

    RealtimeProbe();
    ~RealtimeProbe();
    RealtimeProbe(const RealtimeProbe&) = delete;
    RealtimeProbe& operator=(const RealtimeProbe&) = delete;

    // Calls to any allocation or release function, and the bytes asked for, since the
    // scope began.
    long Allocations() const;
    long Releases() const;
    size_t BytesRequested() const;
    // Calls that may block on something other than a plain mutex (read-write locks,
    // semaphores, condition variables, spin locks).
    long OtherBlockingCalls() const;
    // The distinct mutexes locked (or tried) since the scope began.
    int LockCount() const;
    const pthread_mutex_t* Lock(int i) const;
    bool Locked(const pthread_mutex_t* mutex) const;
};
