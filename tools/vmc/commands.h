// The subcommands. Each prints its result on standard output and returns the
// exit code; a failure is thrown as Failure.
#pragma once

#include <cstdint>

#include "session.h"

namespace vmctool {

int RunDetect(const LinkOptions& link, bool json);
int RunInfo(const LinkOptions& link, uint32_t index, bool json);

}  // namespace vmctool
