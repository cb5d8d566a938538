// Device requests with a rule of their own: ports, switches and delays
// chosen by an index, the trigger words, the storage controls and the
// settings whose answer is kept in a flag byte.
#include <iterator>

#include "state/request_frame.h"
#include "state/requests.h"

namespace vmc {
namespace {

// Ports and programmable switches are numbered 1..4 in the record's arrays.
constexpr uint32_t kSlots = 4;

uint32_t SlotValue(uint32_t deviceNo, uint32_t code, uint32_t slot, uint32_t (DeviceRecord::*array)[kSlots],
                   uint32_t* value, uint32_t* error) {
    if (slot < 1 || slot > kSlots) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    const uint32_t result = AskValue(deviceNo, 0, code, slot, 0, value, error);
    (Record(deviceNo).*array)[slot - 1] = *value;
    return result;
}

// Where a delay type is kept: the ten types of the arrays in their order,
// then types 10 and 11 in fields of their own.
constexpr uint32_t kDelayTypes[] = {1, 12, 2, 3, 4, 5, 6, 7, 8, 9};

uint32_t* DelaySlot(DeviceRecord& record, uint32_t type, bool limit) {
    if (type == 10) return limit ? &record.delayLimit10 : &record.delayValue10;
    if (type == 11) return limit ? &record.delayLimit11 : &record.delayValue11;
    for (uint32_t i = 0; i < std::size(kDelayTypes); ++i)
        if (kDelayTypes[i] == type) return limit ? &record.delayLimit[i] : &record.delayValue[i];
    return nullptr;
}

// A failed query leaves the cached delay as it was.
uint32_t DelayInto(uint32_t deviceNo, uint32_t code, bool limit, uint32_t type, uint32_t* value, uint32_t* error) {
    uint32_t* slot = DelaySlot(Record(deviceNo), type, limit);
    if (!slot) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    const uint32_t result = AskValue(deviceNo, 0, code, type, 0, value, error);
    if (result) *slot = *value;
    return result;
}

// The SD card and the SSD box share code 204; which of them answers depends
// on the storage the camera has now (code 273: 0 card, 1 box).
uint32_t StorageControl(uint32_t deviceNo, uint32_t wantedMode, uint32_t DeviceRecord::*field, uint32_t* value,
                        uint32_t* error) {
    uint32_t mode = 0;
    uint32_t result = GetCaps(deviceNo, 0, VMC_CODE_STORAGE_MODE, 0, &mode, nullptr, error);
    if (result && mode != wantedMode) result = Fail(error, VMC_ERR_NOT_SUPPORTED);
    if (result)
        result = AskValue(deviceNo, 0, VMC_CODE_SD_CARD_CTRL, 0, 0, value, error);
    else if (IsNotSupported(error))
        *value = 0;
    StoreField(Record(deviceNo).*field, *value);
    return result;
}

// The answer itself is kept in a flag byte, 0 when the camera refuses; the
// query counts as done whatever the camera said.
uint32_t AnswerFlag(uint32_t deviceNo, uint32_t code, uint8_t DeviceRecord::*flag, uint32_t* value,
                    uint32_t* error) {
    const uint32_t answered = GetCaps(deviceNo, 0, code, 0, value, nullptr, error);
    StoreField(Record(deviceNo).*flag, answered ? static_cast<uint8_t>(*value) : 0);
    *value = Record(deviceNo).*flag;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace

uint32_t RefreshExternalInMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error) {
    return SlotValue(deviceNo, VMC_CODE_EXTERNAL_IN_MODE, port, &DeviceRecord::externalInMode, value, error);
}

uint32_t RefreshExternalOutMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error) {
    return SlotValue(deviceNo, VMC_CODE_EXTERNAL_OUT_MODE, port, &DeviceRecord::externalOutMode, value, error);
}

uint32_t RefreshProgSwitchMode(uint32_t deviceNo, uint32_t switchNo, uint32_t* value, uint32_t* error) {
    return SlotValue(deviceNo, VMC_CODE_PROG_SWITCH_MODE, switchNo, &DeviceRecord::progSwitchMode, value, error);
}

uint32_t RefreshTriggerMode(uint32_t deviceNo, uint32_t* error) {
    DeviceRecord& record = Record(deviceNo);
    uint32_t mode = 0, afterFrames = 0, randomFrames = 0, randomCount = 0;
    if (!GetCaps(deviceNo, 0, VMC_CODE_TRIGGER_MODE, 0, &mode, &afterFrames, error) ||
        !GetCaps(deviceNo, 0, VMC_CODE_TRIGGER_RANDOM, 0, &randomFrames, &randomCount, error)) {
        StoreField(record.triggerMode, 0);
        return 0;
    }
    StoreField(record.triggerMode, mode);
    StoreField(record.triggerAfterFrames, afterFrames);
    StoreField(record.triggerRandomFrames, randomFrames);
    StoreField(record.triggerRandomCount, randomCount);
    return 1;
}

uint32_t RefreshDelay(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error) {
    return DelayInto(deviceNo, VMC_CODE_DELAY, false, type, value, error);
}

uint32_t RefreshDelayLimit(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error) {
    return DelayInto(deviceNo, VMC_CODE_DELAY_LIMIT, true, type, value, error);
}

uint32_t RefreshExposeOutTimes(uint32_t deviceNo, uint32_t signal, uint32_t* value, uint32_t* error) {
    DeviceRecord& record = Record(deviceNo);
    if (signal == 13 || signal == 14) {
        const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_EXPOSE_OUT_TIMES_1, 0, 0, value, error);
        StoreField(record.exposeOutTimes1, *value);
        return result;
    }
    if (signal == 82 || signal == 88) {
        const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_EXPOSE_OUT_TIMES_2, 0, 0, value, error);
        StoreField(record.exposeOutTimes2, *value);
        return result;
    }
    // No other signal has an exposure output: nothing to ask.
    *error = VMC_ERR_OK;
    return 1;
}

uint32_t RefreshSdCardCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return StorageControl(deviceNo, 0, &DeviceRecord::sdCardCtrl, value, error);
}

uint32_t RefreshSSDBoxCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return StorageControl(deviceNo, 1, &DeviceRecord::ssdBoxCtrl, value, error);
}

// Bit `port` of the span word says whether that output's signal spans.
uint32_t RefreshExternalOutSignalSpan(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error) {
    if (port > 31) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, port, 0, value, error);
    uint32_t& span = Record(deviceNo).externalOutSignalSpan;
    span = *value ? span | (1u << port) : span & ~(1u << port);
    return result;
}

// The camera answers a signed byte.
uint32_t RefreshFanRecReadyStop(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_FAN_REC_READY_STOP, 0, 0, value, error);
    *value = static_cast<uint32_t>(static_cast<int32_t>(static_cast<int8_t>(*value & 0xFFu)));
    StoreField(Record(deviceNo).fanRecReadyStop, *value);
    return result;
}

uint32_t RefreshFrameZero(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return AnswerFlag(deviceNo, VMC_CODE_FRAME_ZERO_MODE, &DeviceRecord::frameZeroMode, value, error);
}

uint32_t RefreshVariableFunction(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return AnswerFlag(deviceNo, VMC_CODE_VARIABLE_FUNCTION, &DeviceRecord::variableFunction, value, error);
}

uint32_t RefreshStoreNum(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_STORE_NUM, 0, 0, value, error);
    DeviceRecord& record = Record(deviceNo);
    StoreField(record.storeNum, *value);
    StoreField(record.hasStoreNum, result ? 1 : 0);
    return result;
}

uint32_t RefreshCalMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                             uint32_t* error) {
    return AskPair(deviceNo, childNo, VMC_CODE_CAL_MAX_FRAMES, 0, value1, value2, error);
}

}  // namespace vmc

using namespace vmc;

// ---- Exports ---------------------------------------------------------------

REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqExternalInMode, RefreshExternalInMode)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqExternalOutMode, RefreshExternalOutMode)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqProgSwitchMode, RefreshProgSwitchMode)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqDelay, RefreshDelay)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqDelayLimit, RefreshDelayLimit)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqExposeOutTimes, RefreshExposeOutTimes)
REQUEST_EXPORT_DEVICE_INDEXED(VMC_ReqExternalOutSignalSpan, RefreshExternalOutSignalSpan)
REQUEST_EXPORT_DEVICE_1(VMC_ReqSdCardCtrl, RefreshSdCardCtrl)
REQUEST_EXPORT_DEVICE_1(VMC_ReqSSDBoxCtrl, RefreshSSDBoxCtrl)
REQUEST_EXPORT_DEVICE_1(VMC_ReqFanRecReadyStop, RefreshFanRecReadyStop)
REQUEST_EXPORT_DEVICE_1(VMC_ReqFrameZero, RefreshFrameZero)
REQUEST_EXPORT_DEVICE_1(VMC_ReqVariableFunction, RefreshVariableFunction)
REQUEST_EXPORT_DEVICE_1(VMC_ReqStoreNum, RefreshStoreNum)

// The trigger words are refreshed as one; the caller gets what is cached after.
VMC_EXPORT uint32_t VMC_ReqTriggerMode(uint32_t deviceNo, uint32_t* mode, uint32_t* afterFrames,
                                       uint32_t* randomFrames, uint32_t* randomCount, uint32_t* error) {
    return RequestFrame(deviceNo, 0, ChildRule::Device, mode && afterFrames && randomFrames && randomCount, error,
                        [&](uint32_t* err) {
                            const uint32_t result = RefreshTriggerMode(deviceNo, err);
                            const DeviceRecord& record = Record(deviceNo);
                            *mode = record.triggerMode;
                            *afterFrames = record.triggerAfterFrames;
                            *randomFrames = record.triggerRandomFrames;
                            *randomCount = record.triggerRandomCount;
                            return result;
                        });
}

VMC_EXPORT uint32_t VMC_ReqCalMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                                        uint32_t* error) {
    return RequestFrame(deviceNo, childNo, ChildRule::ChildOrDevice, value1 && value2, error,
                        [&](uint32_t* err) { return RefreshCalMaxFrames(deviceNo, childNo, value1, value2, err); });
}
