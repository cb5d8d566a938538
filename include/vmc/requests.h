/*
 * requests.h - Requests: ask the camera now, store the answer in the record, return it.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 *
 * Each VMC_Req function takes the device lock, asks the camera for one
 * setting, stores the answer where the matching VMC_Get reads it, and hands
 * it back. It returns the module's result with the module's error word;
 * error 2 before VMC_Init, 4 for a head number that is 0, too high or absent,
 * 5 for a null out-argument. When the camera lacks the setting (error 21) the
 * value and the cache take the setting's neutral value, so a Get afterwards
 * reads what the camera would do. A failure may therefore change the cache:
 * resolution and trigger mode read 0 after one.
 */
#ifndef VMC_REQUESTS_H
#define VMC_REQUESTS_H

/* Identity and layout. ProductID to Version take child 0 for the device itself. */
VMC_API uint32_t VMC_ReqDeviceID(uint32_t deviceNo, uint32_t* deviceId, uint32_t* error);
VMC_API uint32_t VMC_ReqProductID(uint32_t deviceNo, uint32_t childNo, uint32_t* productId, uint32_t* error);
VMC_API uint32_t VMC_ReqLotID(uint32_t deviceNo, uint32_t childNo, uint32_t* lotId, uint32_t* error);
VMC_API uint32_t VMC_ReqIndividualID(uint32_t deviceNo, uint32_t childNo, uint32_t* individualId, uint32_t* error);
VMC_API uint32_t VMC_ReqVersion(uint32_t deviceNo, uint32_t childNo, uint32_t* version, uint32_t* error);
VMC_API uint32_t VMC_ReqColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* colorType, uint32_t* error);

/* Device settings. */
VMC_API uint32_t VMC_ReqShutterLockMode(uint32_t deviceNo, uint32_t* shutterLockMode, uint32_t* error);
VMC_API uint32_t VMC_ReqResolutionLockMode(uint32_t deviceNo, uint32_t* resolutionLockMode, uint32_t* error);
VMC_API uint32_t VMC_ReqPartitionIncMode(uint32_t deviceNo, uint32_t* partitionIncMode, uint32_t* error);
VMC_API uint32_t VMC_ReqKeyPadLock(uint32_t deviceNo, uint32_t* keyPadLock, uint32_t* error);
VMC_API uint32_t VMC_ReqVideoOutMode(uint32_t deviceNo, uint32_t* videoOutMode, uint32_t* error);
VMC_API uint32_t VMC_ReqChildDeviceCount(uint32_t deviceNo, uint32_t* childDeviceCount, uint32_t* error);
VMC_API uint32_t VMC_ReqMaxChildDeviceCount(uint32_t deviceNo, uint32_t* maxChildDeviceCount, uint32_t* error);
VMC_API uint32_t VMC_ReqExternalCount(uint32_t deviceNo, uint32_t* externalInCount, uint32_t* externalOutCount,
                                      uint32_t* error);

/* Ports 1..4; any other port gives error 5. */
VMC_API uint32_t VMC_ReqExternalInMode(uint32_t deviceNo, uint32_t port, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_ReqExternalOutMode(uint32_t deviceNo, uint32_t port, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_ReqIRIG(uint32_t deviceNo, uint32_t* irigMode, uint32_t* error);
VMC_API uint32_t VMC_ReqMCDL(uint32_t deviceNo, uint32_t* mcdlMode, uint32_t* error);
VMC_API uint32_t VMC_ReqIRIGOffset(uint32_t deviceNo, uint32_t* irigOffset, uint32_t* error);
VMC_API uint32_t VMC_ReqIRIGSampleMode(uint32_t deviceNo, uint32_t* irigSampleMode, uint32_t* error);

/* Recording parameters of a head. The Cache forms take what the module holds,
   without a transfer from the camera. Resolution also sets the region of
   interest to the whole picture; all four read 0 after a failure. */
VMC_API uint32_t VMC_ReqRecordRate(uint32_t deviceNo, uint32_t childNo, uint32_t* recordRate, uint32_t* error);
VMC_API uint32_t VMC_ReqRecordRateCache(uint32_t deviceNo, uint32_t childNo, uint32_t* recordRate, uint32_t* error);

/* The four trigger words; a failure leaves mode 0. */
VMC_API uint32_t VMC_ReqTriggerMode(uint32_t deviceNo, uint32_t* mode, uint32_t* afterFrames, uint32_t* randomFrames,
                                    uint32_t* randomCount, uint32_t* error);
VMC_API uint32_t VMC_ReqResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                   uint32_t* error);
VMC_API uint32_t VMC_ReqResolutionCache(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                      uint32_t* error);
VMC_API uint32_t VMC_ReqSegmentPosition(uint32_t deviceNo, uint32_t childNo, uint32_t* segmentX, uint32_t* segmentY,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqSegmentPositionCache(uint32_t deviceNo, uint32_t childNo, uint32_t* segmentX,
                                             uint32_t* segmentY, uint32_t* error);
VMC_API uint32_t VMC_ReqShutterSpeedFps(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterFps, uint32_t* error);
VMC_API uint32_t VMC_ReqShutterSpeedUsec(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterUsec, uint32_t* error);
VMC_API uint32_t VMC_ReqShutterSpeedNsec(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterNsec, uint32_t* error);
VMC_API uint32_t VMC_ReqMaxPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* maxPartition,
                                     uint32_t* maxPartitionBlocks, uint32_t* error);
VMC_API uint32_t VMC_ReqCurrentPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* partition, uint32_t* error);
VMC_API uint32_t VMC_ReqSensorGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorGainMode,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqSensorGammaMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorGammaMode,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                      uint32_t* value2, uint32_t* value3, uint32_t* error);
VMC_API uint32_t VMC_ReqAutoExposure(uint32_t deviceNo, uint32_t childNo, uint32_t* autoExposure, uint32_t* error);
VMC_API uint32_t VMC_ReqImageTrigger(uint32_t deviceNo, uint32_t childNo, uint32_t* imageTrigger, uint32_t* error);
VMC_API uint32_t VMC_ReqLUTMode(uint32_t deviceNo, uint32_t childNo, uint32_t* lutMode, uint32_t* error);
VMC_API uint32_t VMC_ReqDSShutterMode(uint32_t deviceNo, uint32_t childNo, uint32_t* dsShutterMode, uint32_t* error);
VMC_API uint32_t VMC_ReqDSShutterValue(uint32_t deviceNo, uint32_t childNo, uint32_t* dsShutterValue,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqEdgeEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* edgeEnhanceMode,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqShadingMode(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingMode, uint32_t* error);
VMC_API uint32_t VMC_ReqShadingType(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingType, uint32_t* error);
VMC_API uint32_t VMC_ReqPixelGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* pixelGainMode, uint32_t* error);
VMC_API uint32_t VMC_ReqColorEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* colorEnhanceMode,
                                         uint32_t* error);

/* Frame capacity is stored only when the camera answers. */
VMC_API uint32_t VMC_ReqMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFrames, uint32_t* maxFrameBlocks,
                                  uint32_t* error);
VMC_API uint32_t VMC_ReqMaxFramesCache(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFrames,
                                       uint32_t* maxFrameBlocks, uint32_t* error);
VMC_API uint32_t VMC_ReqMaxResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* maxWidth, uint32_t* maxHeight,
                                      uint32_t* error);

/* Delay types 1..12; any other type gives error 5. A failure stores nothing. */
VMC_API uint32_t VMC_ReqDelay(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqDelayLimit(uint32_t deviceNo, uint32_t type, uint32_t* limit, uint32_t* error);

/* The memory view of a head: the settings the recording in memory was made
   with. VMC_ReqMemSensorGammaMode is VMC_ReqMemSensorGainMode under a
   second name: it asks and stores the gain mode. */
VMC_API uint32_t VMC_ReqMemIRIG(uint32_t deviceNo, uint32_t childNo, uint32_t* memIrigMode, uint32_t* error);
VMC_API uint32_t VMC_ReqMemIRIGSampleMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memIrigSampleMode,
                                          uint32_t* error);
VMC_API uint32_t VMC_ReqMemMCDL(uint32_t deviceNo, uint32_t childNo, uint32_t* memMcdlMode, uint32_t* error);
VMC_API uint32_t VMC_ReqMemRecordRate(uint32_t deviceNo, uint32_t childNo, uint32_t* memRecordRate, uint32_t* error);
VMC_API uint32_t VMC_ReqMemTriggerMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* afterFrames,
                                       uint32_t* randomFrames, uint32_t* randomCount, uint32_t* error);
VMC_API uint32_t VMC_ReqMemResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* memWidth, uint32_t* memHeight,
                                      uint32_t* error);
VMC_API uint32_t VMC_ReqMemResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* memRoiWidth,
                                         uint32_t* memRoiHeight, uint32_t* error);
VMC_API uint32_t VMC_ReqMemShutterSpeedFps(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterFps,
                                           uint32_t* error);
VMC_API uint32_t VMC_ReqMemShutterSpeedUsec(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterUsec,
                                            uint32_t* error);
VMC_API uint32_t VMC_ReqMemShutterSpeedNsec(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterNsec,
                                            uint32_t* error);
VMC_API uint32_t VMC_ReqMemSensorGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memSensorGainMode,
                                          uint32_t* error);
VMC_API uint32_t VMC_ReqMemSensorGammaMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memSensorGainMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_ReqMemColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                         uint32_t* value2, uint32_t* value3, uint32_t* error);
VMC_API uint32_t VMC_ReqMemAutoExposure(uint32_t deviceNo, uint32_t childNo, uint32_t* memAutoExposure,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqMemLUTMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memLutMode, uint32_t* error);
VMC_API uint32_t VMC_ReqMemDSShutterMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memDsShutterMode,
                                         uint32_t* error);
VMC_API uint32_t VMC_ReqMemDSShutterValue(uint32_t deviceNo, uint32_t childNo, uint32_t* memDsShutterValue,
                                          uint32_t* error);
VMC_API uint32_t VMC_ReqMemEdgeEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memEdgeEnhanceMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_ReqMemColorEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memColorEnhanceMode,
                                            uint32_t* error);
VMC_API uint32_t VMC_ReqFrameZero(uint32_t deviceNo, uint32_t* frameZeroMode, uint32_t* error);

/* Event frames of the recording, negative before the trigger; the caller's
   lists must hold every entry the camera reports. */
VMC_API uint32_t VMC_ReqMemEventFrame(uint32_t deviceNo, uint32_t childNo, int32_t* frames, uint32_t* count,
                                      uint32_t* error);
VMC_API uint32_t VMC_ReqMemEventRCount(uint32_t deviceNo, uint32_t childNo, uint32_t* blocks, uint32_t* count,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqMemTwoStageTriggerFrame(uint32_t deviceNo, uint32_t childNo, uint32_t* value1,
                                                uint32_t* value2, uint32_t* error);
VMC_API uint32_t VMC_ReqMemTwoStageTriggerTiming(uint32_t deviceNo, uint32_t childNo, uint32_t* value,
                                                 uint32_t* error);
VMC_API uint32_t VMC_ReqMemRecordedFramesCache(uint32_t deviceNo, uint32_t childNo, uint32_t* recordedFrames,
                                               uint32_t* error);

/* The frame range of the recording: first and last frame number, events,
   stored frames, as the trigger mode the recording was made with lays them
   out. */
VMC_API uint32_t VMC_ReqMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* record,
                                     uint32_t* error);

/* Colour-enhancement triple of plane 1..3; any other plane gives error 5. */
VMC_API uint32_t VMC_ReqColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                          uint32_t* error);
VMC_API uint32_t VMC_ReqMemColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                             uint32_t* error);
VMC_API uint32_t VMC_ReqMemSegmentPosition(uint32_t deviceNo, uint32_t childNo, uint32_t* memSegmentX,
                                           uint32_t* memSegmentY, uint32_t* error);

/* Further settings of the device and its heads. */
VMC_API uint32_t VMC_ReqMaxBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* maxBitDepth, uint32_t* error);
VMC_API uint32_t VMC_ReqDownloadMode(uint32_t deviceNo, uint32_t* downloadMode, uint32_t* error);
VMC_API uint32_t VMC_ReqCamMode(uint32_t deviceNo, uint32_t childNo, uint32_t* camMode, uint32_t* error);
VMC_API uint32_t VMC_ReqCamModeCache(uint32_t deviceNo, uint32_t childNo, uint32_t* camMode, uint32_t* error);
VMC_API uint32_t VMC_ReqVariableFunction(uint32_t deviceNo, uint32_t* variableFunction, uint32_t* error);
VMC_API uint32_t VMC_ReqMaxFullResoRate(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFullResoRate,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqLowLightMode(uint32_t deviceNo, uint32_t* lowLightMode, uint32_t* error);
VMC_API uint32_t VMC_ReqProgSwitchMode(uint32_t deviceNo, uint32_t switchNo, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_ReqColorTempBase(uint32_t deviceNo, uint32_t childNo, uint32_t* base1, uint32_t* base2,
                                      uint32_t* error);
VMC_API uint32_t VMC_ReqSyncOutTimes(uint32_t deviceNo, uint32_t* syncOutTimes, uint32_t* error);
VMC_API uint32_t VMC_ReqStoreNum(uint32_t deviceNo, uint32_t* storeNum, uint32_t* error);
VMC_API uint32_t VMC_ReqIRIGPhaseLock(uint32_t deviceNo, uint32_t* irigPhaseLock, uint32_t* error);
VMC_API uint32_t VMC_ReqIRIGPhaseLockStatus(uint32_t deviceNo, uint32_t* irigPhaseLockStatus, uint32_t* error);
VMC_API uint32_t VMC_ReqMemIRIGPhaseLockStatus(uint32_t deviceNo, uint32_t childNo, uint32_t* memIrigPhaseLockStatus,
                                               uint32_t* error);
VMC_API uint32_t VMC_ReqHighSpeedMode(uint32_t deviceNo, uint32_t* highSpeedMode, uint32_t* error);
VMC_API uint32_t VMC_ReqVideoOutSignal(uint32_t deviceNo, uint32_t* videoOutSignal, uint32_t* error);
VMC_API uint32_t VMC_ReqVideoOutHDSDI(uint32_t deviceNo, uint32_t* videoOutHDSDI, uint32_t* error);
VMC_API uint32_t VMC_ReqLiveResolutionMode(uint32_t deviceNo, uint32_t childNo, uint32_t* liveResolutionMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_ReqLiveResolutionScaleMode(uint32_t deviceNo, uint32_t childNo, uint32_t* liveResolutionMode,
                                                uint32_t* error);
VMC_API uint32_t VMC_ReqMemColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* colorType, uint32_t* error);
VMC_API uint32_t VMC_ReqBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth, uint32_t* error);
VMC_API uint32_t VMC_ReqBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth, uint32_t* bitDepth2,
                                  uint32_t* error);
VMC_API uint32_t VMC_ReqMemBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth, uint32_t* error);
VMC_API uint32_t VMC_ReqMemBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth, uint32_t* bitDepth2,
                                     uint32_t* error);
VMC_API uint32_t VMC_ReqSyncPriority(uint32_t deviceNo, uint32_t* syncPriority, uint32_t* error);
VMC_API uint32_t VMC_ReqCameraCommandBaudRate(uint32_t deviceNo, uint32_t childNo, uint32_t* cameraCommandBaudRate,
                                              uint32_t* error);
VMC_API uint32_t VMC_ReqRecordingType(uint32_t deviceNo, uint32_t* recordingType, uint32_t* error);
VMC_API uint32_t VMC_ReqMCDLDataMode(uint32_t deviceNo, uint32_t* mcdlDataMode, uint32_t* error);
VMC_API uint32_t VMC_ReqGhostReduction(uint32_t deviceNo, uint32_t childNo, uint32_t* ghostReduction,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqOffsetAS(uint32_t deviceNo, uint32_t childNo, uint32_t* offsetAS, uint32_t* error);
VMC_API uint32_t VMC_ReqH_Banding(uint32_t deviceNo, uint32_t childNo, uint32_t* hBanding, uint32_t* error);
VMC_API uint32_t VMC_ReqSoftColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                          uint32_t* value2, uint32_t* value3, uint32_t* error);
VMC_API uint32_t VMC_ReqStorePreset(uint32_t deviceNo, uint32_t* storePreset, uint32_t* error);
VMC_API uint32_t VMC_ReqInstructionSet(uint32_t deviceNo, uint32_t* instructionSet, uint32_t* error);
VMC_API uint32_t VMC_ReqLEDMode(uint32_t deviceNo, uint32_t* ledMode, uint32_t* error);
VMC_API uint32_t VMC_ReqFixFrameRecordMode(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqBatteryPowerMode(uint32_t deviceNo, uint32_t* batteryPowerMode, uint32_t* error);
VMC_API uint32_t VMC_ReqBinningSensorMode(uint32_t deviceNo, uint32_t* binningSensorMode, uint32_t* error);
VMC_API uint32_t VMC_ReqVideoOSD(uint32_t deviceNo, uint32_t* videoOSD, uint32_t* error);
VMC_API uint32_t VMC_ReqSensorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorTempMode,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqFPGATempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* fpgaTempMode, uint32_t* error);
VMC_API uint32_t VMC_ReqShadingOffsetMode(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetMode,
                                          uint32_t* error);
VMC_API uint32_t VMC_ReqShadingOffsetValue(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetValue,
                                           uint32_t* error);
VMC_API uint32_t VMC_ReqShadingOffsetLimit(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetLimit1,
                                           uint32_t* shadingOffsetLimit2, uint32_t* error);
VMC_API uint32_t VMC_ReqMemoryBlock(uint32_t deviceNo, uint32_t* memoryBlock, uint32_t* error);
VMC_API uint32_t VMC_ReqNumofDropFrame(uint32_t deviceNo, uint32_t* numOfDropFrame, uint32_t* error);
VMC_API uint32_t VMC_ReqMemRecordedFramesPerTrigger(uint32_t deviceNo, uint32_t childNo, uint32_t index,
                                                    uint32_t* frames, uint32_t* error);
VMC_API uint32_t VMC_ReqPolarization(uint32_t deviceNo, uint32_t childNo, uint32_t* polarization, uint32_t* error);
VMC_API uint32_t VMC_ReqPolarizerConfig(uint32_t deviceNo, uint32_t childNo, uint32_t* polarizerConfig,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqBlackClipLevel(uint32_t deviceNo, uint32_t childNo, uint32_t* blackClipLevel,
                                       uint32_t* error);
VMC_API uint32_t VMC_ReqSubPort(uint32_t deviceNo, uint32_t* hasSubPort, uint32_t* error);
VMC_API uint32_t VMC_ReqSubInterfaceMode(uint32_t deviceNo, uint32_t* subInterfaceMode, uint32_t* error);
VMC_API uint32_t VMC_ReqExposeExtension(uint32_t deviceNo, uint32_t* exposeExtension, uint32_t* error);

/* Signal 13 or 14, or 82 or 88; any other signal succeeds and asks nothing. */
VMC_API uint32_t VMC_ReqExposeOutTimes(uint32_t deviceNo, uint32_t signal, uint32_t* times, uint32_t* error);
VMC_API uint32_t VMC_ReqMemoryModePartition(uint32_t deviceNo, uint32_t childNo, uint32_t* memoryModePartition,
                                            uint32_t* error);
VMC_API uint32_t VMC_ReqLensControl(uint32_t deviceNo, uint32_t childNo, uint32_t* lensControl, uint32_t* error);
VMC_API uint32_t VMC_ReqGetherTransferMode(uint32_t deviceNo, uint32_t* gEtherTransferMode, uint32_t* error);
VMC_API uint32_t VMC_ReqMechaShutterMode(uint32_t deviceNo, uint32_t* mechaShutterMode, uint32_t* error);
VMC_API uint32_t VMC_ReqFanCtrl(uint32_t deviceNo, uint32_t* fanCtrlMode, uint32_t* fanCtrlValue, uint32_t* error);

/* Answered only while the camera's storage is an SD card (SdCardCtrl) or an
   SSD box (SSDBoxCtrl); otherwise error 21 and value 0. */
VMC_API uint32_t VMC_ReqSdCardCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqMechanicalShutter(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqPixelGainMagnification(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqCalMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                                     uint32_t* error);
VMC_API uint32_t VMC_ReqMemTriggerFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* count,
                                            uint32_t* error);
VMC_API uint32_t VMC_ReqSelfSyncMode(uint32_t deviceNo, uint32_t* selfSyncMode, uint32_t* error);
VMC_API uint32_t VMC_ReqEnableSelfSyncMode(uint32_t deviceNo, uint32_t* enableSelfSyncMode, uint32_t* error);
VMC_API uint32_t VMC_ReqSSDBoxCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqStorageMode(uint32_t deviceNo, uint32_t* storageMode, uint32_t* error);
VMC_API uint32_t VMC_ReqLowFrameRateMode(uint32_t deviceNo, uint32_t* lowFrameRateMode, uint32_t* error);

/* A stored partition of a head. A partition above the configured count
   answers 0 with the error word at 1. For the partition in force,
   MemModeFrameInfo also updates the head's frame range. */
VMC_API uint32_t VMC_ReqMemModeResolution(uint32_t deviceNo, uint32_t childNo, uint32_t partition, uint32_t* width,
                                          uint32_t* height, uint32_t* error);
VMC_API uint32_t VMC_ReqMemModeFrameInfo(uint32_t deviceNo, uint32_t childNo, uint32_t partition,
                                         uint32_t noEventLists, MemFrameInfoRecord* record, uint32_t* error);
VMC_API uint32_t VMC_ReqVariableChannel(uint32_t deviceNo, uint32_t childNo, uint32_t* variableChannel,
                                        uint32_t* error);
VMC_API uint32_t VMC_ReqExternalOutSignalSpan(uint32_t deviceNo, uint32_t port, uint32_t* span, uint32_t* error);
VMC_API uint32_t VMC_ReqFanRecReadyStop(uint32_t deviceNo, uint32_t* value, uint32_t* error);

/* Link settings: error 21 on a camera without them. Index 0 is the packet
   interval mode, 1 the 10-gigabit interval. */
VMC_API uint32_t VMC_ReqLinkSpeed(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_ReqPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error);

#endif /* VMC_REQUESTS_H */
