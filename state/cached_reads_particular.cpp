// The cached reads whose behaviour is their own: a selector that picks the
// field, a second condition beside the flag, a value derived from several
// fields, or a block copied out whole. No lock and no module call here
// either.
#include <cstddef>
#include <iterator>
#include <type_traits>

#include "state/cached_reads.h"

namespace vmc {
namespace {

// The cached word of a delay type: types 1 and 12 lead the delay arrays,
// 2 to 9 follow in order, 10 and 11 have words of their own. Null for a
// type the camera has no word for.
const uint32_t* DelayWord(const DeviceRecord& record, bool limit, uint32_t type) {
    const uint32_t* array = limit ? record.delayLimit : record.delayValue;
    switch (type) {
    case 1: return &array[0];
    case 12: return &array[1];
    case 10: return limit ? &record.delayLimit10 : &record.delayValue10;
    case 11: return limit ? &record.delayLimit11 : &record.delayValue11;
    default: return type >= 2 && type <= 9 ? &array[type] : nullptr;
    }
}

// A type without a word succeeds and leaves the value as it was.
uint32_t ReadDelay(uint32_t deviceNo, bool limit, uint32_t type, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (!Available(LoadFlag(record.hasDelay), err) || !NotNull(value, err)) return 0;
        if (const uint32_t* word = DelayWord(record, limit, type)) *value = LoadField(*word);
        return 1;
    });
}

// While the camera records in this trigger mode its IRIG phase lock is not
// to be read (nor written).
constexpr uint32_t kTriggerModeWithoutPhaseLock = 0x5000000;

uint32_t ReadPhaseLock(uint32_t deviceNo, uint32_t DeviceRecord::*field, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (!Available(LoadFlag(record.hasIRIGPhaseLock), err)) return 0;
        if (LoadField(record.triggerMode) == kTriggerModeWithoutPhaseLock) return Fail(err, VMC_ERR_TRANSFER_STATE);
        if (!NotNull(value, err)) return 0;
        *value = LoadField(record.*field);
        return 1;
    });
}

// Plane 1, 2 or 3 selects a triple of the nine colour-enhance values; any
// other plane succeeds and writes nothing.
uint32_t ReadColorEnhanceValues(uint32_t deviceNo, uint32_t childNo, bool memory, uint32_t plane, int32_t* values,
                                uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        const ChildRecord* child = BeginChildRead(deviceNo, childNo, err);
        if (!child) return 0;
        // The values in force carry no flag of their own; those of the recording do.
        if (memory && !Available(LoadFlag(child->hasColorEnhance), err)) return 0;
        if (!NotNull(values, err)) return 0;
        if (plane < 1 || plane > 3) return 1;
        const int32_t* triple = (memory ? child->memColorEnhanceValue : child->colorEnhanceValue) + 3 * (plane - 1);
        for (int i = 0; i < 3; ++i) values[i] = LoadField(triple[i]);
        return 1;
    });
}

// The magnification limit of the pixel gain data is the library's own
// constant: no camera reports one.
constexpr uint32_t kMaxPixelGainMagnification = 10240;

constexpr uint32_t kMaxTriggerFrames = std::extent_v<decltype(ChildRecord::triggerFrame)>;

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_GetDelay(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error) {
    return ReadDelay(deviceNo, false, type, value, error);
}

VMC_EXPORT uint32_t VMC_GetDelayLimit(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error) {
    return ReadDelay(deviceNo, true, type, value, error);
}

// Types 10 and 11 limit each other; 11 also has a lower limit.
VMC_EXPORT uint32_t VMC_GetDelayLimitEx(uint32_t deviceNo, uint32_t type, uint32_t* limit, uint32_t* lowerLimit,
                                        uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (!Available(LoadFlag(record.hasDelay), err) || !NotNull(limit, err) || !NotNull(lowerLimit, err)) return 0;
        if (type == 10) {
            *limit = LoadField(record.delayLimit10);
        } else if (type == 11) {
            *limit = LoadField(record.delayLimit11);
            *lowerLimit = LoadField(record.delayLimit11Low);
        }
        return 1;
    });
}

// The frame range of the recording in the head's memory, as the frame-info
// request last computed it.
VMC_EXPORT uint32_t VMC_GetMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* info,
                                        uint32_t* error) {
    static_assert(sizeof(MemFrameInfoRecord) == 72 &&
                  offsetof(ChildRecord, recordedFrames) + 4 - offsetof(ChildRecord, frameStart) == 72);
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        const ChildRecord* child = BeginChildRead(deviceNo, childNo, err);
        if (!child || !NotNull(info, err)) return 0;
        CopyFieldsOut(info, &child->frameStart, sizeof *info);
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                             uint32_t* error) {
    return ReadColorEnhanceValues(deviceNo, childNo, false, plane, values, error);
}

VMC_EXPORT uint32_t VMC_GetMemColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                                uint32_t* error) {
    return ReadColorEnhanceValues(deviceNo, childNo, true, plane, values, error);
}

VMC_EXPORT uint32_t VMC_GetIRIGPhaseLock(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return ReadPhaseLock(deviceNo, &DeviceRecord::irigPhaseLock, value, error);
}

VMC_EXPORT uint32_t VMC_GetIRIGPhaseLockStatus(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return ReadPhaseLock(deviceNo, &DeviceRecord::irigPhaseLockStatus, value, error);
}

// Two groups of output signals each have their exposure-output count; a
// signal of neither group succeeds and writes nothing.
VMC_EXPORT uint32_t VMC_GetExposeOutTimes(uint32_t deviceNo, uint32_t signal, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        const bool first = signal == 13 || signal == 14, second = signal == 82 || signal == 88;
        if (first && !Available(LoadFlag(record.hasExposeOutTimes1), err)) return 0;
        if (second && !Available(LoadFlag(record.hasExposeOutTimes2), err)) return 0;
        if (!NotNull(value, err)) return 0;
        if (first) *value = LoadField(record.exposeOutTimes1);
        if (second) *value = LoadField(record.exposeOutTimes2);
        return 1;
    });
}

// The trigger frames of the recording as the last frame-info request listed
// them: the count, and as many frames (at most 1024) when frames is given.
VMC_EXPORT uint32_t VMC_GetMemTriggerFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* count,
                                               uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        const ChildRecord* child = BeginChildRead(deviceNo, childNo, err);
        if (!child || !NotNull(count, err)) return 0;
        uint32_t n = LoadField(child->triggerFrameCount);
        if (n > kMaxTriggerFrames) n = kMaxTriggerFrames;
        if (frames)
            for (uint32_t i = 0; i < n; ++i) frames[i] = LoadField(child->triggerFrame[i]);
        *count = n;
        return 1;
    });
}

// The child is not looked at: the limit is the same for every head. A
// camera without the function gets 0 with its error 21.
VMC_EXPORT uint32_t VMC_GetPixelGainMaxMagnification(uint32_t deviceNo, uint32_t /*childNo*/, uint32_t* value,
                                                     uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err) || !NotNull(value, err)) return 0;
        const bool available = Available(LoadFlag(Record(deviceNo).hasPixelGainMaxMagnification), err);
        *value = available ? kMaxPixelGainMagnification : 0;
        return available;
    });
}

// One number for the low-light mode in force: 1, 2 or 3, or 0 for none.
VMC_EXPORT uint32_t VMC_GetLowLightModeEx(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err) || !NotNull(value, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (LoadField(record.lowLightMode) == 1) *value = 1;
        else if (LoadField(record.lowLightMode2) == 1) *value = 2;
        else if (LoadField(record.lowLightModeEx) == 1) *value = 3;
        else *value = 0;
        return 1;
    });
}

// Index 0 is the packet interval mode, 1 the interval on a 10-gigabit link.
VMC_EXPORT uint32_t VMC_GetPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (!Available(LoadFlag(record.hasPacketIntervalMode), err)) return 0;
        if (index > 1) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        if (!NotNull(value, err)) return 0;
        *value = LoadField(index == 0 ? record.packetIntervalMode : record.packetInterval10G);
        return 1;
    });
}
