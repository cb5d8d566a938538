// The device half of the state load, as an ordered list of steps. The order
// is the order of the calls and modules rely on it: later steps read fields
// that earlier ones filled, and children are loaded before the trigger mode.
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <vmc/codes.h>

#include "core/communication_store.h"
#include "core/frame.h"
#include "state/load.h"
#include "state/load_rules.h"
#include "state/requests.h"

namespace vmc {
namespace {

using DeviceProbe = Probe<DeviceRecord>;
using R = DeviceRecord;

struct DeviceLoad : LoadOf<DeviceRecord> {
    uint32_t packetMode;
    uint32_t children[kDeviceCount];  // the existing-children list as the module wrote it
    uint32_t lastChild;               // number of the child created last, 0 before any
};

// A step returns false to end the load with result 0.
using Step = bool (*)(DeviceLoad&);

// The module shares the library's locks: it may block on the same lock as
// a caller, so the slots it is handed must stay put while the device is open.
bool HandOverGlobalLock(DeviceLoad& load) {
    SetData(load.deviceNo, 0, VMC_DATA_GLOBAL_MUTEX, 0, 0, &state.globalMutex, load.error);
    return true;
}

bool CreateDeviceLocks(DeviceLoad& load) {
    for (uint32_t channel = 0; channel < kChannelCount; ++channel) {
        platform::MutexHandle& slot = state.channelMutex[channel][load.deviceNo];
        if (slot) {
            // A lock left from an earlier life of this record: refuse, without an error code.
            platform::CloseMutex(slot);
            slot = nullptr;
            return false;
        }
        slot = platform::CreateMutex();
        SetData(load.deviceNo, 0, VMC_DATA_DEVICE_MUTEX, channel, 0, &slot, load.error);
    }
    return true;
}

bool ReadDeviceId(DeviceLoad& load) {
    uint32_t value = 0;
    return RefreshDeviceId(load.deviceNo, &value, load.error);
}

bool ReadIdentity(DeviceLoad& load) {
    static constexpr DeviceProbe kIdentity[] = {
        {.filler = CHILD_FILLER(RefreshProductID)},
        {.filler = CHILD_FILLER(RefreshLotID)},
        {.filler = CHILD_FILLER(RefreshIndividualID)},
        {.filler = CHILD_FILLER(RefreshVersion)},
    };
    return Probes(load, kIdentity);
}

// Direct recording to a storage pack: any failure only means the camera has none.
bool ReadDirectRecordRapidPack(DeviceLoad& load) {
    return Probe1(load, {.code = VMC_CODE_DIRECT_RECORD_RAPID_PACK, .first = &R::directRecordRapidPack,
                         .flag = &R::hasDirectRecordRapidPack, .rule = Rule::Ignored});
}

bool ReadExternalCount(DeviceLoad& load) {
    return Probe1(load, {.filler = DEVICE_PAIR_FILLER(RefreshExternalCount)});
}

bool ReadShutterDisplayMode(DeviceLoad& load) {
    return Probe1(load, {.code = VMC_CODE_SHUTTER_DISP_MODE, .first = &R::shutterDispMode, .rule = Rule::Ignored});
}

// Modes of ports 1..count. A port the camera refuses with 21 means it has
// no usable ports of that kind; the record holds at most four.
bool ReadPortModes(DeviceLoad& load, uint32_t code, uint32_t& count, uint32_t (&modes)[4]) {
    for (uint32_t port = 1; port <= count; ++port) {
        if (port > 4) {
            *load.error = VMC_ERR_BAD_ARGUMENT;
            return false;
        }
        bool answered = false;
        if (!Ask(load, code, port, &modes[port - 1], nullptr, Rule::Tolerant, &answered)) return false;
        if (!answered) {
            StoreField(count, 0);
            return true;
        }
    }
    return true;
}

bool ReadExternalPorts(DeviceLoad& load) {
    return ReadPortModes(load, VMC_CODE_EXTERNAL_IN_MODE, load.record.externalInCount, load.record.externalInMode) &&
           ReadPortModes(load, VMC_CODE_EXTERNAL_OUT_MODE, load.record.externalOutCount, load.record.externalOutMode);
}

bool ReadSignalAndLockModes(DeviceLoad& load) {
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasSyncOutTimes, .filler = DEVICE_FILLER(RefreshSyncOutTimes)},
        {VMC_CODE_EXPOSE_OUT_TIMES_1, &R::exposeOutTimes1, nullptr, &R::hasExposeOutTimes1},
        {VMC_CODE_EXPOSE_OUT_TIMES_2, &R::exposeOutTimes2, nullptr, &R::hasExposeOutTimes2},
        {.flag = &R::hasShutterLockMode, .filler = DEVICE_FILLER(RefreshShutterLockMode)},
        {.flag = &R::hasResolutionLockMode, .filler = DEVICE_FILLER(RefreshResolutionLockMode)},
        {.flag = &R::hasPartitionIncMode, .filler = DEVICE_FILLER(RefreshPartitionIncMode)},
    };
    return Probes(load, kProbes);
}

// Whether the camera offers partition increment mode 1, from the same list a caller sees.
bool ReadPartitionIncModes(DeviceLoad& load) {
    uint32_t count = 0, scratch = 0;
    uint32_t modes[VMC_MAX_LIST_ENTRIES] = {};
    if (VMC_GetPartitionIncModeList(load.deviceNo, &count, modes, &scratch))
        for (uint32_t i = 0; i < count && i < VMC_MAX_LIST_ENTRIES; ++i)
            if (modes[i] == 1) StoreField(load.record.hasPartitionIncMode1, 1);
    return true;
}

bool ReadPanelAndVideo(DeviceLoad& load) {
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasKeyPadLock, .filler = DEVICE_FILLER(RefreshKeyPadLock)},
        {VMC_CODE_VIDEO_OUT_MODE, &R::videoOutMode, nullptr, &R::hasVideoOutMode},
        {.flag = &R::hasVideoOutSignal, .filler = DEVICE_FILLER(RefreshVideoOutSignal)},
        {.flag = &R::hasVideoOutSignalEnable, .filler = DEVICE_FILLER(RefreshVideoOutSignalEnable)},
        {VMC_CODE_VIDEO_OUT_HDSDI, &R::videoOutHDSDI, nullptr, &R::hasVideoOutHDSDI},
        {.flag = &R::hasIRIG, .filler = DEVICE_FILLER(RefreshIRIG)},
    };
    return Probes(load, kProbes);
}

bool ReadIrigDetails(DeviceLoad& load) {
    if (!load.record.hasIRIG) return true;
    return Probe1(load, {.filler = DEVICE_FILLER(RefreshIRIGOffset)}) &&
           Probe1(load, {.flag = &R::hasIRIGSampleMode, .filler = DEVICE_FILLER(RefreshIRIGSampleMode)});
}

bool ReadTimecodeAndAdc(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!Probe1(load, {.flag = &R::hasMCDL, .filler = DEVICE_FILLER(RefreshMCDL)}) ||
        !Probe1(load, {.flag = &R::hasADC, .filler = DEVICE_FILLER(RefreshAdcMode)}))
        return false;
    if (record.hasADC && !Probe1(load, {.filler = DEVICE_FILLER(RefreshAdcRange)})) return false;
    if (!Probe1(load, {.flag = &R::hasIRIGPhaseLock, .filler = DEVICE_FILLER(RefreshIRIGPhaseLock)})) return false;
    return !record.hasIRIGPhaseLock || Probe1(load, {.filler = DEVICE_FILLER(RefreshIRIGPhaseLockStatus)});
}

bool ReadFrameZeroAndStoreNum(DeviceLoad& load) {
    uint32_t value = 0;
    RefreshFrameZero(load.deviceNo, &value, load.error);  // answers itself for a camera without the code
    value = 0;
    return Tolerant(load, RefreshStoreNum, nullptr, &value);
}

// Delay types in the order of the record's delay arrays.
constexpr uint32_t kDelayTypes[] = {1, 12, 2, 3, 4, 5, 6, 7};

bool ReadDelayLimits(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    for (uint32_t i = 0; i < std::size(kDelayTypes); ++i) {
        bool answered = false;
        if (!Ask(load, VMC_CODE_DELAY_LIMIT, kDelayTypes[i], &record.delayLimit[i], nullptr, Rule::Delay, &answered))
            return false;
        if (answered) StoreField(record.hasDelay, 1);
    }
    bool answered = false;
    if (!Ask(load, VMC_CODE_DELAY_LIMIT, 8, &record.delayLimit[8], nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType8, answered);
    if (!Ask(load, VMC_CODE_DELAY_LIMIT, 9, &record.delayLimit[9], nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType9, answered);
    // Types 10 and 11 share one flag: the later answer decides.
    if (!Ask(load, VMC_CODE_DELAY_LIMIT, 10, &record.delayLimit10, nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType10, answered);
    if (!Ask(load, VMC_CODE_DELAY_LIMIT, 11, &record.delayLimit11, nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType10, answered);
    return true;
}

bool ReadDelayValues(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!record.hasDelay) return true;
    for (uint32_t i = 0; i < std::size(kDelayTypes); ++i)
        if (!Ask(load, VMC_CODE_DELAY, kDelayTypes[i], &record.delayValue[i], nullptr, Rule::Delay)) return false;
    if (record.hasDelayType8 && !Ask(load, VMC_CODE_DELAY, 8, &record.delayValue[8], nullptr, Rule::Delay)) return false;
    if (record.hasDelayType9 && !Ask(load, VMC_CODE_DELAY, 9, &record.delayValue[9], nullptr, Rule::Delay)) return false;
    // A value of type 10 comes with the limit of type 11, and the other way
    // round: the cameras pair them so.
    uint32_t value = 0;
    bool answered = false;
    if (!Ask(load, VMC_CODE_DELAY, 10, &value, nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType10, answered);
    if (answered) {
        StoreField(record.delayValue10, value);
        if (!Ask(load, VMC_CODE_DELAY_LIMIT_10_11, 11, &record.delayLimit11, &record.delayLimit11Low, Rule::Delay))
            return false;
    }
    if (!Ask(load, VMC_CODE_DELAY, 11, &value, nullptr, Rule::Delay, &answered)) return false;
    StoreField(record.hasDelayType10, answered);
    if (answered) {
        StoreField(record.delayValue11, value);
        if (!Ask(load, VMC_CODE_DELAY_LIMIT_10_11, 10, &record.delayLimit10, nullptr, Rule::Delay)) return false;
    }
    return true;
}

bool ReadModes(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!Probe1(load, {VMC_CODE_RANDOM_TRIGGER_ENABLE, nullptr, nullptr, &R::hasRandomTriggerEnable}) ||
        !Probe1(load, {.flag = &R::hasDownloadMode, .filler = DEVICE_FILLER(RefreshDownloadMode)}))
        return false;
    uint32_t value = 0;
    RefreshVariableFunction(load.deviceNo, &value, load.error);  // answers itself for a camera without the code
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasMode329, .filler = DEVICE_FILLER(RefreshMode329)},
        {.flag = &R::hasLowLightMode, .filler = DEVICE_FILLER(RefreshLowLightMode)},
    };
    if (!Probes(load, kProbes)) return false;
    bool answered = false;
    if (!Ask(load, VMC_CODE_PROG_SWITCH_MODE, 1, &record.progSwitchMode[0], nullptr, Rule::Tolerant, &answered))
        return false;
    StoreField(record.hasProgSwitchMode, answered);
    if (!answered) StoreField(record.progSwitchMode[0], 0);
    return Probe1(load, {.flag = &R::hasHighSpeedMode, .filler = DEVICE_FILLER(RefreshHighSpeedMode)}) &&
           Tolerant(load, VMC_GetBurstTransfer, &record.hasBurstTransfer, &value) &&
           Tolerant(load, VMC_GetReadAheadTransfer, &record.hasReadAheadTransfer, &value) &&
           Tolerant(load, VMC_GetHeadExchange, &record.hasHeadExchange, &value) &&
           Probe1(load, {VMC_CODE_ETHERNET_INFO, nullptr, nullptr, &R::hasEthernetInfo});
}

bool ReadProgSwitches(DeviceLoad& load) {
    if (!load.record.hasProgSwitchMode) return true;
    for (uint32_t sw = 2; sw <= 4; ++sw)
        if (!Ask(load, VMC_CODE_PROG_SWITCH_MODE, sw, &load.record.progSwitchMode[sw - 1], nullptr, Rule::Delay))
            return false;
    return true;
}

// Functions a module offers by having the entry at all.
bool ReadEntryFlags(DeviceLoad& load) {
    const DeviceModule& module = state.deviceModules[load.record.moduleIndex];
    StoreField(load.record.hasFPGAConfig, module.DEV_FPGAConfig != nullptr);
    StoreField(load.record.hasCameraFile, module.DEV_ReadCameraFile != nullptr);
    StoreField(load.record.hasImageAddress, module.DEV_GetMemImageAddress &&
                                  (module.DEV_GetLiveImageAddress || module.DEV_GetLiveImageAddress2));
    return true;
}

bool ReadOperationFeatures(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    static constexpr DeviceProbe kFirst[] = {
        {.flag = &R::hasSyncPriority, .filler = DEVICE_FILLER(RefreshSyncPriority)},
        {.flag = &R::hasRecordingType, .filler = DEVICE_FILLER(RefreshRecordingType)},
        {.flag = &R::hasMCDLDataMode, .filler = DEVICE_FILLER(RefreshMCDLDataMode)},
    };
    static constexpr DeviceProbe kPresets[] = {
        {VMC_CODE_STORE_PRESET, &R::storePreset, nullptr, &R::hasStorePreset},
        {.filler = DEVICE_FILLER(RefreshStorePresetReboot)},
        {.flag = &R::hasInstructionSet, .filler = DEVICE_FILLER(RefreshInstructionSet)},
        {VMC_CODE_LED_MODE, &R::ledMode, nullptr, &R::hasLEDMode},
        {VMC_CODE_FIX_FRAME_RECORD_MODE, nullptr, nullptr, &R::hasFixFrameRecordMode},
        {.flag = &R::hasBatteryPowerMode, .filler = DEVICE_FILLER(RefreshBatteryPowerMode)},
        {.flag = &R::hasBinningSensorMode, .filler = DEVICE_FILLER(RefreshBinningSensorMode)},
        {VMC_CODE_SYNC_IN_SIGNAL_STATUS, nullptr, nullptr, &R::hasSyncInSignalStatus},
        {VMC_CODE_VFPN_DATA, nullptr, nullptr, &R::hasVFPNData},
        {VMC_CODE_SENSOR_LUT_DATA, nullptr, nullptr, &R::hasSensorLUTData},
        {VMC_CODE_EXPOSE_TIME_DATA, nullptr, nullptr, &R::hasExposeTimeData},
    };
    static constexpr DeviceProbe kLast[] = {
        {VMC_CODE_VIDEO_OSD, &R::videoOSD, nullptr, &R::hasVideoOSD},
        {VMC_CODE_KEY_PAD_COMMAND, nullptr, nullptr, &R::hasKeyPadCommand, Answer::Bare},
        {.flag = &R::hasMemoryBlock, .filler = DEVICE_FILLER(RefreshMemoryBlock)},
    };
    uint32_t value = 0;
    return Probes(load, kFirst) && Tolerant(load, VMC_GetAutoPlay, &record.hasAutoPlay, &value) &&
           Tolerant(load, VMC_GetFactoryDefaults, &record.hasFactoryDefaults, &value) && Probes(load, kPresets) &&
           Tolerant(load, RefreshLiveIRIG, nullptr, &value) && Probes(load, kLast);
}

// Both counts default to 1 when the camera can't say.
bool ReadChildCounts(DeviceLoad& load) {
    uint32_t count = 0, maxCount = 0;
    return Tolerant(load, RefreshChildDeviceCount, nullptr, &count) &&
           Tolerant(load, RefreshMaxChildDeviceCount, nullptr, &maxCount);
}

bool CheckInitialised(DeviceLoad& load) {
    if (!state.initialised) {
        *load.error = VMC_ERR_NOT_INITIALISED;
        return false;
    }
    if (load.deviceNo >= kDeviceCount) *load.error = VMC_ERR_BAD_DEVICE_NO;  // noted, and the load goes on
    return true;
}

bool ReadExistingChildren(DeviceLoad& load) {
    uint32_t count = 0;
    return GetList(load.deviceNo, 0, VMC_LIST_EXIST_CHILD_DEVICE, 0, load.children, &count, load.error) ||
           IsNotSupported(load.error);
}

// Written only when the camera answers: the zeroed record is the default.
bool ReadSeriesAndIndexing(DeviceLoad& load) {
    static constexpr DeviceProbe kProbes[] = {
        {VMC_CODE_DEVICE_SERIES, &R::deviceSeries, nullptr, nullptr, Answer::Kept},
        {VMC_CODE_PROG_SWITCH_COUNT, &R::progSwitchCount, nullptr, nullptr, Answer::Kept},
        {VMC_CODE_RECORDING_SYNC_OUT_MODE, &R::recordingSyncOutMode, nullptr, nullptr, Answer::Kept},
        {VMC_CODE_FRAME_INDEX_MODE, &R::frameIndexMode, nullptr, nullptr, Answer::Kept},
        {VMC_CODE_SHUTDOWN_BATTERY_RANGE, &R::shutdownBatteryRange1, &R::shutdownBatteryRange2},
        {VMC_CODE_MEDIA_SAVE_BATTERY_RANGE, &R::mediaSaveBatteryRange1, &R::mediaSaveBatteryRange2},
    };
    return Probes(load, kProbes);
}

bool ReadDropFrames(DeviceLoad& load) {
    const DeviceModule& module = state.deviceModules[load.record.moduleIndex];
    StoreField(load.record.hasFrameAddress, module.DEV_GetFrameAddress != nullptr);
    bool answered = false;
    if (!Ask(load, VMC_CODE_NUM_OF_DROP_FRAME, 0, &load.record.numOfDropFrame, nullptr, Rule::Tolerant, &answered))
        return false;
    if (answered) StoreField(load.record.hasDropFrameList, module.DEV_GetDropFrameList != nullptr);
    else StoreField(load.record.numOfDropFrame, 0);
    return true;
}

// The storage behind code 204 depends on the storage mode: 0 a memory card, 1 a storage box.
bool ReadStorageControl(DeviceLoad& load, uint32_t wantedMode, uint32_t& field, uint8_t& flag) {
    uint32_t mode = 0;
    bool answered = false;
    if (!Ask(load, VMC_CODE_STORAGE_MODE, 0, &mode, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(flag, 0);
    StoreField(field, 0);
    if (!answered || mode != wantedMode) return true;
    if (!Ask(load, VMC_CODE_SD_CARD_CTRL, 0, &field, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(flag, answered);
    if (!answered) StoreField(field, 0);
    return true;
}

bool ReadLinkAndHardware(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    uint32_t value = 0;
    if (!Tolerant(load, RefreshSubPort, nullptr, &value)) return false;
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasSubInterfaceMode, .filler = DEVICE_FILLER(RefreshSubInterfaceMode)},
        {.flag = &R::hasExposeExtension, .filler = DEVICE_FILLER(RefreshExposeExtension)},
        {VMC_CODE_RTC, nullptr, nullptr, &R::hasRTC},
    };
    if (!Probes(load, kProbes)) return false;
    // Any failure only means the camera has no transfer-mode choice.
    if (!Probe1(load, {.code = VMC_CODE_G_ETHER_TRANSFER_MODE, .first = &R::gEtherTransferMode,
                       .flag = &R::hasGEtherTransferMode, .rule = Rule::Ignored}))
        return false;
    static constexpr DeviceProbe kMore[] = {
        {.flag = &R::hasMechaShutterMode, .filler = DEVICE_FILLER(RefreshMechaShutterMode)},
        {VMC_CODE_PROBE_387, nullptr, nullptr, &R::hasCode387},
        {.flag = &R::hasFanCtrl, .filler = DEVICE_PAIR_FILLER(RefreshFanCtrl)},
    };
    if (!Probes(load, kMore)) return false;
    uint32_t fanFirst = 0, fanSecond = 0;
    if (!Tolerant(load, VMC_GetFanState, &record.hasFanState, &fanFirst, &fanSecond)) return false;
    if (!ReadStorageControl(load, 0, record.sdCardCtrl, record.hasSdCardCtrl)) return false;
    return Probe1(load, {VMC_CODE_MECHANICAL_SHUTTER, nullptr, nullptr, &R::hasMechanicalShutter});
}

// Pixel gain magnification is asked of head 1 and says nothing about the load's health.
bool ReadPixelGainMagnification(DeviceLoad& load) {
    uint32_t value = 0;
    const bool answered = GetCaps(load.deviceNo, 1, VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD, 0, &value, nullptr,
                                  load.error) != 0;
    StoreField(load.record.hasPixelGainMagnification, answered);
    StoreField(load.record.hasPixelGainMaxMagnification, answered);
    return true;
}

bool ReadSyncAndExposure(DeviceLoad& load) {
    uint32_t value = 0;
    if (!Probe1(load, {VMC_CODE_SELF_SYNC_MODE, &R::selfSyncMode})) return false;
    return Tolerant(load, RefreshEnableSelfSyncMode, nullptr, &value) &&
           Probe1(load, {VMC_CODE_EXPOSURE_POSITION, &R::exposurePosition, nullptr, &R::hasExposurePosition}) &&
           Tolerant(load, RefreshVSyncExposeDeviation, &load.record.hasVSyncExposeDeviation);
}

bool LoadChildren(DeviceLoad& load) {
    for (uint32_t i = 0; i < ChildSlots(load.record); ++i) {
        const uint32_t childNo = load.children[i];
        if (childNo == 0) continue;
        bool loaded = false;
        if (childNo > ChildSlots(load.record)) {
            *load.error = VMC_ERR_BAD_CHILD;  // a head number the record has no slot for
        } else if (void* block = std::calloc(1, sizeof(ChildRecord))) {
            std::free(Child(load.deviceNo, childNo));  // a list naming a head twice
            PublishChild(load.deviceNo, childNo, static_cast<ChildRecord*>(block));
            load.lastChild = childNo;
            loaded = LoadChildState(load.deviceNo, childNo, load.error);
        } else {
            *load.error = VMC_ERR_NO_MEMORY;
        }
        if (!loaded) {
            FreeChildRecords(load.deviceNo);
            return false;
        }
    }
    return true;
}

// Every module must answer the trigger mode.
bool ReadTriggerMode(DeviceLoad& load) {
    if (RefreshTriggerMode(load.deviceNo, load.error)) return true;
    if (IsNotSupported(load.error)) FreeChildRecords(load.deviceNo);
    return false;
}

bool ReadDeviceName(DeviceLoad& load) {
    // A module that says its failure is fatal stops the open; any other failure gets a stand-in name.
    return ReadName(load.deviceNo, 0, load.record.deviceName, "Unknown Device", load.error) ||
           *load.error != VMC_ERR_MODULE_FATAL;
}

bool ReadCalMaxFrames(DeviceLoad& load) {
    return Probe1(load, {VMC_CODE_CAL_MAX_FRAMES, nullptr, nullptr, &R::hasCalMaxFrames});
}

// A storage box answers four feature codes with 1 for "present".
bool ReadStorageBox(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!ReadStorageControl(load, 1, record.ssdBoxCtrl, record.hasSSDBoxCtrl)) return false;
    if (!record.hasSSDBoxCtrl) return true;
    static constexpr DeviceProbe kFeatures[] = {
        {VMC_CODE_PROBE_404, nullptr, nullptr, &R::hasCode404, Answer::IsOne},
        {VMC_CODE_PROBE_405, nullptr, nullptr, &R::hasCode405, Answer::IsOne},
        {VMC_CODE_PROBE_406, nullptr, nullptr, &R::hasCode406, Answer::IsOne},
        {VMC_CODE_PROBE_407, nullptr, nullptr, &R::hasCode407, Answer::IsOne},
    };
    return Probes(load, kFeatures);
}

bool ReadStorage(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!Probe1(load, {.flag = &R::hasStorageMode, .filler = DEVICE_FILLER(RefreshStorageMode)})) return false;
    uint32_t first = 0, second = 0;
    if (!Tolerant(load, VMC_GetSSDBoxInfo, &record.hasSSDBoxInfo, 0u, &first, &second)) return false;
    if (record.hasSSDBoxInfo) {
        for (uint32_t index = 0; index < 2; ++index) {
            if (!VMC_GetSSDBoxInfo(load.deviceNo, index, &record.ssdBoxFirstValue[index],
                                   &record.ssdBoxSecondValue[index], load.error) &&
                !IsNotSupported(load.error))
                return false;
        }
    }
    return true;
}

bool ReadWarningTemperature(DeviceLoad& load, uint8_t& flag) {
    uint8_t value = 0;
    return Tolerant(load, VMC_GetWarningTemperature, &flag, 0u, &value);
}

bool ReadNoiseAndStorageModes(DeviceLoad& load) {
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasLowFrameRateMode, .filler = DEVICE_FILLER(RefreshLowFrameRateMode)},
        {VMC_CODE_HARDWARE_NOISE_REDUCTION, nullptr, nullptr, &R::hasHardwareNoiseReduction},
        {VMC_CODE_SOFT_NOISE_REDUCTION, nullptr, nullptr, &R::hasSoftNoiseReduction},
        {.flag = &R::hasStorageDownloadMode, .filler = DEVICE_FILLER(RefreshStorageDownloadMode)},
    };
    return Probes(load, kProbes) && ReadWarningTemperature(load, load.record.hasWarningTemperature);
}

// On-camera media: the storage mode must say 2. The media are asked once so
// the module learns them; what they answer is read again when used.
bool ReadMedia(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    uint32_t mode = 0;
    bool answered = false;
    if (!Ask(load, VMC_CODE_STORAGE_MODE, 0, &mode, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(record.hasMedia, answered && mode == 2);
    if (record.hasMedia) {
        uint32_t value1 = 0, value2 = 0;
        for (uint32_t media = 0; media < 2; ++media)
            Ask(load, VMC_CODE_MEDIA_INFO, media, &value1, &value2, Rule::Ignored);
    }
    return Probe1(load, {.flag = &R::hasMediaSaveAfterInsert, .filler = DEVICE_FILLER(RefreshMediaSaveAfterInsert)});
}

bool ReadBattery(DeviceLoad& load) {
    if (!Probe1(load, {VMC_CODE_BATTERY_INFO, nullptr, nullptr, &R::hasBattery})) return false;
    if (!load.record.hasBattery) return true;
    static constexpr DeviceProbe kSupplies[] = {
        {VMC_CODE_SHUTDOWN_BATTERY_SUPPLY, &R::shutdownBatterySupply1, &R::shutdownBatterySupply2},
        {VMC_CODE_MEDIA_SAVE_BATTERY_SUPPLY, &R::mediaSaveBatterySupply1, &R::mediaSaveBatterySupply2},
    };
    return Probes(load, kSupplies);
}

// Temperature types the camera lists; 0 when it lists none.
uint32_t TemperatureTypes(DeviceLoad& load, uint32_t (&types)[VMC_MAX_LIST_ENTRIES], bool* ok) {
    uint32_t count = 0;
    *ok = GetList(load.deviceNo, 0, VMC_LIST_TEMPERATURE_TYPE, 0, types, &count, load.error) || IsNotSupported(load.error);
    return *ok && count <= VMC_MAX_LIST_ENTRIES ? count : 0;
}

bool ReadPowerAndThresholds(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    static constexpr DeviceProbe kProbes[] = {
        {.flag = &R::hasAutoPowerWhenSupply, .filler = DEVICE_FILLER(RefreshAutoPowerWhenSupply)},
        {.flag = &R::hasVideoOSDCrosshairMode, .filler = DEVICE_FILLER(RefreshVideoOSDCrosshairMode)},
    };
    if (!Probes(load, kProbes)) return false;
    uint32_t types[VMC_MAX_LIST_ENTRIES] = {};
    bool ok = false;
    const uint32_t count = TemperatureTypes(load, types, &ok);
    if (!ok) return false;
    for (uint32_t i = 0; i < count; ++i) {
        if (types[i] >= std::size(record.warningTemperatureThreshold)) continue;  // no slot for that type
        uint32_t threshold = 0;
        uint8_t answered = 0;
        if (!Tolerant(load, RefreshWarningTemperatureThreshold, &answered, types[i], &threshold)) return false;
        if (answered) StoreField(record.hasWarningTemperatureThreshold, 1);
    }
    uint32_t value = 0;
    return Probe1(load, {VMC_CODE_PARTITION_LOCK, nullptr, nullptr, &R::hasPartitionLock}) &&
           Tolerant(load, RefreshShutdownCamera, nullptr, &value) && Tolerant(load, RefreshRebootCamera, nullptr, &value);
}

// A trigger and its limits: the first limit value packs two 16-bit limits.
bool ReadTriggerLimits(DeviceLoad& load, uint32_t code, uint32_t& limit1, uint32_t& limit2, uint32_t& limit3) {
    uint32_t packed = 0, third = 0;
    bool answered = false;
    Ask(load, code, 0, &packed, &third, Rule::Ignored, &answered);
    if (answered) {
        StoreField(limit1, packed >> 16);
        StoreField(limit2, packed & 0xFFFFu);
        StoreField(limit3, third);
    }
    return true;
}

bool ReadAccelerationTriggers(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!Probe1(load, {.flag = &R::hasAccelerationTrigger, .filler = DEVICE_PAIR_FILLER(RefreshAccelerationTrigger)}))
        return false;
    if (record.hasAccelerationTrigger)
        ReadTriggerLimits(load, VMC_CODE_ACCELERATION_TRIGGER_LIMIT, record.accelerationTriggerLimit1,
                          record.accelerationTriggerLimit2, record.accelerationTriggerLimit3);
    if (!Probe1(load, {.flag = &R::hasAccelerationTriggerTime, .filler = DEVICE_FILLER(RefreshAccelerationTriggerTime)}))
        return false;
    if (record.hasAccelerationTriggerTime)
        ReadTriggerLimits(load, VMC_CODE_ACCELERATION_TRIGGER_TIME_LIMIT, record.accelerationTriggerTimeLimit1,
                          record.accelerationTriggerTimeLimit2, record.accelerationTriggerTimeLimit3);
    return true;
}

bool ReadTemperatureSensors(DeviceLoad& load) {
    uint32_t types[VMC_MAX_LIST_ENTRIES] = {};
    bool ok = false;
    StoreField(load.record.hasTemperature, TemperatureTypes(load, types, &ok) > 0);
    if (!ok) return false;
    uint32_t value = 0;
    return Tolerant(load, RefreshMemTemperature, nullptr, 0u, &value);
}

// Which output ports can stretch their signal: one bit per port.
bool ReadOutSignalSpans(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    // The out count is asked afresh; the record keeps the counts the port step settled on.
    uint32_t inCount = 0, outCount = 0;
    if (!Ask(load, VMC_CODE_EXTERNAL_COUNT, 0, &inCount, &outCount, Rule::Tolerant)) return false;
    for (uint32_t port = 1; port <= outCount; ++port) {
        uint32_t value = 0;
        bool answered = false;
        if (!Ask(load, VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, port, &value, nullptr, Rule::Tolerant, &answered))
            return false;
        if (!answered) continue;
        StoreField(record.hasExternalOutSignalSpan, 1);
        const uint32_t bit = 1u << port;
        StoreField(record.externalOutSignalSpan, value ? record.externalOutSignalSpan | bit
                                                       : record.externalOutSignalSpan & ~bit);
    }
    return true;
}

bool ReadFanAndMeasurements(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    uint32_t value = 0;
    if (!Tolerant(load, RefreshFanRecReadyStop, &record.hasFanRecReadyStop, &value)) return false;
    static constexpr DeviceProbe kProbes[] = {
        {VMC_CODE_MEASUREMENT_CURRENT, nullptr, nullptr, &R::hasMeasurementCurrent},
        {VMC_CODE_MEASUREMENT_VOLTAGE, nullptr, nullptr, &R::hasMeasurementVoltage},
    };
    if (!Probes(load, kProbes)) return false;
    // The memory-temperature code has the last word on temperatures.
    bool answered = false;
    if (!Ask(load, VMC_CODE_MEM_TEMPERATURE_TYPE, 0, &value, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(record.hasTemperature, answered && value != 0);
    if (!ReadWarningTemperature(load, record.hasWarningTemperature)) return false;
    uint32_t cut = 0;
    answered = VMC_GetWarningCableCutting(load.deviceNo, 0, &cut, load.error);
    if (!answered && !IsNotSupported(load.error) && *load.error != VMC_ERR_BAD_CHILD) return false;
    StoreField(record.hasWarningCableCutting, answered);
    return true;
}

bool ReadTriggerNoiseAndIo(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!CheckInitialised(load)) return false;
    if (!Probe1(load, {VMC_CODE_TRIGGER_NOISE_FILTER, &R::triggerNoiseFilter, nullptr, &R::hasTriggerNoiseFilter}))
        return false;
    bool width1 = false, width2 = false;
    if (!Ask(load, VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH, 0, &record.triggerNoiseFilterWidth1, nullptr, Rule::Tolerant,
             &width1) ||
        !Ask(load, VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH_2, 0, &record.triggerNoiseFilterWidth2,
             &record.triggerNoiseFilterWidth3, Rule::Tolerant, &width2))
        return false;
    StoreField(record.hasTriggerNoiseFilterWidth, width1 && width2);
    for (uint32_t sub = 0; sub < std::size(record.vdaioType); ++sub) {
        if (GetCaps(load.deviceNo, 0, VMC_CODE_VDAIO_TYPE, sub, &record.vdaioType[sub], nullptr, load.error)) {
            StoreField(record.hasVDAIOType, 1);
            continue;
        }
        if (IsNotSupported(load.error)) {
            StoreField(record.hasVDAIOType, 0);
            break;
        }
        if (*load.error == VMC_ERR_BAD_ARGUMENT) continue;  // a sub-code this camera skips
        StoreField(record.hasVDAIOType, 0);
        return false;
    }
    return Probe1(load, {VMC_CODE_MEMORY_SHARE, &R::memoryShare, nullptr, &R::hasMemoryShare});
}

bool ReadIdentityExtras(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    // Recorded acceleration data: asked with no buffer, the answer is only presence.
    const bool acceleration = GetData(load.deviceNo, 0, VMC_DATA_ACCELERATION, 0, 0, nullptr, load.error) != 0;
    if (!acceleration && !IsNotSupported(load.error)) return false;
    StoreField(record.hasMemAccelerationData, acceleration);
    uint32_t value = 0;
    bool answered = false;
    Ask(load, VMC_CODE_PROBE_368, 0, &value, nullptr, Rule::Ignored, &answered);
    StoreField(record.hasCode368, answered ? static_cast<uint8_t>(value) : 0);
    if (!Probe1(load, {VMC_CODE_PROBE_397, nullptr, nullptr, &R::hasCode397})) return false;
    RefreshSerialNumber(load.deviceNo, 0, load.error);  // a camera without one keeps all ones
    uint32_t high = 0, low = 0;
    if (!Tolerant(load, VMC_GetMACAddress, &record.hasMACAddress, &high, &low)) return false;
    if (!Probe1(load, {VMC_CODE_PROBE_398, nullptr, nullptr, &R::hasCode398})) return false;
    RefreshMaxRandomEndlessTriggerCount(load.deviceNo, load.error);
    return true;
}

bool ReadSaveSlotAndSensorError(DeviceLoad& load) {
    if (!Probe1(load, {.filler = CHILD_FILLER(RefreshSaveSlotNo)})) return false;
    uint32_t value = 0;
    bool answered = false;
    if (!Ask(load.deviceNo, load.lastChild, VMC_CODE_ACCELERATION_SENSOR_ERROR, 0, &value, nullptr, Rule::Tolerant,
             load.error, &answered))
        return false;
    StoreField(load.record.hasAccelerationSensorError, answered);
    return true;
}

bool ReadLinkSettings(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!Probe1(load, {VMC_CODE_ETHERNET_SPEED_LIMIT, &R::ethernetSpeedLimit, nullptr, &R::hasEthernetSpeedLimit}))
        return false;
    uint32_t linkSpeed = 0;
    return Tolerant(load, RefreshLinkSpeed, &record.hasLinkSpeed, &linkSpeed);
}

// The packet-interval mode kept is the open parameter, not the camera's answer.
bool ReadPacketIntervalMode(DeviceLoad& load) {
    uint32_t value = 0;
    if (GetCaps(load.deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, 0, &value, nullptr, load.error)) {
        StoreField(load.record.hasPacketIntervalMode, 1);
        StoreField(load.record.packetIntervalMode, load.packetMode);
    } else {
        if (!IsNotSupported(load.error)) return false;
        StoreField(load.record.hasPacketIntervalMode, 0);
        StoreField(load.record.packetIntervalMode, 1);
    }
    return true;
}

// On a speed-limited link the stored 10-gigabit packet interval goes to the camera.
bool SendPacketInterval10G(DeviceLoad& load) {
    if (load.record.ethernetSpeedLimit != 1) return true;
    const uint32_t interval = ReadCommunicationValue(kStorePacketInterval10G, 1);
    if (SetCaps(load.deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, 1, interval, 0, load.error)) {
        StoreField(load.record.hasPacketIntervalMode, 1);
        StoreField(load.record.packetInterval10G, interval);
        return true;
    }
    if (!IsNotSupported(load.error)) return false;
    StoreField(load.record.hasPacketIntervalMode, 0);
    return true;
}

// Newer features announce themselves through one code with the feature number as sub-code.
bool ReadFeatures(DeviceLoad& load) {
    static constexpr DeviceProbe kFeatures[] = {
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasFeature161, Answer::IsOne, 161},
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasFeature162, Answer::IsOne, 162},
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasTelnetCommand, Answer::IsOne, 164},
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasDeviceErrorList, Answer::IsOne, 165},
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasDeviceErrorObserve, Answer::IsOne, 166},
        {VMC_CODE_FEATURE, nullptr, nullptr, &R::hasPhaseAdjustment, Answer::IsOne, 168},
    };
    return Probes(load, kFeatures);
}

constexpr Step kSteps[] = {
    HandOverGlobalLock,
    CreateDeviceLocks,
    ReadDeviceId,
    ReadIdentity,
    ReadDirectRecordRapidPack,
    ReadExternalCount,
    ReadShutterDisplayMode,
    ReadExternalPorts,
    ReadSignalAndLockModes,
    ReadPartitionIncModes,
    ReadPanelAndVideo,
    ReadIrigDetails,
    ReadTimecodeAndAdc,
    ReadFrameZeroAndStoreNum,
    ReadDelayLimits,
    ReadDelayValues,
    ReadModes,
    ReadProgSwitches,
    ReadEntryFlags,
    ReadOperationFeatures,
    ReadChildCounts,
    CheckInitialised,
    ReadExistingChildren,
    ReadSeriesAndIndexing,
    ReadDropFrames,
    ReadLinkAndHardware,
    ReadPixelGainMagnification,
    ReadSyncAndExposure,
    LoadChildren,
    ReadTriggerMode,
    ReadDeviceName,
    ReadCalMaxFrames,
    ReadStorageBox,
    ReadStorage,
    ReadNoiseAndStorageModes,
    ReadMedia,
    ReadBattery,
    ReadPowerAndThresholds,
    ReadAccelerationTriggers,
    ReadTemperatureSensors,
    ReadOutSignalSpans,
    ReadFanAndMeasurements,
    ReadTriggerNoiseAndIo,
    ReadIdentityExtras,
    ReadSaveSlotAndSensorError,
    ReadLinkSettings,
    ReadPacketIntervalMode,
    SendPacketInterval10G,
    ReadFeatures,
};

}  // namespace

uint32_t LoadDeviceState(uint32_t deviceNo, uint32_t packetMode, uint32_t* error) {
    DeviceLoad load = {{deviceNo, 0, error, Record(deviceNo)}, packetMode, {}, 0};
    for (Step step : kSteps)
        if (!step(load)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc
