/*
 * vmc.h - the exported interface of libvmc.
 *
 * Plain C (C99 and later, and C++). Every function returns 1 on success and
 * 0 on failure and ends with a pointer to a 32-bit error word; error 1 means
 * success, every other value is one of the VMC_ERR_ codes below or a code
 * that a camera module passed through unchanged.
 *
 * The records are byte images: their layout is an external format, checked
 * field by field at build time, and stays exactly as written here.
 */
#ifndef VMC_VMC_H
#define VMC_VMC_H

#include <stddef.h>
#include <stdint.h>
#include <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(VMC_BUILDING_LIBRARY)
#define VMC_API __attribute__((visibility("default")))
#else
#define VMC_API
#endif

/* ---- Error codes ---------------------------------------------------- */

#define VMC_ERR_OK                    1u   /* success */
#define VMC_ERR_NOT_INITIALISED       2u   /* VMC_Init not called, or the device is not open */
#define VMC_ERR_BAD_DEVICE_NO         3u   /* device number 64 or above where it is tested */
#define VMC_ERR_BAD_CHILD             4u   /* child number 0 where one is needed, too high, or absent */
#define VMC_ERR_BAD_ARGUMENT          5u   /* argument out of range or null, or device number out of range */
#define VMC_ERR_NO_MEMORY             6u   /* an allocation failed */
#define VMC_ERR_ALREADY_INITIALISED   7u   /* second VMC_Init, second start of a worker */
#define VMC_ERR_INTERFACE_NOT_LOADED  8u   /* open on an interface that no detection loaded */
#define VMC_ERR_LOCK_TIMEOUT          9u   /* a lock was not obtained in 20000 ms */
#define VMC_ERR_IMAGE_PROCESS        10u   /* an image operation was not carried out */
#define VMC_ERR_TRANSFER_STATE       11u   /* split transfer started twice or ended without a start */
#define VMC_ERR_NO_DATA              12u   /* no memory image, or a key or block is missing */
#define VMC_ERR_FILE_OPEN            16u   /* a file to load could not be opened or read */
#define VMC_ERR_FILE_WRITE           17u   /* a file could not be created or written */
#define VMC_ERR_FRAME_LIMIT          19u   /* save past its frame limit */
#define VMC_ERR_NOT_SUPPORTED        21u   /* the device or module has not got this function */
#define VMC_ERR_MRAW_OPEN            23u   /* an MRAW save could not be opened */
#define VMC_ERR_MRAW_STATE           24u   /* MRAW save operation without an open save */
#define VMC_ERR_CHAR_CONVERSION      25u   /* a wide/narrow string conversion failed */
#define VMC_ERR_MODULE_LOAD         100u   /* a module file could not be loaded, or the code is unknown */
#define VMC_ERR_MODULE_FREE         101u   /* a device module could not be unloaded */
#define VMC_ERR_MODULE_LOADED       102u   /* a load was asked for a slot that already has a module */
#define VMC_ERR_NOT_OPEN            103u   /* device slot free, interface missing, or entry absent */
#define VMC_ERR_NO_FREE_SLOT        105u   /* no free module slot or device record */
#define VMC_ERR_BAD_IMAGE_FILE      106u   /* file type check failed */
#define VMC_ERR_BUSY                107u   /* interface has open devices, or a save is already open */
#define VMC_ERR_AVI_WRITE           108u   /* AVI frame write failed */
#define VMC_ERR_DISCONNECTED        113u   /* the device reports its link down */
#define VMC_ERR_MODULE_FATAL        202u   /* a module failure that aborts an open */
#define VMC_ERR_REGISTER_WRITE      301u   /* a register write failed in the module */
#define VMC_ERR_OLD_FIRMWARE        500u   /* detection refused: firmware too old on an open device */
#define VMC_ERR_SESSION_CREATE      502u   /* a metadata save session could not be created */

/* ---- Limits ----------------------------------------------------------- */

#define VMC_MAX_DEVICES        64u   /* device numbers 0..63 */
#define VMC_MAX_INTERFACES     10u
#define VMC_MAX_CHILDREN       12u   /* child numbers 1..12; 0 is the device */
#define VMC_NAME_SIZE         256u   /* bytes (A forms) or characters (W forms) of a name */

/* Interface codes. */
#define VMC_INTERFACE_VIRTUAL    1u
#define VMC_INTERFACE_ETHER      2u
#define VMC_INTERFACE_1394       3u
#define VMC_INTERFACE_OPTICAL    4u
#define VMC_INTERFACE_USB        5u
#define VMC_INTERFACE_GIGEV      6u
#define VMC_INTERFACE_PCI      256u
#define VMC_INTERFACE_DVR      512u

/* ---- Records ---------------------------------------------------------- */

#pragma pack(push, 4)

/* One camera found by a detection, or the camera to open. */
typedef struct OpenParam {
    uint32_t deviceCode;
    uint32_t deviceId;
    uint32_t interfaceCode;
} OpenParam;

/* What a detection found: count, then up to 64 entries. 772 bytes. */
typedef struct DetectInfo {
    uint32_t count;
    OpenParam entries[VMC_MAX_DEVICES];
} DetectInfo;

struct ChildRecord;

/* Everything the library caches about one open device. 1176 bytes. */
typedef struct DeviceRecord {
    uint32_t deviceCode;                         /*    0: model code of the device; 0 marks the slot as free */
    uint32_t deviceAddress;                      /*    4: address the device was opened with: IP-address word on the Ethernet interfaces, the detected ID elsewhere */
    uint32_t interfaceCode;                      /*    8: interface code the device was opened on */
    uint32_t moduleIndex;                        /*   12: index of its DeviceModule in the device-module table */
    uint32_t moduleHandle;                       /*   16: handle that the device module returned from its open entry */
    char deviceName[256];                        /*   20: zero-terminated name, from DEV_GetDeviceName, else "Unknown Device" */
    uint32_t deviceId;                           /*  276: code 12 */
    uint32_t productId;                          /*  280: code 20, child 0 */
    uint32_t lotId;                              /*  284: code 21, child 0 */
    uint32_t individualId;                       /*  288: code 22, child 0 */
    uint32_t version;                            /*  292: code 23, child 0; firmware version number */
    uint32_t externalInMode[4];                  /*  296: code 34, sub-code = port 1..4 */
    uint32_t externalOutMode[4];                 /*  312: code 35, sub-code = port 1..4 */
    uint32_t externalInCount;                    /*  328: first value of code 36 */
    uint32_t externalOutCount;                   /*  332: second value of code 36 */
    uint32_t syncOutTimes;                       /*  336: code 94 */
    uint32_t shutterLockMode;                    /*  340: code 24 */
    uint32_t resolutionLockMode;                 /*  344: code 130 */
    uint32_t partitionIncMode;                   /*  348: code 25 */
    uint32_t childDeviceCount;                   /*  352: code 1: children present now */
    uint32_t maxChildDeviceCount;                /*  356: code 66: upper bound of child numbers; the limit every child check uses */
    uint32_t keyPadLock;                         /*  360: code 28 */
    uint32_t videoOutMode;                       /*  364: code 29 */
    uint32_t triggerMode;                        /*  368: first value of code 6; written to 0 when a refresh fails */
    uint32_t triggerAfterFrames;                 /*  372: second value of code 6 */
    uint32_t triggerRandomFrames;                /*  376: first value of code 7 */
    uint32_t triggerRandomCount;                 /*  380: second value of code 7 */
    uint32_t irigMode;                           /*  384: code 14 */
    uint32_t mcdlMode;                           /*  388: code 15 */
    uint32_t adcMode;                            /*  392: code 283 */
    uint32_t adcRange;                           /*  396: code 291 */
    uint32_t reserved400;                        /*  400: never read or written */
    uint32_t irigOffset;                         /*  404: code 19 */
    uint32_t irigPhaseLock;                      /*  408: code 99 */
    uint32_t irigPhaseLockStatus;                /*  412: code 100 */
    uint32_t irigSampleMode;                     /*  416: code 293 */
    uint32_t delayLimit[10];                     /*  420: limits of delay types in this order: 1, 12, 2, 3, 4, 5, 6, 7, 8, 9 (code 75, sub-code = type) */
    uint32_t delayValue[10];                     /*  460: values of delay types in the same order (code 74, sub-code = type) */
    uint32_t delayLimit10;                       /*  500: limit of delay type 10 (code 75 sub 10, replaced by the value of code 219 sub 10) */
    uint32_t delayLimit11Low;                    /*  504: second value of code 219 sub 11 */
    uint32_t delayLimit11;                       /*  508: limit of delay type 11 (code 75 sub 11, replaced by the first value of code 219 sub 11) */
    uint32_t delayValue10;                       /*  512: code 74 sub 10 */
    uint32_t delayValue11;                       /*  516: code 74 sub 11 */
    uint32_t downloadMode;                       /*  520: code 78 */
    uint32_t lowLightMode;                       /*  524: code 82 */
    uint32_t progSwitchMode[4];                  /*  528: code 83, sub-code = switch 1..4 */
    uint32_t storeNum;                           /*  544: code 96 */
    uint32_t highSpeedMode;                      /*  548: code 101 */
    uint32_t syncPriority;                       /*  552: code 110 */
    uint32_t videoOutSignal;                     /*  556: code 114 */
    uint32_t videoOutSignalEnable;               /*  560: code 400 */
    uint32_t videoOutHDSDI;                      /*  564: code 115 */
    uint32_t videoOSD;                           /*  568: code 133 */
    uint32_t recordingType;                      /*  572: code 117 */
    uint32_t mcdlDataMode;                       /*  576: code 118 */
    uint32_t storePreset;                        /*  580: code 126 */
    uint32_t storePresetReboot;                  /*  584: code 394 */
    uint32_t instructionSet;                     /*  588: code 128 */
    uint32_t ledMode;                            /*  592: code 131 */
    uint32_t memoryBlock;                        /*  596: first value of code 139 */
    uint32_t numOfDropFrame;                     /*  600: code 147 */
    uint32_t subInterfaceMode;                   /*  604: code 160 */
    uint32_t exposeExtension;                    /*  608: code 161 */
    uint32_t batteryPowerMode;                   /*  612: code 163 */
    uint32_t binningSensorMode;                  /*  616: code 169 */
    uint32_t exposeOutTimes1;                    /*  620: code 173: exposure-output times of port signal 13/14 */
    uint32_t shutterDispMode;                    /*  624: code 174 */
    uint32_t exposeOutTimes2;                    /*  628: code 175: exposure-output times of port signal 82/88 */
    uint32_t gEtherTransferMode;                 /*  632: code 189 */
    uint32_t mechaShutterMode;                   /*  636: code 195 */
    uint32_t fanCtrlMode;                        /*  640: first value of code 202 */
    uint32_t fanCtrlValue;                       /*  644: second value of code 202 */
    uint32_t sdCardCtrl;                         /*  648: code 204, read only while storageMode is 0 */
    uint32_t sdCardMemoryMode;                   /*  652: written by VMC_SetSdCardMemoryMode, read by nobody */
    uint32_t selfSyncMode;                       /*  656: code 270 */
    uint32_t exposurePosition;                   /*  660: code 278 */
    uint32_t vSyncExposeDeviation;               /*  664: code 280 */
    uint32_t ssdBoxCtrl;                         /*  668: code 204, read only while storageMode is 1 */
    uint32_t storageMode;                        /*  672: code 273 */
    uint32_t ssdBoxSecondValue[2];               /*  676: second value of code 272, sub-code 0..1 */
    uint32_t ssdBoxFirstValue[2];                /*  684: first value of code 272, sub-code 0..1 */
    uint32_t directRecordRapidPack;              /*  692: first value of code 305; non-zero makes VMC_GetMaxFrames re-query */
    uint32_t resetTriggerExposeDelay;            /*  696: code 286 */
    uint32_t deadTimeValue;                      /*  700: code 287 */
    uint32_t straddlingDelay1;                   /*  704: first value of code 288 */
    uint32_t straddlingDelay2;                   /*  708: second value of code 288 */
    uint32_t lowFrameRateMode;                   /*  712: code 296 */
    uint32_t deviceSeries;                       /*  716: code 318 */
    uint32_t storageDownloadMode;                /*  720: code 319 */
    uint32_t progSwitchCount;                    /*  724: code 320 */
    uint32_t lowLightMode2;                      /*  728: kept by the status and mode switch */
    uint32_t lowLightModeEx;                     /*  732: kept by the status and mode switch */
    uint32_t recordingSyncOutMode;               /*  736: code 323 */
    uint32_t frameIndexMode;                     /*  740: code 326: 1 selects frame numbering relative to the start frame */
    uint32_t mode329;                            /*  744: code 329; stored and never read */
    uint32_t shutdownBatterySupply1;             /*  748: first value of code 343 */
    uint32_t shutdownBatterySupply2;             /*  752: second value of code 343 */
    uint32_t autoPowerWhenSupply;                /*  756: code 344 */
    uint32_t mediaSaveBatterySupply1;            /*  760: first value of code 373 */
    uint32_t mediaSaveBatterySupply2;            /*  764: second value of code 373 */
    uint32_t accelerationTrigger1;               /*  768: first value of code 317 */
    uint32_t accelerationTrigger2;               /*  772: second value of code 317 */
    uint32_t accelerationTriggerTime;            /*  776: code 374 */
    uint32_t externalOutSignalSpan;              /*  780: bit n = code 354 sub-code n */
    uint32_t reserved784;                        /*  784: never read or written */
    uint32_t fanRecReadyStop;                    /*  788: code 359, first byte, sign-extended */
    uint32_t reserved792;                        /*  792: never read or written */
    uint32_t shutdownBatteryRange1;              /*  796: first value of code 385 */
    uint32_t mediaSaveBatteryRange1;             /*  800: first value of code 386 */
    uint32_t shutdownBatteryRange2;              /*  804: second value of code 385 */
    uint32_t mediaSaveBatteryRange2;             /*  808: second value of code 386 */
    uint32_t triggerNoiseFilter;                 /*  812: code 316 */
    uint32_t triggerNoiseFilterWidth1;           /*  816: code 399 */
    uint32_t triggerNoiseFilterWidth2;           /*  820: first value of code 380 */
    uint32_t triggerNoiseFilterWidth3;           /*  824: second value of code 380 */
    uint32_t vdaioType[3];                       /*  828: code 384, sub-code 0..2; all ones when the query failed */
    uint32_t memoryShare;                        /*  840: code 360 */
    uint32_t accelerationTriggerLimit1;          /*  844: high 16 bits of the first value of code 382 */
    uint32_t accelerationTriggerLimit2;          /*  848: low 16 bits of the first value of code 382 */
    uint32_t accelerationTriggerLimit3;          /*  852: second value of code 382 */
    uint32_t accelerationTriggerTimeLimit1;      /*  856: high 16 bits of the first value of code 389 */
    uint32_t accelerationTriggerTimeLimit2;      /*  860: low 16 bits of the first value of code 389 */
    uint32_t accelerationTriggerTimeLimit3;      /*  864: second value of code 389 */
    uint32_t videoOSDCrosshairMode;              /*  868: code 391 */
    uint64_t serialNumber;                       /*  872: code 390, child 0; all ones when the query failed */
    uint32_t warningTemperatureThreshold[9];     /*  880: code 393, sub-code = temperature type */
    uint32_t maxRandomEndlessTriggerCount;       /*  916: code 327; 10 when the query failed */
    uint32_t saveSlotNo;                         /*  920: code 403, child 0 */
    uint32_t linkSpeed;                          /*  924: code 424 */
    uint32_t packetIntervalMode;                 /*  928: code 425 sub 0 */
    uint32_t packetInterval10G;                  /*  932: code 425 sub 1 */
    uint32_t ethernetSpeedLimit;                 /*  936: code 427 */
    uint32_t mediaSaveAfterInsert;               /*  940: code 429 */
    uint8_t hasShutterLockMode;                  /*  944: code 24 */
    uint8_t hasResolutionLockMode;               /*  945: code 130 */
    uint8_t hasPartitionIncMode;                 /*  946: code 25 */
    uint8_t hasHeadExchange;                     /*  947: code 104 */
    uint8_t hasKeyPadLock;                       /*  948: code 28 */
    uint8_t hasVideoOutMode;                     /*  949: code 29 */
    uint8_t hasIRIG;                             /*  950: code 14 */
    uint8_t hasIRIGSampleMode;                   /*  951: code 293, looked at only with hasIRIG */
    uint8_t hasMCDL;                             /*  952: code 15 */
    uint8_t hasADC;                              /*  953: code 283 */
    uint8_t hasMemEventFrame;                    /*  954: list 23 did not answer 21; the child loaded last decides */
    uint8_t hasMemTriggerFrameList;              /*  955: list 49 did not answer 21; the child loaded last decides */
    uint8_t frameZeroMode;                       /*  956: code 38: the value of the answer itself, not an availability flag */
    uint8_t hasPartition;                        /*  957: second value of code 30 non-zero; the child loaded last decides */
    uint8_t hasDelay;                            /*  958: any of code 75 sub 1..7 and 12 answered */
    uint8_t hasDownloadMode;                     /*  959: code 78 */
    uint8_t variableFunction;                    /*  960: code 80: the value of the answer itself */
    uint8_t hasLowLightMode;                     /*  961: code 82 */
    uint8_t hasProgSwitchMode;                   /*  962: code 83 sub 1 */
    uint8_t hasSyncOutTimes;                     /*  963: code 94 */
    uint8_t hasStoreNum;                         /*  964: code 96: set non-zero by the query itself */
    uint8_t hasStorePreset;                      /*  965: code 126 */
    uint8_t hasEthernetInfo;                     /*  966: code 97 */
    uint8_t hasIRIGPhaseLock;                    /*  967: code 99 */
    uint8_t hasHighSpeedMode;                    /*  968: code 101 */
    uint8_t hasBurstTransfer;                    /*  969: code 102 */
    uint8_t hasReadAheadTransfer;                /*  970: code 281 */
    uint8_t hasFPGAConfig;                       /*  971: DEV_FPGAConfig entry present */
    uint8_t hasCameraFile;                       /*  972: DEV_ReadCameraFile entry present */
    uint8_t hasImageAddress;                     /*  973: DEV_GetMemImageAddress present and either DEV_GetLiveImageAddress or DEV_GetLiveImageAddress2 */
    uint8_t hasSyncPriority;                     /*  974: code 110 */
    uint8_t hasVideoOutSignal;                   /*  975: code 114 */
    uint8_t hasVideoOutSignalEnable;             /*  976: code 400 */
    uint8_t hasVideoOutHDSDI;                    /*  977: code 115 */
    uint8_t hasVideoOSD;                         /*  978: code 133 */
    uint8_t hasRecordingType;                    /*  979: code 117 */
    uint8_t hasMCDLDataMode;                     /*  980: code 118 */
    uint8_t hasAutoPlay;                         /*  981: code 124 */
    uint8_t hasFactoryDefaults;                  /*  982: code 125 */
    uint8_t hasInstructionSet;                   /*  983: code 128 */
    uint8_t hasLEDMode;                          /*  984: code 131 */
    uint8_t hasLiveIRIG;                         /*  985: code 132: value of the answer itself */
    uint8_t hasMemoryBlock;                      /*  986: code 139 */
    uint8_t hasFrameAddress;                     /*  987: DEV_GetFrameAddress entry present */
    uint8_t hasDropFrameList;                    /*  988: code 147 answered and DEV_GetDropFrameList present */
    uint8_t hasKeyPadCommand;                    /*  989: code 150 */
    uint8_t hasSubPort;                          /*  990: code 159: value of the answer itself */
    uint8_t hasSubInterfaceMode;                 /*  991: code 160 */
    uint8_t hasExposeExtension;                  /*  992: code 161 */
    uint8_t hasBatteryPowerMode;                 /*  993: code 163 */
    uint8_t hasSyncInSignalStatus;               /*  994: code 164 */
    uint8_t hasVFPNData;                         /*  995: code 165 */
    uint8_t hasSensorLUTData;                    /*  996: code 166 */
    uint8_t hasBinningSensorMode;                /*  997: code 169 */
    uint8_t hasDelayType8;                       /*  998: code 75 sub 8 */
    uint8_t hasDelayType9;                       /*  999: code 75 sub 9 */
    uint8_t hasExposeOutTimes1;                  /* 1000: code 173 */
    uint8_t hasExposeOutTimes2;                  /* 1001: code 175 */
    uint8_t hasRTC;                              /* 1002: code 186 */
    uint8_t hasFixFrameRecordMode;               /* 1003: code 188 */
    uint8_t hasGEtherTransferMode;               /* 1004: code 189 */
    uint8_t hasMechaShutterMode;                 /* 1005: code 195 */
    uint8_t hasCode387;                          /* 1006: code 387 */
    uint8_t hasExposeTimeData;                   /* 1007: code 217 */
    uint8_t hasFanCtrl;                          /* 1008: code 202 */
    uint8_t hasSdCardCtrl;                       /* 1009: code 204 with storageMode 0 */
    uint8_t hasDelayType10;                      /* 1010: code 75 sub 10 or 11 */
    uint8_t hasMechanicalShutter;                /* 1011: code 221 */
    uint8_t hasCalMaxFrames;                     /* 1012: code 240 */
    uint8_t hasPixelGainMagnification;           /* 1013: code 242 */
    uint8_t enableSelfSyncMode;                  /* 1014: code 271: value of the answer itself */
    uint8_t hasExposurePosition;                 /* 1015: code 278 */
    uint8_t hasVSyncExposeDeviation;             /* 1016: code 280 */
    uint8_t hasRandomTriggerEnable;              /* 1017: code 239 */
    uint8_t hasSSDBoxCtrl;                       /* 1018: code 204 with storageMode 1 */
    uint8_t hasStorageMode;                      /* 1019: code 273 */
    uint8_t hasSSDBoxInfo;                       /* 1020: code 272 */
    uint8_t hasLowFrameRateMode;                 /* 1021: code 296 */
    uint8_t hasAccelerationSensorError;          /* 1022: code 408 */
    uint8_t hasLinkSpeed;                        /* 1023: code 424 */
    uint8_t hasPacketIntervalMode;               /* 1024: code 425 */
    uint8_t hasEthernetSpeedLimit;               /* 1025: code 427 */
    uint8_t reserved1026[2];
    struct ChildRecord* childRecords[12];        /* 1028: slot c-1 holds child c; null when absent */
    uint8_t hasAutoExposureCode294;              /* 1124: code 37 answered and code 294 non-zero; the child loaded last decides */
    uint8_t hasDirectRecordRapidPack;            /* 1125: code 305 */
    uint8_t hasHardwareNoiseReduction;           /* 1126: code 285 */
    uint8_t hasSoftNoiseReduction;               /* 1127: code 216 */
    uint8_t hasStorageDownloadMode;              /* 1128: code 319 */
    uint8_t hasPartitionIncMode1;                /* 1129: list 50 holds the value 1 */
    uint8_t hasWarningTemperature;               /* 1130: code 370, child 0 */
    uint8_t hasMode329;                          /* 1131: code 329 */
    uint8_t hasMedia;                            /* 1132: code 273 answers 2 */
    uint8_t hasTemperature;                      /* 1133: code 369 (after a first pass on list 53) */
    uint8_t hasMemTemperature;                   /* 1134: code 369 answers non-zero, child 0 */
    uint8_t hasBattery;                          /* 1135: code 342 */
    uint8_t hasAutoPowerWhenSupply;              /* 1136: code 344 */
    uint8_t hasShutdownCamera;                   /* 1137: code 372 */
    uint8_t hasRebootCamera;                     /* 1138: code 410 */
    uint8_t hasAccelerationTrigger;              /* 1139: code 317 */
    uint8_t hasAccelerationTriggerTime;          /* 1140: code 374 */
    uint8_t hasPixelGainMaxMagnification;        /* 1141: code 242, same value as hasPixelGainMagnification */
    uint8_t hasPartitionLock;                    /* 1142: code 353 */
    uint8_t hasMeasurementVoltage;               /* 1143: code 357 */
    uint8_t hasMeasurementCurrent;               /* 1144: code 358 */
    uint8_t hasExternalOutSignalSpan;            /* 1145: code 354 */
    uint8_t reservedFlag1146;                    /* 1146: no writer; always 0 */
    uint8_t reservedFlag1147;                    /* 1147: no reader, no writer */
    uint8_t hasFanRecReadyStop;                  /* 1148: code 359 */
    uint8_t hasCode368;                          /* 1149: code 368: value of the answer */
    uint8_t hasMACAddress;                       /* 1150: code 193 */
    uint8_t hasWarningCableCutting;              /* 1151: code 371, child 0 */
    uint8_t hasTriggerNoiseFilter;               /* 1152: code 316 */
    uint8_t hasVDAIOType;                        /* 1153: code 384 */
    uint8_t hasMemoryShare;                      /* 1154: code 360 */
    uint8_t hasMemAccelerationData;              /* 1155: data read 52 with child 0 */
    uint8_t reservedFlag1156;                    /* 1156: written 0 at open only */
    uint8_t hasVideoOSDCrosshairMode;            /* 1157: code 391 */
    uint8_t hasWarningTemperatureThreshold;      /* 1158: code 393 */
    uint8_t hasCode397;                          /* 1159: code 397 */
    uint8_t hasCode398;                          /* 1160: code 398 */
    uint8_t hasTriggerNoiseFilterWidth;          /* 1161: codes 399 and 380 */
    uint8_t hasFanState;                         /* 1162: code 203 */
    uint8_t hasCode404;                          /* 1163: code 404 answers 1 */
    uint8_t hasCode405;                          /* 1164: code 405 answers 1 */
    uint8_t hasCode406;                          /* 1165: code 406 answers 1 */
    uint8_t hasCode407;                          /* 1166: code 407 answers 1 */
    uint8_t hasHeadLedLaser;                     /* 1167: code 234; the child loaded last decides */
    uint8_t hasFeature161;                       /* 1168: code 428 sub 161 answers 1 */
    uint8_t hasFeature162;                       /* 1169: code 428 sub 162 answers 1 */
    uint8_t hasMediaSaveAfterInsert;             /* 1170: code 429 */
    uint8_t hasTelnetCommand;                    /* 1171: code 428 sub 164 answers 1 */
    uint8_t hasDeviceErrorList;                  /* 1172: code 428 sub 165 answers 1 */
    uint8_t hasDeviceErrorObserve;               /* 1173: code 428 sub 166 answers 1 */
    uint8_t hasPhaseAdjustment;                  /* 1174: code 428 sub 168 answers 1 */
    uint8_t reserved1175[1];
} DeviceRecord;

/* Everything the library caches about one camera head. 5064 bytes. */
typedef struct ChildRecord {
    uint32_t recordRate;                         /*    0: code 2 (or 67) */
    uint32_t width;                              /*    4: high 16 bits of code 3 (or 68) */
    uint32_t height;                             /*    8: low 16 bits of code 3 (or 68) */
    uint32_t maxWidth;                           /*   12: high 16 bits of code 47 */
    uint32_t maxHeight;                          /*   16: low 16 bits of code 47 */
    uint32_t roiWidth;                           /*   20: high 16 bits of code 116; defaults to width */
    uint32_t roiHeight;                          /*   24: low 16 bits of code 116; defaults to height */
    uint32_t shutterFps;                         /*   28: code 4 */
    uint32_t shutterUsec;                        /*   32: code 5 */
    uint32_t shutterNsec;                        /*   36: code 127 */
    uint32_t edgeEnhanceMode;                    /*   40: code 13 */
    uint32_t sensorGainMode;                     /*   44: code 9 */
    uint32_t sensorGammaMode;                    /*   48: code 10 */
    uint32_t dsShutterMode;                      /*   52: code 17 */
    uint32_t dsShutterValue;                     /*   56: code 93 */
    uint32_t colorTempMode;                      /*   60: code 8 */
    uint32_t colorTempValue1;                    /*   64: code 86 */
    uint32_t colorTempValue2;                    /*   68: code 87 */
    uint32_t colorTempValue3;                    /*   72: code 88 */
    uint32_t autoExposure;                       /*   76: code 37 */
    uint8_t reserved80[24];                      /*   80: never touched */
    char childName[256];                         /*  104: from DEV_GetDeviceName, else "Unknown Child Device" */
    uint32_t productId;                          /*  360: code 20 */
    uint32_t lotId;                              /*  364: code 21 */
    uint32_t individualId;                       /*  368: code 22 */
    uint32_t version;                            /*  372: code 23 */
    uint32_t shadingMode;                        /*  376: code 16 */
    uint32_t pixelGainMode;                      /*  380: code 32 */
    uint32_t reserved384;                        /*  384: never touched */
    uint32_t variableChannel;                    /*  388: code 54 */
    uint32_t maxPartition;                       /*  392: first value of code 30 */
    uint32_t maxPartitionBlocks;                 /*  396: second value of code 30 */
    uint32_t partitionCount;                     /*  400: code 40: partitions now configured */
    uint32_t currentPartition;                   /*  404: first value of code 31 */
    uint32_t memoryModePartition;                /*  408: code 187, or the current partition */
    uint32_t maxFrameBlocks;                     /*  412: second value of code 33 (or 69) */
    uint32_t maxFrames;                          /*  416: first value of code 33 (or 69) */
    uint32_t colorType;                          /*  420: code 11, low byte */
    uint32_t reserved424[2];                     /*  424: never touched */
    uint32_t lutMode;                            /*  432: code 18 */
    uint32_t segmentX;                           /*  436: high 16 bits of code 48 (or 71) */
    uint32_t segmentY;                           /*  440: low 16 bits of code 48 (or 71) */
    uint32_t maxBitDepth;                        /*  444: code 72 */
    uint32_t maxFullResoRate;                    /*  448: code 81 */
    uint32_t ghostReduction;                     /*  452: code 119 */
    uint32_t camMode;                            /*  456: code 49 (or 79) */
    int32_t colorEnhanceValue[9];                /*  460: three triples, from codes 44, 45, 46, each value sign-magnitude on 16 bits */
    uint32_t colorEnhanceMode;                   /*  496: code 77 */
    uint32_t colorTempBase2;                     /*  500: second value of code 89 */
    uint32_t colorTempBase1;                     /*  504: first value of code 89 */
    uint32_t liveResolutionMode;                 /*  508: code 109 or 141 */
    uint32_t bitDepth;                           /*  512: code 113, low byte checked against maxBitDepth */
    uint32_t bitDepth2;                          /*  516: second depth of code 158 */
    uint32_t cameraCommandBaudRate;              /*  520: code 112 */
    uint32_t softColorTempMode;                  /*  524: code 120 */
    uint32_t softColorTempValue1;                /*  528: code 121 */
    uint32_t softColorTempValue2;                /*  532: code 122 */
    uint32_t softColorTempValue3;                /*  536: code 123 */
    uint32_t sensorTempMode;                     /*  540: code 134 */
    uint32_t shadingOffsetMode;                  /*  544: code 136 */
    uint32_t shadingOffsetValue;                 /*  548: code 137 */
    uint32_t shadingOffsetLimit1;                /*  552: code 138 */
    uint32_t shadingOffsetLimit2;                /*  556: code 138 */
    uint32_t liveResolutionScaleMode;            /*  560: written by VMC_SetLiveResolutionScaleMode */
    uint32_t offsetAS;                           /*  564: code 151 */
    uint32_t hBanding;                           /*  568: code 152 */
    uint32_t polarizerConfig;                    /*  572: code 154 */
    uint32_t shadingType;                        /*  576: code 155 */
    uint32_t blackClipLevel;                     /*  580: code 156 */
    uint32_t imageTrigger;                       /*  584: code 176 */
    uint32_t lensControl;                        /*  588: code 185 */
    uint32_t pixelGainDataSize;                  /*  592: code 321 */
    uint32_t pixelGainDataMode3Size;             /*  596: code 381 */
    uint32_t maxPixelDefectCount;                /*  600: code 383 */
    uint32_t pixelDefectMode;                    /*  604: code 85 */
    uint64_t serialNumber;                       /*  608: code 390; all ones when the query failed */
    uint32_t saveSlotNo;                         /*  616: code 403 */
    uint8_t hasSensorGain;                       /*  620: code 9 */
    uint8_t hasSensorGamma;                      /*  621: code 10 */
    uint8_t hasColorTemp;                        /*  622: code 89, then all of codes 8, 86, 87, 88 */
    uint8_t hasDSShutter;                        /*  623: code 17 */
    uint8_t hasShading;                          /*  624: code 16; VMC_DisableFunction clears it */
    uint8_t hasPixelGain;                        /*  625: code 32 */
    uint8_t reservedFlag626;                     /*  626: no reader, no writer */
    uint8_t hasColorEnhance;                     /*  627: code 77 */
    uint8_t hasFunction8;                        /*  628: no writer; always 0 */
    uint8_t reservedFlag629;                     /*  629: no reader, no writer */
    uint8_t hasAutoExposure;                     /*  630: code 37 */
    uint8_t reservedFlag631;                     /*  631: no reader, no writer */
    uint8_t hasLUT;                              /*  632: code 18 */
    uint8_t hasEdgeEnhance;                      /*  633: code 13 */
    uint8_t hasShutterUsec;                      /*  634: code 5 */
    uint8_t hasShutterNsec;                      /*  635: code 127 */
    uint8_t hasStepShutter;                      /*  636: code 105 */
    uint8_t hasLiveResolution;                   /*  637: code 109 */
    uint8_t hasBitDepth;                         /*  638: code 113 */
    uint8_t hasCameraCommandBaudRate;            /*  639: code 112 */
    uint8_t hasResolutionROI;                    /*  640: code 116 */
    uint8_t hasGhostReduction;                   /*  641: code 119 */
    uint8_t hasSoftColorTemp;                    /*  642: codes 120 to 123 */
    uint8_t hasSensorTempMode;                   /*  643: code 134 */
    uint8_t hasShadingOffset;                    /*  644: code 136 */
    uint8_t hasLiveResolutionScale;              /*  645: code 141 */
    uint8_t hasTestPattern;                      /*  646: code 148 */
    uint8_t hasOffsetAS;                         /*  647: code 151 */
    uint8_t hasHBanding;                         /*  648: code 152 */
    uint8_t polarization;                        /*  649: code 153: value of the answer itself */
    uint8_t hasShadingType;                      /*  650: code 155 */
    uint8_t hasBlackClipLevel;                   /*  651: code 156 */
    uint8_t hasBitDepth2;                        /*  652: code 158 */
    uint8_t reserved653[3];
    uint32_t fpgaTempMode;                       /*  656: code 167 */
    uint8_t hasFPGATempMode;                     /*  660: code 167 */
    uint8_t hasImageTrigger;                     /*  661: code 176 */
    uint8_t hasLensControl;                      /*  662: code 185 */
    uint8_t hasMemoryModePartition;              /*  663: code 187 */
    uint8_t hasWarningTemperature;               /*  664: code 370 */
    uint8_t hasTemperature;                      /*  665: list 53 non-empty */
    uint8_t hasMemTemperature;                   /*  666: code 369 non-zero */
    uint8_t hasWarningCableCutting;              /*  667: code 371 */
    uint8_t hasMemAccelerationData;              /*  668: data read 52 */
    uint8_t hasFunction136;                      /*  669: no writer; always 0 */
    uint8_t code401Value;                        /*  670: code 401: first byte of the answer */
    uint8_t hasLiveImageIRIG;                    /*  671: data read 68 */
    uint8_t hasFeature162;                       /*  672: code 428 sub 162 answers 1 */
    uint8_t reserved673[3];
    uint32_t memRecordRate;                      /*  676: code 2 in memory mode */
    uint32_t memWidth;                           /*  680: as width, for the recorded memory */
    uint32_t memHeight;                          /*  684: as height */
    uint32_t memRoiWidth;                        /*  688: as roiWidth */
    uint32_t memRoiHeight;                       /*  692: as roiHeight */
    uint32_t memShutterFps;                      /*  696: as shutterFps */
    uint32_t memShutterUsec;                     /*  700: as shutterUsec */
    uint32_t memShutterNsec;                     /*  704: as shutterNsec */
    uint32_t memTriggerMode;                     /*  708: as triggerMode */
    uint32_t memTriggerAfterFrames;              /*  712: as triggerAfterFrames */
    uint32_t memTriggerRandomFrames;             /*  716: as triggerRandomFrames */
    uint32_t memTriggerRandomCount;              /*  720: as triggerRandomCount; rewritten by the frame-info computation in two modes */
    uint32_t memEdgeEnhanceMode;                 /*  724: as edgeEnhanceMode */
    uint32_t memMcdlMode;                        /*  728: as mcdlMode */
    uint32_t memIrigMode;                        /*  732: as irigMode */
    uint32_t memIrigSampleMode;                  /*  736: as irigSampleMode */
    uint32_t memAdcMode;                         /*  740: as adcMode */
    uint32_t memAdcRange;                        /*  744: as adcRange */
    uint32_t reserved748;                        /*  748: never touched */
    uint32_t memSensorGainMode;                  /*  752: as sensorGainMode */
    uint32_t memSensorGammaMode;                 /*  756: as sensorGammaMode */
    uint32_t memDsShutterMode;                   /*  760: as dsShutterMode */
    uint32_t memDsShutterValue;                  /*  764: as dsShutterValue */
    uint32_t memColorTempMode;                   /*  768: as colorTempMode */
    uint32_t memColorTempValue1;                 /*  772: as colorTempValue1 */
    uint32_t memColorTempValue2;                 /*  776: as colorTempValue2 */
    uint32_t memColorTempValue3;                 /*  780: as colorTempValue3 */
    uint32_t memAutoExposure;                    /*  784: as autoExposure */
    uint32_t memSegmentX;                        /*  788: as segmentX */
    uint32_t memSegmentY;                        /*  792: as segmentY */
    uint32_t memLiveResolutionMode;              /*  796: as liveResolutionMode; never written by this library */
    int32_t memColorEnhanceValue[9];             /*  800: as colorEnhanceValue */
    uint32_t memColorEnhanceMode;                /*  836: as colorEnhanceMode */
    uint32_t reserved840[6];                     /*  840: never touched */
    uint32_t memLutMode;                         /*  864: as lutMode */
    uint32_t memIrigPhaseLockStatus;             /*  868: as irigPhaseLockStatus */
    uint32_t memColorType;                       /*  872: as colorType */
    uint32_t memBitDepth;                        /*  876: as bitDepth */
    uint32_t memBitDepth2;                       /*  880: as bitDepth2 */
    uint32_t reserved884;                        /*  884: never touched */
    int32_t frameStart;                          /*  888: first frame number (frame-info image starts here, 72 bytes) */
    int32_t frameEnd;                            /*  892: last frame number */
    uint32_t frameTrigger;                       /*  896: 1 when frameZeroMode is 0, else 0 */
    uint32_t frameTwoStage1;                     /*  900: first value of code 43 in the two-stage modes; the child number in all other modes */
    uint32_t frameTwoStage2;                     /*  904: second value of code 43 in the two-stage modes; memTriggerAfterFrames in all other modes */
    uint32_t frameTwoStageTiming;                /*  908: code 84, 0 when it failed */
    int32_t eventFrame[10];                      /*  912: event frame numbers */
    uint32_t eventFrameCount;                    /*  952: entries in eventFrame (list 23) */
    uint32_t recordedFrames;                     /*  956: code 42 (or 70); end of the frame-info image */
    uint32_t triggerFrame[1024];                 /*  960: trigger frames of the recording (list 49) */
    uint32_t triggerFrameCount;                  /* 5056: entries in triggerFrame */
    uint32_t memInfoWord;                        /* 5060: stored by the memory-information load, read by nobody */
} ChildRecord;

/* The frame range of a recording, as VMC_ReqMemFrameInfo and
   VMC_GetMemFrameInfo copy it: the 72 bytes of a ChildRecord from frameStart
   to recordedFrames. */
typedef struct MemFrameInfoRecord {
    int32_t frameStart;          /* first valid frame number */
    int32_t frameEnd;            /* last valid frame number */
    uint32_t frameTrigger;       /* 0 when frame 0 exists, 1 when it does not */
    uint32_t frameTwoStage1;     /* first value of code 43 in the two-stage modes; else the child number */
    uint32_t frameTwoStage2;     /* second value of code 43 in the two-stage modes; else the after-frames */
    uint32_t frameTwoStageTiming; /* code 84, 0 when refused */
    int32_t eventFrame[10];      /* event frame numbers */
    uint32_t eventFrameCount;    /* how many of them are valid */
    uint32_t recordedFrames;     /* stored frames */
} MemFrameInfoRecord;

#pragma pack(pop)

/* The memory view of a child: the part of a ChildRecord from this offset on. */
#define VMC_CHILD_MEMORY_OFFSET 676u

/* ---- Library ---------------------------------------------------------- */

VMC_API uint32_t VMC_Init(uint32_t* error);
VMC_API uint32_t VMC_GetNumberOfDevice(uint32_t* count, uint32_t* error);
VMC_API uint32_t VMC_GetInitialError(uint32_t deviceNo, uint32_t index, uint32_t* value1, uint32_t* value2, uint32_t* error);
VMC_API uint32_t VMC_GetLastError(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error);
VMC_API uint32_t VMC_SetInstructionSet(uint32_t deviceNo, uint32_t mode, uint32_t* error);

/* Instruction-set modes for VMC_SetInstructionSet. */
#define VMC_INSTRUCTION_FEATURE_A  0x00000001u
#define VMC_INSTRUCTION_SSE        0x00000002u
#define VMC_INSTRUCTION_AUTO       0x40000000u
#define VMC_INSTRUCTION_NONE       0x80000000u

/* ---- Detection, opening, closing ------------------------------------- */

VMC_API uint32_t VMC_DetectDevice(uint32_t interfaceCode, uint32_t* addressList, uint32_t addressCount,
                                  uint32_t mode, DetectInfo* info, uint32_t* error);
VMC_API uint32_t VMC_DetectDeviceLV(uint32_t interfaceCode, uint32_t* addressList, uint32_t addressCount,
                                    uint32_t mode, uint32_t* count, uint32_t* deviceCodeList,
                                    uint32_t* deviceIdList, uint32_t* interfaceCodeList, uint32_t* error);
VMC_API uint32_t VMC_OpenDevice(OpenParam* param, uint32_t* deviceNo, uint32_t* error);
VMC_API uint32_t VMC_OpenDevice2(OpenParam* param, uint32_t param1, uint32_t param2, uint32_t* deviceNo,
                                 uint32_t* error);
VMC_API uint32_t VMC_OpenDeviceLV(uint32_t deviceCode, uint32_t deviceId, uint32_t interfaceCode,
                                  uint32_t* deviceNo, uint32_t* error);
VMC_API uint32_t VMC_OpenDevice2LV(uint32_t deviceCode, uint32_t deviceId, uint32_t interfaceCode,
                                   uint32_t param1, uint32_t param2, uint32_t* deviceNo, uint32_t* error);
VMC_API uint32_t VMC_CloseDevice(uint32_t deviceNo, uint32_t* error);

VMC_API uint32_t VMC_GetDeviceNameA(uint32_t deviceNo, uint32_t childNo, char* name, uint32_t* error);
VMC_API uint32_t VMC_GetDeviceNameW(uint32_t deviceNo, uint32_t childNo, wchar_t* name, uint32_t* error);
VMC_API uint32_t VMC_GetHeadTypeNameA(uint32_t deviceNo, uint32_t childNo, uint32_t headType, char* name,
                                      uint32_t* error);
VMC_API uint32_t VMC_GetHeadTypeNameW(uint32_t deviceNo, uint32_t childNo, uint32_t headType, wchar_t* name,
                                      uint32_t* error);

/* ---- Records ---------------------------------------------------------- */

VMC_API uint32_t VMC_GetDeviceInfo(uint32_t deviceNo, DeviceRecord* record, uint32_t* error);
VMC_API uint32_t VMC_GetChildInfo(uint32_t deviceNo, uint32_t childNo, ChildRecord* record, uint32_t* error);
/* Copies the memory view: the 4388 bytes of the child record from VMC_CHILD_MEMORY_OFFSET on. */
VMC_API uint32_t VMC_GetChildMemoryInfo(uint32_t deviceNo, uint32_t childNo, void* record, uint32_t* error);

/* ---- Communication parameters and sub-interfaces ---------------------- */

VMC_API uint32_t VMC_SetInterfaceInfo(uint32_t interfaceCode, uint32_t packetSize, uint32_t sendPort,
                                      uint32_t receivePort, uint32_t connectMode, uint32_t* error);
VMC_API uint32_t VMC_GetInterfaceInfo(uint32_t interfaceCode, uint32_t* packetSize, uint32_t* sendPort,
                                      uint32_t* receivePort, uint32_t* connectMode, uint32_t* error);
VMC_API uint32_t VMC_SetCommunicationParameter(uint32_t interfaceCode, uint32_t index, uint32_t value,
                                               uint32_t* error);
VMC_API uint32_t VMC_GetCommunicationParameter(uint32_t interfaceCode, uint32_t index, uint32_t* value,
                                               uint32_t* error);

/* Indices of VMC_Set/GetCommunicationParameter. */
#define VMC_COMM_SEND_PORT            0u
#define VMC_COMM_RECEIVE_PORT         1u
#define VMC_COMM_CONNECT_MODE         2u
#define VMC_COMM_PACKET_SIZE          3u
#define VMC_COMM_DS_COUNT_MAX         4u
#define VMC_COMM_PACKET_INTERVAL_10G  5u

VMC_API uint32_t VMC_GetPacketSize(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_GetTimeOutInfo(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* error);
VMC_API uint32_t VMC_PingDevice(uint32_t deviceNo, uint32_t* error);
VMC_API uint32_t VMC_GetConnectStatus(uint32_t deviceNo, uint32_t* value, uint32_t* error);

VMC_API uint32_t VMC_GetSubInterface(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_OpenSubInterface(uint32_t deviceNo, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_OpenSubInterface2(uint32_t deviceNo, uint32_t param1, uint32_t param2, uint32_t* value,
                                       uint32_t* error);
VMC_API uint32_t VMC_CloseSubInterface(uint32_t deviceNo, uint32_t* error);

VMC_API uint32_t VMC_GetEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error);
VMC_API uint32_t VMC_SetEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t value, uint32_t* error);
VMC_API uint32_t VMC_GetConnectedEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                              uint32_t* error);

/* ---- Device state: reads, requests, availability, lists, polling ----- */

#include <vmc/cached_reads.h>
#include <vmc/module_reads.h>
#include <vmc/requests.h>
#include <vmc/availability.h>
#include <vmc/value_lists.h>
#include <vmc/status.h>

#ifdef __cplusplus
}
#endif

#endif /* VMC_VMC_H */
