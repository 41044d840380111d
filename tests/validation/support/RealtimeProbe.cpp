// The C library's allocation functions (which the standard library's operator new and delete
// call) and the blocking thread calls, counted inside a RealtimeProbe scope. Not linked with
// sanitizers, which replace the same.
#include "tests/validation/support/RealtimeProbe.h"

#include <dlfcn.h>
#include <semaphore.h>

#include <cerrno>

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* pointer, size_t size);
void __libc_free(void* pointer);
void* __libc_memalign(size_t alignment, size_t size);
}

namespace {

// Plain thread-local data of the executable: reaching it never allocates.
thread_local RealtimeCounts t_watch;

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
    if (t_watch.active && !t_watch.Locked(mutex) && t_watch.lockCount < RealtimeCounts::kMaxLocks) {
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

} // namespace

RealtimeProbe::RealtimeProbe() {
    t_watch = RealtimeCounts();
    t_watch.active = true;
}

RealtimeProbe::~RealtimeProbe() {
    t_watch.active = false;
}

const RealtimeCounts* RealtimeProbe::operator->() const {
    return &t_watch;
}

// Each blocking entry point of the threads library: the real function's slot, and a
// replacement that counts the call and forwards it.
#define ZEPHYRA_PROBE_BLOCKING(name, Param, count)                                                 \
    static int (*g_##name)(Param*);                                                                \
    extern "C" int name(Param* object) {                                                           \
        count;                                                                                     \
        return real(g_##name, #name)(object);                                                      \
    }

ZEPHYRA_PROBE_BLOCKING(pthread_mutex_lock, pthread_mutex_t, countLock(object))
ZEPHYRA_PROBE_BLOCKING(pthread_mutex_trylock, pthread_mutex_t, countLock(object))
ZEPHYRA_PROBE_BLOCKING(pthread_rwlock_rdlock, pthread_rwlock_t, countOtherBlocking())
ZEPHYRA_PROBE_BLOCKING(pthread_rwlock_wrlock, pthread_rwlock_t, countOtherBlocking())
ZEPHYRA_PROBE_BLOCKING(sem_wait, sem_t, countOtherBlocking())
ZEPHYRA_PROBE_BLOCKING(pthread_spin_lock, pthread_spinlock_t, countOtherBlocking())

static int (*g_pthread_cond_wait)(pthread_cond_t*, pthread_mutex_t*);
extern "C" int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    countOtherBlocking();
    return real(g_pthread_cond_wait, "pthread_cond_wait")(condition, mutex);
}

[[gnu::constructor]] static void resolveRealFunctions() {
    real(g_pthread_mutex_lock, "pthread_mutex_lock");
    real(g_pthread_mutex_trylock, "pthread_mutex_trylock");
    real(g_pthread_rwlock_rdlock, "pthread_rwlock_rdlock");
    real(g_pthread_rwlock_wrlock, "pthread_rwlock_wrlock");
    real(g_pthread_cond_wait, "pthread_cond_wait");
    real(g_sem_wait, "sem_wait");
    real(g_pthread_spin_lock, "pthread_spin_lock");
}

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
    return memalign(alignment, size);
}

int posix_memalign(void** result, size_t alignment, size_t size) {
    countAllocation(size);
    void* pointer = __libc_memalign(alignment, size);
    *result = pointer ? pointer : *result;
    return pointer ? 0 : ENOMEM;
}

} // extern "C"
