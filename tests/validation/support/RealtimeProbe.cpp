// Replacements for the C library's allocation functions, operator new and delete, and
// the blocking entry points of the threads library. Each forwards to the real function
// and, on a thread inside a RealtimeProbe scope, counts the call. Linked only into
// binaries built without a sanitizer, whose runtimes replace the same functions.
#include "tests/validation/support/RealtimeProbe.h"

#include <dlfcn.h>
#include <semaphore.h>

#include <cerrno>
#include <new>

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* pointer, size_t size);
void __libc_free(void* pointer);
void* __libc_memalign(size_t alignment, size_t size);
}

namespace {

struct Watch {
    bool active = false;
    long allocations = 0;
    long releases = 0;
    size_t bytes = 0;
    long otherBlocking = 0;
    int lockCount = 0;
    const pthread_mutex_t* locks[RealtimeProbe::kMaxLocks] = {};
};

// Plain thread-local data of the executable: reaching it never allocates.
thread_local Watch t_watch;

void countAllocation(size_t bytes) {
    if (t_watch.active) {
        ++t_watch.allocations;
        t_watch.bytes += bytes;
    }
}

void countRelease(void* pointer) {
    if (t_watch.active && pointer) {
        ++t_watch.releases;
    }
}

void countLock(const pthread_mutex_t* mutex) {
    if (!t_watch.active) {
        return;
    }
    for (int i = 0; i < t_watch.lockCount; ++i) {
        if (t_watch.locks[i] == mutex) {
            return;
        }
    }
    if (t_watch.lockCount < RealtimeProbe::kMaxLocks) {
        t_watch.locks[t_watch.lockCount++] = mutex;
    }
}

void countOtherBlocking() {
    if (t_watch.active) {
        ++t_watch.otherBlocking;
    }
}

// The real entry points, looked up once before main and again on first use should a
// constructor of another unit lock a mutex earlier.
template <typename Function> Function real(Function& slot, const char* name) {
    if (!slot) {
        slot = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
    }
    return slot;
}

using MutexFunction = int (*)(pthread_mutex_t*);
using RwLockFunction = int (*)(pthread_rwlock_t*);
using CondWaitFunction = int (*)(pthread_cond_t*, pthread_mutex_t*);
using SemFunction = int (*)(sem_t*);
using SpinFunction = int (*)(pthread_spinlock_t*);

MutexFunction g_mutexLock;
MutexFunction g_mutexTryLock;
RwLockFunction g_rdLock;
RwLockFunction g_wrLock;
CondWaitFunction g_condWait;
SemFunction g_semWait;
SpinFunction g_spinLock;

[[gnu::constructor]] void resolveRealFunctions() {
    real(g_mutexLock, "pthread_mutex_lock");
    real(g_mutexTryLock, "pthread_mutex_trylock");
    real(g_rdLock, "pthread_rwlock_rdlock");
    real(g_wrLock, "pthread_rwlock_wrlock");
    real(g_condWait, "pthread_cond_wait");
    real(g_semWait, "sem_wait");
    real(g_spinLock, "pthread_spin_lock");
}

} // namespace

RealtimeProbe::RealtimeProbe() {
    t_watch = Watch();
    t_watch.active = true;
}

RealtimeProbe::~RealtimeProbe() {
    t_watch.active = false;
}

long RealtimeProbe::Allocations() const {
    return t_watch.allocations;
}

long RealtimeProbe::Releases() const {
    return t_watch.releases;
}

size_t RealtimeProbe::BytesRequested() const {
    return t_watch.bytes;
}

long RealtimeProbe::OtherBlockingCalls() const {
    return t_watch.otherBlocking;
}

int RealtimeProbe::LockCount() const {
    return t_watch.lockCount;
}

const pthread_mutex_t* RealtimeProbe::Lock(int i) const {
    return t_watch.locks[i];
}

bool RealtimeProbe::Locked(const pthread_mutex_t* mutex) const {
    for (int i = 0; i < t_watch.lockCount; ++i) {
        if (t_watch.locks[i] == mutex) {
            return true;
        }
    }
    return false;
}

// --- The C library's allocation functions --------------------------------------------

extern "C" {

void* malloc(size_t size) {
    countAllocation(size);
    return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    countAllocation(count * size);
    return __libc_calloc(count, size);
}

void* realloc(void* pointer, size_t size) {
    countAllocation(size);
    return __libc_realloc(pointer, size);
}

void free(void* pointer) {
    countRelease(pointer);
    __libc_free(pointer);
}

void* memalign(size_t alignment, size_t size) {
    countAllocation(size);
    return __libc_memalign(alignment, size);
}

void* aligned_alloc(size_t alignment, size_t size) {
    countAllocation(size);
    return __libc_memalign(alignment, size);
}

int posix_memalign(void** result, size_t alignment, size_t size) {
    countAllocation(size);
    void* pointer = __libc_memalign(alignment, size);
    if (!pointer) {
        return ENOMEM;
    }
    *result = pointer;
    return 0;
}

// --- The threads library's blocking calls ---------------------------------------------

int pthread_mutex_lock(pthread_mutex_t* mutex) {
    countLock(mutex);
    return real(g_mutexLock, "pthread_mutex_lock")(mutex);
}

int pthread_mutex_trylock(pthread_mutex_t* mutex) {
    countLock(mutex);
    return real(g_mutexTryLock, "pthread_mutex_trylock")(mutex);
}

int pthread_rwlock_rdlock(pthread_rwlock_t* lock) {
    countOtherBlocking();
    return real(g_rdLock, "pthread_rwlock_rdlock")(lock);
}

int pthread_rwlock_wrlock(pthread_rwlock_t* lock) {
    countOtherBlocking();
    return real(g_wrLock, "pthread_rwlock_wrlock")(lock);
}

int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    countOtherBlocking();
    return real(g_condWait, "pthread_cond_wait")(condition, mutex);
}

int sem_wait(sem_t* semaphore) {
    countOtherBlocking();
    return real(g_semWait, "sem_wait")(semaphore);
}

int pthread_spin_lock(pthread_spinlock_t* lock) {
    countOtherBlocking();
    return real(g_spinLock, "pthread_spin_lock")(lock);
}

} // extern "C"

// --- operator new and delete ------------------------------------------------------------
// Replaced as well, so a standard library that does not build them on malloc is still
// seen.

namespace {

void* allocateOrThrow(size_t size) {
    countAllocation(size);
    if (void* pointer = __libc_malloc(size ? size : 1)) {
        return pointer;
    }
    throw std::bad_alloc();
}

void* allocateAlignedOrThrow(size_t size, std::align_val_t alignment) {
    countAllocation(size);
    if (void* pointer = __libc_memalign(static_cast<size_t>(alignment), size ? size : 1)) {
        return pointer;
    }
    throw std::bad_alloc();
}

void release(void* pointer) {
    countRelease(pointer);
    __libc_free(pointer);
}

} // namespace

void* operator new(size_t size) {
    return allocateOrThrow(size);
}
void* operator new[](size_t size) {
    return allocateOrThrow(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
    countAllocation(size);
    return __libc_malloc(size ? size : 1);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
    countAllocation(size);
    return __libc_malloc(size ? size : 1);
}
void* operator new(size_t size, std::align_val_t alignment) {
    return allocateAlignedOrThrow(size, alignment);
}
void* operator new[](size_t size, std::align_val_t alignment) {
    return allocateAlignedOrThrow(size, alignment);
}
void operator delete(void* pointer) noexcept {
    release(pointer);
}
void operator delete[](void* pointer) noexcept {
    release(pointer);
}
void operator delete(void* pointer, size_t) noexcept {
    release(pointer);
}
void operator delete[](void* pointer, size_t) noexcept {
    release(pointer);
}
void operator delete(void* pointer, std::align_val_t) noexcept {
    release(pointer);
}
void operator delete[](void* pointer, std::align_val_t) noexcept {
    release(pointer);
}
void operator delete(void* pointer, size_t, std::align_val_t) noexcept {
    release(pointer);
}
void operator delete[](void* pointer, size_t, std::align_val_t) noexcept {
    release(pointer);
}
