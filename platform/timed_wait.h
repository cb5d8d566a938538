// Condition waits bounded by a millisecond count, where kInfinite means no bound.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "platform/event.h"

namespace vmc::platform::detail {

// Waits until ready() holds or timeoutMs passes; returns ready().
template <typename Ready>
bool WaitWithTimeout(std::condition_variable& cv, std::unique_lock<std::mutex>& lock,
                     uint32_t timeoutMs, Ready ready) {
    if (timeoutMs == kInfinite) {
        cv.wait(lock, ready);
        return true;
    }
    return cv.wait_for(lock, std::chrono::milliseconds(timeoutMs), ready);
}

}  // namespace vmc::platform::detail
