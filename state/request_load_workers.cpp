// Workers without an export of their own that follow a rule of their own.
// The state load and the status poll run them; the rows that only store an
// answer are in field_workers.def.
#include <iterator>

#include "state/request_frame.h"
#include "state/requests.h"

namespace vmc {
namespace {

// For the workers that lock by themselves: refused before VMC_Init, then the
// device lock (recursive, so a locked caller may run them).
template <class Body>
uint32_t SelfLocked(uint32_t deviceNo, uint32_t* error, Body&& body) {
    if (!state.initialised) return Fail(error, VMC_ERR_NOT_INITIALISED);
    ScopedLock lock = ScopedLock::Device(deviceNo, error);
    if (!lock) return 0;
    return body();
}

// A flag set only when the camera answers exactly 1.
uint32_t AnswersOne(uint32_t deviceNo, uint32_t code, uint8_t DeviceRecord::*flag, uint32_t* value,
                    uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, code, 0, 0, value, error);
    StoreField(Record(deviceNo).*flag, result && *value == 1);
    return result;
}

}  // namespace

uint32_t RefreshWarningTemperatureThreshold(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error) {
    DeviceRecord& record = Record(deviceNo);
    if (type >= std::size(record.warningTemperatureThreshold)) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_WARNING_TEMPERATURE_THRESHOLD, type, 0, value, error);
    StoreField(record.warningTemperatureThreshold[type], *value);
    return result;
}

uint32_t RefreshShutdownCamera(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return AnswersOne(deviceNo, VMC_CODE_SHUTDOWN_CAMERA, &DeviceRecord::hasShutdownCamera, value, error);
}

uint32_t RefreshRebootCamera(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return AnswersOne(deviceNo, VMC_CODE_REBOOT_CAMERA, &DeviceRecord::hasRebootCamera, value, error);
}

// The memory of the device or a head keeps temperatures when the camera
// names a non-zero type.
uint32_t RefreshMemTemperature(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, VMC_CODE_MEM_TEMPERATURE_TYPE, 0, 0, value, error);
    const uint8_t has = result && *value != 0;
    if (childNo == 0)
        StoreField(Record(deviceNo).hasMemTemperature, has);
    else
        StoreField(Child(deviceNo, childNo)->hasMemTemperature, has);
    return result;
}

uint32_t RefreshCode401(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, VMC_CODE_PROBE_401, 0, 0, value, error);
    StoreField(Child(deviceNo, childNo)->code401Value, result ? static_cast<uint8_t>(*value) : 0);
    return result;
}

uint32_t RefreshSaveSlotNo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, VMC_CODE_SAVE_SLOT_NO, 0, 0, value, error);
    if (childNo == 0)
        StoreField(Record(deviceNo).saveSlotNo, *value);
    else
        StoreField(Child(deviceNo, childNo)->saveSlotNo, *value);
    return result;
}

// An answer beyond 16 bits is a negative deviation whose size is the low 16 bits.
uint32_t RefreshVSyncExposeDeviation(uint32_t deviceNo, uint32_t* error) {
    DeviceRecord& record = Record(deviceNo);
    uint32_t value = record.vSyncExposeDeviation;
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_VSYNC_EXPOSE_DEVIATION, 0, 0, &value, error);
    if (value > 0xFFFFu) value = static_cast<uint32_t>(-static_cast<int32_t>(value & 0xFFFFu));
    StoreField(record.vSyncExposeDeviation, value);
    return result;
}

uint32_t RefreshTriggerNoiseFilter(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return SelfLocked(deviceNo, error, [&] {
        const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_TRIGGER_NOISE_FILTER, 0, 0, value, error);
        StoreField(Record(deviceNo).triggerNoiseFilter, *value);
        return result;
    });
}

// Both codes are asked; the result holds only when both answered, with the
// error of the first that did not.
uint32_t RefreshTriggerNoiseFilterWidth(uint32_t deviceNo, uint32_t* width1, uint32_t* width2, uint32_t* width3,
                                        uint32_t* error) {
    return SelfLocked(deviceNo, error, [&]() -> uint32_t {
        DeviceRecord& record = Record(deviceNo);
        const uint32_t first = AskValue(deviceNo, 0, VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH, 0, 0, width1, error);
        const uint32_t firstError = *error;
        StoreField(record.triggerNoiseFilterWidth1, *width1);
        const uint32_t second = AskPair(deviceNo, 0, VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH_2, 0, width2, width3, error);
        StoreField(record.triggerNoiseFilterWidth2, *width2);
        StoreField(record.triggerNoiseFilterWidth3, *width3);
        if (!first) return Fail(error, firstError);
        return second;
    });
}

// Cameras that can't say how many random endless triggers they take, take ten.
uint32_t RefreshMaxRandomEndlessTriggerCount(uint32_t deviceNo, uint32_t* error) {
    return SelfLocked(deviceNo, error, [&] {
        uint32_t value = 0;
        const uint32_t result =
            GetCaps(deviceNo, 0, VMC_CODE_MAX_RANDOM_ENDLESS_TRIGGER_COUNT, 0, &value, nullptr, error);
        StoreField(Record(deviceNo).maxRandomEndlessTriggerCount, result ? value : 10);
        return result;
    });
}

// The serial number is 64 bits wide; a module fills one or both words.
// A device or head that can't say reads all ones.
uint32_t RefreshSerialNumber(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    return SelfLocked(deviceNo, error, [&] {
        uint32_t words[2] = {};  // a module may write both through the first pointer
        const uint32_t result = GetCapsWide(deviceNo, childNo, VMC_CODE_SERIAL_NUMBER, 0, words, nullptr, error);
        const uint64_t serial = result ? (static_cast<uint64_t>(words[1]) << 32) | words[0] : ~uint64_t{0};
        if (childNo == 0)
            StoreField(Record(deviceNo).serialNumber, serial);
        else
            StoreField(Child(deviceNo, childNo)->serialNumber, serial);
        return result;
    });
}

}  // namespace vmc
