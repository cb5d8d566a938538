// The Get family answers from the cached records. It takes no lock: a
// field is one aligned word, loaded whole, so a reader racing a refresh
// sees the old value or the new one, never a mix.
#include "core/frame.h"

namespace vmc {
namespace {

inline uint32_t LoadField(const uint32_t& field) { return __atomic_load_n(&field, __ATOMIC_RELAXED); }
inline uint8_t LoadFlag(const uint8_t& flag) { return __atomic_load_n(&flag, __ATOMIC_RELAXED); }

uint32_t ReadDeviceField(uint32_t deviceNo, uint8_t DeviceRecord::*flag, uint32_t DeviceRecord::*field,
                         uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (flag && !Available(LoadFlag(record.*flag), err)) return 0;
        if (!NotNull(value, err)) return 0;
        *value = LoadField(record.*field);
        return 1;
    });
}

}  // namespace

#define NO_FLAG nullptr
#define FLAG(name) &DeviceRecord::name
#define DEVICE_CACHED_READ(exportName, flag, field)                                         \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* value, uint32_t* error) {   \
        return ReadDeviceField(deviceNo, flag, &DeviceRecord::field, value, error);          \
    }
#include "state/cached_reads.def"
#undef DEVICE_CACHED_READ
#undef FLAG
#undef NO_FLAG

// Two fields behind one flag, chosen by index.
VMC_EXPORT uint32_t VMC_GetPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                              uint32_t* error) {
    switch (index) {
    case 0: return ReadDeviceField(deviceNo, &DeviceRecord::hasPacketIntervalMode, &DeviceRecord::packetIntervalMode, value, error);
    case 1: return ReadDeviceField(deviceNo, &DeviceRecord::hasPacketIntervalMode, &DeviceRecord::packetInterval10G, value, error);
    default:
        return RunExport(error, [&](uint32_t* err) -> uint32_t {
            if (!Begin(err) || !Available(Record(deviceNo).hasPacketIntervalMode, err)) return 0;
            return Fail(err, VMC_ERR_BAD_ARGUMENT);
        });
    }
}

}  // namespace vmc
