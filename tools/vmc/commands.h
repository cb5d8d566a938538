// The subcommands. Each prints its result on standard output and returns the
// exit code; a failure is thrown as Failure.
#pragma once

#include <cstdint>

#include "session.h"

namespace vmctool {

struct StatusOptions {
    bool watch = false;
    uint32_t intervalMs = 1000;  // between the starts of two polls
    uint32_t count = 0;          // polls of a watch; 0: until interrupted
    bool json = false;
};

int RunDetect(const LinkOptions& link, bool json);
int RunInfo(const LinkOptions& link, uint32_t index, bool json);
int RunStatus(const LinkOptions& link, uint32_t index, const StatusOptions& options);

}  // namespace vmctool
