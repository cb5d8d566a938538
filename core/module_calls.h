// Calls into the device module of an open device. A missing entry answers
// error 21 (not supported) instead of crashing, whether or not its slot is
// one that every module should fill.
#pragma once

#include <cstdint>

#include "core/fields.h"
#include "core/library_state.h"

namespace vmc {

inline DeviceModule& ModuleOf(uint32_t deviceNo) { return state.deviceModules[Record(deviceNo).moduleIndex]; }

template <class Fn, class... Args>
uint32_t CallDevice(uint32_t deviceNo, Fn DeviceModule::*entry, uint32_t* error, Args... args) {
    Fn fn = ModuleOf(deviceNo).*entry;
    if (!fn) {
        *error = VMC_ERR_NOT_SUPPORTED;
        return 0;
    }
    return fn(Record(deviceNo).moduleHandle, args..., error);
}

template <class Fn, class... Args>
uint32_t CallInterface(const InterfaceModule& module, Fn InterfaceModule::*entry, uint32_t* error, Args... args) {
    Fn fn = module.*entry;
    if (!fn) {
        *error = VMC_ERR_NOT_SUPPORTED;
        return 0;
    }
    return fn(args..., error);
}

// The module answers into words of the library's own, stored whole
// afterwards (whatever the outcome, as if the module had written them): a
// value pointer may be a cached field that a lock-free reader is loading.
// Each pointer is one word; a code answered wider uses GetCapsWide.
inline uint32_t GetCaps(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t* value1,
                        uint32_t* value2, uint32_t* error) {
    uint32_t answer1 = value1 ? LoadField(*value1) : 0;
    uint32_t answer2 = value2 ? LoadField(*value2) : 0;
    const uint32_t result = CallDevice(deviceNo, &DeviceModule::DEV_GetDeviceCaps, error, child, code, sub,
                                       value1 ? &answer1 : nullptr, value2 ? &answer2 : nullptr);
    if (value1) StoreField(*value1, answer1);
    if (value2) StoreField(*value2, answer2);
    return result;
}

// For codes a module may answer wider than a word through the first
// pointer (a 64-bit serial number, lens parameters), into a buffer of the
// caller's own: never a cached field.
inline uint32_t GetCapsWide(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, void* value1,
                            uint32_t* value2, uint32_t* error) {
    return CallDevice(deviceNo, &DeviceModule::DEV_GetDeviceCaps, error, child, code, sub,
                      static_cast<uint32_t*>(value1), value2);
}

inline uint32_t SetCaps(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t value1,
                        uint32_t value2, uint32_t* error) {
    return CallDevice(deviceNo, &DeviceModule::DEV_SetDeviceCaps, error, child, code, sub, value1, value2);
}

inline uint32_t GetList(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, void* list, uint32_t* count,
                        uint32_t* error) {
    return CallDevice(deviceNo, &DeviceModule::DEV_GetList, error, child, code, sub, list, count);
}

inline uint32_t SetData(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t value, void* data,
                        uint32_t* error) {
    uint32_t scratch = 0;  // the second block, for codes that have none
    return CallDevice(deviceNo, &DeviceModule::DEV_SetData, error, child, code, sub, value, data,
                      static_cast<void*>(&scratch));
}

inline uint32_t GetData(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t value, void* data,
                        uint32_t* error) {
    uint32_t scratch = 0;
    return CallDevice(deviceNo, &DeviceModule::DEV_GetData, error, child, code, sub, value, data,
                      static_cast<void*>(&scratch));
}

// The interface slot a device was opened on, or null.
InterfaceModule* InterfaceOf(uint32_t deviceNo);

}  // namespace vmc
