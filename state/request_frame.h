// What the request exports and workers share: the export frame and the few
// ways a worker turns one module answer into cached fields.
#pragma once

#include <cstdint>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {

// The frame of a request export: the flag where the row has one (21; tested
// first, before the library is asked whether it is initialised), initialised
// (2), error 1, the child (4), the arguments valid and the outputs given (5),
// the device lock, the worker, the release. The result and the error word
// are the worker's.
template <class Worker>
uint32_t RequestFrame(uint32_t deviceNo, uint32_t childNo, ChildRule rule, const FlagRule& flag, bool argumentsGiven,
                      uint32_t* error, Worker&& worker) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!FlagSet(flag, deviceNo, childNo, err)) return 0;
        if (!Begin(err)) return 0;
        if (!ChildAllowed(rule, deviceNo, childNo, err)) return 0;
        if (!argumentsGiven) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return worker(err);
    });
}

template <class Worker>
uint32_t RequestFrame(uint32_t deviceNo, uint32_t childNo, ChildRule rule, bool argumentsGiven, uint32_t* error,
                      Worker&& worker) {
    return RequestFrame(deviceNo, childNo, rule, kNoFlag, argumentsGiven, error, static_cast<Worker&&>(worker));
}

// Asks one value. On error 21 the value takes `fallback`; after any other
// failure it keeps what the caller put there, so that the store which
// follows writes back the old value.
inline uint32_t AskValue(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t fallback,
                         uint32_t* value, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, child, code, sub, value, nullptr, error);
    if (!result && IsNotSupported(error)) *value = fallback;
    return result;
}

// Asks both values of a code; on error 21 both are 0.
inline uint32_t AskPair(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t* value1,
                        uint32_t* value2, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, child, code, sub, value1, value2, error);
    if (!result && IsNotSupported(error)) *value1 = *value2 = 0;
    return result;
}

// Asks a pair packed in one word, first value in the high 16 bits. Both
// halves are 0 after any failure.
inline uint32_t AskHalves(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t* high, uint32_t* low,
                          uint32_t* error) {
    uint32_t packed = 0;
    const uint32_t result = GetCaps(deviceNo, child, code, 0, &packed, nullptr, error);
    *high = result ? packed >> 16 : 0;
    *low = result ? packed & 0xFFFFu : 0;
    return result;
}

// Signed values travel as sign and magnitude: bit 15 of a half word, bit 31
// of a whole word, marks the negative.
inline int32_t FromSignMagnitude16(uint32_t half) {
    const int32_t magnitude = static_cast<int32_t>(half & 0x7FFFu);
    return (half & 0x8000u) ? -magnitude : magnitude;
}
inline int32_t FromSignMagnitude32(uint32_t word) {
    const int32_t magnitude = static_cast<int32_t>(word & 0x7FFFFFFFu);
    return (word & 0x80000000u) ? -magnitude : magnitude;
}

// The export half of every request, by the shape of its arguments: the rows
// of requests.def and the hand-written workers alike. The worker is called
// with the export's arguments, in order.
#define REQUEST_EXPORT_DEVICE_1(exportName, worker)                                                              \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                        \
        return RequestFrame(deviceNo, 0, ChildRule::Device, value, error,                                              \
                            [&](uint32_t* err) { return worker(deviceNo, value, err); });                        \
    }
#define REQUEST_EXPORT_DEVICE_2(exportName, worker)                                                              \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {     \
        return RequestFrame(deviceNo, 0, ChildRule::Device, value1 && value2, error,                             \
                            [&](uint32_t* err) { return worker(deviceNo, value1, value2, err); });               \
    }
#define REQUEST_EXPORT_DEVICE_INDEXED(exportName, worker)                                                        \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error) {        \
        return RequestFrame(deviceNo, 0, ChildRule::Device, value, error,                                              \
                            [&](uint32_t* err) { return worker(deviceNo, index, value, err); });                 \
    }
#define REQUEST_EXPORT_CHILD_OR_DEVICE_1(exportName, worker)                                                     \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {      \
        return RequestFrame(deviceNo, childNo, ChildRule::ChildOrDevice, value, error,                           \
                            [&](uint32_t* err) { return worker(deviceNo, childNo, value, err); });               \
    }
#define REQUEST_EXPORT_CHILD_1(exportName, worker)                                                                \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {      \
        return RequestFrame(deviceNo, childNo, ChildRule::Child, value, error,                                    \
                            [&](uint32_t* err) { return worker(deviceNo, childNo, value, err); });               \
    }
#define REQUEST_EXPORT_CHILD_2(exportName, worker)                                                                \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,      \
                                   uint32_t* error) {                                                            \
        return RequestFrame(deviceNo, childNo, ChildRule::Child, value1 && value2, error,                         \
                            [&](uint32_t* err) { return worker(deviceNo, childNo, value1, value2, err); });      \
    }
#define REQUEST_EXPORT_CHILD_4(exportName, worker)                                                                \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,      \
                                   uint32_t* value3, uint32_t* value4, uint32_t* error) {                        \
        return RequestFrame(deviceNo, childNo, ChildRule::Child, value1 && value2 && value3 && value4, error,     \
                            [&](uint32_t* err) {                                                                 \
                                return worker(deviceNo, childNo, value1, value2, value3, value4, err);           \
                            });                                                                                  \
    }
#define REQUEST_EXPORT_CHILD_INDEXED(exportName, worker, Value)                                                   \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t index, Value* value,            \
                                   uint32_t* error) {                                                            \
        return RequestFrame(deviceNo, childNo, ChildRule::Child, value, error,                                    \
                            [&](uint32_t* err) { return worker(deviceNo, childNo, index, value, err); });        \
    }
#define REQUEST_EXPORT_CHILD_LIST(exportName, worker, Entry)                                                      \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, Entry* list, uint32_t* count,            \
                                   uint32_t* error) {                                                            \
        return RequestFrame(deviceNo, childNo, ChildRule::Child, list && count, error,                            \
                            [&](uint32_t* err) { return worker(deviceNo, childNo, list, count, err); });         \
    }

}  // namespace vmc
