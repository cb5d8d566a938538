/*
 * cached_reads.h - Cached reads: the Get family that answers from the records without device traffic.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 *
 * These take no lock and talk to no camera: they return what the library
 * last learned (at open, by a VMC_Req... call, by VMC_DeviceStatusUpdate or
 * by a write), so they may be called from any thread at any rate. Each
 * output is named after the record field it copies.
 *
 * Errors: 2 before VMC_Init; 5 for a device number of 64 or above, a null
 * output, or an index out of range; 4 for a child number that is 0 (where
 * a head is needed), above the device's maximum, or absent; 21 when the
 * camera has not got the function (the outputs are then left untouched).
 * A device number that is not open reads as a camera with nothing: zero
 * values, no heads, no functions.
 */
#ifndef VMC_CACHED_READS_H
#define VMC_CACHED_READS_H

VMC_API uint32_t VMC_GetDeviceCode(uint32_t deviceNo, uint32_t* deviceCode, uint32_t* error);
VMC_API uint32_t VMC_GetDeviceID(uint32_t deviceNo, uint32_t* deviceId, uint32_t* error);

/* Identity: child 0 reads the device's own, a head number that head's. */
VMC_API uint32_t VMC_GetProductID(uint32_t deviceNo, uint32_t childNo, uint32_t* productId, uint32_t* error);
VMC_API uint32_t VMC_GetLotID(uint32_t deviceNo, uint32_t childNo, uint32_t* lotId, uint32_t* error);
VMC_API uint32_t VMC_GetIndividualID(uint32_t deviceNo, uint32_t childNo, uint32_t* individualId,
                                     uint32_t* error);
VMC_API uint32_t VMC_GetVersion(uint32_t deviceNo, uint32_t childNo, uint32_t* version, uint32_t* error);
VMC_API uint32_t VMC_GetShutterLockMode(uint32_t deviceNo, uint32_t* shutterLockMode, uint32_t* error);
VMC_API uint32_t VMC_GetResolutionLockMode(uint32_t deviceNo, uint32_t* resolutionLockMode, uint32_t* error);
VMC_API uint32_t VMC_GetPartitionIncMode(uint32_t deviceNo, uint32_t* partitionIncMode, uint32_t* error);
VMC_API uint32_t VMC_GetKeyPadLock(uint32_t deviceNo, uint32_t* keyPadLock, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutMode(uint32_t deviceNo, uint32_t* videoOutMode, uint32_t* error);
VMC_API uint32_t VMC_GetChildDeviceCount(uint32_t deviceNo, uint32_t* childDeviceCount, uint32_t* error);
VMC_API uint32_t VMC_GetMaxChildDeviceCount(uint32_t deviceNo, uint32_t* maxChildDeviceCount,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetExternalCount(uint32_t deviceNo, uint32_t* externalInCount,
                                      uint32_t* externalOutCount, uint32_t* error);

/* Mode of input or output port 1..count (error 5 outside). */
VMC_API uint32_t VMC_GetExternalInMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetExternalOutMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetIRIG(uint32_t deviceNo, uint32_t* irigMode, uint32_t* error);
VMC_API uint32_t VMC_GetMCDL(uint32_t deviceNo, uint32_t* mcdlMode, uint32_t* error);
VMC_API uint32_t VMC_GetIRIGOffset(uint32_t deviceNo, uint32_t* irigOffset, uint32_t* error);
VMC_API uint32_t VMC_GetIRIGSampleMode(uint32_t deviceNo, uint32_t* irigSampleMode, uint32_t* error);

VMC_API uint32_t VMC_GetRecordRate(uint32_t deviceNo, uint32_t childNo, uint32_t* recordRate,
                                   uint32_t* error);
VMC_API uint32_t VMC_GetTriggerMode(uint32_t deviceNo, uint32_t* triggerMode, uint32_t* triggerAfterFrames,
                                    uint32_t* triggerRandomFrames, uint32_t* triggerRandomCount,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                   uint32_t* error);
VMC_API uint32_t VMC_GetResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* roiWidth,
                                      uint32_t* roiHeight, uint32_t* error);
VMC_API uint32_t VMC_GetSegmentPosition(uint32_t deviceNo, uint32_t childNo, uint32_t* segmentX,
                                        uint32_t* segmentY, uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedFps(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterFps,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedUsec(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterUsec,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedNsec(uint32_t deviceNo, uint32_t childNo, uint32_t* shutterNsec,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetCurrentPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* currentPartition,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetMemoryModePartition(uint32_t deviceNo, uint32_t childNo,
                                            uint32_t* memoryModePartition, uint32_t* error);
VMC_API uint32_t VMC_GetSensorGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorGainMode,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetSensorGammaMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorGammaMode,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* colorTempMode,
                                      uint32_t* colorTempValue1, uint32_t* colorTempValue2,
                                      uint32_t* colorTempValue3, uint32_t* error);
VMC_API uint32_t VMC_GetAutoExposure(uint32_t deviceNo, uint32_t childNo, uint32_t* autoExposure,
                                     uint32_t* error);
VMC_API uint32_t VMC_GetImageTrigger(uint32_t deviceNo, uint32_t childNo, uint32_t* imageTrigger,
                                     uint32_t* error);
VMC_API uint32_t VMC_GetLUTMode(uint32_t deviceNo, uint32_t childNo, uint32_t* lutMode, uint32_t* error);
VMC_API uint32_t VMC_GetDSShutterMode(uint32_t deviceNo, uint32_t childNo, uint32_t* dsShutterMode,
                                      uint32_t* error);
VMC_API uint32_t VMC_GetDSShutterValue(uint32_t deviceNo, uint32_t childNo, uint32_t* dsShutterValue,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetEdgeEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* edgeEnhanceMode,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetShadingMode(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingMode,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetShadingType(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingType,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetPixelGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* pixelGainMode,
                                      uint32_t* error);
VMC_API uint32_t VMC_GetColorEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* colorEnhanceMode,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetMaxResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* maxWidth,
                                      uint32_t* maxHeight, uint32_t* error);

/* Delay value and limit of a signal type 1..12; another type succeeds and writes nothing. */
VMC_API uint32_t VMC_GetDelay(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetDelayLimit(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);

/* Type 10: its upper limit; type 11: its upper and lower limits; others write nothing. */
VMC_API uint32_t VMC_GetDelayLimitEx(uint32_t deviceNo, uint32_t type, uint32_t* limit, uint32_t* lowerLimit,
                                     uint32_t* error);

/* The Mem forms: what was in force when the recording in camera memory was made. */
VMC_API uint32_t VMC_GetMemIRIG(uint32_t deviceNo, uint32_t childNo, uint32_t* memIrigMode, uint32_t* error);
VMC_API uint32_t VMC_GetMemMCDL(uint32_t deviceNo, uint32_t childNo, uint32_t* memMcdlMode, uint32_t* error);
VMC_API uint32_t VMC_GetMemRecordRate(uint32_t deviceNo, uint32_t childNo, uint32_t* memRecordRate,
                                      uint32_t* error);
VMC_API uint32_t VMC_GetMemTriggerMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memTriggerMode,
                                       uint32_t* memTriggerAfterFrames, uint32_t* memTriggerRandomFrames,
                                       uint32_t* memTriggerRandomCount, uint32_t* error);
VMC_API uint32_t VMC_GetMemResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* memWidth,
                                      uint32_t* memHeight, uint32_t* error);
VMC_API uint32_t VMC_GetMemResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* memRoiWidth,
                                         uint32_t* memRoiHeight, uint32_t* error);
VMC_API uint32_t VMC_GetMemShutterSpeedFps(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterFps,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetMemShutterSpeedUsec(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterUsec,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetMemShutterSpeedNsec(uint32_t deviceNo, uint32_t childNo, uint32_t* memShutterNsec,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetMemSensorGainMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memSensorGainMode,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetMemSensorGammaMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memSensorGammaMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetMemColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memColorTempMode,
                                         uint32_t* memColorTempValue1, uint32_t* memColorTempValue2,
                                         uint32_t* memColorTempValue3, uint32_t* error);
VMC_API uint32_t VMC_GetMemAutoExposure(uint32_t deviceNo, uint32_t childNo, uint32_t* memAutoExposure,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetMemLUTMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memLutMode,
                                   uint32_t* error);
VMC_API uint32_t VMC_GetMemDSShutterMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memDsShutterMode,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetMemDSShutterValue(uint32_t deviceNo, uint32_t childNo, uint32_t* memDsShutterValue,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetMemEdgeEnhanceMode(uint32_t deviceNo, uint32_t childNo, uint32_t* memEdgeEnhanceMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetMemColorEnhanceMode(uint32_t deviceNo, uint32_t childNo,
                                            uint32_t* memColorEnhanceMode, uint32_t* error);

/* Frame range of the recording: frameStart up to recordedFrames of the head. */
VMC_API uint32_t VMC_GetMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* info,
                                     uint32_t* error);
VMC_API uint32_t VMC_GetVariableChannel(uint32_t deviceNo, uint32_t childNo, uint32_t* variableChannel,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetMaxBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* maxBitDepth,
                                    uint32_t* error);

/* Plane 1, 2 or 3 writes its three signed values; another plane writes nothing. */
VMC_API uint32_t VMC_GetColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane,
                                          int32_t* values, uint32_t* error);
VMC_API uint32_t VMC_GetMemColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane,
                                             int32_t* values, uint32_t* error);
VMC_API uint32_t VMC_GetDownloadMode(uint32_t deviceNo, uint32_t* downloadMode, uint32_t* error);
VMC_API uint32_t VMC_GetCamMode(uint32_t deviceNo, uint32_t childNo, uint32_t* camMode, uint32_t* error);
VMC_API uint32_t VMC_GetMaxFullResoRate(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFullResoRate,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetLowLightMode(uint32_t deviceNo, uint32_t* lowLightMode, uint32_t* error);

/* Mode of programmable switch 1..4 (error 5 outside). */
VMC_API uint32_t VMC_GetProgSwitchMode(uint32_t deviceNo, uint32_t switchNo, uint32_t* value,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetMaxPixelDefectCount(uint32_t deviceNo, uint32_t childNo,
                                            uint32_t* maxPixelDefectCount, uint32_t* error);
VMC_API uint32_t VMC_GetShutdownBatterySupplyRange(uint32_t deviceNo, uint32_t* shutdownBatteryRange1,
                                                   uint32_t* shutdownBatteryRange2, uint32_t* error);
VMC_API uint32_t VMC_GetMediaSaveBatterySupplyRange(uint32_t deviceNo, uint32_t* mediaSaveBatteryRange1,
                                                    uint32_t* mediaSaveBatteryRange2, uint32_t* error);
VMC_API uint32_t VMC_GetColorTempBase(uint32_t deviceNo, uint32_t childNo, uint32_t* colorTempBase1,
                                      uint32_t* colorTempBase2, uint32_t* error);
VMC_API uint32_t VMC_GetSyncOutTimes(uint32_t deviceNo, uint32_t* syncOutTimes, uint32_t* error);
VMC_API uint32_t VMC_GetStoreNum(uint32_t deviceNo, uint32_t* storeNum, uint32_t* error);

/* Error 11 while the camera records in trigger mode 0x5000000. */
VMC_API uint32_t VMC_GetIRIGPhaseLock(uint32_t deviceNo, uint32_t* irigPhaseLock, uint32_t* error);
VMC_API uint32_t VMC_GetIRIGPhaseLockStatus(uint32_t deviceNo, uint32_t* irigPhaseLockStatus,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetMemIRIGPhaseLockStatus(uint32_t deviceNo, uint32_t childNo,
                                               uint32_t* memIrigPhaseLockStatus, uint32_t* error);
VMC_API uint32_t VMC_GetHighSpeedMode(uint32_t deviceNo, uint32_t* highSpeedMode, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutSignal(uint32_t deviceNo, uint32_t* videoOutSignal, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutSignalEnable(uint32_t deviceNo, uint32_t* videoOutSignalEnable,
                                             uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutHDSDI(uint32_t deviceNo, uint32_t* videoOutHDSDI, uint32_t* error);
VMC_API uint32_t VMC_GetLiveResolutionMode(uint32_t deviceNo, uint32_t childNo, uint32_t* liveResolutionMode,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetMemLiveResolutionMode(uint32_t deviceNo, uint32_t childNo,
                                              uint32_t* memLiveResolutionMode, uint32_t* error);
VMC_API uint32_t VMC_GetLiveResolutionScaleMode(uint32_t deviceNo, uint32_t childNo,
                                                uint32_t* liveResolutionScaleMode, uint32_t* error);
VMC_API uint32_t VMC_GetBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth, uint32_t* error);

/* Bit depth of the recording, and with the second depth. */
VMC_API uint32_t VMC_GetMemBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* memBitDepth,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* bitDepth,
                                  uint32_t* bitDepth2, uint32_t* error);
VMC_API uint32_t VMC_GetMemBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* memBitDepth,
                                     uint32_t* memBitDepth2, uint32_t* error);
VMC_API uint32_t VMC_GetSyncPriority(uint32_t deviceNo, uint32_t* syncPriority, uint32_t* error);
VMC_API uint32_t VMC_GetCameraCommandBaudRate(uint32_t deviceNo, uint32_t childNo,
                                              uint32_t* cameraCommandBaudRate, uint32_t* error);
VMC_API uint32_t VMC_GetRecordingType(uint32_t deviceNo, uint32_t* recordingType, uint32_t* error);
VMC_API uint32_t VMC_GetMCDLDataMode(uint32_t deviceNo, uint32_t* mcdlDataMode, uint32_t* error);
VMC_API uint32_t VMC_GetGhostReduction(uint32_t deviceNo, uint32_t childNo, uint32_t* ghostReduction,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetOffsetAS(uint32_t deviceNo, uint32_t childNo, uint32_t* offsetAS, uint32_t* error);
VMC_API uint32_t VMC_GetH_Banding(uint32_t deviceNo, uint32_t childNo, uint32_t* hBanding, uint32_t* error);
VMC_API uint32_t VMC_GetSoftColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* softColorTempMode,
                                          uint32_t* softColorTempValue1, uint32_t* softColorTempValue2,
                                          uint32_t* softColorTempValue3, uint32_t* error);
VMC_API uint32_t VMC_GetStorePreset(uint32_t deviceNo, uint32_t* storePreset, uint32_t* error);
VMC_API uint32_t VMC_GetStorePresetReboot(uint32_t deviceNo, uint32_t* storePresetReboot, uint32_t* error);
VMC_API uint32_t VMC_GetInstructionSet(uint32_t deviceNo, uint32_t* instructionSet, uint32_t* error);
VMC_API uint32_t VMC_GetLEDMode(uint32_t deviceNo, uint32_t* ledMode, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOSD(uint32_t deviceNo, uint32_t* videoOSD, uint32_t* error);
VMC_API uint32_t VMC_GetSensorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* sensorTempMode,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetShadingOffsetMode(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetMode,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetShadingOffsetValue(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetValue,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetShadingOffsetLimit(uint32_t deviceNo, uint32_t childNo, uint32_t* shadingOffsetLimit1,
                                           uint32_t* shadingOffsetLimit2, uint32_t* error);
VMC_API uint32_t VMC_GetPolarizerConfig(uint32_t deviceNo, uint32_t childNo, uint32_t* polarizerConfig,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetBlackClipLevel(uint32_t deviceNo, uint32_t childNo, uint32_t* blackClipLevel,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetSubInterfaceMode(uint32_t deviceNo, uint32_t* subInterfaceMode, uint32_t* error);
VMC_API uint32_t VMC_GetExposeExtension(uint32_t deviceNo, uint32_t* exposeExtension, uint32_t* error);
VMC_API uint32_t VMC_GetBatteryPowerMode(uint32_t deviceNo, uint32_t* batteryPowerMode, uint32_t* error);
VMC_API uint32_t VMC_GetFPGATempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* fpgaTempMode,
                                     uint32_t* error);
VMC_API uint32_t VMC_GetBinningSensorMode(uint32_t deviceNo, uint32_t* binningSensorMode, uint32_t* error);

/* Signal 13 or 14 reads the first exposure-output count, 82 or 88 the second;
   any other signal succeeds and writes nothing. */
VMC_API uint32_t VMC_GetExposeOutTimes(uint32_t deviceNo, uint32_t signal, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetShutterDispMode(uint32_t deviceNo, uint32_t* shutterDispMode, uint32_t* error);
VMC_API uint32_t VMC_GetLensControl(uint32_t deviceNo, uint32_t childNo, uint32_t* lensControl,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetGetherTransferMode(uint32_t deviceNo, uint32_t* gEtherTransferMode, uint32_t* error);
VMC_API uint32_t VMC_GetMechaShutterMode(uint32_t deviceNo, uint32_t* mechaShutterMode, uint32_t* error);
VMC_API uint32_t VMC_GetFanCtrl(uint32_t deviceNo, uint32_t* fanCtrlMode, uint32_t* fanCtrlValue,
                                uint32_t* error);
VMC_API uint32_t VMC_GetSdCardCtrl(uint32_t deviceNo, uint32_t* sdCardCtrl, uint32_t* error);

/* Trigger frames of the recording: the count, and the frames (up to 1024) when
   frames is not null. */
VMC_API uint32_t VMC_GetMemTriggerFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* frames,
                                            uint32_t* count, uint32_t* error);

/* The library's limit of the pixel gain magnification; 0 and error 21 on a
   camera without the function. */
VMC_API uint32_t VMC_GetPixelGainMaxMagnification(uint32_t deviceNo, uint32_t childNo, uint32_t* value,
                                                  uint32_t* error);
VMC_API uint32_t VMC_GetSelfSyncMode(uint32_t deviceNo, uint32_t* selfSyncMode, uint32_t* error);
VMC_API uint32_t VMC_GetStorageMode(uint32_t deviceNo, uint32_t* storageMode, uint32_t* error);
VMC_API uint32_t VMC_GetSSDBoxCtrl(uint32_t deviceNo, uint32_t* ssdBoxCtrl, uint32_t* error);

/* The same as VMC_GetSSDBoxCtrl. */
VMC_API uint32_t VMC_GetRapidPackCtrl(uint32_t deviceNo, uint32_t* ssdBoxCtrl, uint32_t* error);
VMC_API uint32_t VMC_GetExposurePosition(uint32_t deviceNo, uint32_t* exposurePosition, uint32_t* error);
VMC_API uint32_t VMC_GetADC(uint32_t deviceNo, uint32_t* adcMode, uint32_t* error);
VMC_API uint32_t VMC_GetMemADC(uint32_t deviceNo, uint32_t childNo, uint32_t* memAdcMode, uint32_t* error);
VMC_API uint32_t VMC_GetADCRange(uint32_t deviceNo, uint32_t* adcRange, uint32_t* error);
VMC_API uint32_t VMC_GetMemADCRange(uint32_t deviceNo, uint32_t childNo, uint32_t* memAdcRange,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetMaxRandomEndlessTriggerCount(uint32_t deviceNo,
                                                     uint32_t* maxRandomEndlessTriggerCount, uint32_t* error);
VMC_API uint32_t VMC_GetLowFrameRateMode(uint32_t deviceNo, uint32_t* lowFrameRateMode, uint32_t* error);
VMC_API uint32_t VMC_GetDirectRecordRapidPack(uint32_t deviceNo, uint32_t* directRecordRapidPack,
                                              uint32_t* error);

/* Child 0 reads the device's slot, a head number that head's. */
VMC_API uint32_t VMC_GetRapidPackSaveSlotNo(uint32_t deviceNo, uint32_t childNo, uint32_t* saveSlotNo,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetDeviceSeries(uint32_t deviceNo, uint32_t* deviceSeries, uint32_t* error);
VMC_API uint32_t VMC_GetStorageDownloadMode(uint32_t deviceNo, uint32_t* storageDownloadMode,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetProgSwitchCount(uint32_t deviceNo, uint32_t* progSwitchCount, uint32_t* error);
VMC_API uint32_t VMC_GetMemSegmentPosition(uint32_t deviceNo, uint32_t childNo, uint32_t* memSegmentX,
                                           uint32_t* memSegmentY, uint32_t* error);
VMC_API uint32_t VMC_GetPixelGainDataSize(uint32_t deviceNo, uint32_t childNo, uint32_t* pixelGainDataSize,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetLowLightMode2(uint32_t deviceNo, uint32_t* lowLightMode2, uint32_t* error);

/* The low-light mode in force: 1, 2, 3, or 0 for none. */
VMC_API uint32_t VMC_GetLowLightModeEx(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetRecordingSyncOutMode(uint32_t deviceNo, uint32_t* recordingSyncOutMode,
                                             uint32_t* error);
VMC_API uint32_t VMC_GetShutdownBatterySupply(uint32_t deviceNo, uint32_t* shutdownBatterySupply1,
                                              uint32_t* shutdownBatterySupply2, uint32_t* error);
VMC_API uint32_t VMC_GetMediaSaveBatterySupply(uint32_t deviceNo, uint32_t* mediaSaveBatterySupply1,
                                               uint32_t* mediaSaveBatterySupply2, uint32_t* error);
VMC_API uint32_t VMC_GetAutoPowerWhenSupply(uint32_t deviceNo, uint32_t* autoPowerWhenSupply,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetVideoOSDCrosshairMode(uint32_t deviceNo, uint32_t* videoOSDCrosshairMode,
                                              uint32_t* error);
VMC_API uint32_t VMC_GetExternalOutSignalSpan(uint32_t deviceNo, uint32_t* externalOutSignalSpan,
                                              uint32_t* error);
VMC_API uint32_t VMC_GetFanRecReadyStop(uint32_t deviceNo, uint32_t* fanRecReadyStop, uint32_t* error);
VMC_API uint32_t VMC_GetAccelerationTrigger(uint32_t deviceNo, uint32_t* accelerationTrigger1,
                                            uint32_t* accelerationTrigger2, uint32_t* error);
VMC_API uint32_t VMC_GetAccelerationTriggerLimit(uint32_t deviceNo, uint32_t* accelerationTriggerLimit1,
                                                 uint32_t* accelerationTriggerLimit2,
                                                 uint32_t* accelerationTriggerLimit3, uint32_t* error);
VMC_API uint32_t VMC_GetAccelerationTriggerTime(uint32_t deviceNo, uint32_t* accelerationTriggerTime,
                                                uint32_t* error);
VMC_API uint32_t VMC_GetAccelerationTriggerTimeLimit(uint32_t deviceNo,
                                                     uint32_t* accelerationTriggerTimeLimit1,
                                                     uint32_t* accelerationTriggerTimeLimit2,
                                                     uint32_t* accelerationTriggerTimeLimit3,
                                                     uint32_t* error);
VMC_API uint32_t VMC_GetPixelGainDataMode3Size(uint32_t deviceNo, uint32_t childNo,
                                               uint32_t* pixelGainDataMode3Size, uint32_t* error);
VMC_API uint32_t VMC_GetTriggerNoiseFilter(uint32_t deviceNo, uint32_t* triggerNoiseFilter, uint32_t* error);
VMC_API uint32_t VMC_GetTriggerNoiseFilterWidth(uint32_t deviceNo, uint32_t* triggerNoiseFilterWidth1,
                                                uint32_t* triggerNoiseFilterWidth2,
                                                uint32_t* triggerNoiseFilterWidth3, uint32_t* error);

/* I/O type of port 0..2. */
VMC_API uint32_t VMC_GetVDAIOType(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetMemoryShare(uint32_t deviceNo, uint32_t* memoryShare, uint32_t* error);

/* Child 0 reads the device's serial number, a head number that head's. */
VMC_API uint32_t VMC_GetSerialNumber(uint32_t deviceNo, uint32_t childNo, uint64_t* serialNumber,
                                     uint32_t* error);

/* Threshold of temperature type 0..8 (error 5 outside). */
VMC_API uint32_t VMC_GetWarningTemperatureThreshold(uint32_t deviceNo, uint32_t type, uint32_t* value,
                                                    uint32_t* error);
VMC_API uint32_t VMC_GetLinkSpeed(uint32_t deviceNo, uint32_t* linkSpeed, uint32_t* error);

/* Index 0: packet interval mode; 1: the interval on a 10-gigabit link. */
VMC_API uint32_t VMC_GetPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetEthernetSpeedLimit(uint32_t deviceNo, uint32_t* ethernetSpeedLimit, uint32_t* error);
VMC_API uint32_t VMC_GetMediaSaveAfterInsert(uint32_t deviceNo, uint32_t* mediaSaveAfterInsert,
                                             uint32_t* error);

#endif /* VMC_CACHED_READS_H */
