// Request workers: ask the camera for one setting now and store the answer in
// the cached record. The workers of the table rows are declared from the
// tables themselves (requests.def, field_workers.def: a row names its code,
// its field and the default on error 21); the rest, written by hand with a
// rule of their own, are declared below. They are the one place where a field is filled from the
// module; the Req exports, the state load, the status poll and the Set
// functions all run them.
//
// Conventions shared by every worker:
// - Workers take no lock, unless their comment says they take the device lock
//   themselves (it is recursive, so they are safe inside a locked caller).
// - Device workers take (deviceNo, ..., error); head workers take
//   (deviceNo, childNo, ..., error). An index (port, switch, delay type,
//   plane, signal, sub-code) follows them. The value pointers are the
//   export's out-arguments, in its order: pass initialised variables.
// - The worker stores before it returns, also after a failure: on error 21
//   the value takes the setting's default (0 unless named), on any other
//   failure the field takes what the variable held. The result is the
//   module's, and the error word is the module's.
#pragma once

#include <cstdint>

#include <vmc/vmc.h>

namespace vmc {

// ---- The workers of the table rows -----------------------------------------

#define REQUEST_DEVICE_1(worker) uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error);
#define REQUEST_DEVICE_2(worker) \
    uint32_t worker(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error);
#define REQUEST_CHILD_1(worker) uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
#define REQUEST_CHILD_2(worker) \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2, uint32_t* error);
#define DEVICE_VALUE(exportName, worker, code, field, fallback) REQUEST_DEVICE_1(worker)
#define DEVICE_FLAG(exportName, worker, code, flag) REQUEST_DEVICE_1(worker)
#define DEVICE_PAIR(exportName, worker, code, first, second) REQUEST_DEVICE_2(worker)
#define DEVICE_QUERY(exportName, worker, code, fallback) REQUEST_DEVICE_1(worker)
#define CHILD_OR_DEVICE_VALUE(exportName, worker, code, field, fallback) REQUEST_CHILD_1(worker)
#define CHILD_VALUE(exportName, worker, code, field, fallback) REQUEST_CHILD_1(worker)
#define CHILD_FLAG(exportName, worker, code, flag) REQUEST_CHILD_1(worker)
#define CHILD_PAIR(exportName, worker, code, first, second) REQUEST_CHILD_2(worker)
#define CHILD_PACKED(exportName, worker, code, high, low) REQUEST_CHILD_2(worker)
#define CHILD_QUERY(exportName, worker, code, fallback) REQUEST_CHILD_1(worker)
#include "state/requests.def"
#define DEVICE_WORKER(worker, code, field, fallback) REQUEST_DEVICE_1(worker)
#define DEVICE_FLAG_WORKER(worker, code, flag) REQUEST_DEVICE_1(worker)
#define DEVICE_PAIR_WORKER(worker, code, first, second) REQUEST_DEVICE_2(worker)
#include "state/field_workers.def"
#undef REQUEST_DEVICE_1
#undef REQUEST_DEVICE_2
#undef REQUEST_CHILD_1
#undef REQUEST_CHILD_2

// ---- Identity and layout of the device ------------------------------------

// colorType (11): the low byte, 0 on failure.
uint32_t RefreshColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
// memColorType (11), low byte as colorType.
uint32_t RefreshMemColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
// serialNumber (390) of the device (childNo 0) or a head; all ones when the
// query failed. Takes the device lock.
uint32_t RefreshSerialNumber(uint32_t deviceNo, uint32_t childNo, uint32_t* error);
// saveSlotNo (403) of the device (childNo 0) or a head.
uint32_t RefreshSaveSlotNo(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);

// ---- Device settings, one code, one field ---------------------------------

uint32_t RefreshLinkSpeed(uint32_t deviceNo, uint32_t* value, uint32_t* error);
// Flag bytes that hold the answer itself: frameZeroMode (38, result always 1),
// variableFunction (80, result always 1), hasSubPort (159),
// enableSelfSyncMode (271). storeNum with hasStoreNum (96).
uint32_t RefreshFrameZero(uint32_t deviceNo, uint32_t* value, uint32_t* error);
uint32_t RefreshVariableFunction(uint32_t deviceNo, uint32_t* value, uint32_t* error);
uint32_t RefreshStoreNum(uint32_t deviceNo, uint32_t* value, uint32_t* error);
// Code 240 of the device (childNo 0) or a head, both values; nothing cached.
uint32_t RefreshCalMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                             uint32_t* error);

// ---- Device settings with an index or several values ----------------------

// externalInMode[port-1] (34), externalOutMode[port-1] (35); port 1..4, else error 5.
uint32_t RefreshExternalInMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error);
uint32_t RefreshExternalOutMode(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error);
// progSwitchMode[switch-1] (83); switch 1..4, else error 5.
uint32_t RefreshProgSwitchMode(uint32_t deviceNo, uint32_t switchNo, uint32_t* value, uint32_t* error);
// The trigger words: code 6 (mode, after-frames), then code 7 (random frames,
// random count). A failure of either writes 0 to triggerMode and leaves the rest.
uint32_t RefreshTriggerMode(uint32_t deviceNo, uint32_t* error);
// delayValue / delayValue10 / delayValue11 (74) and delayLimit / delayLimit10 /
// delayLimit11 (75) of a delay type 1..12; a failed query stores nothing.
uint32_t RefreshDelay(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);
uint32_t RefreshDelayLimit(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);
// exposeOutTimes1 (173) for signal 13 or 14, exposeOutTimes2 (175) for 82 or
// 88; any other signal succeeds and asks nothing.
uint32_t RefreshExposeOutTimes(uint32_t deviceNo, uint32_t signal, uint32_t* value, uint32_t* error);
// sdCardCtrl / ssdBoxCtrl (204), asked only while storage mode (273) answers
// 0 / 1; otherwise error 21 and the value 0.
uint32_t RefreshSdCardCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error);
uint32_t RefreshSSDBoxCtrl(uint32_t deviceNo, uint32_t* value, uint32_t* error);
// Bit `port` of externalOutSignalSpan (354, sub-code port).
uint32_t RefreshExternalOutSignalSpan(uint32_t deviceNo, uint32_t port, uint32_t* value, uint32_t* error);
// fanRecReadyStop (359): the first byte, sign-extended.
uint32_t RefreshFanRecReadyStop(uint32_t deviceNo, uint32_t* value, uint32_t* error);
// packetIntervalMode (425 sub 0) or packetInterval10G (sub 1); 1 on error 21.
uint32_t RefreshPacketIntervalMode(uint32_t deviceNo, uint32_t kind, uint32_t* value, uint32_t* error);

// ---- Device fields filled only by the state load and the poll -------------

// warningTemperatureThreshold[type] (393, sub-code type); type 0..8, else error 5.
uint32_t RefreshWarningTemperatureThreshold(uint32_t deviceNo, uint32_t type, uint32_t* value, uint32_t* error);
// hasShutdownCamera (372) and hasRebootCamera (410): set when the camera
// answers 1.
uint32_t RefreshShutdownCamera(uint32_t deviceNo, uint32_t* value, uint32_t* error);
uint32_t RefreshRebootCamera(uint32_t deviceNo, uint32_t* value, uint32_t* error);
// hasMemTemperature (369) of the device (childNo 0) or a head: answer non-zero.
uint32_t RefreshMemTemperature(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
// code401Value of a head (401): the first byte of the answer.
uint32_t RefreshCode401(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
// vSyncExposeDeviation (280): an answer above 65535 is stored as the negative
// of its low 16 bits.
uint32_t RefreshVSyncExposeDeviation(uint32_t deviceNo, uint32_t* error);
// Take the device lock themselves (recursive, so safe in a locked caller) and
// refuse with error 2 before VMC_Init: triggerNoiseFilter (316);
// triggerNoiseFilterWidth1 (399) with Width2 and Width3 (380);
// maxRandomEndlessTriggerCount (327, 10 on failure). The serial number above
// locks the same way.
uint32_t RefreshTriggerNoiseFilter(uint32_t deviceNo, uint32_t* value, uint32_t* error);
uint32_t RefreshTriggerNoiseFilterWidth(uint32_t deviceNo, uint32_t* width1, uint32_t* width2, uint32_t* width3,
                                        uint32_t* error);
uint32_t RefreshMaxRandomEndlessTriggerCount(uint32_t deviceNo, uint32_t* error);

// ---- Head settings ---------------------------------------------------------

// width, height (3, high and low 16 bits) and the ROI pair set to the same;
// all four 0 on failure. The cache form (68) touches width and height alone.
uint32_t RefreshResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height, uint32_t* error);
uint32_t RefreshResolutionCache(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                uint32_t* error);
// roiWidth, roiHeight (116); on failure they take width and height.
uint32_t RefreshResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                              uint32_t* error);
// maxPartition, maxPartitionBlocks (30); 1 and 0 on failure.
uint32_t RefreshMaxPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* partitions, uint32_t* blocks,
                             uint32_t* error);
// currentPartition (31, default 1), mirrored into memoryModePartition unless
// partitionIncMode is 2. memoryModePartition alone (187, default 1).
uint32_t RefreshCurrentPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
// maxFrames, maxFrameBlocks (33; cache form 69): stored only on success.
uint32_t RefreshMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* blocks, uint32_t* error);
uint32_t RefreshMaxFramesCache(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* blocks,
                               uint32_t* error);
// colorTempMode with colorTempValue1..3 (8, 86, 87, 88) and the soft set
// (120..123): an error 21 on any of them resets the four outputs at that
// point, the mode to 1 and the values to 0, and the reads after it go on. The
// result is 1 only when all four answered, else the first failure's error.
uint32_t RefreshColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                              uint32_t* value2, uint32_t* value3, uint32_t* error);
uint32_t RefreshSoftColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                  uint32_t* value2, uint32_t* value3, uint32_t* error);
// colorTempBase1, colorTempBase2 (89); 16 and 4095 on failure.
uint32_t RefreshColorTempBase(uint32_t deviceNo, uint32_t childNo, uint32_t* base1, uint32_t* base2,
                              uint32_t* error);
// colorEnhanceValue triple of plane 1..3 (codes 44..46): the two halves of the
// first value and the low half of the second, each sign-magnitude on 16 bits;
// zeros on failure. Any other plane gives error 5.
uint32_t RefreshColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                  uint32_t* error);
// maxBitDepth (72, 8 on failure); bitDepth (113, the maximum on failure);
// bitDepth with bitDepth2 (158, falling back on 113 or the maximum, second 0).
uint32_t RefreshMaxBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
uint32_t RefreshBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
uint32_t RefreshBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* depth, uint32_t* depth2, uint32_t* error);

// ---- The memory view of a head ---------------------------------------------

// The memory trigger words of a head: code 6 (mode, after-frames), code 7
// (random frames, count); a failure of either writes 0 to memTriggerMode.
uint32_t RefreshMemTriggerMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* afterFrames,
                               uint32_t* randomFrames, uint32_t* randomCount, uint32_t* error);
// memColorTempMode with its three values (8, 86, 87, 88), as the live form.
uint32_t RefreshMemColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                 uint32_t* value2, uint32_t* value3, uint32_t* error);
// memColorEnhanceValue triple of plane 1..3, as the live form.
uint32_t RefreshMemColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                     uint32_t* error);
// memBitDepth (113, the live bit depth on failure); memBitDepth with
// memBitDepth2 (158, falling back on 113 or the live depth, second 0).
uint32_t RefreshMemBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error);
uint32_t RefreshMemBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* depth, uint32_t* depth2,
                             uint32_t* error);
// Event frames (list 23) into the caller's list, an entry with bit 31 set
// turned into minus its low 31 bits; eventFrameCount (at most 10) stored, 0
// on error 21. Block counts of the events (list 30), nothing cached.
uint32_t RefreshMemEventFrame(uint32_t deviceNo, uint32_t childNo, int32_t* frames, uint32_t* count,
                              uint32_t* error);
uint32_t RefreshMemEventRCount(uint32_t deviceNo, uint32_t childNo, uint32_t* counts, uint32_t* count,
                               uint32_t* error);
// Trigger frames (list 49) into the caller's list; count 0 on error 21.
uint32_t RefreshMemTriggerFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* count,
                                    uint32_t* error);
// Codes 43 (two values) and 84, nothing cached.
uint32_t RefreshMemTwoStageTriggerFrame(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                                        uint32_t* error);
// Code 145 with a sub-code index, nothing cached.
uint32_t RefreshMemRecordedFramesPerTrigger(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint32_t* value,
                                            uint32_t* error);
// The frame range of the recording: recordedFrames, eventFrame and its count,
// triggerFrame and its count, frameStart to frameTwoStageTiming, computed
// from the memory trigger words; the 72-byte image goes to record when it is
// not null.
uint32_t RefreshMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* record, uint32_t* error);
// The same from a stored partition through the memory-mode entries. For the
// partition in force (memoryModePartition) the head's record is updated too;
// for another partition only `record` is filled. noEventLists skips the
// event lists and codes 43 and 84.
uint32_t RefreshMemModeFrameInfo(uint32_t deviceNo, uint32_t childNo, uint32_t partition, uint32_t noEventLists,
                                 MemFrameInfoRecord* record, uint32_t* error);
// Resolution of a stored partition (memory-mode code 3), nothing cached.
uint32_t RefreshMemModeResolution(uint32_t deviceNo, uint32_t childNo, uint32_t partition, uint32_t* width,
                                  uint32_t* height, uint32_t* error);

}  // namespace vmc
