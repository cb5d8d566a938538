// The frame every exported function shares.
//
// Checks run in a fixed order: initialised, error word preset to 1, device
// number (only where a function range-checks it), child, availability flag,
// arguments, device lock, the work, release. The helpers below are those
// steps; an export strings together the ones it needs.
#pragma once

#include <cstdint>
#include <new>

#include "core/fields.h"
#include "core/library_state.h"

#define VMC_EXPORT extern "C" VMC_API

namespace vmc {

// Runs an export body so that no exception reaches the caller and a null
// error pointer is answered into a scratch word instead of crashing.
template <class Body>
uint32_t RunExport(uint32_t* error, Body&& body) noexcept {
    uint32_t scratch = 0;
    uint32_t* err = error ? error : &scratch;
    try {
        return body(err);
    } catch (...) {
        // Nothing in the library throws but an allocation that failed.
        *err = VMC_ERR_NO_MEMORY;
        return 0;
    }
}

// Steps 1 and 2: the library must be initialised; the word starts at success.
inline bool Begin(uint32_t* error) {
    if (!state.initialised) {
        *error = VMC_ERR_NOT_INITIALISED;
        return false;
    }
    *error = VMC_ERR_OK;
    return true;
}

inline uint32_t Fail(uint32_t* error, uint32_t code) {
    *error = code;
    return 0;
}

// The range check that only a few functions make; everywhere else the
// device number is trusted.
inline bool DeviceNoInRange(uint32_t deviceNo, uint32_t* error) {
    if (deviceNo >= kDeviceCount) {
        *error = VMC_ERR_BAD_ARGUMENT;
        return false;
    }
    return true;
}

// Child 1..maxChildDeviceCount that exists. Error 4 otherwise. No lock.
bool ChildRequired(uint32_t deviceNo, uint32_t childNo, uint32_t* error);
// As ChildRequired, but child 0 (the device itself) is accepted too.
bool ChildOrDevice(uint32_t deviceNo, uint32_t childNo, uint32_t* error);

// Error 21: the module or the camera does not have what was asked. Where a
// query is a probe, this is the answer "absent", not a failure.
inline bool IsNotSupported(const uint32_t* error) { return *error == VMC_ERR_NOT_SUPPORTED; }

// Step 5: a cached availability flag; error 21 when it is clear.
inline bool Available(uint8_t flag, uint32_t* error) {
    if (!flag) {
        *error = VMC_ERR_NOT_SUPPORTED;
        return false;
    }
    return true;
}

// Step 6 for an output the library writes itself.
inline bool NotNull(const void* pointer, uint32_t* error) {
    if (!pointer) {
        *error = VMC_ERR_BAD_ARGUMENT;
        return false;
    }
    return true;
}

}  // namespace vmc
