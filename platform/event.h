// Events: manual or auto reset, optionally named so that another part of the
// process can open the same event by name.
#pragma once

#include <cstdint>

#include "platform/mutex.h"

namespace vmc::platform {

struct Event;
using EventHandle = Event*;

inline constexpr uint32_t kInfinite = 0xFFFFFFFFu;

// Creates an event, or opens the existing one of that name (its reset kind and
// state are then left as they are). name may be null or empty: unnamed.
EventHandle CreateEvent(const char* name, bool manualReset, bool initiallySet);
// The existing event of that name, with a new reference; null when there is none.
EventHandle OpenEvent(const char* name);
// Drops one reference; the name disappears with the last one, and so does the
// event, which no other call may still be using then.
void CloseEvent(EventHandle event);

bool SetEvent(EventHandle event);
bool ResetEvent(EventHandle event);
// Releases the threads waiting now (one for an auto-reset event, all for a
// manual one) and leaves the event reset.
bool PulseEvent(EventHandle event);
// Taken means signalled: an auto-reset event is reset by the wait that sees it.
// kInfinite waits without limit. In a worker asked to terminate (thread.h) the
// wait gives Failed at once, or as soon as the request comes.
WaitResult WaitEvent(EventHandle event, uint32_t timeoutMs);

}  // namespace vmc::platform
