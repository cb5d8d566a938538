/*
 * fake.h - script and call log of the test modules.
 *
 * The test modules (DMODnnn.so, IMOD_xxx.so in the test module folder) are
 * real shared objects that export every DEV_ or INT_ entry. Each entry does
 * nothing by itself: it logs the call here, runs the hook set for it, and
 * answers what the test scripted. All functions are thread-safe.
 *
 * Matching. A call is keyed by (module, entry, child, code, sub). Entries
 * that have no child, code or sub argument are keyed with 0 there (see the
 * table below). In a rule, FAKE_ANY matches any child, code or sub, and a
 * null or empty module or entry name matches any module or entry. The
 * module name is the file base name, e.g. "DMOD026" or "IMOD_ETHER".
 *
 * Answer order. A fault set with FAKE_FailCall comes first, when its call
 * arrives. Then the first queued answer (FIFO) that matches is consumed;
 * otherwise the newest standing rule that matches wins, so a later, more
 * specific rule overrides an earlier general one; otherwise the default.
 *
 * Answers. error 1 means success: the entry returns 1 and leaves 1 in the
 * error word. Any other error makes it return 0 and leave that code.
 * DEV_ReadRegister returns value1 instead of 1 on success. A scripted answer
 * writes every output of its entry, also when it fails (so a test can check
 * that the library ignores outputs of a failed call): value outputs take
 * value1 and value2, list outputs the list (count 0 when none was given),
 * name outputs the text ("" when none), address outputs the address.
 * Outputs whose pointer is null are skipped.
 *
 * Defaults (nothing scripted): error 21 (not supported) and no output
 * written, with these exceptions:
 *   DEV_Init, DEV_Exit, INT_Init, INT_Exit, DEV_CloseDevice: success;
 *   INT_DetectDevice: error 21, but writes a count of 0.
 * DEV_OpenDevice and DEV_OpenDevice2 write no handle unless scripted; the
 * handle they write is the answer's value1.
 *
 * What each entry writes and how it is logged. "key" gives the matched
 * child/code/sub (0 where absent); "log" the other FakeCall fields set, from
 * the arguments the library passed. text holds a file-name argument.
 *
 *   DEV_Init, DEV_Exit, INT_Init, INT_Exit        key 0
 *   DEV_OpenDevice   writes handle = value1; log handle = handle written,
 *                    value1 interfaceCode, value2 deviceAddress,
 *                    pointer interfaceModule
 *   DEV_OpenDevice2  as DEV_OpenDevice, value3 param1, value4 param2
 *   DEV_CloseDevice, DEV_CloseSubInterface        log handle
 *   DEV_SetDeviceCaps        key child/code/sub; value1, value2
 *   DEV_GetDeviceCaps        key child/code/sub; writes value1, value2;
 *                            pointer = value2Out (0 when the library
 *                            passed null: a one-value code)
 *   DEV_GetMemModeDeviceCaps as DEV_GetDeviceCaps, value1 partition
 *   DEV_SetList              key child/code/sub; value1 count, pointer list,
 *                            pointer2 result word (never written)
 *   DEV_GetList              key child/code/sub; writes list and count;
 *                            pointer listOut
 *   DEV_GetMemModeList       as DEV_GetList, value1 partition
 *   DEV_SetData, DEV_GetData key child/code/sub; value1 value, pointer data,
 *                            pointer2 extra block (never written). GetData
 *                            copies a scripted list (32-bit words) to data.
 *                            SetData code 38 sub 0..3 and code 58 sub 0
 *                            store the lock slot (FAKE_LockSlot).
 *   DEV_GetDeviceName        key child; writes text; pointer nameOut
 *   DEV_GetHeadTypeName      key child, code = type; writes text
 *   DEV_TransferLiveImage    key child; value1 depth, pointer buffer
 *   DEV_TransferLiveResetImage key child; value1 a, pointer b, pointer2 c
 *   DEV_TransferMemImage     key child; value1 frame, value2 depth, pointer buffer
 *   DEV_TransferMemImageStart key child; value1 frame, value2 depth, pointer extra
 *   DEV_TransferMemImageEnd  key child; value1 depth, pointer buffer
 *   DEV_TransferMemImage2    key child; value1 frame, value2 depth,
 *                            value3 channel, pointer buffer
 *   DEV_TransferMemImageStart2 as ...Start, value3 channel
 *   DEV_TransferMemImageEnd2 key child; value1 depth, value2 channel, pointer buffer
 *   DEV_TransferLiveImageCache key child; pointer buffer
 *   DEV_GetMemImageAddress, DEV_GetFrameAddress key child; value1 frame;
 *                            writes the address (a void*) to addressOut,
 *                            pointer addressOut
 *   DEV_GetLiveImageAddress  key child; writes the address; pointer addressOut
 *   DEV_GetLiveImageAddress2 key child; writes the address and *indexOut =
 *                            value1; pointer addressOut, pointer2 indexOut
 *   DEV_GetDropFrameList     key child; writes list and count; value1 the
 *                            count passed in, pointer list
 *   DEV_FPGAConfig           key child; value1 kind, text file
 *   DEV_ReadRegister         value1 a, value2 b; returns value1 on success
 *   DEV_WriteRegister        value1 a, value2 b, value3 c
 *   DEV_ReadCameraFile, DEV_WriteCameraFile       text file
 *   DEV_LoadFPGAConfigFile   value1 zero, value2 a, value3 b, text file
 *   DEV_GetSubInterface      writes *modeOut = value1
 *   DEV_OpenSubInterface     value1 mode
 *   DEV_OpenSubInterface2    value1 mode, value2 param1, value3 param2
 *   DEV_TransferRapidPackImage, DEV_TransferRapidPackImageEnd,
 *   DEV_TransferMediaImage   key child; value1 a, value2 b, value3 bits,
 *                            pointer buffer
 *   DEV_TransferRapidPackLut key child; value1 a, value2 b, value3 c, pointer d
 *   DEV_TransferRapidPackImageStart key child; value1 a, value2 b, value3 bits
 *
 *   INT_DetectDevice   writes count and, from the list's pairs (deviceCode,
 *                      deviceId), deviceIdListOut[i] and deviceCodeListOut[i];
 *                      at most 64 entries are written even when the
 *                      scripted count is larger (the count is written as is)
 *   INT_SetTargetDevice value1 count, value2 mode, value3 first address
 *                      (0 when none), pointer addressList
 *   INT_PingDevice     value1 deviceAddress, value2 waitMs
 *   INT_GetPacketSize  handle moduleHandle; writes *sizeOut = value1
 *   INT_GetTimeOutInfo handle deviceNo; writes *a = value1, *b = value2
 *   INT_Open           value1 deviceAddress; writes *linkOut = value1,
 *                      log handle = link written
 *   INT_Open2          as INT_Open, value2 param1, value3 param2
 *   the other INT_ entries log handle = link, and:
 *     INT_Write, INT_WriteSubPort   value1 size, pointer data
 *     INT_Read, INT_ReadSubPort     value1 size, pointer data;
 *                                   writes *sizeOut = value1
 *     INT_AccessCommand  value1 commandSize, value2 replySize, pointer
 *                        command, pointer2 reply; writes *replySizeOut = value1
 *     INT_ReadDataEx     value1 size (low 32 bits), pointer data,
 *                        pointer2 offset
 *     INT_SetRecvTimeOut value1 timeoutMs
 *     INT_GetRecvTimeOut, INT_GetSubInterface   write value1
 *     INT_StartStream, INT_OpenSubInterface     value1 mode
 *     INT_OpenSubInterface2  value1 mode, value2 param1, value3 param2
 */
#ifndef VMC_TESTS_FAKE_H
#define VMC_TESTS_FAKE_H

#include <stdint.h>

#include <vmc/module.h>

#define FAKE_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define FAKE_NOEXCEPT noexcept
#else
#define FAKE_NOEXCEPT
#endif

/* Matches any child, code or sub in a rule or hook. */
#define FAKE_ANY 0xFFFFFFFFu

/* Longest text an answer carries; name buffers hold this plus the NUL. */
#define FAKE_TEXT_MAX 255u

/* Value of FAKE_LockSlot's "which" for the library-wide lock. */
#define FAKE_GLOBAL_LOCK 4u

#ifdef __cplusplus
extern "C" {
#endif

/* One call a module received. result and error are 0 while it runs. */
typedef struct FakeCall {
    char module[32]; /* file base name of the module called */
    char entry[40];  /* e.g. "DEV_GetDeviceCaps" */
    uint32_t handle; /* device handle or link passed (opens: written) */
    uint32_t child, code, sub;
    uint32_t value1, value2, value3, value4;
    uint64_t pointer, pointer2;
    char text[256]; /* file-name argument, truncated */
    uint32_t result, error;
} FakeCall;

typedef void (*FakeHook)(const FakeCall* call, void* context);

/* Clears all rules, queued answers, hooks, lock slots, the pending fault
   and the log. */
FAKE_API void FAKE_Reset(void) FAKE_NOEXCEPT;

/* A standing answer: value outputs take value1 and value2. */
FAKE_API void FAKE_SetAnswer(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                             uint32_t value1, uint32_t value2, uint32_t error) FAKE_NOEXCEPT;

/* A one-shot answer, consumed by the first matching call. */
FAKE_API void FAKE_QueueAnswer(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                               uint32_t value1, uint32_t value2, uint32_t error) FAKE_NOEXCEPT;

/* A standing list answer (list outputs, INT_DetectDevice pairs, GetData words). */
FAKE_API void FAKE_SetList(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                           const uint32_t* values, uint32_t count, uint32_t error) FAKE_NOEXCEPT;

/* A one-shot list answer. */
FAKE_API void FAKE_QueueList(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                             const uint32_t* values, uint32_t count, uint32_t error) FAKE_NOEXCEPT;

/* A standing name answer; text is cut to FAKE_TEXT_MAX bytes. Any sub. */
FAKE_API void FAKE_SetText(const char* module, const char* entry, uint32_t child, uint32_t code, const char* text,
                           uint32_t error) FAKE_NOEXCEPT;

/* A standing address answer for the address entries; index goes to the
   index output of DEV_GetLiveImageAddress2. Any code and sub. */
FAKE_API void FAKE_SetAddress(const char* module, const char* entry, uint32_t child, const void* address,
                              uint32_t index, uint32_t error) FAKE_NOEXCEPT;

/* Runs hook (outside the fake's lock) when a call of entry with code
   arrives, before its answer is chosen; it may block, take handed-over
   locks or change the script. A null or empty entry matches any entry.
   One hook per (entry, code): setting again replaces it, a null hook removes
   it. The newest matching hook runs. */
FAKE_API void FAKE_SetHook(const char* entry, uint32_t code, FakeHook hook, void* context) FAKE_NOEXCEPT;

/* Fails one call, for sweeping a failure over every call of an operation:
   counting every call of any test module from now on, 0-based, call n
   returns 0 and leaves error (any code but 1) in the error word, once;
   later calls answer as scripted. The failing call is logged and its hook
   runs, but it writes no output, as a module that failed before it had an
   answer, and it consumes no queued answer. Setting it again replaces a
   pending fault. */
FAKE_API void FAKE_FailCall(uint32_t n, uint32_t error) FAKE_NOEXCEPT;

FAKE_API uint32_t FAKE_CallCount(void) FAKE_NOEXCEPT;
/* Copies call number index (0 = oldest kept); 0 when there is none. */
FAKE_API int FAKE_GetCall(uint32_t index, FakeCall* out) FAKE_NOEXCEPT;
FAKE_API void FAKE_ClearLog(void) FAKE_NOEXCEPT;

/* The lock slot the library handed to module for the device with handle:
   which 0..3 = device lock and transfer channels 2, 3, 4 (DEV_SetData
   code 38 sub 0..3); FAKE_GLOBAL_LOCK = library-wide lock (code 58). A null
   or empty module matches any. Null when none was handed over. */
FAKE_API vmc_lock_slot FAKE_LockSlot(const char* module, uint32_t handle, uint32_t which) FAKE_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* VMC_TESTS_FAKE_H */
