// Lets TerminateThread wake a worker that is blocked in a platform wait, so
// that a terminated worker does not sleep on forever in an unbounded wait.
#pragma once

#include <condition_variable>
#include <mutex>

namespace vmc::platform::detail {

struct ThreadState;

// While it lives, a TerminateThread aimed at the calling thread locks `mutex`
// and notifies `cv`. Construct it before locking `mutex` and let it die after
// unlocking (TerminateThread takes its own lock first, then `mutex`). Outside
// platform threads it does nothing.
class TerminationWakeup {
public:
    TerminationWakeup(std::mutex& mutex, std::condition_variable& cv);
    ~TerminationWakeup();
    TerminationWakeup(const TerminationWakeup&) = delete;
    TerminationWakeup& operator=(const TerminationWakeup&) = delete;

private:
    ThreadState* state_;
};

}  // namespace vmc::platform::detail
