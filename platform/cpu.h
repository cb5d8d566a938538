// Processor identification.
#pragma once

#include <cstdint>

namespace vmc::platform {

// The four result registers (eax, ebx, ecx, edx) of identification leaf
// `leaf`; zeros where the processor has no such query.
void QueryProcessor(uint32_t leaf, uint32_t result[4]);

}  // namespace vmc::platform
