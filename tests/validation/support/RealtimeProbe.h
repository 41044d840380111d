// Counts, on a thread inside a RealtimeProbe scope only, what the audio thread must never do:
// allocate, free, or take a lock other than the few allowed (RealtimeProbe.cpp's replacements).
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
