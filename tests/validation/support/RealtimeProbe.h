// Watches the calling thread for what the audio thread must never do: allocate or free
// memory, or take a lock other than the few it is allowed. The binary that links
// RealtimeProbe.cpp replaces the allocation functions and the blocking entry points of the
// C library for the whole process; only a thread inside a RealtimeProbe scope is counted,
// so the test framework's other threads do not disturb the figures.
#pragma once

#include <pthread.h>

#include <cstddef>

// What the thread did since its scope began.
struct RealtimeCounts {
    static constexpr int kMaxLocks = 16;

    bool active = false;
    long allocations = 0; // calls to any allocation function
    long releases = 0;
    size_t bytes = 0; // asked for
    // Calls that may block on something other than a plain mutex (read-write locks,
    // semaphores, condition variables, spin locks).
    long otherBlocking = 0;
    int lockCount = 0; // distinct mutexes locked or tried
    const pthread_mutex_t* locks[kMaxLocks] = {};

    bool Locked(const pthread_mutex_t* mutex) const {
        for (int i = 0; i < lockCount; ++i) {
            if (locks[i] == mutex) {
                return true;
            }
        }
        return false;
    }
};

class RealtimeProbe {
public:
    RealtimeProbe();
    ~RealtimeProbe();
    RealtimeProbe(const RealtimeProbe&) = delete;
    RealtimeProbe& operator=(const RealtimeProbe&) = delete;

    const RealtimeCounts* operator->() const;
};
