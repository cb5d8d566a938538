// Worker threads created suspended, with an exit code that reads 259 while
// the thread runs, and a cooperative terminate: the caller's exit code is
// recorded at once and the worker stops at its next TerminationRequested().
#pragma once

#include <cstdint>

namespace vmc::platform {

struct Thread;
using ThreadHandle = Thread*;
using ThreadProc = uint32_t (*)(void* arg);

inline constexpr uint32_t kStillActive = 259;

// Starts a thread that waits at its gate until ResumeThread; null on failure.
ThreadHandle CreateThreadSuspended(ThreadProc proc, void* arg);
bool ResumeThread(ThreadHandle thread);
// kStillActive while running (or suspended), then the exit code.
uint32_t GetExitCodeThread(ThreadHandle thread);
// Records exitCode as the thread's exit code and asks it to stop; returns at
// once. A thread not yet resumed ends without running; one that has already
// ended keeps its own code.
bool TerminateThread(ThreadHandle thread, uint32_t exitCode);
// Called by a worker on itself: true once TerminateThread was called for it.
// Its event waits then end with Failed, so that it cannot sleep on forever.
bool TerminationRequested();
// Waits for the thread to end; false on time-out. A terminated worker has
// ended only when it returns. kInfinite (0xFFFFFFFF) waits without limit.
bool JoinThread(ThreadHandle thread, uint32_t timeoutMs);
// Releases the handle; a running thread goes on and frees itself when it ends,
// and one never resumed ends without running.
void CloseThread(ThreadHandle thread);

}  // namespace vmc::platform
