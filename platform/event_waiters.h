// Inspection of an event's waiters, so that tests can line threads up in a
// wait before they pulse it.
#pragma once

#include <cstddef>

#include "platform/event.h"

namespace vmc::platform {

// How many threads wait on the event right now.
std::size_t EventWaiterCount(EventHandle event);

}  // namespace vmc::platform
