// The last status each device reported or was put in, kept for the
// metadata layer, which must know whether a device shows its image memory
// (statuses 1 and 0x80) without asking the camera.
#pragma once

#include <cstdint>

namespace vmc {

// Inserts or overwrites the entry of a device. False when the entry could
// not be stored (out of memory); the previous entry then stands.
bool RecordDeviceStatus(uint32_t deviceNo, uint32_t status) noexcept;

// The last status recorded for a device; false, with status untouched, when
// none was ever recorded.
bool LastDeviceStatus(uint32_t deviceNo, uint32_t* status) noexcept;

}  // namespace vmc
