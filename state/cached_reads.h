// What the cached reads share: whole-field loads and the first steps of
// their frame.
//
// The Get family answers from the records without a lock, so a reader may
// run while a refresh on another thread rewrites the record. Each field is
// loaded whole (one atomic access of its own width): the reader sees the
// old value or the new one, never a mix of the two, though a read of
// several fields may straddle a refresh.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/frame.h"

namespace vmc {

inline uint8_t LoadFlag(const uint8_t& flag) { return __atomic_load_n(&flag, __ATOMIC_RELAXED); }
inline uint32_t LoadField(const uint32_t& field) { return __atomic_load_n(&field, __ATOMIC_RELAXED); }
inline int32_t LoadField(const int32_t& field) { return __atomic_load_n(&field, __ATOMIC_RELAXED); }
// The 64-bit fields sit on 8-byte boundaries in both records (the device
// table is aligned for it), so this is one access too.
inline uint64_t LoadField(const uint64_t& field) { return __atomic_load_n(&field, __ATOMIC_RELAXED); }
static_assert(offsetof(DeviceRecord, serialNumber) % 8 == 0 && sizeof(DeviceRecord) % 8 == 0 &&
              offsetof(ChildRecord, serialNumber) % 8 == 0);

// Initialised (2), error word 1, and a device number inside the table: the
// reads trust the number as the rest of the library does, but refuse one
// past the table (5) rather than read outside it.
inline bool BeginRead(uint32_t deviceNo, uint32_t* error) {
    return Begin(error) && DeviceNoInRange(deviceNo, error);
}

// As BeginRead, then a head that exists (4). Returns it, or null.
inline const ChildRecord* BeginChildRead(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    if (!BeginRead(deviceNo, error) || !ChildRequired(deviceNo, childNo, error)) return nullptr;
    return Child(deviceNo, childNo);
}

}  // namespace vmc
