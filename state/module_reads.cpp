// The Get reads that ask the module now. Nothing of what they answer is
// kept: the caller gets the camera's word, under the device lock where the
// row says LOCKED, so that no write of another thread falls between.
//
// The single-code reads are written whole from their rows; the block reads
// share one frame and differ only in where the caller's arguments go.
#include "state/module_reads.h"

#include <cstring>

#include "state/frame_numbers.h"

namespace vmc {

bool BeginModuleRead(uint32_t deviceNo, uint32_t childNo, ChildRule target, bool locked, uint32_t* error) {
    if (!Begin(error) || !DeviceNoInRange(deviceNo, error)) return false;
    if (!ChildAllowed(target, deviceNo, childNo, error)) return false;
    if (!locked && !DeviceOpen(deviceNo, error)) return false;
    return true;
}

bool FrameExists(uint32_t deviceNo, int32_t frame, uint32_t* error) {
    if (frame == 0 && !Record(deviceNo).frameZeroMode) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    return true;
}

namespace {

// ---- Single-code reads ----------------------------------------------------

// What error 21 turns into.
struct On21 {
    enum Kind : uint8_t { Pass, Zero, Default } kind = Pass;
    uint32_t value = 0;
};

struct CodeRead {
    bool locked;
    FlagRule flag;
    ChildRule target;
    uint32_t values;  // out-arguments the module fills: 0, 1 or 2
    On21 on21;
    uint32_t code;
};

uint32_t ReadCode(const CodeRead& row, uint32_t deviceNo, uint32_t childNo, uint32_t sub, uint32_t* value1,
                  uint32_t* value2, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginModuleRead(deviceNo, childNo, row.target, row.locked, err)) return 0;
        if (!FlagSet(row.flag, deviceNo, childNo, err)) return 0;
        if ((row.values >= 1 && !NotNull(value1, err)) || (row.values == 2 && !NotNull(value2, err))) return 0;
        bool taken = false;
        ScopedLock lock = ScopedLock::DeviceIf(row.locked, deviceNo, err, &taken);
        if (!taken) return 0;
        uint32_t scratch = 0;  // a code with no output still gets a word to write
        const uint32_t child = ChildArgument(row.target, childNo);
        const uint32_t result = GetCaps(deviceNo, child, row.code, sub, row.values ? value1 : &scratch,
                                        row.values == 2 ? value2 : nullptr, err);
        if (result || !IsNotSupported(err) || row.on21.kind == On21::Pass) return result;
        if (row.values >= 1) *value1 = row.on21.value;
        if (row.values == 2) *value2 = row.on21.value;
        if (row.on21.kind == On21::Zero) return 0;
        *err = VMC_ERR_OK;
        return 1;
    });
}

}  // namespace

#define LOCKED true
#define UNLOCKED false
#define NO_FLAG kNoFlag
#define DEVICE_FLAG(f) (FlagRule{&DeviceRecord::f, nullptr, nullptr})
#define EITHER_FLAG(f, g) (FlagRule{&DeviceRecord::f, &DeviceRecord::g, nullptr})
#define CHILD_FLAG(f) (FlagRule{nullptr, nullptr, &ChildRecord::f})
#define PASS (On21{})
#define ZERO (On21{On21::Zero, 0})
#define DEFAULT_TO(v) (On21{On21::Default, v})

// The parameters each column adds, and what the generic read is given for them.
#define TARGET_PARAMS_DEVICE
#define TARGET_PARAMS_CHILD , uint32_t childNo
#define TARGET_PARAMS_CHILD_OR_DEVICE , uint32_t childNo
#define TARGET_PARAMS_FORWARD , uint32_t childNo
#define TARGET_ARG_DEVICE 0u
#define TARGET_ARG_CHILD childNo
#define TARGET_ARG_CHILD_OR_DEVICE childNo
#define TARGET_ARG_FORWARD childNo
#define TARGET_DEVICE ChildRule::Device
#define TARGET_CHILD ChildRule::Child
#define TARGET_CHILD_OR_DEVICE ChildRule::ChildOrDevice
#define TARGET_FORWARD ChildRule::Forward
#define SUB_PARAMS_SUB0
#define SUB_PARAMS_INDEX , uint32_t index
#define SUB_PARAMS_PACKED16 , uint32_t a, uint32_t b
#define SUB_PARAMS_PGA , uint32_t a, uint32_t b, uint32_t c
#define SUB_ARG_SUB0 0u
#define SUB_ARG_INDEX index
#define SUB_ARG_PACKED16 (a << 16 | b)
#define SUB_ARG_PGA (b << 24 | (a & 0xFFu) << 16 | (c & 0xFFFFu))
#define VALUE_PARAMS_NONE
#define VALUE_PARAMS_ONE , uint32_t* value
#define VALUE_PARAMS_TWO , uint32_t* value1, uint32_t* value2
#define VALUE_ARGS_NONE nullptr, nullptr
#define VALUE_ARGS_ONE value, nullptr
#define VALUE_ARGS_TWO value1, value2
#define VALUE_COUNT_NONE 0u
#define VALUE_COUNT_ONE 1u
#define VALUE_COUNT_TWO 2u

// ---- Block reads ----------------------------------------------------------

namespace {

struct DataRead {
    bool locked;
    FlagRule flag;
    bool frameZero;  // frame 0 needs frame-zero mode (5 otherwise)
    uint32_t code;
};

// The flag column of a block read holds a flag, or FRAME_ZERO.
struct FrameZero {};
constexpr DataRead MakeDataRead(bool locked, FlagRule flag, uint32_t code) { return {locked, flag, false, code}; }
constexpr DataRead MakeDataRead(bool locked, FrameZero, uint32_t code) { return {locked, kNoFlag, true, code}; }

// Where the arguments of one block read go: DEV_GetData(child, code, sub,
// value, data, extra). Readers that have no second block pass a scratch
// word, or null where the module is to see none.
struct DataCall {
    uint32_t child = 0;
    uint32_t sub = 0;
    uint32_t value = 0;
    void* data = nullptr;
    void* extra = nullptr;
};

// The frame of a block read. `checkChild` is the child the checks are made
// for, `frame` the caller's frame number where the row has FRAME_ZERO;
// `prepare` runs under the lock and fills in the call (or fails it). The
// error word is set to 1 on success: the module's word is not trusted to say
// so for a block.
template <class Prepare>
uint32_t ReadBlock(const DataRead& row, uint32_t deviceNo, uint32_t checkChild, ChildRule target, int32_t frame,
                   uint32_t* error, Prepare&& prepare) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginModuleRead(deviceNo, checkChild, target, row.locked, err)) return 0;
        if (!FlagSet(row.flag, deviceNo, checkChild, err)) return 0;
        if (row.frameZero && !FrameExists(deviceNo, frame, err)) return 0;
        bool taken = false;
        ScopedLock lock = ScopedLock::DeviceIf(row.locked, deviceNo, err, &taken);
        if (!taken) return 0;
        uint32_t scratch = 0;
        DataCall call;
        call.extra = &scratch;
        if (!prepare(call, err)) return 0;
        if (!CallDevice(deviceNo, &DeviceModule::DEV_GetData, err, call.child, row.code, call.sub, call.value,
                        call.data, call.extra))
            return 0;
        *err = VMC_ERR_OK;
        return 1;
    });
}

// The index of a frame of a head's memory view, as the module numbers it.
uint32_t MemoryIndex(uint32_t deviceNo, uint32_t childNo, int32_t frame) {
    const ChildRecord& child = *Child(deviceNo, childNo);
    return MapFrameNumber(deviceNo, frame, child.frameStart, child.frameEnd);
}

// Per-frame data of a head's memory view, `count` frames from `frame`.
// Some blocks come with a second one, for which the module gets a scratch
// word; the others show it none.
uint32_t ReadMemoryFrames(const DataRead& row, uint32_t deviceNo, uint32_t childNo, int32_t frame, uint32_t count,
                          void* out, bool secondBlock, uint32_t* error) {
    return ReadBlock(row, deviceNo, childNo, ChildRule::Child, frame, error, [&](DataCall& call, uint32_t*) {
        call.child = childNo;
        call.sub = MemoryIndex(deviceNo, childNo, frame);
        call.value = count;
        call.data = out;
        if (!secondBlock) call.extra = nullptr;
        return true;
    });
}

// A block of a RapidPack recording; the child position carries a << 24 | b.
uint32_t ReadRapidPackBytes(const DataRead& row, uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t index,
                            uint32_t count, void* out, uint32_t* error) {
    return ReadBlock(row, deviceNo, 0, ChildRule::Device, 1, error, [&](DataCall& call, uint32_t*) {
        call.child = a << 24 | b;
        call.sub = index;
        call.value = count;
        call.data = out;
        return true;
    });
}

// The record of a recording on a drive or medium, zeroed before the module
// fills it, so that what the module leaves out reads 0.
uint32_t ReadRecordInfo(const DataRead& row, uint32_t deviceNo, uint32_t index, uint32_t count, void* record,
                        uint32_t* error) {
    return ReadBlock(row, deviceNo, 0, ChildRule::Device, 1, error, [&](DataCall& call, uint32_t* err) {
        if (!NotNull(record, err)) return false;
        std::memset(record, 0, VMC_RECORD_INFO_SIZE);
        call.sub = index;
        call.value = count;
        call.data = record;
        return true;
    });
}

// One frame of a RapidPack recording: drive and data number packed as the
// sub-code, the frame as it stands (the recording is the drive's, not the
// memory view's, so there is no range to convert by).
uint32_t ReadRapidPackFrame(const DataRead& row, uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame,
                            void* out, uint32_t* error) {
    return ReadBlock(row, deviceNo, 0, ChildRule::Device, frame, error, [&](DataCall& call, uint32_t*) {
        call.sub = drive << 16 | data;
        call.value = static_cast<uint32_t>(frame);
        call.data = out;
        return true;
    });
}

}  // namespace

#define FRAME_ZERO (FrameZero{})
#define DATA_READ(exportName, lock, flag, code) \
    constexpr DataRead kRow_##exportName = MakeDataRead(lock, flag, code);
#include "state/module_reads.def"

}  // namespace vmc

using namespace vmc;

// ---- Single-code reads: the table ----------------------------------------

#define CODE_READ(exportName, lock, flag, target, sub, values, on21, code)                                          \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo TARGET_PARAMS_##target SUB_PARAMS_##sub VALUE_PARAMS_##values, \
                                   uint32_t* error) {                                                              \
        static constexpr CodeRead row{lock, flag, TARGET_##target, VALUE_COUNT_##values, on21, code};               \
        return ReadCode(row, deviceNo, TARGET_ARG_##target, SUB_ARG_##sub, VALUE_ARGS_##values, error);            \
    }
#include "state/module_reads.def"

// ---- Block reads: the hand-written exports --------------------------------

VMC_EXPORT uint32_t VMC_GetSSDBoxDataName(uint32_t deviceNo, uint32_t count, uint32_t index, void* name,
                                          uint32_t* error) {
    return ReadBlock(kRow_VMC_GetSSDBoxDataName, deviceNo, 0, ChildRule::Device, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.sub = index;
                         call.value = count;
                         call.data = name;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetMemADCByteData(uint32_t deviceNo, uint32_t childNo, int32_t frame, int32_t count, void* out,
                                          uint32_t* error) {
    return ReadMemoryFrames(kRow_VMC_GetMemADCByteData, deviceNo, childNo, frame, static_cast<uint32_t>(count), out,
                            true, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackADCByteData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t index,
                                                uint32_t count, void* out, uint32_t* error) {
    return ReadRapidPackBytes(kRow_VMC_GetRapidPackADCByteData, deviceNo, a, b, index, count, out, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackMemBufUseByteData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t index,
                                                      uint32_t count, void* out, uint32_t* error) {
    return ReadRapidPackBytes(kRow_VMC_GetRapidPackMemBufUseByteData, deviceNo, a, b, index, count, out, error);
}

VMC_EXPORT uint32_t VMC_GetMemAutoExposureDataFps(uint32_t deviceNo, uint32_t childNo, int32_t frame, void* out,
                                                  uint32_t* error) {
    return ReadMemoryFrames(kRow_VMC_GetMemAutoExposureDataFps, deviceNo, childNo, frame, 1, out, true, error);
}

VMC_EXPORT uint32_t VMC_GetMemAutoExposureDataNsec(uint32_t deviceNo, uint32_t childNo, int32_t frame, int32_t count,
                                                   void* out, uint32_t* error) {
    return ReadMemoryFrames(kRow_VMC_GetMemAutoExposureDataNsec, deviceNo, childNo, frame,
                            static_cast<uint32_t>(count), out, true, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackRecordInfo(uint32_t deviceNo, uint32_t index, uint32_t count, void* record,
                                               uint32_t* error) {
    return ReadRecordInfo(kRow_VMC_GetRapidPackRecordInfo, deviceNo, index, count, record, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackIRIG(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame, void* out,
                                         uint32_t* error) {
    return ReadRapidPackFrame(kRow_VMC_GetRapidPackIRIG, deviceNo, drive, data, frame, out, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackAutoExposure(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame,
                                                 void* out, uint32_t* error) {
    return ReadRapidPackFrame(kRow_VMC_GetRapidPackAutoExposure, deviceNo, drive, data, frame, out, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackTemperature(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame,
                                                void* out, uint32_t* error) {
    return ReadRapidPackFrame(kRow_VMC_GetRapidPackTemperature, deviceNo, drive, data, frame, out, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackSMART(uint32_t deviceNo, uint32_t index, uint32_t count, void* out, void* extra,
                                          uint32_t* error) {
    return ReadBlock(kRow_VMC_GetRapidPackSMART, deviceNo, 0, ChildRule::Device, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.sub = index;
                         call.value = count;
                         call.data = out;
                         call.extra = extra;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetRapidPackAcceleration(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame,
                                                 void* out, uint32_t* error) {
    return ReadRapidPackFrame(kRow_VMC_GetRapidPackAcceleration, deviceNo, drive, data, frame, out, error);
}

// A recording on a medium is numbered as the camera saved it: its own first
// and last frame (code 378) convert the caller's frame number.
VMC_EXPORT uint32_t VMC_GetMediaAcceleration(uint32_t deviceNo, uint32_t a, uint32_t slot, int32_t frame, void* out,
                                             uint32_t* error) {
    return ReadBlock(kRow_VMC_GetMediaAcceleration, deviceNo, 0, ChildRule::Device, frame, error,
                     [&](DataCall& call, uint32_t* err) {
                         uint32_t first = 0, last = 0;
                         if (!GetCaps(deviceNo, 0, VMC_CODE_MEDIA_FRAME_RANGE, slot, &first, &last, err)) return false;
                         call.sub = a << 16 | slot;
                         call.value = MapFrameNumber(deviceNo, frame, static_cast<int32_t>(first),
                                                     static_cast<int32_t>(last));
                         call.data = out;
                         call.extra = nullptr;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetMediaRecordInfo(uint32_t deviceNo, uint32_t index, uint32_t count, void* record,
                                           uint32_t* error) {
    return ReadRecordInfo(kRow_VMC_GetMediaRecordInfo, deviceNo, index, count, record, error);
}

// Temperatures and accelerations are kept for frame 0 as well, so these two
// skip the frame-zero test, and the module sees no second block.
VMC_EXPORT uint32_t VMC_GetMemTemperatureData(uint32_t deviceNo, uint32_t childNo, void* out, int32_t frame,
                                              uint32_t count, uint32_t* error) {
    return ReadMemoryFrames(kRow_VMC_GetMemTemperatureData, deviceNo, childNo, frame, count, out, false, error);
}

// Child 0 is the camera's own acceleration sensor. It has no memory view of
// its own: the first head's range numbers its frames.
VMC_EXPORT uint32_t VMC_GetMemAccelerationData(uint32_t deviceNo, uint32_t childNo, void* out, int32_t frame,
                                               uint32_t count, uint32_t* error) {
    const uint32_t head = childNo ? childNo : 1;
    return ReadBlock(kRow_VMC_GetMemAccelerationData, deviceNo, head, ChildRule::Child, frame, error,
                     [&](DataCall& call, uint32_t*) {
                         call.child = childNo;
                         call.sub = MemoryIndex(deviceNo, head, frame);
                         call.value = count;
                         call.data = out;
                         call.extra = nullptr;
                         return true;
                     });
}

// The adjustment blocks belong to whatever the child number names; the
// module judges it.
VMC_EXPORT uint32_t VMC_GetAdjustmentData(uint32_t deviceNo, uint32_t childNo, uint32_t index, void* data,
                                          uint32_t* error) {
    return ReadBlock(kRow_VMC_GetAdjustmentData, deviceNo, childNo, ChildRule::Forward, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.child = childNo;
                         call.sub = index;
                         call.data = data;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetInherentInfo(uint32_t deviceNo, uint32_t childNo, uint32_t index, void* data,
                                        uint32_t* length, uint32_t* error) {
    return ReadBlock(kRow_VMC_GetInherentInfo, deviceNo, childNo, ChildRule::Child, 1, error,
                     [&](DataCall& call, uint32_t* err) {
                         if (!NotNull(length, err)) return false;
                         call.child = childNo;
                         call.sub = index;
                         call.data = data;
                         call.extra = length;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetLiveImageIRIGData(uint32_t deviceNo, uint32_t childNo, void* out, uint32_t* error) {
    return ReadBlock(kRow_VMC_GetLiveImageIRIGData, deviceNo, childNo, ChildRule::Child, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.child = childNo;
                         call.data = out;
                         call.extra = nullptr;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetManufactureVersionInfomation(uint32_t deviceNo, uint32_t index, void* out,
                                                        uint32_t* error) {
    return ReadBlock(kRow_VMC_GetManufactureVersionInfomation, deviceNo, 0, ChildRule::Device, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.sub = index;
                         call.data = out;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetShadingData(uint32_t deviceNo, uint32_t childNo, void* data, uint32_t* error) {
    return ReadBlock(kRow_VMC_GetShadingData, deviceNo, childNo, ChildRule::Child, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.child = childNo;
                         call.data = data;
                         return true;
                     });
}

VMC_EXPORT uint32_t VMC_GetTelnetCommand(uint32_t deviceNo, uint32_t index, void* data, uint32_t* error) {
    return ReadBlock(kRow_VMC_GetTelnetCommand, deviceNo, 0, ChildRule::Device, 1, error,
                     [&](DataCall& call, uint32_t*) {
                         call.sub = index;
                         call.data = data;
                         return true;
                     });
}

// ---- One function under two names -----------------------------------------

VMC_EXPORT uint32_t VMC_GetRapidPackDataName(uint32_t deviceNo, uint32_t index, void* name, uint32_t* error) {
    return VMC_GetSSDBoxDataName(deviceNo, 0, index, name, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackDataName2(uint32_t deviceNo, uint32_t count, uint32_t index, void* name,
                                              uint32_t* error) {
    return VMC_GetSSDBoxDataName(deviceNo, count, index, name, error);
}

VMC_EXPORT uint32_t VMC_GetMemSensorTempInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    return VMC_GetSensorTempInfo(deviceNo, childNo, value, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackInfo(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error) {
    return VMC_GetSSDBoxInfo(deviceNo, 0, first, second, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackInfo2(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second,
                                          uint32_t* error) {
    return VMC_GetSSDBoxInfo(deviceNo, index, first, second, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackDataRecDate(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* date,
                                                uint32_t* time, uint32_t* error) {
    return VMC_GetSdCardDataRecDate(deviceNo, a, b, date, time, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackDataRecFrames(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* frames,
                                                  uint32_t* error) {
    return VMC_GetSdCardDataRecFrames(deviceNo, a, b, frames, error);
}

VMC_EXPORT uint32_t VMC_GetRapidPackRunState(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second,
                                             uint32_t* error) {
    return VMC_GetSdCardRunState(deviceNo, index, first, second, error);
}

#undef FRAME_ZERO
#undef LOCKED
#undef UNLOCKED
#undef NO_FLAG
#undef DEVICE_FLAG
#undef EITHER_FLAG
#undef CHILD_FLAG
#undef PASS
#undef ZERO
#undef DEFAULT_TO
