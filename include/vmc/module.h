/*
 * module.h - the contract between libvmc and the modules it loads.
 *
 * A device module (one camera family, file DMODnnn.so) exports the DEV_
 * entries below; an interface module (one kind of link, file IMOD_xxx.so)
 * exports the INT_ entries. Every entry returns 1 on success and 0 on
 * failure and leaves its code in the error word passed last; the library
 * hands that code to its caller unchanged. A module answers
 * VMC_ERR_NOT_SUPPORTED (21) for every code its camera lacks, and nothing
 * else: the library treats 21 as "feature absent" and most other errors as
 * fatal to an open.
 *
 * The library resolves every entry by name at load time; an entry a module
 * does not export stays null. DeviceModule and InterfaceModule below are the
 * library's tables of loaded modules; an interface module's table crosses to
 * the device module as an argument of DEV_OpenDevice, so its layout is part
 * of this contract.
 *
 * Lock handles. At open the library hands the device module the locks it
 * shares with the library, through DEV_SetData:
 *   code VMC_DATA_DEVICE_MUTEX (38), sub 0..3: data points at a
 *       vmc_lock_slot of the device lock and of transfer channels 2, 3, 4;
 *   code VMC_DATA_GLOBAL_MUTEX (58), sub 0: data points at the
 *       vmc_lock_slot of the library-wide lock that serialises bulk transfers.
 * A slot stays valid while the device is open; the handle it holds is a
 * recursive pthread mutex. Lock it with pthread_mutex_lock (or timedlock,
 * waiting VMC_LOCK_TIMEOUT_MS as the library does) and release it with
 * pthread_mutex_unlock; never destroy it.
 */
#ifndef VMC_MODULE_H
#define VMC_MODULE_H

#include <pthread.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* How long the library waits for any of its locks before it gives up with
   error 9; a module waiting on a handed-over lock should do the same. */
#define VMC_LOCK_TIMEOUT_MS 20000u

typedef pthread_mutex_t* vmc_lock_handle;
typedef vmc_lock_handle* vmc_lock_slot;

/* Handle of one open device, as the device module wrote it at open. */
typedef uint32_t vmc_device_handle;

struct InterfaceModule;

/* ---- Device module entries ------------------------------------------ */

typedef uint32_t (*DEV_InitFn)(uint32_t* error);
typedef uint32_t (*DEV_ExitFn)(uint32_t* error);
typedef uint32_t (*DEV_OpenDeviceFn)(uint32_t interfaceCode, struct InterfaceModule* interfaceModule,
                                     uint32_t deviceAddress, vmc_device_handle* handleOut, uint32_t* error);
typedef uint32_t (*DEV_CloseDeviceFn)(vmc_device_handle handle, uint32_t* error);
typedef uint32_t (*DEV_SetDeviceCapsFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                        uint32_t value1, uint32_t value2, uint32_t* error);
/* value2Out null means the code has one value. */
typedef uint32_t (*DEV_GetDeviceCapsFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                        uint32_t* value1Out, uint32_t* value2Out, uint32_t* error);
typedef uint32_t (*DEV_SetListFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                  void* list, uint32_t count, uint32_t* result, uint32_t* error);
/* The caller's buffer is large enough for the list; no size is passed. */
typedef uint32_t (*DEV_GetListFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                  void* listOut, uint32_t* countOut, uint32_t* error);
/* nameOut holds VMC_NAME_SIZE (256) bytes. */
typedef uint32_t (*DEV_GetDeviceNameFn)(vmc_device_handle handle, uint32_t child, char* nameOut, uint32_t* error);
typedef uint32_t (*DEV_TransferLiveImageFn)(vmc_device_handle handle, uint32_t child, uint32_t depth, void* buffer,
                                            uint32_t* error);
/* a, b, c: the caller's three values, passed through; their meaning is the
   module's own and unknown to the library. */
typedef uint32_t (*DEV_TransferLiveResetImageFn)(vmc_device_handle handle, uint32_t child, uint32_t a, uint64_t b,
                                                 uint64_t c, uint32_t* error);
typedef uint32_t (*DEV_TransferMemImageFn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                           uint32_t depth, void* buffer, uint32_t* error);
typedef uint32_t (*DEV_GetMemImageAddressFn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                             void* addressOut, uint32_t* error);
typedef uint32_t (*DEV_GetLiveImageAddressFn)(vmc_device_handle handle, uint32_t child, void* addressOut,
                                              uint32_t* error);
/*
 * Blocks and hand-overs. sub is an index (a frame number for per-frame data),
 * value a count or a plain value, data the caller's block, and extra a second
 * block whose meaning depends on the code (a scratch word where the caller
 * has none to give).
 */
typedef uint32_t (*DEV_SetDataFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                  uint32_t value, void* data, void* extra, uint32_t* error);
typedef uint32_t (*DEV_GetDataFn)(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                  uint32_t value, void* data, void* extra, uint32_t* error);
typedef uint32_t (*DEV_TransferMemImageStartFn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                                uint32_t depth, uint64_t extra, uint32_t* error);
typedef uint32_t (*DEV_TransferMemImageEndFn)(vmc_device_handle handle, uint32_t child, uint32_t depth,
                                              void* buffer, uint32_t* error);
typedef uint32_t (*DEV_TransferLiveImageCacheFn)(vmc_device_handle handle, uint32_t child, void* buffer,
                                                 uint32_t* error);
typedef uint32_t (*DEV_GetHeadTypeNameFn)(vmc_device_handle handle, uint32_t child, uint32_t type, char* nameOut,
                                          uint32_t* error);
typedef uint32_t (*DEV_FPGAConfigFn)(vmc_device_handle handle, uint32_t child, const char* file, uint32_t kind,
                                     uint32_t* error);
/* The result is the register value; a failure cannot be told. `other` is a
   second caller value passed through, of meaning unknown. */
typedef uint32_t (*DEV_ReadRegisterFn)(vmc_device_handle handle, uint32_t registerNo, uint32_t other,
                                       uint32_t* error);
/* Non-zero on success. `other` as for DEV_ReadRegister. */
typedef uint32_t (*DEV_WriteRegisterFn)(vmc_device_handle handle, uint32_t value, uint32_t registerNo,
                                        uint32_t other, uint32_t* error);
typedef uint32_t (*DEV_ReadCameraFileFn)(vmc_device_handle handle, const char* file, uint32_t* error);
typedef uint32_t (*DEV_WriteCameraFileFn)(vmc_device_handle handle, const char* file, uint32_t* error);
/* zero: always 0 (the child position). first, second: the caller's values,
   passed through, of meaning unknown. */
typedef uint32_t (*DEV_LoadFPGAConfigFileFn)(vmc_device_handle handle, uint32_t zero, const char* file,
                                             uint32_t first, uint32_t second, uint32_t* error);
typedef uint32_t (*DEV_GetFrameAddressFn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                          void* addressOut, uint32_t* error);
typedef uint32_t (*DEV_GetLiveImageAddress2Fn)(vmc_device_handle handle, uint32_t child, uint32_t* indexOut,
                                               void* addressOut, uint32_t* error);
typedef uint32_t (*DEV_GetDropFrameListFn)(vmc_device_handle handle, uint32_t child, uint32_t* list,
                                           uint32_t* count, uint32_t* error);
typedef uint32_t (*DEV_TransferMemImage2Fn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                            uint32_t depth, uint32_t channel, void* buffer, uint32_t* error);
typedef uint32_t (*DEV_TransferMemImageStart2Fn)(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                                 uint32_t depth, uint32_t channel, uint64_t extra,
                                                 uint32_t* error);
typedef uint32_t (*DEV_TransferMemImageEnd2Fn)(vmc_device_handle handle, uint32_t child, uint32_t depth,
                                               uint32_t channel, void* buffer, uint32_t* error);
typedef uint32_t (*DEV_GetSubInterfaceFn)(vmc_device_handle handle, uint32_t* modeOut, uint32_t* error);
typedef uint32_t (*DEV_OpenSubInterfaceFn)(vmc_device_handle handle, uint32_t mode, uint32_t* error);
typedef uint32_t (*DEV_OpenDevice2Fn)(uint32_t interfaceCode, struct InterfaceModule* interfaceModule,
                                      uint32_t deviceAddress, uint32_t param1, uint32_t param2,
                                      vmc_device_handle* handleOut, uint32_t* error);
typedef uint32_t (*DEV_OpenSubInterface2Fn)(vmc_device_handle handle, uint32_t mode, uint32_t param1,
                                            uint32_t param2, uint32_t* error);
typedef uint32_t (*DEV_CloseSubInterfaceFn)(vmc_device_handle handle, uint32_t* error);
typedef uint32_t (*DEV_GetMemModeDeviceCapsFn)(vmc_device_handle handle, uint32_t child, uint32_t partition,
                                               uint32_t code, uint32_t sub, uint32_t* value1Out,
                                               uint32_t* value2Out, uint32_t* error);
typedef uint32_t (*DEV_GetMemModeListFn)(vmc_device_handle handle, uint32_t child, uint32_t partition,
                                         uint32_t code, uint32_t sub, void* listOut, uint32_t* countOut,
                                         uint32_t* error);
/* The storage-pack and media transfers: child, a and b carry the caller's
   first three values in order, of a meaning that is the module's own; bits
   is the transfer mode as the library maps it (3, 2 or 0; 17 for a mode it
   does not know). */
typedef uint32_t (*DEV_TransferRapidPackImageFn)(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b,
                                                 uint32_t bits, void* buffer, uint32_t* error);
typedef uint32_t (*DEV_TransferRapidPackLutFn)(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b,
                                               uint32_t c, void* d, uint32_t* error);
typedef uint32_t (*DEV_TransferRapidPackImageStartFn)(vmc_device_handle handle, uint32_t child, uint32_t a,
                                                      uint32_t b, uint32_t bits, uint32_t* error);
typedef uint32_t (*DEV_TransferRapidPackImageEndFn)(vmc_device_handle handle, uint32_t child, uint32_t a,
                                                    uint32_t b, uint32_t bits, void* buffer, uint32_t* error);
typedef uint32_t (*DEV_TransferMediaImageFn)(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b,
                                             uint32_t bits, void* buffer, uint32_t* error);

/* The DEV_ entries in slot order: X(slot, name). */
#define VMC_DEVICE_ENTRIES(X)                                                                                \
    X(0, DEV_Init) X(1, DEV_Exit) X(2, DEV_OpenDevice) X(3, DEV_CloseDevice) X(4, DEV_SetDeviceCaps)          \
    X(5, DEV_GetDeviceCaps) X(6, DEV_SetList) X(7, DEV_GetList) X(8, DEV_GetDeviceName)                       \
    X(9, DEV_TransferLiveImage) X(10, DEV_TransferLiveResetImage) X(11, DEV_TransferMemImage)                 \
    X(12, DEV_GetMemImageAddress) X(13, DEV_GetLiveImageAddress) X(14, DEV_SetData) X(15, DEV_GetData)        \
    X(16, DEV_TransferMemImageStart) X(17, DEV_TransferMemImageEnd) X(18, DEV_TransferLiveImageCache)         \
    X(19, DEV_GetHeadTypeName) X(20, DEV_FPGAConfig) X(21, DEV_ReadRegister) X(22, DEV_WriteRegister)         \
    X(23, DEV_ReadCameraFile) X(24, DEV_WriteCameraFile) X(25, DEV_LoadFPGAConfigFile)                        \
    X(26, DEV_GetFrameAddress) X(27, DEV_GetLiveImageAddress2) X(28, DEV_GetDropFrameList)                    \
    X(29, DEV_TransferMemImage2) X(30, DEV_TransferMemImageStart2) X(31, DEV_TransferMemImageEnd2)            \
    X(32, DEV_GetSubInterface) X(33, DEV_OpenSubInterface) X(34, DEV_OpenDevice2)                             \
    X(35, DEV_OpenSubInterface2) X(36, DEV_CloseSubInterface) X(37, DEV_GetMemModeDeviceCaps)                 \
    X(38, DEV_GetMemModeList) X(39, DEV_TransferRapidPackImage) X(40, DEV_TransferRapidPackLut)               \
    X(41, DEV_TransferRapidPackImageStart) X(42, DEV_TransferRapidPackImageEnd) X(43, DEV_TransferMediaImage)

#define VMC_DEVICE_ENTRY_COUNT 44

#define VMC_DECLARE_ENTRY_FIELD(slot, name) name##Fn name;

/* One loaded device module. 376 bytes. A slot with a null handle is free. */
typedef struct DeviceModule {
    uint32_t deviceCode;
    uint32_t reserved4;
    void* handle;
    uint32_t useCount; /* devices open on this module */
    uint32_t reserved20;
    VMC_DEVICE_ENTRIES(VMC_DECLARE_ENTRY_FIELD)
} DeviceModule;

/* ---- Interface module entries --------------------------------------- */

/* Called by the library. */
typedef uint32_t (*INT_InitFn)(uint32_t* error);
typedef uint32_t (*INT_ExitFn)(uint32_t* error);
typedef uint32_t (*INT_DetectDeviceFn)(uint32_t* countOut, uint32_t* deviceIdListOut,
                                       uint32_t* deviceCodeListOut, uint32_t* error);
typedef uint32_t (*INT_SetTargetDeviceFn)(uint32_t* addressList, uint32_t count, uint32_t mode, uint32_t* error);
typedef uint32_t (*INT_PingDeviceFn)(uint32_t deviceAddress, uint32_t waitMs, uint32_t* error);
typedef uint32_t (*INT_GetPacketSizeFn)(uint32_t moduleHandle, uint32_t* sizeOut, uint32_t* error);
/* Two time-out values of the link; what each means is the module's own. */
typedef uint32_t (*INT_GetTimeOutInfoFn)(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* error);

/*
 * Called only by device modules, through the table they were handed at open.
 * "link" is the link handle that INT_Open or INT_Open2 wrote.
 */
typedef uint32_t (*INT_OpenFn)(uint32_t deviceAddress, uint32_t* linkOut, uint32_t* error);
typedef uint32_t (*INT_CloseFn)(uint32_t link, uint32_t* error);
typedef uint32_t (*INT_WriteFn)(uint32_t link, const void* data, uint32_t size, uint32_t* error);
typedef uint32_t (*INT_ReadFn)(uint32_t link, void* data, uint32_t size, uint32_t* sizeOut, uint32_t* error);
typedef uint32_t (*INT_ClearFn)(uint32_t link, uint32_t* error);
typedef uint32_t (*INT_GetRecvTimeOutFn)(uint32_t link, uint32_t* timeoutMsOut, uint32_t* error);
typedef uint32_t (*INT_SetRecvTimeOutFn)(uint32_t link, uint32_t timeoutMs, uint32_t* error);
typedef uint32_t (*INT_StartStreamFn)(uint32_t link, uint32_t mode, uint32_t* error);
typedef uint32_t (*INT_EndStreamFn)(uint32_t link, uint32_t* error);
typedef uint32_t (*INT_AccessCommandFn)(uint32_t link, const void* command, uint32_t commandSize, void* reply,
                                        uint32_t replySize, uint32_t* replySizeOut, uint32_t* error);
typedef uint32_t (*INT_ReadDataExFn)(uint32_t link, uint64_t offset, void* data, uint64_t size, uint32_t* error);
typedef uint32_t (*INT_WriteSubPortFn)(uint32_t link, const void* data, uint32_t size, uint32_t* error);
typedef uint32_t (*INT_ReadSubPortFn)(uint32_t link, void* data, uint32_t size, uint32_t* sizeOut, uint32_t* error);
typedef uint32_t (*INT_ClearSubPortFn)(uint32_t link, uint32_t* error);
typedef uint32_t (*INT_GetSubInterfaceFn)(uint32_t link, uint32_t* modeOut, uint32_t* error);
typedef uint32_t (*INT_OpenSubInterfaceFn)(uint32_t link, uint32_t mode, uint32_t* error);
typedef uint32_t (*INT_Open2Fn)(uint32_t deviceAddress, uint32_t param1, uint32_t param2, uint32_t* linkOut,
                                uint32_t* error);
typedef uint32_t (*INT_OpenSubInterface2Fn)(uint32_t link, uint32_t mode, uint32_t param1, uint32_t param2,
                                            uint32_t* error);

/* The INT_ entries in slot order: X(slot, name). */
#define VMC_INTERFACE_ENTRIES(X)                                                                             \
    X(0, INT_Init) X(1, INT_Exit) X(2, INT_DetectDevice) X(3, INT_SetTargetDevice) X(4, INT_Open)             \
    X(5, INT_Close) X(6, INT_Write) X(7, INT_Read) X(8, INT_Clear) X(9, INT_GetRecvTimeOut)                   \
    X(10, INT_SetRecvTimeOut) X(11, INT_StartStream) X(12, INT_EndStream) X(13, INT_AccessCommand)            \
    X(14, INT_ReadDataEx) X(15, INT_WriteSubPort) X(16, INT_ReadSubPort) X(17, INT_ClearSubPort)              \
    X(18, INT_GetSubInterface) X(19, INT_OpenSubInterface) X(20, INT_Open2) X(21, INT_OpenSubInterface2)      \
    X(22, INT_PingDevice) X(23, INT_GetPacketSize) X(24, INT_GetTimeOutInfo)

#define VMC_INTERFACE_ENTRY_COUNT 25

/* One loaded interface module. 224 bytes. */
typedef struct InterfaceModule {
    uint32_t interfaceCode;
    uint32_t reserved4;
    void* handle;
    uint32_t openCount; /* devices open over this interface */
    uint32_t reserved20;
    VMC_INTERFACE_ENTRIES(VMC_DECLARE_ENTRY_FIELD)
} InterfaceModule;

#undef VMC_DECLARE_ENTRY_FIELD

/* Offset of slot n in either table. */
#define VMC_MODULE_ENTRY_OFFSET(slot) (24u + 8u * (unsigned)(slot))

#ifdef __cplusplus
}
#endif

#endif /* VMC_MODULE_H */
