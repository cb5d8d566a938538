#include "platform/event.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/event_waiters.h"
#include "platform/termination_wakeup.h"
#include "platform/thread.h"
#include "platform/timed_wait.h"

namespace vmc::platform {
namespace {

// One blocked WaitEvent call, queued on the event in arrival order. A waiter
// is released by marking it, not by the event's state, so that a pulse (or a
// set followed at once by a reset) reaches exactly the threads waiting at that
// moment even if they wake up only later.
struct Waiter {
    Waiter* next = nullptr;
    Waiter* prev = nullptr;
    bool released = false;
};

}  // namespace

struct Event {
    std::string name;  // empty when unnamed
    int references = 1;  // guarded by the registry's mutex

    std::mutex mutex;  // guards everything below
    std::condition_variable released;
    bool manualReset = false;
    bool signalled = false;
    Waiter* first = nullptr;
    Waiter* last = nullptr;
    std::size_t waiterCount = 0;

    void Enqueue(Waiter* waiter) {
        waiter->prev = last;
        (last ? last->next : first) = waiter;
        last = waiter;
        ++waiterCount;
    }
    void Unlink(Waiter* waiter) {
        (waiter->prev ? waiter->prev->next : first) = waiter->next;
        (waiter->next ? waiter->next->prev : last) = waiter->prev;
        waiter->next = waiter->prev = nullptr;
        --waiterCount;
    }
    void ReleaseFirst() {
        Waiter* waiter = first;
        Unlink(waiter);
        waiter->released = true;
    }
    void ReleaseAll() {
        while (first) ReleaseFirst();
    }
};

namespace {

// The process's namespace of event names, and the reference counts of all
// events. An event's own state lives in Event, under its own mutex.
struct Registry {
    std::mutex mutex;
    std::unordered_map<std::string, Event*> named;
};

Registry& TheRegistry() {
    // Never destroyed: workers may still close events while the process exits.
    static Registry* registry = new Registry;
    return *registry;
}

}  // namespace

EventHandle CreateEvent(const char* name, bool manualReset, bool initiallySet) {
    try {
        auto fresh = std::make_unique<Event>();
        fresh->manualReset = manualReset;
        fresh->signalled = initiallySet;
        if (!name || !*name) return fresh.release();

        fresh->name = name;
        Registry& registry = TheRegistry();
        std::lock_guard lock(registry.mutex);
        auto [it, inserted] = registry.named.try_emplace(fresh->name, fresh.get());
        if (inserted) return fresh.release();
        // The name exists: this opens it, as it is.
        ++it->second->references;
        return it->second;
    } catch (...) {
        return nullptr;
    }
}

EventHandle OpenEvent(const char* name) {
    if (!name || !*name) return nullptr;
    try {
        Registry& registry = TheRegistry();
        std::lock_guard lock(registry.mutex);
        auto it = registry.named.find(name);
        if (it == registry.named.end()) return nullptr;
        ++it->second->references;
        return it->second;
    } catch (...) {
        return nullptr;
    }
}

void CloseEvent(EventHandle event) {
    if (!event) return;
    Registry& registry = TheRegistry();
    {
        std::lock_guard lock(registry.mutex);
        if (--event->references > 0) return;
        if (!event->name.empty()) registry.named.erase(event->name);
    }
    delete event;
}

bool SetEvent(EventHandle event) {
    if (!event) return false;
    std::lock_guard lock(event->mutex);
    if (event->manualReset) {
        event->signalled = true;
        event->ReleaseAll();
    } else if (event->first) {
        event->ReleaseFirst();  // the waiter consumes the signal at once
    } else {
        event->signalled = true;
    }
    event->released.notify_all();
    return true;
}

bool ResetEvent(EventHandle event) {
    if (!event) return false;
    std::lock_guard lock(event->mutex);
    event->signalled = false;
    return true;
}

bool PulseEvent(EventHandle event) {
    if (!event) return false;
    std::lock_guard lock(event->mutex);
    if (event->manualReset) {
        event->ReleaseAll();
    } else if (event->first) {
        event->ReleaseFirst();
    }
    event->signalled = false;
    event->released.notify_all();
    return true;
}

WaitResult WaitEvent(EventHandle event, uint32_t timeoutMs) {
    if (!event) return WaitResult::Failed;
    // Declared before the lock so that it unregisters after the lock is gone.
    detail::TerminationWakeup wakeup(event->mutex, event->released);
    std::unique_lock lock(event->mutex);
    // A terminated worker is told to stop rather than handed a signal that
    // another thread may be waiting for.
    if (TerminationRequested()) return WaitResult::Failed;
    if (event->signalled) {
        if (!event->manualReset) event->signalled = false;
        return WaitResult::Taken;
    }
    if (timeoutMs == 0) return WaitResult::TimedOut;

    Waiter self;
    event->Enqueue(&self);
    detail::WaitWithTimeout(event->released, lock, timeoutMs,
                            [&] { return self.released || TerminationRequested(); });
    // Once released the signal is this waiter's, even if time ran out meanwhile.
    if (self.released) return WaitResult::Taken;
    event->Unlink(&self);
    return TerminationRequested() ? WaitResult::Failed : WaitResult::TimedOut;
}

std::size_t EventWaiterCount(EventHandle event) {
    if (!event) return 0;
    std::lock_guard lock(event->mutex);
    return event->waiterCount;
}

}  // namespace vmc::platform
