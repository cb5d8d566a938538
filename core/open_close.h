// What open and close share: the set of device codes whose bulk transfers
// must not overlap across devices.
#pragma once

#include <cstdint>

namespace vmc {

// Device codes 15, 17..26, 28..32 and 34..40: every code from 15 to 40 but
// 16 and the codes without a module.
inline bool InGlobalLockSet(uint32_t deviceCode) {
    constexpr uint64_t kGlobalLockDevices = 0x1fdf7fe8000ull;
    return deviceCode < 41 && ((kGlobalLockDevices >> deviceCode) & 1u);
}

// Sets globalLockRequired from the devices now open.
void RecomputeGlobalLockRequired();

}  // namespace vmc
