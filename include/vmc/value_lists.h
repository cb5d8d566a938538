/*
 * value_lists.h - The values a setting may take, as the camera lists them.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 *
 * Nothing here is cached: each call asks the device module now, and the
 * result and error word are the module's. The arguments are
 *
 *     deviceNo, [childNo | port], count, list, error
 *
 * where count receives the number of entries and list the entries. The
 * library does not pass the size of list to the module, so the caller must
 * supply room for every entry the camera may report: allocate
 * VMC_MAX_LIST_ENTRIES words for any list of this family. No camera of the
 * family reports more; a module that did would write past a smaller buffer.
 * count and list must not be null (error 5).
 *
 * Per-head lists refuse child 0 and absent heads with error 4; device
 * lists ask child 0 and give error 103 for a device that is not open.
 */
#ifndef VMC_VALUE_LISTS_H
#define VMC_VALUE_LISTS_H

/* Room to allocate, in 32-bit words, for the list argument of any list. */
#define VMC_MAX_LIST_ENTRIES 1024u

/* Per-head lists, read under the device lock. */
VMC_API uint32_t VMC_GetRecordRateList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetResolutionList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                       uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedFpsList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedUsecList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                             uint32_t* error);
VMC_API uint32_t VMC_GetShutterSpeedNsecList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                             uint32_t* error);
VMC_API uint32_t VMC_GetAEShutterFpsList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetAEShutterUsecList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetAEShutterNsecList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetPixelDefectList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                        uint32_t* error);

/* Per-head lists, read without a lock. */
VMC_API uint32_t VMC_GetSensorGainModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetSensorGammaModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetColorTempModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetLUTModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                    uint32_t* error);
VMC_API uint32_t VMC_GetVariableRecordRateList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                               uint32_t* error);
VMC_API uint32_t VMC_GetDSShutterModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetShadingModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetShadingTypeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                        uint32_t* error);
VMC_API uint32_t VMC_GetEdgeEnhanceModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetPixelGainModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                          uint32_t* error);
VMC_API uint32_t VMC_GetColorEnhanceModeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                             uint32_t* error);
VMC_API uint32_t VMC_GetHeadExchangeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                         uint32_t* error);
VMC_API uint32_t VMC_GetLiveResolutionList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetLiveResolutionScaleList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                                uint32_t* error);
VMC_API uint32_t VMC_GetCameraCommandBaudRateList(uint32_t deviceNo, uint32_t childNo, uint32_t* count,
                                                  uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetBlackClipLevelList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                           uint32_t* error);

/* Device lists, read without a lock. */
VMC_API uint32_t VMC_GetTriggerModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetProgSwitchModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetSyncOutTimesList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetDownloadModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutSignalList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetVideoOutHDSDIList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetHighSpeedModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetSyncPriorityList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetRecordingTypeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetADCRangeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);

/* Signals of one external port (1..), the port passed to the module as is. */
VMC_API uint32_t VMC_GetExternalIOTypeList(uint32_t deviceNo, uint32_t port, uint32_t* count, uint32_t* list,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetExternalInModeList(uint32_t deviceNo, uint32_t port, uint32_t* count, uint32_t* list,
                                           uint32_t* error);
VMC_API uint32_t VMC_GetExternalOutModeList(uint32_t deviceNo, uint32_t port, uint32_t* count, uint32_t* list,
                                            uint32_t* error);

/* Child numbers of the heads present; 0 marks an empty entry. deviceNo 64
   or above gives error 3. */
VMC_API uint32_t VMC_GetExistChildDeviceList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);

/* Partition increment modes. A camera without the setting has the one
   mode 0; one that has it but does not list them has 0 and 1. */
VMC_API uint32_t VMC_GetPartitionIncModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);

/* Delay types the device has; one that does not list them has types 1..7. */
VMC_API uint32_t VMC_GetDelayTypeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);

/* Exposure-output times of an output signal: one list serves signals 82
   and 88, another all others. */
VMC_API uint32_t VMC_GetExposeOutTimesList(uint32_t deviceNo, uint32_t signal, uint32_t* count, uint32_t* list,
                                           uint32_t* error);

/* Temperature types that can be read; childNo 0 asks the device itself. */
VMC_API uint32_t VMC_GetTemperatureTypeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                            uint32_t* error);
VMC_API uint32_t VMC_GetTemperatureTypeMList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                             uint32_t* error);

/* Errors the device or a head reports (childNo 0: the device). Error 21
   when the camera has no error list (VMC_FUNCTION_DEVICE_ERROR_LIST). */
VMC_API uint32_t VMC_GetDeviceErrorList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                        uint32_t* error);

/* The values of look-up table plane 1, 2 or 3 as loaded now, or as the
   camera shipped them (Org). Read under the device lock. A plane other
   than 1..3 gives error 5 and leaves the device lock held by the calling
   thread. */
VMC_API uint32_t VMC_GetLUTValueList(uint32_t deviceNo, uint32_t childNo, uint32_t plane, uint32_t* count,
                                     uint32_t* list, uint32_t* error);
VMC_API uint32_t VMC_GetLUTOrgValueList(uint32_t deviceNo, uint32_t childNo, uint32_t plane, uint32_t* count,
                                        uint32_t* list, uint32_t* error);

/* Frames the camera dropped while recording (childNo 0: the device), read
   under the device lock; count and list go to the module as they stand.
   Succeeds whatever the module answers, so judge the result by count. A
   module without the function gives error 21 and leaves the device lock
   held by the calling thread. */
VMC_API uint32_t VMC_GetDropFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                      uint32_t* error);

/* Numbers of the open devices, ascending; allocate VMC_MAX_DEVICES words. */
VMC_API uint32_t VMC_GetOpenedDeviceList(uint32_t* count, uint32_t* list, uint32_t* error);

#endif /* VMC_VALUE_LISTS_H */
