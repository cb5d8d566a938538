// Request workers: ask the camera for one setting and store the answer in
// the cached record. Workers take no lock; the exports and the callers that
// run them (state load, poll, writes) hold the device lock or run at open.
#pragma once

#include <cstdint>

namespace vmc {

#define DEVICE_REQUEST(exportName, worker, gate, code, field, fallback) \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error);
#include "state/requests.def"
#undef DEVICE_REQUEST

// Mode and after-frames (code 6), then random frames and count (code 7).
// A failure of either writes 0 to the trigger mode and leaves the rest.
uint32_t RefreshTriggerMode(uint32_t deviceNo, uint32_t* error);

// Packet interval of kind 0 (mode) or 1 (10-gigabit interval); 1 on error 21.
uint32_t RefreshPacketIntervalMode(uint32_t deviceNo, uint32_t kind, uint32_t* value, uint32_t* error);

}  // namespace vmc
