/*
 * module_reads.h - Reads that ask the module now, or compute from what it answers.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 *
 * Unlike the cached reads these reach the camera, most of them under the
 * device lock; nothing they return is kept unless a comment says so. The
 * result and the error word are the module's. The usual arguments:
 *
 *   childNo   a head, 1..maxChildDeviceCount (error 4 otherwise), where the
 *             setting belongs to a head; "or 0" where 0 asks the device.
 *   index     chooses an entry of the setting (slot, port, channel, type).
 *   a, b      two indices packed by the library as a << 16 | b.
 *   frame     a frame number of the memory view (VMC_GetMemFrameInfo). Frame 0
 *             exists only when the camera numbers from 0 (frame-zero mode);
 *             otherwise it gives error 5.
 *   out       a caller block the module fills; its size is the camera's.
 *
 * Value out-arguments must not be null (error 5). A device that is not open
 * gives error 2 (103 for the calls that take no lock), a function that the
 * camera lacks error 21.
 */
#ifndef VMC_MODULE_READS_H
#define VMC_MODULE_READS_H

#pragma pack(push, 1)

/* Time code of a frame: days, hours, minutes, seconds and sub-seconds. */
typedef struct IrigRecord {
    uint32_t days;       /*  0 */
    uint8_t hours;       /*  4 */
    uint8_t minutes;     /*  5 */
    uint8_t seconds;     /*  6 */
    uint8_t reserved7;   /*  7 */
    uint32_t subSeconds; /*  8 */
    uint8_t signalFlag;  /* 12: 1 while the time code signal is received */
    uint8_t reserved13[7];
} IrigRecord;            /* 20 bytes */

/* What the camera reports of one medium; the words are the module's. */
typedef struct MediaInfo {
    uint32_t value[5];
} MediaInfo;             /* 20 bytes */

#pragma pack(pop)

/* Size of the record of a recording on a drive or medium (the library zeroes it first). */
#define VMC_RECORD_INFO_SIZE 596u

/* ---- Side data of recordings ------------------------------------------ */

/* The name of a recording on the SSD box or RapidPack; the other forms ask index with count 0. */
VMC_API uint32_t VMC_GetSSDBoxDataName(uint32_t deviceNo, uint32_t count, uint32_t index, void* name, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackDataName(uint32_t deviceNo, uint32_t index, void* name, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackDataName2(uint32_t deviceNo, uint32_t count, uint32_t index, void* name, uint32_t* error);

/* Per-frame data of the memory view, count frames from frame. */
VMC_API uint32_t VMC_GetMemADCByteData(uint32_t deviceNo, uint32_t childNo, int32_t frame, int32_t count, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetMemAutoExposureDataFps(uint32_t deviceNo, uint32_t childNo, int32_t frame, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetMemAutoExposureDataNsec(uint32_t deviceNo, uint32_t childNo, int32_t frame, int32_t count, void* out, uint32_t* error);
/* Frame 0 always reaches the module here. Child 0 of the acceleration data is the camera's main sensor. */
VMC_API uint32_t VMC_GetMemTemperatureData(uint32_t deviceNo, uint32_t childNo, void* out, int32_t frame, uint32_t count, uint32_t* error);
VMC_API uint32_t VMC_GetMemAccelerationData(uint32_t deviceNo, uint32_t childNo, void* out, int32_t frame, uint32_t count, uint32_t* error);

/* RapidPack recordings, addressed through the camera. a and b are the module's
   (the child position carries a << 24 | b). */
VMC_API uint32_t VMC_GetRapidPackADCByteData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t index, uint32_t count, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackMemBufUseByteData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t index, uint32_t count, void* out, uint32_t* error);
/* record: VMC_RECORD_INFO_SIZE bytes. */
VMC_API uint32_t VMC_GetRapidPackRecordInfo(uint32_t deviceNo, uint32_t index, uint32_t count, void* record, uint32_t* error);
/* One frame of recording data on drive; drive | 0x100 asks the main sensor where there is one. */
VMC_API uint32_t VMC_GetRapidPackIRIG(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackAutoExposure(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackTemperature(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackSMART(uint32_t deviceNo, uint32_t index, uint32_t count, void* out, void* extra, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackAcceleration(uint32_t deviceNo, uint32_t drive, uint32_t data, int32_t frame, void* out, uint32_t* error);

/* Acceleration data of one frame of the recording on medium slot, numbered as that recording is. */
VMC_API uint32_t VMC_GetMediaAcceleration(uint32_t deviceNo, uint32_t a, uint32_t slot, int32_t frame, void* out, uint32_t* error);
/* record: VMC_RECORD_INFO_SIZE bytes. */
VMC_API uint32_t VMC_GetMediaRecordInfo(uint32_t deviceNo, uint32_t index, uint32_t count, void* record, uint32_t* error);

/* Blocks of a head. childNo goes to the module unchecked for the adjustment data. */
VMC_API uint32_t VMC_GetAdjustmentData(uint32_t deviceNo, uint32_t childNo, uint32_t index, void* data, uint32_t* error);
/* With data null the module writes the size of the block to length. */
VMC_API uint32_t VMC_GetInherentInfo(uint32_t deviceNo, uint32_t childNo, uint32_t index, void* data, uint32_t* length, uint32_t* error);
VMC_API uint32_t VMC_GetLiveImageIRIGData(uint32_t deviceNo, uint32_t childNo, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetManufactureVersionInfomation(uint32_t deviceNo, uint32_t index, void* out, uint32_t* error);
VMC_API uint32_t VMC_GetShadingData(uint32_t deviceNo, uint32_t childNo, void* data, uint32_t* error);
VMC_API uint32_t VMC_GetTelnetCommand(uint32_t deviceNo, uint32_t index, void* data, uint32_t* error);

/* ---- State of the camera and its heads -------------------------------- */

/* On cameras whose heads can be exchanged the colour type is asked anew and cached. */
VMC_API uint32_t VMC_GetColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* colorType, uint32_t* error);
/* The status word: 0 live, 1 or 0x80 memory playback, 2 armed, 4 endless
   recording, 8 triggered. It is also kept as the device's last status. */
VMC_API uint32_t VMC_GetStatus(uint32_t deviceNo, uint32_t* status, uint32_t* error);
VMC_API uint32_t VMC_GetCurrentFramesRecorded(uint32_t deviceNo, uint32_t* frames, uint32_t* error);
VMC_API uint32_t VMC_GetMaxPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* maxPartition, uint32_t* blocks, uint32_t* error);
/* Type 0 when the camera can't say; never fails in the module. */
VMC_API uint32_t VMC_GetShadingResponseType(uint32_t deviceNo, uint32_t childNo, uint32_t* type, uint32_t* error);
/* 0, with success, on a camera that can't say. */
VMC_API uint32_t VMC_GetShadingAvailable(uint32_t deviceNo, uint32_t childNo, uint32_t* available, uint32_t* error);
/* Cached; asked anew while the camera records directly to a RapidPack. */
VMC_API uint32_t VMC_GetMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFrames, uint32_t* blocks, uint32_t* error);
/* The partition count, and with frames not null the frames of each partition (count words). */
VMC_API uint32_t VMC_GetPartitionList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* frames, uint32_t* error);
/* The three bytes of the transfer option word; second is the raw-mosaic flag, 0 or 1. */
VMC_API uint32_t VMC_GetTransferOption(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* third, uint32_t* error);

/* Variable channels. The limit queries write the camera's scratch channel. */
VMC_API uint32_t VMC_GetVariableMaxResolution(uint32_t deviceNo, uint32_t rate, uint32_t* width, uint32_t* height, uint32_t* error);
VMC_API uint32_t VMC_GetVariableMaxWidth(uint32_t deviceNo, uint32_t rate, uint32_t height, uint32_t* width, uint32_t* error);
VMC_API uint32_t VMC_GetVariableMaxHeight(uint32_t deviceNo, uint32_t rate, uint32_t width, uint32_t* height, uint32_t* error);
VMC_API uint32_t VMC_GetVariableMaxRate(uint32_t deviceNo, uint32_t width, uint32_t height, uint32_t* rate, uint32_t* error);
VMC_API uint32_t VMC_GetVariableChannelInfo(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width, uint32_t* height,
                                            uint32_t* xPos, uint32_t* yPos, uint32_t* error);
/* fifth and sixth are 0 on a camera without them. */
VMC_API uint32_t VMC_GetVariableChannelInfo2(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width, uint32_t* height,
                                             uint32_t* xPos, uint32_t* yPos, uint32_t* fifth, uint32_t* error);
VMC_API uint32_t VMC_GetVariableChannelInfo3(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width, uint32_t* height,
                                             uint32_t* xPos, uint32_t* yPos, uint32_t* fifth, uint32_t* sixth, uint32_t* error);
VMC_API uint32_t VMC_GetEnableVariableChannelSetting(uint32_t deviceNo, uint32_t channel, uint32_t width, uint32_t height,
                                                     uint32_t* value, uint32_t* error);

/* Auto exposure and image trigger settings as the head holds them. */
VMC_API uint32_t VMC_GetAutoExposureInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height, uint32_t* xPos,
                                         uint32_t* yPos, uint32_t* value, uint32_t* range, uint32_t* limit, uint32_t* error);
VMC_API uint32_t VMC_GetImageTriggerInfo(uint32_t deviceNo, uint32_t* firstHigh, uint32_t* firstLow, uint32_t* secondHigh,
                                         uint32_t* secondLow, uint32_t* third, uint32_t* fourth, uint32_t* error);
/* Restrictions of the settings; the words are the module's. */
VMC_API uint32_t VMC_GetVariableRestriction(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* third, uint32_t* fourth,
                                            uint32_t* fifth, uint32_t* sixth, uint32_t* seventh, uint32_t* error);
/* Mode 0 on a camera without the setting. */
VMC_API uint32_t VMC_GetPixelDefectMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_GetTransferPixelBuf(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetAutoExposureRestriction(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* third,
                                                uint32_t* fourth, uint32_t* fifth, uint32_t* sixth, uint32_t* seventh,
                                                uint32_t* eighth, uint32_t* error);
VMC_API uint32_t VMC_GetAutoExposureLimit(uint32_t deviceNo, uint32_t childNo, uint32_t* limit, uint32_t* error);
VMC_API uint32_t VMC_GetImageTriggerRestriction(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* third,
                                                uint32_t* fourth, uint32_t* fifth, uint32_t* sixth, uint32_t* seventh,
                                                uint32_t* eighth, uint32_t* error);
/* Mode 0 with error 21 on a camera without the setting. */
VMC_API uint32_t VMC_GetBayerConvertMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* error);

/* VMC_GetEthernetInfo and VMC_GetConnectedEthernetInfo are declared in vmc.h. */

/* Transfers: 0 with error 21 on a camera without the function. */
VMC_API uint32_t VMC_GetBurstTransfer(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetReadAheadTransfer(uint32_t deviceNo, uint32_t* state, uint32_t* error);
VMC_API uint32_t VMC_GetHeadExchange(uint32_t deviceNo, uint32_t* value, uint32_t* error);

/* The three step-shutter words of the device (childNo 0) or a head. */
VMC_API uint32_t VMC_GetStepShutter(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* third,
                                    uint32_t* error);
/* Both 0 with error 21 on a camera without the status. */
VMC_API uint32_t VMC_GetFPGAStatus(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetBayerAlignment(uint32_t deviceNo, uint32_t* alignment, uint32_t* error);
VMC_API uint32_t VMC_GetAutoPlay(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetFactoryDefaults(uint32_t deviceNo, uint32_t* value, uint32_t* error);
/* The live time code. A refused read leaves the record as it was and still succeeds. */
VMC_API uint32_t VMC_GetLiveIRIGData(uint32_t deviceNo, IrigRecord* record, uint32_t* error);
VMC_API uint32_t VMC_GetResolutionMode(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetSensorTempInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
/* The live sensor temperature as well: the camera keeps none with the recording. */
VMC_API uint32_t VMC_GetMemSensorTempInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetTestPatern(uint32_t deviceNo, uint32_t childNo, uint32_t* pattern, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetSyncInSignalStatus(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetFPGATempInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetImageTriggerConditions(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
/* The camera clock: BCD date and BCD time. */
VMC_API uint32_t VMC_GetRTC(uint32_t deviceNo, uint32_t* date, uint32_t* time, uint32_t* error);

/* Registers and maintenance data; words pass through as the camera holds them
   (signed values in sign and magnitude). */
VMC_API uint32_t VMC_GetQRXPLLData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetQRXPLLSyncData(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetQRXSensorRegister(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* first, uint32_t* second, uint32_t* error);
/* first, and second and third from the high and low halves of the second word. */
VMC_API uint32_t VMC_GetCamCoderModel(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* third, uint32_t* error);
VMC_API uint32_t VMC_GetFanState(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);

/* Card and storage state. The packed state words are split into their high and low halves. */
VMC_API uint32_t VMC_GetSdCardState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* high, uint32_t* low, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardInfo(uint32_t deviceNo, uint32_t slot, uint32_t* high, uint32_t* low, uint32_t* extra, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardDataRecDate(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* date, uint32_t* time, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardDataRecFrames(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* frames, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardMemoryMode(uint32_t deviceNo, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardDownloadSlot(uint32_t deviceNo, uint32_t* slot, uint32_t* error);
VMC_API uint32_t VMC_GetSdCardRunState(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetSoftNoiseReduction(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);

/* VMC_GetInitialError and VMC_GetLastError are declared in vmc.h. */

VMC_API uint32_t VMC_GetIgnoreTriggerNumber(uint32_t deviceNo, uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetExtSyncOverSync(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetAutoPllAdjust(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetAutoPhaseAdjust(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint32_t* value, uint32_t* error);
/* Register a, b, c of the sensor amplifier: b in bits 24..31, a in 16..23, c in 0..15 of the sub-code. */
VMC_API uint32_t VMC_GetSensorPGARegister(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t c, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetPLLFPGAData(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetRGMIIData(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetHeadLedLaser(uint32_t deviceNo, uint32_t childNo, uint32_t* led, uint32_t* laser, uint32_t* error);
VMC_API uint32_t VMC_GetLensInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* kind, uint32_t* error);
/* As VMC_GetSensorPGARegister, of the device (childNo 0) or a head. */
VMC_API uint32_t VMC_GetSensorPGARegister2(uint32_t deviceNo, uint32_t childNo, uint32_t a, uint32_t b, uint32_t c, uint32_t* value,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetHardwareVersion(uint32_t deviceNo, uint32_t index, uint32_t* version, uint32_t* error);
VMC_API uint32_t VMC_GetBoardVersion(uint32_t deviceNo, uint32_t index, uint32_t* version, uint32_t* error);
VMC_API uint32_t VMC_GetPixelGainMagnification(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetADCPLLData(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetTxHeadBoardModifyInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetRandomTriggerEnable(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetSlowShutterLimit(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetResetTriggerExposeDelay(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetDeadTimeValue(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetStraddlingDelay(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);

/* SSD box and RapidPack. VMC_GetRapidPackInfo asks index 0. */
VMC_API uint32_t VMC_GetSSDBoxInfo(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackInfo(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackInfo2(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* state, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackTemperatureType(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* type, uint32_t* error);

/* Asked anew and cached (vSyncExposeDeviation). */
VMC_API uint32_t VMC_GetVSyncExposeDeviation(uint32_t deviceNo, uint32_t* deviation, uint32_t* error);
VMC_API uint32_t VMC_GetHardwareNoiseReduction(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetAdcInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second, uint32_t* error);
/* a and b from the low and high halves of the first word, c the second. */
VMC_API uint32_t VMC_GetLiveResetMode(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* c, uint32_t* error);
VMC_API uint32_t VMC_GetMaxRandomTriggerCount(uint32_t deviceNo, uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetOperationMode(uint32_t deviceNo, uint32_t* mode, uint32_t* error);
VMC_API uint32_t VMC_RapidPackOpen(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_RapidPackClose(uint32_t deviceNo, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackDataRecDate(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* date, uint32_t* time, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackDataRecFrames(uint32_t deviceNo, uint32_t a, uint32_t b, uint32_t* frames, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackRunState(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackActivityRatio(uint32_t deviceNo, uint32_t index, uint32_t* ratio, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackTotalWrittenSize(uint32_t deviceNo, uint32_t index, uint32_t* size, uint32_t* error);
VMC_API uint32_t VMC_GetRapidPackDataCount(uint32_t deviceNo, uint32_t index, uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetDSShutterLimit(uint32_t deviceNo, uint32_t childNo, uint32_t* limit, uint32_t* error);

/* Temperature of one type (VMC_GetTemperatureTypeList) of the device (childNo 0) or a head. */
VMC_API uint32_t VMC_GetTemperature(uint32_t deviceNo, uint32_t childNo, uint32_t type, uint32_t* temperature, uint32_t* error);
/* The temperature type kept with the recording, of the device (childNo 0) or a head. */
VMC_API uint32_t VMC_GetMemTemperatureType(uint32_t deviceNo, uint32_t childNo, uint32_t* type, uint32_t* error);

/* Wi-Fi networks found by the last scan; info holds VMC_NAME_SIZE characters. */
VMC_API uint32_t VMC_GetWiFiScanCount(uint32_t deviceNo, uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetWiFiScanInfoA(uint32_t deviceNo, uint32_t index, char* info, uint32_t* error);
VMC_API uint32_t VMC_GetWiFiScanInfoW(uint32_t deviceNo, uint32_t index, wchar_t* info, uint32_t* error);

/* Media in the camera. */
VMC_API uint32_t VMC_GetMediaState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* high, uint32_t* low, uint32_t* error);
VMC_API uint32_t VMC_GetMediaRunState(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
/* A zero record, with the module's error 21, on a camera without media. */
VMC_API uint32_t VMC_GetMediaInfo(uint32_t deviceNo, uint32_t slot, MediaInfo* info, uint32_t* error);
VMC_API uint32_t VMC_OpenMedia(uint32_t deviceNo, uint32_t slot, uint32_t* error);
VMC_API uint32_t VMC_CloseMedia(uint32_t deviceNo, uint32_t slot, uint32_t* error);

VMC_API uint32_t VMC_GetBatteryInfo(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetPartitionLock(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetShadingOffset(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetMeasurementVoltage(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
VMC_API uint32_t VMC_GetMeasurementCurrent(uint32_t deviceNo, uint32_t index, uint32_t* first, uint32_t* second, uint32_t* error);
/* Lens parameter (3 focus, 2 aperture, 4 zoom); item 1 asks whether it exists, 9 its value. */
VMC_API uint32_t VMC_GetLensParam(uint32_t deviceNo, uint32_t childNo, uint32_t parameter, uint32_t item, void* out,
                                  uint32_t* error);
/* The two words of the MAC address. */
VMC_API uint32_t VMC_GetMACAddress(uint32_t deviceNo, uint32_t* high, uint32_t* low, uint32_t* error);
/* 1 while the device (childNo 0) or the head warns of its temperature, else 0. */
VMC_API uint32_t VMC_GetWarningTemperature(uint32_t deviceNo, uint32_t childNo, uint8_t* warning, uint32_t* error);
VMC_API uint32_t VMC_GetWarningCableCutting(uint32_t deviceNo, uint32_t childNo, uint32_t* warning, uint32_t* error);
/* 2, with success, on a camera that doesn't say. */
VMC_API uint32_t VMC_GetShutterSpeedPrecision(uint32_t deviceNo, uint32_t childNo, uint32_t* precision, uint32_t* error);
/* childNo goes to the module unchecked. */
VMC_API uint32_t VMC_GetRapidPackShutterSpeedPrecision(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint32_t* precision,
                                                       uint32_t* error);
/* Of the device (childNo 0) or a head. */
VMC_API uint32_t VMC_GetAccelerationSensorError(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second,
                                                uint32_t* error);
VMC_API uint32_t VMC_GetCameraHeadType(uint32_t deviceNo, uint32_t childNo, uint32_t* type, uint32_t* error);
VMC_API uint32_t VMC_GetAnalogGain(uint32_t deviceNo, uint32_t childNo, uint32_t* gain, uint32_t* error);
VMC_API uint32_t VMC_GetAnalogOffset(uint32_t deviceNo, uint32_t childNo, uint32_t* offset, uint32_t* error);
VMC_API uint32_t VMC_GetHeadPortNumber(uint32_t deviceNo, uint32_t childNo, uint32_t* port, uint32_t* error);
VMC_API uint32_t VMC_GetMechanicalShutterError(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetShadingDataSize(uint32_t deviceNo, uint32_t childNo, uint32_t* size, uint32_t* error);
VMC_API uint32_t VMC_GetTelnetCommandNum(uint32_t deviceNo, uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetDeviceErrorObserve(uint32_t deviceNo, uint32_t* value, uint32_t* error);

#endif /* VMC_MODULE_READS_H */
