// The frame every exported function shares.
//
// Checks run in a fixed order: initialised, error word preset to 1, device
// number (only where a function range-checks it), child, availability flag,
// arguments, device lock, the work, release. The helpers below are those
// steps; an export strings together the ones it needs.
#pragma once

#include <cstdint>
#include <initializer_list>
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

// A device number that names an open device (103 otherwise). Calls that
// reach the module without a lock or a child to vouch for the device test
// it, or they would call whichever module sits in the slot.
inline bool DeviceOpen(uint32_t deviceNo, uint32_t* error) {
    if (deviceNo >= kDeviceCount || !LoadField(Record(deviceNo).deviceCode)) {
        *error = VMC_ERR_NOT_OPEN;
        return false;
    }
    return true;
}

// Child 1..maxChildDeviceCount that exists. Error 4 otherwise. No lock.
bool ChildRequired(uint32_t deviceNo, uint32_t childNo, uint32_t* error);
// As ChildRequired, but child 0 (the device itself) is accepted too.
bool ChildOrDevice(uint32_t deviceNo, uint32_t childNo, uint32_t* error);

// Which child an export addresses: the column every family's table has.
enum class ChildRule : uint8_t {
    Device,         // the device: no child argument, child 0 to the module
    Child,          // a child 1..maxChildDeviceCount that exists (4 otherwise)
    ChildOrDevice,  // as Child, or 0 for the device
    Forward,        // any number, handed to the module unchecked
};

// Step 4: the child the rule asks for.
inline bool ChildAllowed(ChildRule rule, uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    if (rule == ChildRule::Child) return ChildRequired(deviceNo, childNo, error);
    if (rule == ChildRule::ChildOrDevice) return ChildOrDevice(deviceNo, childNo, error);
    return true;
}

// The child number the module is given.
inline uint32_t ChildArgument(ChildRule rule, uint32_t childNo) { return rule == ChildRule::Device ? 0 : childNo; }

// Error 21: the module or the camera does not have what was asked. Where a
// query is a probe, this is the answer "absent", not a failure.
inline bool IsNotSupported(const uint32_t* error) { return *error == VMC_ERR_NOT_SUPPORTED; }

// Step 5, the availability flag that guards an export: a flag of the device
// (or a second one that serves as well) and, with a child number, a flag of
// the child. Every named flag must be set; a child flag with child 0 (or a
// child that does not exist) is not.
struct FlagRule {
    uint8_t DeviceRecord::*device = nullptr;
    uint8_t DeviceRecord::*orDevice = nullptr;
    uint8_t ChildRecord::*child = nullptr;
};
inline constexpr FlagRule kNoFlag{};

// Error 21 unless the rule's flags are set; each flag is loaded whole, as a
// reader without a lock must.
inline bool FlagSet(const FlagRule& flag, uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    bool set = true;
    // A rule may be tested before the numbers are: one outside the tables
    // finds no flag set rather than memory past them.
    if (flag.device) {
        const DeviceRecord* record = deviceNo < kDeviceCount ? &Record(deviceNo) : nullptr;
        set = record && (LoadFlag(record->*flag.device) || (flag.orDevice && LoadFlag(record->*flag.orDevice)));
    }
    if (flag.child) {
        const bool slot = deviceNo < kDeviceCount && childNo != 0 && childNo <= kMaxChildren;
        const ChildRecord* child = slot ? Child(deviceNo, childNo) : nullptr;
        set = set && child && LoadFlag(child->*flag.child);
    }
    if (!set) *error = VMC_ERR_NOT_SUPPORTED;
    return set;
}

// Step 5 for a flag the caller already holds; error 21 when it is clear.
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

// Step 6 for every output: nothing is written unless each can take its value.
inline bool AllGiven(std::initializer_list<const void*> outputs, uint32_t* error) {
    for (const void* output : outputs)
        if (!NotNull(output, error)) return false;
    return true;
}

}  // namespace vmc
