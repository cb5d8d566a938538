// Recursive, robust, timed mutexes: the device, channel and global locks.
//
// A handle is a pthread_mutex_t* so that device modules, which receive the
// address of a handle slot, can lock it with plain pthread calls.
#pragma once

#include <cstdint>
#include <pthread.h>

namespace vmc::platform {

using MutexHandle = pthread_mutex_t*;

// How long every library lock is waited for.
inline constexpr uint32_t kLockTimeoutMs = 20000;

enum class WaitResult {
    Taken,     // owned now (a mutex abandoned by a dead owner counts as taken)
    TimedOut,  // not obtained within the wait
    Failed,    // null handle or a system failure
};

// A new unowned, unnamed, recursive and robust mutex; null when the system refuses.
MutexHandle CreateMutex();
// Destroys and frees; null is accepted. Levels the caller still holds are
// released first. The mutex must not be held by another thread.
void CloseMutex(MutexHandle mutex);
// Waits at most timeoutMs (0xFFFFFFFF: without limit). The owner may take it
// again (recursion).
WaitResult WaitMutex(MutexHandle mutex, uint32_t timeoutMs = kLockTimeoutMs);
// Releases one level of ownership; false when the caller does not own it.
bool ReleaseMutex(MutexHandle mutex);

}  // namespace vmc::platform
