// The child half of the state load: one camera head, asked with its child
// number. Code 2 (record rate) is the test of a working head: a head that
// can't say its rate is not loaded at all.
#include <cstring>
#include <vector>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "state/load.h"
#include "state/load_rules.h"
#include "state/requests.h"

namespace vmc {
namespace {

using ChildProbe = Probe<ChildRecord>;
using C = ChildRecord;

struct ChildLoad : LoadOf<ChildRecord> {
    DeviceRecord& device;
};

using Step = bool (*)(ChildLoad&);

bool ReadIdentity(ChildLoad& load) {
    uint32_t colorType = 0;
    if (!Tolerant(load, RefreshColorType, nullptr, &colorType)) return false;
    static constexpr ChildProbe kIdentity[] = {
        {.filler = CHILD_FILLER(RefreshProductID)},
        {.filler = CHILD_FILLER(RefreshLotID)},
        {.filler = CHILD_FILLER(RefreshIndividualID)},
        {.filler = CHILD_FILLER(RefreshVersion)},
    };
    return Probes(load, kIdentity);
}

bool ReadVariableChannel(ChildLoad& load) {
    if (!load.device.variableFunction) return true;
    uint32_t channel = 0;
    if (!RefreshVariableChannel(load.deviceNo, load.childNo, &channel, load.error)) {
        // Kept as the cameras' drivers expect it: a failure here gives back
        // the device lock once, although the load does not hold it, and goes on.
        ReleaseDeviceLock(load.deviceNo);
    }
    return true;
}

bool ReadRecordRate(ChildLoad& load) {
    uint32_t rate = 0;
    return RefreshRecordRate(load.deviceNo, load.childNo, &rate, load.error);
}

bool ReadResolution(ChildLoad& load) {
    uint32_t width = 0, height = 0;
    return RefreshMaxResolution(load.deviceNo, load.childNo, &width, &height, load.error) &&
           RefreshResolution(load.deviceNo, load.childNo, &width, &height, load.error);
}

bool ReadRoiAndExposure(ChildLoad& load) {
    ChildRecord& child = load.record;
    uint32_t width = 0, height = 0, x = 0, y = 0;
    if (!Tolerant(load, RefreshResolutionROI, &child.hasResolutionROI, &width, &height)) return false;
    if (!Tolerant(load, RefreshSegmentPosition, nullptr, &x, &y)) return false;
    if (!Probe1(load, {.flag = &C::hasAutoExposure, .filler = CHILD_FILLER(RefreshAutoExposure)})) return false;
    // The device-wide flag follows the head loaded last.
    StoreField(load.device.hasAutoExposureCode294, 0);
    if (child.hasAutoExposure) {
        uint32_t value = 0;
        bool answered294 = false;
        Ask(load, VMC_CODE_AUTO_EXPOSURE_PROBE_294, 0, &value, nullptr, Rule::Ignored, &answered294);
        StoreField(load.device.hasAutoExposureCode294, answered294 && value != 0);
    }
    return true;
}

bool ReadShutterAndSensor(ChildLoad& load) {
    if (!Probe1(load, {.flag = &C::hasImageTrigger, .filler = CHILD_FILLER(RefreshImageTrigger)})) return false;
    if (!Ask(load, VMC_CODE_SHUTTER_SPEED_FPS, 0, &load.record.shutterFps, nullptr, Rule::Fatal)) return false;
    static constexpr ChildProbe kProbes[] = {
        {.flag = &C::hasShutterUsec, .filler = CHILD_FILLER(RefreshShutterSpeedUsec)},
        {.flag = &C::hasShutterNsec, .filler = CHILD_FILLER(RefreshShutterSpeedNsec)},
        {VMC_CODE_SENSOR_GAIN_MODE, &C::sensorGainMode, nullptr, &C::hasSensorGain},
        {VMC_CODE_SENSOR_GAMMA_MODE, &C::sensorGammaMode, nullptr, &C::hasSensorGamma},
    };
    return Probes(load, kProbes);
}

// Colour temperature counts only when the base and all four settings answer.
bool ReadColorTemperature(ChildLoad& load) {
    ChildRecord& child = load.record;
    if (!Probe1(load, {VMC_CODE_COLOR_TEMP_BASE, &C::colorTempBase1, &C::colorTempBase2, &C::hasColorTemp}))
        return false;
    if (child.hasColorTemp) {
        uint32_t mode = 0, value1 = 0, value2 = 0, value3 = 0;
        StoreField(child.hasColorTemp, RefreshColorTempMode(load.deviceNo, load.childNo, &mode, &value1, &value2, &value3,
                                                  load.error) != 0);
    }
    uint32_t mode = 0, value1 = 0, value2 = 0, value3 = 0;
    return Tolerant(load, RefreshSoftColorTempMode, &child.hasSoftColorTemp, &mode, &value1, &value2, &value3);
}

bool ReadLutAndShutterModes(ChildLoad& load) {
    ChildRecord& child = load.record;
    if (!Probe1(load, {VMC_CODE_LUT_MODE, &C::lutMode, nullptr, &C::hasLUT}) ||
        !Probe1(load, {VMC_CODE_DS_SHUTTER_MODE, &C::dsShutterMode, nullptr, &C::hasDSShutter}))
        return false;
    if (child.hasDSShutter) {
        bool answered = false;
        // A refusal of the value clears the feature; any other failure ends
        // the load and leaves the flag set, as the cameras' drivers expect.
        if (!Ask(load, VMC_CODE_DS_SHUTTER_VALUE, 0, &child.dsShutterValue, nullptr, Rule::Tolerant, &answered))
            return false;
        if (!answered) {
            StoreField(child.dsShutterValue, 0);
            StoreField(child.hasDSShutter, 0);
        }
    }
    return true;
}

bool ReadShadingAndPixelGain(ChildLoad& load) {
    ChildRecord& child = load.record;
    if (!Probe1(load, {VMC_CODE_SHADING_MODE, &C::shadingMode, nullptr, &C::hasShading}) ||
        !Probe1(load, {VMC_CODE_STEP_SHUTTER, nullptr, nullptr, &C::hasStepShutter}))
        return false;
    bool answered = false;
    Ask(load, VMC_CODE_PIXEL_GAIN_MODE, 0, &child.pixelGainMode, nullptr, Rule::Ignored, &answered);
    StoreField(child.hasPixelGain, answered);
    if (!answered) StoreField(child.pixelGainMode, 0);
    if (child.hasPixelGain && !Ask(load, VMC_CODE_PIXEL_GAIN_DATA_SIZE, 0, &child.pixelGainDataSize, nullptr, Rule::Tolerant))
        return false;
    if (load.device.hasPixelGainMagnification &&
        !Ask(load, VMC_CODE_PIXEL_GAIN_DATA_MODE3_SIZE, 0, &child.pixelGainDataMode3Size, nullptr, Rule::Tolerant))
        return false;
    return true;
}

bool ReadImageModes(ChildLoad& load) {
    ChildRecord& child = load.record;
    static constexpr ChildProbe kProbes[] = {
        {VMC_CODE_EDGE_ENHANCE_MODE, &C::edgeEnhanceMode, nullptr, &C::hasEdgeEnhance},
        {.flag = &C::hasGhostReduction, .filler = CHILD_FILLER(RefreshGhostReduction)},
        {VMC_CODE_MAX_BIT_DEPTH, &C::maxBitDepth},
        {VMC_CODE_BIT_DEPTH, &C::bitDepth, nullptr, &C::hasBitDepth},
    };
    if (!Probes(load, kProbes)) return false;
    uint32_t depth = 0, depth2 = 0;
    const bool answered = GetCaps(load.deviceNo, load.childNo, VMC_CODE_BIT_DEPTH_2, 0, &depth, &depth2, load.error);
    // A module may leave its success code in the word of a refusal.
    if (!answered && !IsNotSupported(load.error) && *load.error != VMC_ERR_OK) return false;
    StoreField(child.hasBitDepth2, answered);
    if (answered) {
        StoreField(child.bitDepth, depth);
        StoreField(child.bitDepth2, depth2);
    }
    return Probe1(load, {.filler = CHILD_FILLER(RefreshMaxFullResoRate)});
}

bool ReadColorEnhance(ChildLoad& load) {
    if (!Probe1(load, {.flag = &C::hasColorEnhance, .filler = CHILD_FILLER(RefreshColorEnhanceMode)})) return false;
    if (!load.record.hasColorEnhance) return true;
    for (uint32_t plane = 1; plane <= 3; ++plane) {
        int32_t triple[3] = {};
        if (!RefreshColorEnhanceValue(load.deviceNo, load.childNo, plane, triple, load.error) && !IsNotSupported(load.error))
            return false;
    }
    return true;
}

bool ReadSensorModes(ChildLoad& load) {
    ChildRecord& child = load.record;
    static constexpr ChildProbe kModes[] = {
        {.filler = CHILD_FILLER(RefreshCamMode)},
        {.flag = &C::hasSensorTempMode, .filler = CHILD_FILLER(RefreshSensorTempMode)},
        {.flag = &C::hasFPGATempMode, .filler = CHILD_FILLER(RefreshFPGATempMode)},
        {.flag = &C::hasShadingOffset, .filler = CHILD_FILLER(RefreshShadingOffsetMode)},
    };
    static constexpr ChildProbe kOffset[] = {
        {.filler = CHILD_FILLER(RefreshShadingOffsetValue)},
        {.filler = CHILD_PAIR_FILLER(RefreshShadingOffsetLimit)},
    };
    static constexpr ChildProbe kCorrections[] = {
        {VMC_CODE_LIVE_RESOLUTION_SCALE_MODE, nullptr, nullptr, &C::hasLiveResolutionScale},
        {.flag = &C::hasOffsetAS, .filler = CHILD_FILLER(RefreshOffsetAS)},
        {.flag = &C::hasHBanding, .filler = CHILD_FILLER(RefreshH_Banding)},
    };
    return Probes(load, kModes) && (!child.hasShadingOffset || Probes(load, kOffset)) && Probes(load, kCorrections);
}

// A polarising head starts with pixel-defect correction off: the defect map
// of a plain sensor would damage its pixel pattern.
bool ReadPolarization(ChildLoad& load) {
    ChildRecord& child = load.record;
    uint32_t value = 0;
    bool answered = false;
    if (!Ask(load, VMC_CODE_POLARIZATION, 0, &value, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(child.polarization, answered ? static_cast<uint8_t>(value) : 0);
    if (!answered || value == 0) return true;
    uint32_t config = 0;
    RefreshPolarizerConfig(load.deviceNo, load.childNo, &config, load.error);
    if (child.polarization == 1 &&
        SetCaps(load.deviceNo, load.childNo, VMC_CODE_PIXEL_DEFECT_MODE, 0, 0, 0, load.error))
        StoreField(child.pixelDefectMode, 0);
    return true;
}

bool ReadCorrectionsAndLens(ChildLoad& load) {
    static constexpr ChildProbe kProbes[] = {
        {VMC_CODE_SHADING_TYPE, &C::shadingType, nullptr, &C::hasShadingType},
        {VMC_CODE_BLACK_CLIP_LEVEL, &C::blackClipLevel, nullptr, &C::hasBlackClipLevel},
    };
    if (!Probes(load, kProbes)) return false;
    // The device-wide flag follows the head loaded last.
    bool answered = false;
    uint32_t value = 0;
    if (!Ask(load, VMC_CODE_HEAD_LED_LASER, 0, &value, nullptr, Rule::Tolerant, &answered)) return false;
    StoreField(load.device.hasHeadLedLaser, answered);
    return Probe1(load, {.flag = &C::hasLensControl, .filler = CHILD_FILLER(RefreshLensControl)});
}

bool ReadChildName(ChildLoad& load) {
    ReadName(load.deviceNo, load.childNo, load.record.childName, "Unknown Child Device", load.error);
    return true;
}

bool ReadPartitions(ChildLoad& load) {
    ChildRecord& child = load.record;
    if (!Probe1(load, {VMC_CODE_MAX_PARTITION, &C::maxPartition, &C::maxPartitionBlocks})) return false;
    StoreField(load.device.hasPartition, child.maxPartitionBlocks != 0);
    uint32_t current = 0;
    if (!Probe1(load, {VMC_CODE_PARTITION_COUNT, &C::partitionCount}) ||
        !Tolerant(load, RefreshCurrentPartition, nullptr, &current) ||
        !Probe1(load, {VMC_CODE_MEMORY_MODE_PARTITION, &C::memoryModePartition, nullptr, &C::hasMemoryModePartition}))
        return false;
    return Ask(load, VMC_CODE_MAX_FRAMES, 0, &child.maxFrames, &child.maxFrameBlocks, Rule::Fatal);
}

// Whether the head keeps event and trigger frame lists: anything but a refusal says yes.
bool ReadFrameLists(ChildLoad& load) {
    std::vector<uint32_t> scratch(VMC_MAX_LIST_ENTRIES);  // contents unused; only a refusal matters
    uint32_t count = 0;
    GetList(load.deviceNo, load.childNo, VMC_LIST_MEM_EVENT_FRAME, 0, scratch.data(), &count, load.error);
    StoreField(load.device.hasMemEventFrame, !IsNotSupported(load.error));
    GetList(load.deviceNo, load.childNo, VMC_LIST_MEM_TRIGGER_FRAME, 0, scratch.data(), &count, load.error);
    StoreField(load.device.hasMemTriggerFrameList, !IsNotSupported(load.error));
    return true;
}

bool ReadLiveAndDefects(ChildLoad& load) {
    static constexpr ChildProbe kProbes[] = {
        {.flag = &C::hasLiveResolution, .filler = CHILD_FILLER(RefreshLiveResolutionMode)},
        {.flag = &C::hasCameraCommandBaudRate, .filler = CHILD_FILLER(RefreshCameraCommandBaudRate)},
        {VMC_CODE_TEST_PATTERN, nullptr, nullptr, &C::hasTestPattern},
        {VMC_CODE_MAX_PIXEL_DEFECT_COUNT, &C::maxPixelDefectCount},
        {VMC_CODE_PIXEL_DEFECT_MODE, &C::pixelDefectMode},
    };
    return Probes(load, kProbes);
}

bool ReadTemperatures(ChildLoad& load) {
    ChildRecord& child = load.record;
    uint32_t types[VMC_MAX_LIST_ENTRIES] = {};
    uint32_t count = 0;
    const bool listed = GetList(load.deviceNo, load.childNo, VMC_LIST_TEMPERATURE_TYPE, 0, types, &count, load.error);
    if (!listed && !IsNotSupported(load.error)) return false;
    StoreField(child.hasTemperature, listed && count != 0);
    uint32_t value = 0, cut = 0;
    uint8_t flag = 0;
    return Tolerant(load, RefreshMemTemperature, nullptr, &value) &&
           Tolerant(load, VMC_GetWarningTemperature, &child.hasWarningTemperature, &flag) &&
           Tolerant(load, VMC_GetWarningCableCutting, &child.hasWarningCableCutting, &cut);
}

bool ReadAccelerationData(ChildLoad& load, uint8_t& flag) {
    const bool answered = GetData(load.deviceNo, load.childNo, VMC_DATA_ACCELERATION, 0, 0, nullptr, load.error);
    if (!answered && !IsNotSupported(load.error)) return false;
    StoreField(flag, answered);
    return true;
}

bool ReadExtras(ChildLoad& load) {
    ChildRecord& child = load.record;
    if (!ReadAccelerationData(load, child.hasMemAccelerationData)) return false;
    RefreshSerialNumber(load.deviceNo, load.childNo, load.error);  // a head without one keeps all ones
    if (!ReadAccelerationData(load, child.hasMemAccelerationData)) return false;
    uint32_t value = 0;
    if (!Tolerant(load, RefreshCode401, nullptr, &value)) return false;
    value = 0;
    if (!Tolerant(load, RefreshSaveSlotNo, nullptr, &value)) return false;
    const bool irig = GetData(load.deviceNo, load.childNo, VMC_DATA_LIVE_IMAGE_IRIG, 0, 0, nullptr, load.error);
    if (!irig && !IsNotSupported(load.error)) return false;
    StoreField(child.hasLiveImageIRIG, irig);
    return Probe1(load, {VMC_CODE_FEATURE, nullptr, nullptr, &C::hasFeature162, Answer::IsOne, 162});
}

constexpr Step kSteps[] = {
    ReadIdentity,
    ReadVariableChannel,
    ReadRecordRate,
    ReadResolution,
    ReadRoiAndExposure,
    ReadShutterAndSensor,
    ReadColorTemperature,
    ReadLutAndShutterModes,
    ReadShadingAndPixelGain,
    ReadImageModes,
    ReadColorEnhance,
    ReadSensorModes,
    ReadPolarization,
    ReadCorrectionsAndLens,
    ReadChildName,
    ReadPartitions,
    ReadFrameLists,
    ReadLiveAndDefects,
    ReadTemperatures,
    ReadExtras,
};

}  // namespace

uint32_t ReadName(uint32_t deviceNo, uint32_t child, char* field, const char* fallback, uint32_t* error) {
    char name[VMC_NAME_SIZE] = {};
    const uint32_t answered = CallDevice(deviceNo, &DeviceModule::DEV_GetDeviceName, error, child, name);
    name[VMC_NAME_SIZE - 1] = '\0';
    if (!answered) {
        std::memset(name, 0, sizeof name);
        std::strcpy(name, fallback);
    }
    std::memcpy(field, name, sizeof name);
    return answered;
}

uint32_t LoadChildState(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    ChildLoad load = {{deviceNo, childNo, error, *Child(deviceNo, childNo)}, Record(deviceNo)};
    for (Step step : kSteps)
        if (!step(load)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc
