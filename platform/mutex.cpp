#include "platform/mutex.h"

#include <cerrno>
#include <ctime>
#include <unistd.h>
#include <new>

namespace vmc::platform {
namespace {

// An absolute CLOCK_REALTIME time timeoutMs from now, as timedlock wants it.
timespec DeadlineAfter(uint32_t timeoutMs) {
    timespec deadline{};
    clock_gettime(CLOCK_REALTIME, &deadline);
    deadline.tv_sec += static_cast<time_t>(timeoutMs / 1000);
    deadline.tv_nsec += static_cast<long>(timeoutMs % 1000) * 1000000L;
    if (deadline.tv_nsec >= 1000000000L) {
        deadline.tv_sec += 1;
        deadline.tv_nsec -= 1000000000L;
    }
    return deadline;
}

// The kernel's id of the calling thread, as glibc records a mutex's owner;
// asked once per thread, since every release compares it.
int ThisThreadId() {
    static thread_local const int id = static_cast<int>(gettid());
    return id;
}

// The same count as kInfinite in event.h: a wait without limit.
constexpr uint32_t kNoLimit = 0xFFFFFFFFu;

}  // namespace

MutexHandle CreateMutex() {
    auto* mutex = new (std::nothrow) pthread_mutex_t;
    if (!mutex) return nullptr;
    pthread_mutexattr_t attr;
    if (pthread_mutexattr_init(&attr) != 0) {
        delete mutex;
        return nullptr;
    }
    bool ok = pthread_mutexattr_settype(&attr, PTHREAD_MUTEX_RECURSIVE) == 0 &&
              pthread_mutexattr_setrobust(&attr, PTHREAD_MUTEX_ROBUST) == 0 &&
              pthread_mutex_init(mutex, &attr) == 0;
    pthread_mutexattr_destroy(&attr);
    if (!ok) {
        delete mutex;
        return nullptr;
    }
    return mutex;
}

void CloseMutex(MutexHandle mutex) {
    if (!mutex) return;
    // A robust mutex held by a thread sits on that thread's robust list, which
    // the kernel walks when the thread exits. Freeing it while held would let
    // that walk write into freed memory, so the caller's own levels are
    // released first, and a mutex another thread holds is left allocated.
    int rc = pthread_mutex_trylock(mutex);
    if (rc == EOWNERDEAD) {
        pthread_mutex_consistent(mutex);
        rc = 0;
    }
    if (rc == EBUSY) return;  // held elsewhere: leaking beats corrupting memory
    if (rc == 0 || rc == EAGAIN) {
        // Ours: the caller's levels plus the one just taken (none when the
        // depth was already at its limit, EAGAIN). glibc keeps a recursive
        // mutex's depth in __count; release exactly that many, never one more.
        for (unsigned levels = mutex->__data.__count; levels > 0; --levels) pthread_mutex_unlock(mutex);
    }
    pthread_mutex_destroy(mutex);
    delete mutex;
}

WaitResult WaitMutex(MutexHandle mutex, uint32_t timeoutMs) {
    if (!mutex) return WaitResult::Failed;
    // A free mutex, one of our own, or one whose owner died is had at once;
    // only a mutex another thread holds is waited for. (Asking first also
    // lets the thread sanitizer see a dead owner's mutex change hands: it
    // follows that through trylock and lock, not through timedlock.)
    int rc = pthread_mutex_trylock(mutex);
    if (rc == EBUSY) {
        if (timeoutMs == kNoLimit) {
            rc = pthread_mutex_lock(mutex);
        } else {
            const timespec deadline = DeadlineAfter(timeoutMs);
            rc = pthread_mutex_timedlock(mutex, &deadline);
        }
    }
    switch (rc) {
    case 0:
        return WaitResult::Taken;
    case EOWNERDEAD:
        // The owner died holding it; what it guarded is ours to judge now, and
        // the mutex must be marked consistent or it becomes unusable on release.
        return pthread_mutex_consistent(mutex) == 0 ? WaitResult::Taken : WaitResult::Failed;
    case ETIMEDOUT:
        return WaitResult::TimedOut;
    default:
        return WaitResult::Failed;
    }
}

bool ReleaseMutex(MutexHandle mutex) {
    // A release by a thread that does not own the mutex fails. The owner is
    // asked first (glibc keeps the owner's thread id in __owner, with two
    // robust-state bits above it) rather than left to the unlock to refuse,
    // so that a refused release is a plain answer and not a misuse.
    constexpr int kOwnerIdMask = 0x3FFFFFFF;
    if (!mutex || (mutex->__data.__owner & kOwnerIdMask) != ThisThreadId()) return false;
    return pthread_mutex_unlock(mutex) == 0;
}

}  // namespace vmc::platform
