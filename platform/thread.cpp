#include "platform/thread.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/termination_wakeup.h"
#include "platform/timed_wait.h"

namespace vmc::platform {
namespace detail {

// What the handle and the worker share. The worker keeps its own reference,
// so closing the handle of a running thread frees nothing it still uses.
struct ThreadState {
    ThreadProc proc = nullptr;
    void* arg = nullptr;

    std::mutex mutex;  // guards gate, ended and the exit code
    std::condition_variable changed;
    enum class Gate { Closed, Run, Skip } gate = Gate::Closed;
    bool ended = false;
    bool hasExitCode = false;
    uint32_t exitCode = 0;

    std::atomic<bool> terminateRequested{false};

    // The wait the worker is blocked in, for TerminateThread to wake.
    std::mutex wakeMutex;
    std::mutex* waitMutex = nullptr;
    std::condition_variable* waitCv = nullptr;
};

namespace {
thread_local ThreadState* currentThread = nullptr;
}  // namespace

TerminationWakeup::TerminationWakeup(std::mutex& mutex, std::condition_variable& cv)
    : state_(currentThread) {
    if (!state_) return;
    std::lock_guard lock(state_->wakeMutex);
    state_->waitMutex = &mutex;
    state_->waitCv = &cv;
}

TerminationWakeup::~TerminationWakeup() {
    if (!state_) return;
    std::lock_guard lock(state_->wakeMutex);
    state_->waitMutex = nullptr;
    state_->waitCv = nullptr;
}

}  // namespace detail

using detail::ThreadState;

struct Thread {
    std::shared_ptr<ThreadState> state;
};

namespace {

void RecordExitCode(ThreadState& state, uint32_t code) {
    // The first code stands: a terminated worker that returns later keeps the
    // code its terminator gave.
    if (state.hasExitCode) return;
    state.hasExitCode = true;
    state.exitCode = code;
}

void RunWorker(std::shared_ptr<ThreadState> state) {
    bool run;
    {
        std::unique_lock lock(state->mutex);
        state->changed.wait(lock, [&] { return state->gate != ThreadState::Gate::Closed; });
        run = state->gate == ThreadState::Gate::Run;
    }
    if (run) {
        detail::currentThread = state.get();
        const uint32_t code = state->proc(state->arg);
        detail::currentThread = nullptr;
        std::lock_guard lock(state->mutex);
        RecordExitCode(*state, code);
    }
    std::lock_guard lock(state->mutex);
    state->ended = true;
    state->changed.notify_all();
}

// Opens the gate if the thread still waits at it; Skip lets it end unrun.
void OpenGate(ThreadState& state, ThreadState::Gate how) {
    std::lock_guard lock(state.mutex);
    if (state.gate != ThreadState::Gate::Closed) return;
    state.gate = how;
    state.changed.notify_all();
}

}  // namespace

ThreadHandle CreateThreadSuspended(ThreadProc proc, void* arg) {
    if (!proc) return nullptr;
    try {
        auto handle = std::make_unique<Thread>();
        handle->state = std::make_shared<ThreadState>();
        handle->state->proc = proc;
        handle->state->arg = arg;
        // Detached: the end of the thread is observed through `ended`, and the
        // worker's own reference keeps the state alive until it is done.
        std::thread(RunWorker, handle->state).detach();
        return handle.release();
    } catch (...) {
        return nullptr;
    }
}

bool ResumeThread(ThreadHandle thread) {
    if (!thread) return false;
    OpenGate(*thread->state, ThreadState::Gate::Run);
    return true;
}

uint32_t GetExitCodeThread(ThreadHandle thread) {
    if (!thread) return 0;  // no thread, so nothing is running
    std::lock_guard lock(thread->state->mutex);
    return thread->state->hasExitCode ? thread->state->exitCode : kStillActive;
}

bool TerminateThread(ThreadHandle thread, uint32_t exitCode) {
    if (!thread) return false;
    ThreadState& state = *thread->state;
    {
        std::lock_guard lock(state.mutex);
        RecordExitCode(state, exitCode);
    }
    state.terminateRequested = true;
    // A thread still at its gate ends without running its procedure.
    OpenGate(state, ThreadState::Gate::Skip);
    // A worker blocked in a platform wait is woken to see the request.
    std::lock_guard wakeLock(state.wakeMutex);
    if (state.waitCv) {
        std::lock_guard waitLock(*state.waitMutex);
        state.waitCv->notify_all();
    }
    return true;
}

bool TerminationRequested() {
    const ThreadState* state = detail::currentThread;
    return state && state->terminateRequested.load();
}

bool JoinThread(ThreadHandle thread, uint32_t timeoutMs) {
    if (!thread) return false;
    ThreadState& state = *thread->state;
    std::unique_lock lock(state.mutex);
    return detail::WaitWithTimeout(state.changed, lock, timeoutMs, [&] { return state.ended; });
}

void CloseThread(ThreadHandle thread) {
    if (!thread) return;
    // Never resumed: let it end instead of waiting at its gate for good.
    OpenGate(*thread->state, ThreadState::Gate::Skip);
    delete thread;
}

}  // namespace vmc::platform
