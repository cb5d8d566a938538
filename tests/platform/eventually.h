// Polls a condition that another thread makes true. The limit only keeps a
// broken build from hanging; no test depends on how soon it becomes true.
#pragma once

#include <chrono>
#include <thread>

template <typename Condition>
bool Eventually(Condition condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
