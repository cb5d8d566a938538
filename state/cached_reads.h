// What the cached reads share: whole-field loads and the first steps of
// their frame.
//
// The Get family answers from the records without a lock, each field
// loaded whole (core/fields.h).
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/fields.h"
#include "core/frame.h"

namespace vmc {

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
