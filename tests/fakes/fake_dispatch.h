// What passes between a test module's entries and libvmcfake: the module
// fills a FakeCall with its arguments and gets back the answer to give.
// Private to the fakes; tests use fake.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fake.h"

namespace fake {

struct Reply {
    uint32_t result = 0;
    uint32_t error = 21;  // not supported
    uint32_t value1 = 0;
    uint32_t value2 = 0;
    const void* address = nullptr;
    std::vector<uint32_t> list;
    std::string text;
    bool writesOutputs = false;  // false: leave every output untouched
};

// Logs the call, stores a handed-over lock slot, runs the hook, then chooses
// the answer and records its result and error in the log.
FAKE_API Reply Dispatch(FakeCall& call) noexcept;

}  // namespace fake
