// The map lives in the library state beside the device table. Every device
// writes it while holding only its own device lock, and the metadata thread
// reads it holding none, so the map has a mutex of its own.
#include "core/status_map.h"

#include <mutex>
#include <new>

#include "core/library_state.h"

namespace vmc {

bool RecordDeviceStatus(uint32_t deviceNo, uint32_t status) noexcept {
    try {
        const std::lock_guard lock(state.deviceStatusMutex);
        state.deviceStatusMap[deviceNo] = status;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool LastDeviceStatus(uint32_t deviceNo, uint32_t* status) noexcept {
    const std::lock_guard lock(state.deviceStatusMutex);
    const auto found = state.deviceStatusMap.find(deviceNo);
    if (found == state.deviceStatusMap.end()) return false;
    *status = found->second;
    return true;
}

}  // namespace vmc
