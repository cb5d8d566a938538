#include "state/requests.h"

#include <optional>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

constexpr std::optional<uint32_t> KEEP;

// Asks, falls back on error 21, and stores whatever the variable then holds,
// also after other failures: callers pass an initialised variable.
uint32_t RefreshDeviceValue(uint32_t deviceNo, uint32_t code, uint32_t DeviceRecord::*field,
                            std::optional<uint32_t> fallback, uint32_t* value, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, 0, code, 0, value, nullptr, error);
    if (!result && *error == VMC_ERR_NOT_SUPPORTED && fallback) *value = *fallback;
    Record(deviceNo).*field = *value;
    return result;
}

// The frame of a device-level request export.
template <class Worker>
uint32_t RequestExport(uint32_t deviceNo, const uint8_t* gate, uint32_t* value, uint32_t* error, Worker worker) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (gate && !Available(*gate, err)) return 0;
        if (!Begin(err) || !NotNull(value, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return worker(deviceNo, value, err);
    });
}

inline const uint8_t* GateOf(uint32_t, std::nullptr_t) { return nullptr; }
inline const uint8_t* GateOf(uint32_t deviceNo, uint8_t DeviceRecord::*flag) { return &(Record(deviceNo).*flag); }

}  // namespace

#define NO_GATE nullptr
#define GATE(flag) &DeviceRecord::flag
#define DEVICE_REQUEST(exportName, worker, gate, code, field, fallback)                                      \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                   \
        return RefreshDeviceValue(deviceNo, code, &DeviceRecord::field, fallback, value, error);             \
    }                                                                                                        \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                    \
        return RequestExport(deviceNo, GateOf(deviceNo, gate), value, error, worker);                        \
    }
#include "state/requests.def"
#undef DEVICE_REQUEST
#undef GATE
#undef NO_GATE

uint32_t RefreshTriggerMode(uint32_t deviceNo, uint32_t* error) {
    DeviceRecord& record = Record(deviceNo);
    uint32_t mode = 0, afterFrames = 0, randomFrames = 0, randomCount = 0;
    if (!GetCaps(deviceNo, 0, VMC_CODE_TRIGGER_MODE, 0, &mode, &afterFrames, error) ||
        !GetCaps(deviceNo, 0, VMC_CODE_TRIGGER_RANDOM, 0, &randomFrames, &randomCount, error)) {
        record.triggerMode = 0;
        return 0;
    }
    record.triggerMode = mode;
    record.triggerAfterFrames = afterFrames;
    record.triggerRandomFrames = randomFrames;
    record.triggerRandomCount = randomCount;
    return 1;
}

uint32_t RefreshPacketIntervalMode(uint32_t deviceNo, uint32_t kind, uint32_t* value, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, kind, value, nullptr, error);
    if (!result && *error == VMC_ERR_NOT_SUPPORTED) *value = 1;
    DeviceRecord& record = Record(deviceNo);
    (kind == 0 ? record.packetIntervalMode : record.packetInterval10G) = *value;
    return result;
}

VMC_EXPORT uint32_t VMC_ReqPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                              uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Available(Record(deviceNo).hasPacketIntervalMode, err)) return 0;
        if (!Begin(err) || !NotNull(value, err)) return 0;
        if (index > 1) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return RefreshPacketIntervalMode(deviceNo, index, value, err);
    });
}

}  // namespace vmc
