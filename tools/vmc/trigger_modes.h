// Trigger modes by name, for people reading the tool's output.
#pragma once

#include <cstdint>
#include <string>

namespace vmctool {

// "centre", "two-stage 2", ...; "unknown" for a mode the library does not know.
std::string TriggerModeName(uint32_t mode);

}  // namespace vmctool
