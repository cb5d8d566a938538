#include "platform/cpu.h"

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace vmc::platform {

void QueryProcessor(uint32_t leaf, uint32_t result[4]) {
    if (!result) return;
    result[0] = result[1] = result[2] = result[3] = 0;
#if defined(__x86_64__) || defined(__i386__)
    // Checks the leaf against the highest one of its range first: above it the
    // processor answers with another leaf's data rather than with zeros.
    unsigned a, b, c, d;
    if (__get_cpuid_count(leaf, 0, &a, &b, &c, &d)) {
        result[0] = a;
        result[1] = b;
        result[2] = c;
        result[3] = d;
    }
#else
    (void)leaf;
#endif
}

}  // namespace vmc::platform
