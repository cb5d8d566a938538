// VMC_DeviceStatusUpdate: the library's one refresh of a whole camera. It
// asks again every setting that the keypad or the camera's own panel may
// have changed, for the device and each head, under one hold of the device
// lock. Unlike the open it trusts the availability flags: it asks only what
// the camera has and discovers nothing.
//
// Most failures end the poll; the record then holds a mix of old and new
// values, and a second poll is the recovery. Steps marked "no stop" go on.
#include <iterator>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"
#include "state/requests.h"

namespace vmc {
namespace {

struct Poll {
    uint32_t deviceNo;
    uint32_t* error;
    DeviceRecord& record;
};

// Asks one device code into a field. On failure the field takes `fallback`
// when the camera said 21, else whatever the module left in the variable,
// and the poll ends.
bool Refresh(Poll& poll, uint32_t code, uint32_t& field, uint32_t fallback = 0) {
    uint32_t value = LoadField(field);
    const bool answered = GetCaps(poll.deviceNo, 0, code, 0, &value, nullptr, poll.error) != 0;
    if (!answered && IsNotSupported(poll.error)) value = fallback;
    StoreField(field, value);
    return answered;
}

using DeviceWorker = uint32_t (*)(uint32_t deviceNo, uint32_t* value, uint32_t* error);

// Runs the request worker of one device field, asking with the field's value
// as the worker's variable; the worker stores the answer (or its default).
bool Run(Poll& poll, DeviceWorker worker, const uint32_t& field) {
    uint32_t value = LoadField(field);
    return worker(poll.deviceNo, &value, poll.error) != 0;
}

// The same for a worker of two fields, whose failure does not end the poll.
void RefreshNoStop(Poll& poll, uint32_t (*worker)(uint32_t, uint32_t*, uint32_t*, uint32_t*), const uint32_t& first,
                   const uint32_t& second) {
    uint32_t value1 = LoadField(first), value2 = LoadField(second);
    worker(poll.deviceNo, &value1, &value2, poll.error);
}

// As Refresh, but a failure stores 0 on error 21 and the poll goes on.
void RefreshNoStop(Poll& poll, uint32_t code, uint32_t sub, uint32_t& first, uint32_t* second = nullptr) {
    uint32_t value1 = LoadField(first), value2 = second ? LoadField(*second) : 0;
    const bool answered = GetCaps(poll.deviceNo, 0, code, sub, &value1, second ? &value2 : nullptr, poll.error);
    if (!answered && IsNotSupported(poll.error)) value1 = value2 = 0;
    StoreField(first, value1);
    if (second) StoreField(*second, value2);
}

// Asked so the module hears of it; what it answers is not kept.
void Touch(Poll& poll, uint32_t child, uint32_t code, uint32_t sub = 0) {
    uint32_t value1 = 0, value2 = 0;
    GetCaps(poll.deviceNo, child, code, sub, &value1, &value2, poll.error);
}

// Stored only when the camera answers; nothing here ends the poll.
void RefreshIfAnswered(Poll& poll, uint32_t code, uint32_t sub, uint32_t& first, uint32_t* second = nullptr) {
    uint32_t value1 = LoadField(first), value2 = 0;
    if (GetCaps(poll.deviceNo, 0, code, sub, &value1, second ? &value2 : nullptr, poll.error)) {
        StoreField(first, value1);
        if (second) StoreField(*second, value2);
    }
}

bool PollPorts(Poll& poll) {
    DeviceRecord& record = poll.record;
    for (uint32_t port = 1; port <= record.externalInCount; ++port) {
        uint32_t mode = 0;
        if (!RefreshExternalInMode(poll.deviceNo, port, &mode, poll.error)) return false;
    }
    for (uint32_t port = 1; port <= record.externalOutCount; ++port) {
        if (port > 4) {
            *poll.error = VMC_ERR_BAD_ARGUMENT;
            return false;
        }
        uint32_t mode = record.externalOutMode[port - 1];
        const bool answered = GetCaps(poll.deviceNo, 0, VMC_CODE_EXTERNAL_OUT_MODE, port, &mode, nullptr, poll.error);
        if (!answered && IsNotSupported(poll.error)) mode = 0;
        StoreField(record.externalOutMode[port - 1], mode);
        if (!answered) return false;
    }
    return true;
}

// Signal counts. A failure here leaves the device lock held: callers'
// retry logic was written against that, so the caller of this step must
// return without releasing.
bool PollSignalCounts(Poll& poll) {
    DeviceRecord& record = poll.record;
    if (record.hasSyncOutTimes && !Refresh(poll, VMC_CODE_SYNC_OUT_TIMES, record.syncOutTimes, 1)) {
        StoreField(record.syncOutTimes, 1);
        return false;
    }
    if (record.hasExposeOutTimes1 && !Refresh(poll, VMC_CODE_EXPOSE_OUT_TIMES_1, record.exposeOutTimes1, 1)) {
        StoreField(record.exposeOutTimes1, 1);
        return false;
    }
    uint32_t times = 0;
    return !record.hasExposeOutTimes2 || RefreshExposeOutTimes(poll.deviceNo, 88, &times, poll.error);
}

bool PollDeviceModes(Poll& poll) {
    DeviceRecord& record = poll.record;
    struct Mode {
        uint8_t DeviceRecord::*flag;
        DeviceWorker worker;
        uint32_t DeviceRecord::*field;
    };
    static constexpr Mode kModes[] = {
        {&DeviceRecord::hasShutterLockMode, RefreshShutterLockMode, &DeviceRecord::shutterLockMode},
        {&DeviceRecord::hasResolutionLockMode, RefreshResolutionLockMode, &DeviceRecord::resolutionLockMode},
        {&DeviceRecord::hasPartitionIncMode, RefreshPartitionIncMode, &DeviceRecord::partitionIncMode},
        {&DeviceRecord::hasKeyPadLock, RefreshKeyPadLock, &DeviceRecord::keyPadLock},
        {&DeviceRecord::hasVideoOutMode, RefreshVideoOutMode, &DeviceRecord::videoOutMode},
    };
    for (const Mode& mode : kModes)
        if (record.*mode.flag && !Run(poll, mode.worker, record.*mode.field)) return false;

    uint32_t value = 0;
    if (record.hasIRIG) {
        if (!Run(poll, RefreshIRIG, record.irigMode)) return false;
        if (!RefreshIRIGOffset(poll.deviceNo, &value, poll.error)) return false;
        if (record.hasIRIGSampleMode && !RefreshIRIGSampleMode(poll.deviceNo, &value, poll.error)) return false;
    }
    if (record.hasMCDL && !Run(poll, RefreshMCDL, record.mcdlMode)) return false;
    if (record.hasADC &&
        (!RefreshAdcMode(poll.deviceNo, &value, poll.error) || !RefreshAdcRange(poll.deviceNo, &value, poll.error)))
        return false;
    if (record.hasIRIGPhaseLock && (!RefreshIRIGPhaseLock(poll.deviceNo, &value, poll.error) ||
                                    !RefreshIRIGPhaseLockStatus(poll.deviceNo, &value, poll.error)))
        return false;
    if (record.hasSSDBoxInfo)
        for (uint32_t sub = 0; sub < 2; ++sub)
            RefreshNoStop(poll, VMC_CODE_SSD_BOX_INFO, sub, record.ssdBoxFirstValue[sub], &record.ssdBoxSecondValue[sub]);
    if (record.hasMode329 && !RefreshMode329(poll.deviceNo, &value, poll.error)) return false;
    if (record.hasMedia)
        for (uint32_t media = 0; media < 2; ++media) Touch(poll, 0, VMC_CODE_MEDIA_INFO, media);
    if (record.hasBattery) {
        Touch(poll, 0, VMC_CODE_BATTERY_INFO);
        RefreshNoStop(poll, VMC_CODE_SHUTDOWN_BATTERY_SUPPLY, 0, record.shutdownBatterySupply1,
                      &record.shutdownBatterySupply2);
        RefreshNoStop(poll, VMC_CODE_MEDIA_SAVE_BATTERY_SUPPLY, 0, record.mediaSaveBatterySupply1,
                      &record.mediaSaveBatterySupply2);
    }
    if (record.hasAutoPowerWhenSupply) Run(poll, RefreshAutoPowerWhenSupply, record.autoPowerWhenSupply);
    if (record.hasVideoOSDCrosshairMode)
        Run(poll, RefreshVideoOSDCrosshairMode, record.videoOSDCrosshairMode);
    if (record.hasVideoOutSignalEnable)
        Run(poll, RefreshVideoOutSignalEnable, record.videoOutSignalEnable);
    if (record.hasWarningTemperatureThreshold) {
        uint32_t types[VMC_MAX_LIST_ENTRIES] = {};
        uint32_t count = 0;
        if (GetList(poll.deviceNo, 0, VMC_LIST_TEMPERATURE_TYPE, 0, types, &count, poll.error))
            for (uint32_t i = 0; i < count && i < VMC_MAX_LIST_ENTRIES; ++i)
                if (types[i] < std::size(record.warningTemperatureThreshold))  // a type without a slot is skipped
                    RefreshIfAnswered(poll, VMC_CODE_WARNING_TEMPERATURE_THRESHOLD, types[i],
                                      record.warningTemperatureThreshold[types[i]]);
    }
    if (record.hasPartitionLock) Touch(poll, 0, VMC_CODE_PARTITION_LOCK);
    if (record.hasShutdownCamera) Touch(poll, 0, VMC_CODE_SHUTDOWN_CAMERA);
    if (record.hasRebootCamera) Touch(poll, 0, VMC_CODE_REBOOT_CAMERA);
    if (record.hasAccelerationTrigger)
        RefreshNoStop(poll, RefreshAccelerationTrigger, record.accelerationTrigger1, record.accelerationTrigger2);
    if (record.hasAccelerationTriggerTime)
        Run(poll, RefreshAccelerationTriggerTime, record.accelerationTriggerTime);
    if (record.hasTriggerNoiseFilter) RefreshTriggerNoiseFilter(poll.deviceNo, &value, poll.error);
    if (record.hasTriggerNoiseFilterWidth) {
        uint32_t width2 = 0, width3 = 0;
        RefreshTriggerNoiseFilterWidth(poll.deviceNo, &value, &width2, &width3, poll.error);
    }
    return true;
}

// Delay types in the order of the record's delay arrays.
constexpr uint32_t kDelayTypes[] = {1, 12, 2, 3, 4, 5, 6, 7};

// Nothing here ends the poll.
void PollDelays(Poll& poll) {
    DeviceRecord& record = poll.record;
    if (!record.hasDelay) return;
    for (uint32_t i = 0; i < std::size(kDelayTypes); ++i)
        RefreshIfAnswered(poll, VMC_CODE_DELAY_LIMIT, kDelayTypes[i], record.delayLimit[i]);
    if (record.hasDelayType8) RefreshIfAnswered(poll, VMC_CODE_DELAY_LIMIT, 8, record.delayLimit[8]);
    if (record.hasDelayType9) RefreshIfAnswered(poll, VMC_CODE_DELAY_LIMIT, 9, record.delayLimit[9]);
    for (uint32_t i = 0; i < std::size(kDelayTypes); ++i)
        RefreshIfAnswered(poll, VMC_CODE_DELAY, kDelayTypes[i], record.delayValue[i]);
    RefreshIfAnswered(poll, VMC_CODE_DELAY, 10, record.delayValue10);
    RefreshIfAnswered(poll, VMC_CODE_DELAY, 11, record.delayValue11);
    if (record.hasDelayType8) RefreshIfAnswered(poll, VMC_CODE_DELAY, 8, record.delayValue[8]);
    if (record.hasDelayType9) RefreshIfAnswered(poll, VMC_CODE_DELAY, 9, record.delayValue[9]);
    // The module reads the value it is handed: the limit of one type depends
    // on the value of the other.
    uint32_t limit = record.delayValue10, low = 0;
    if (GetCaps(poll.deviceNo, 0, VMC_CODE_DELAY_LIMIT_10_11, 11, &limit, &low, poll.error)) {
        StoreField(record.delayLimit11, limit);
        StoreField(record.delayLimit11Low, low);
    }
    limit = record.delayValue11;
    if (GetCaps(poll.deviceNo, 0, VMC_CODE_DELAY_LIMIT_10_11, 10, &limit, nullptr, poll.error))
        StoreField(record.delayLimit10, limit);
}

bool PollOperation(Poll& poll) {
    DeviceRecord& record = poll.record;
    uint32_t value = 0;
    if (record.hasDownloadMode && !RefreshDownloadMode(poll.deviceNo, &value, poll.error)) return false;
    if (record.hasLowLightMode) {
        uint32_t mode = 0;
        if (!GetCaps(poll.deviceNo, 0, VMC_CODE_LOW_LIGHT_MODE, 0, &mode, nullptr, poll.error)) {
            StoreField(record.lowLightMode, 0);
            return false;
        }
        StoreField(record.lowLightMode, mode);
    }
    if (record.hasProgSwitchMode) {
        for (uint32_t sw = 1; sw <= 4; ++sw)
            if (!RefreshProgSwitchMode(poll.deviceNo, sw, &value, poll.error) && sw == 1) return false;
    }
    if (record.hasRecordingType && !Run(poll, RefreshRecordingType, record.recordingType)) return false;
    if (record.hasMCDLDataMode && !Run(poll, RefreshMCDLDataMode, record.mcdlDataMode)) return false;
    if (record.hasStorePreset) {
        if (!Run(poll, RefreshStorePreset, record.storePreset)) return false;
        RefreshIfAnswered(poll, VMC_CODE_STORE_PRESET_REBOOT, 0, record.storePresetReboot);
    }
    if (record.hasInstructionSet && !Run(poll, RefreshInstructionSet, record.instructionSet)) return false;
    if (record.hasLEDMode && !Run(poll, RefreshLEDMode, record.ledMode)) return false;
    if (record.hasBatteryPowerMode && !Run(poll, RefreshBatteryPowerMode, record.batteryPowerMode)) return false;
    if (record.hasBinningSensorMode && !Run(poll, RefreshBinningSensorMode, record.binningSensorMode))
        return false;
    if (record.hasSyncPriority && !RefreshSyncPriority(poll.deviceNo, &value, poll.error)) return false;
    if (record.hasExposeExtension && !RefreshExposeExtension(poll.deviceNo, &value, poll.error)) return false;
    if (record.enableSelfSyncMode && !RefreshSelfSyncMode(poll.deviceNo, &value, poll.error)) return false;
    if (record.hasStorageDownloadMode && !RefreshStorageDownloadMode(poll.deviceNo, &value, poll.error)) return false;
    if (record.hasMediaSaveAfterInsert) RefreshMediaSaveAfterInsert(poll.deviceNo, &value, poll.error);
    return true;
}

// One head. The flag of the head stands in front of each optional query.
bool PollChild(Poll& poll, uint32_t childNo, ChildRecord& child) {
    const uint32_t deviceNo = poll.deviceNo;
    uint32_t* error = poll.error;
    uint32_t a = 0, b = 0, c = 0, d = 0;
    if (!RefreshColorType(deviceNo, childNo, &a, error)) return false;
    if (poll.record.variableFunction && !RefreshVariableChannel(deviceNo, childNo, &a, error)) {
        // As at open: a failure gives back the device lock once and goes on.
        ReleaseDeviceLock(deviceNo);
    }
    if (!RefreshRecordRate(deviceNo, childNo, &a, error) || !RefreshResolution(deviceNo, childNo, &a, &b, error))
        return false;
    if (child.hasResolutionROI && !RefreshResolutionROI(deviceNo, childNo, &a, &b, error)) return false;
    if (!RefreshSegmentPosition(deviceNo, childNo, &a, &b, error)) return false;
    if (child.hasAutoExposure) {
        if (!RefreshAutoExposure(deviceNo, childNo, &a, error)) return false;
        Touch(poll, childNo, VMC_CODE_AUTO_EXPOSURE_POLL);
    }
    if (child.hasImageTrigger) {
        if (!RefreshImageTrigger(deviceNo, childNo, &a, error)) return false;
        Touch(poll, childNo, VMC_CODE_IMAGE_TRIGGER_POLL);
    }
    if (!RefreshShutterSpeedFps(deviceNo, childNo, &a, error)) return false;
    if (child.hasShutterUsec && !RefreshShutterSpeedUsec(deviceNo, childNo, &a, error)) return false;
    if (child.hasShutterNsec && !RefreshShutterSpeedNsec(deviceNo, childNo, &a, error)) return false;
    if (child.hasSensorGain && !RefreshSensorGainMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasSensorGamma && !RefreshSensorGammaMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasColorTemp && !RefreshColorTempMode(deviceNo, childNo, &a, &b, &c, &d, error)) return false;
    if (child.hasSoftColorTemp && !RefreshSoftColorTempMode(deviceNo, childNo, &a, &b, &c, &d, error)) return false;
    if (child.hasLUT && !RefreshLUTMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasDSShutter) {  // no stop
        RefreshDSShutterMode(deviceNo, childNo, &a, error);
        RefreshDSShutterValue(deviceNo, childNo, &a, error);
    }
    if (child.hasShading && !RefreshShadingMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasPixelGain && !RefreshPixelGainMode(deviceNo, childNo, &a, error)) return false;
    if (poll.record.hasPixelGainMaxMagnification && !RefreshPixelGainMagnification(deviceNo, childNo, &a, error))
        return false;
    if (child.hasEdgeEnhance && !RefreshEdgeEnhanceMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasBitDepth && !RefreshBitDepth(deviceNo, childNo, &a, error)) return false;
    if (child.hasBitDepth2 && !RefreshBitDepth2(deviceNo, childNo, &a, &b, error)) return false;
    if (child.hasColorEnhance) {
        if (!RefreshColorEnhanceMode(deviceNo, childNo, &a, error)) return false;
        for (uint32_t plane = 1; plane <= 3; ++plane) {
            int32_t triple[3] = {};
            if (!RefreshColorEnhanceValue(deviceNo, childNo, plane, triple, error)) return false;
        }
    }
    // No stop: mode, partitions.
    RefreshCamMode(deviceNo, childNo, &a, error);
    uint32_t count = child.partitionCount;
    if (GetCaps(deviceNo, childNo, VMC_CODE_PARTITION_COUNT, 0, &count, nullptr, error)) StoreField(child.partitionCount, count);
    RefreshCurrentPartition(deviceNo, childNo, &a, error);
    if (!RefreshMaxFrames(deviceNo, childNo, &a, &b, error)) return false;
    if (child.hasLiveResolution && !RefreshLiveResolutionMode(deviceNo, childNo, &a, error)) return false;
    if (child.hasCameraCommandBaudRate && !RefreshCameraCommandBaudRate(deviceNo, childNo, &a, error)) return false;
    return true;
}

uint32_t PollDevice(uint32_t deviceNo, uint32_t* error) {
    ScopedLock lock = ScopedLock::Device(deviceNo, error);
    if (!lock) return 0;
    Poll poll = {deviceNo, error, Record(deviceNo)};
    DeviceRecord& record = poll.record;

    if (!PollPorts(poll)) return 0;
    if (!PollSignalCounts(poll)) {
        lock.KeepHeld();  // intended: these failures return with the device lock held
        return 0;
    }
    if (!PollDeviceModes(poll)) return 0;
    PollDelays(poll);
    if (!PollOperation(poll)) return 0;

    for (uint32_t childNo = 1; childNo <= ChildSlots(record); ++childNo) {
        ChildRecord* child = Child(deviceNo, childNo);
        if (child && !PollChild(poll, childNo, *child)) return 0;
    }

    if (!RefreshTriggerMode(deviceNo, error)) return 0;
    uint32_t value = 0;
    if (record.hasLowFrameRateMode && !RefreshLowFrameRateMode(deviceNo, &value, error)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_DeviceStatusUpdate(uint32_t deviceNo, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        return PollDevice(deviceNo, err);
    });
}
