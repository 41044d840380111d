// What a process holds that a leak would grow: heap in use, open file descriptors and
// threads, read from the allocator and from /proc.
#pragma once

#include <dirent.h>
#include <malloc.h>

#include <cstddef>

// Under a sanitizer the allocator is the sanitizer's, whose figures mean something else;
// its leak checker covers those builds.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitizedBuild = true;
#elif defined(__has_feature)
constexpr bool kSanitizedBuild =
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool kSanitizedBuild = false;
#endif

inline size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

inline size_t EntriesIn(const char* folder) {
    size_t count = 0;
    if (DIR* directory = opendir(folder)) {
        while (readdir(directory)) {
            ++count;
        }
        closedir(directory);
    }
    return count;
}

inline size_t OpenFileDescriptors() {
    return EntriesIn("/proc/self/fd");
}

inline size_t ThreadCount() {
    return EntriesIn("/proc/self/task");
}
