// A device module whose every DEV_ entry logs its call in libvmcfake and
// answers what the test scripted (fake.h says what each entry logs and
// writes). Built once per module file name. With FAKE_SPARSE_MODULE it leaves
// out the optional entries, so tests see how the library copes with a module
// that lacks them.
#include <type_traits>

#include <vmc/module.h>

#include "fake_module_call.h"

// Declared with the contract's own types: a definition below whose signature
// differs from module.h does not compile.
#define FAKE_DECLARE_ENTRY(slot, name) FAKE_API std::remove_pointer_t<name##Fn> name;
extern "C" {
VMC_DEVICE_ENTRIES(FAKE_DECLARE_ENTRY)
}
#undef FAKE_DECLARE_ENTRY

extern "C" {

uint32_t DEV_Init(uint32_t* error) { return Give(Ask("DEV_Init", {}), error); }

uint32_t DEV_Exit(uint32_t* error) { return Give(Ask("DEV_Exit", {}), error); }

uint32_t DEV_OpenDevice(uint32_t interfaceCode, InterfaceModule* interfaceModule, uint32_t deviceAddress,
                        vmc_device_handle* handleOut, uint32_t* error) {
    const fake::Reply answer = Ask(
        "DEV_OpenDevice", {.value1 = interfaceCode, .value2 = deviceAddress, .pointer = Address(interfaceModule)});
    Put(handleOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t DEV_CloseDevice(vmc_device_handle handle, uint32_t* error) {
    return Give(Ask("DEV_CloseDevice", {.handle = handle}), error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_SetDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, uint32_t value1,
                           uint32_t value2, uint32_t* error) {
    return Give(Ask("DEV_SetDeviceCaps", {.handle = handle, .child = child, .code = code, .sub = sub,
                                          .value1 = value1, .value2 = value2}),
                error);
}

uint32_t DEV_GetDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                           uint32_t* value1Out, uint32_t* value2Out, uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetDeviceCaps", {.handle = handle, .child = child, .code = code,
                                                          .sub = sub, .pointer = Address(value2Out)});
    Put(value1Out, answer.value1, answer);
    Put(value2Out, answer.value2, answer);
    return Give(answer, error);
}
#endif

uint32_t DEV_SetList(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, void* list,
                     uint32_t count, uint32_t* result, uint32_t* error) {
    return Give(Ask("DEV_SetList", {.handle = handle, .child = child, .code = code, .sub = sub, .value1 = count,
                                    .pointer = Address(list), .pointer2 = Address(result)}),
                error);
}

uint32_t DEV_GetList(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, void* listOut,
                     uint32_t* countOut, uint32_t* error) {
    const fake::Reply answer = Ask(
        "DEV_GetList", {.handle = handle, .child = child, .code = code, .sub = sub, .pointer = Address(listOut)});
    PutList(listOut, countOut, answer);
    return Give(answer, error);
}

uint32_t DEV_GetDeviceName(vmc_device_handle handle, uint32_t child, char* nameOut, uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_GetDeviceName", {.handle = handle, .child = child, .pointer = Address(nameOut)});
    PutText(nameOut, answer);
    return Give(answer, error);
}

uint32_t DEV_TransferLiveImage(vmc_device_handle handle, uint32_t child, uint32_t depth, void* buffer,
                               uint32_t* error) {
    return Give(Ask("DEV_TransferLiveImage",
                    {.handle = handle, .child = child, .value1 = depth, .pointer = Address(buffer)}),
                error);
}

uint32_t DEV_TransferLiveResetImage(vmc_device_handle handle, uint32_t child, uint32_t a, uint64_t b, uint64_t c,
                                    uint32_t* error) {
    return Give(Ask("DEV_TransferLiveResetImage",
                    {.handle = handle, .child = child, .value1 = a, .pointer = b, .pointer2 = c}),
                error);
}

uint32_t DEV_TransferMemImage(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                              void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferMemImage", {.handle = handle, .child = child, .value1 = frame, .value2 = depth,
                                             .pointer = Address(buffer)}),
                error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_GetMemImageAddress(vmc_device_handle handle, uint32_t child, uint32_t frame, void* addressOut,
                                uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetMemImageAddress", {.handle = handle, .child = child, .value1 = frame,
                                                               .pointer = Address(addressOut)});
    PutAddress(addressOut, answer);
    return Give(answer, error);
}
#endif

uint32_t DEV_GetLiveImageAddress(vmc_device_handle handle, uint32_t child, void* addressOut, uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_GetLiveImageAddress", {.handle = handle, .child = child, .pointer = Address(addressOut)});
    PutAddress(addressOut, answer);
    return Give(answer, error);
}

uint32_t DEV_SetData(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, uint32_t value,
                     void* data, void* extra, uint32_t* error) {
    return Give(Ask("DEV_SetData", {.handle = handle, .child = child, .code = code, .sub = sub, .value1 = value,
                                    .pointer = Address(data), .pointer2 = Address(extra)}),
                error);
}

uint32_t DEV_GetData(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, uint32_t value,
                     void* data, void* extra, uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_GetData", {.handle = handle, .child = child, .code = code, .sub = sub, .value1 = value,
                            .pointer = Address(data), .pointer2 = Address(extra)});
    PutList(data, nullptr, answer);
    return Give(answer, error);
}

uint32_t DEV_TransferMemImageStart(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                                   uint64_t extra, uint32_t* error) {
    return Give(Ask("DEV_TransferMemImageStart",
                    {.handle = handle, .child = child, .value1 = frame, .value2 = depth, .pointer = extra}),
                error);
}

uint32_t DEV_TransferMemImageEnd(vmc_device_handle handle, uint32_t child, uint32_t depth, void* buffer,
                                 uint32_t* error) {
    return Give(Ask("DEV_TransferMemImageEnd",
                    {.handle = handle, .child = child, .value1 = depth, .pointer = Address(buffer)}),
                error);
}

uint32_t DEV_TransferLiveImageCache(vmc_device_handle handle, uint32_t child, void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferLiveImageCache", {.handle = handle, .child = child, .pointer = Address(buffer)}),
                error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_GetHeadTypeName(vmc_device_handle handle, uint32_t child, uint32_t type, char* nameOut,
                             uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetHeadTypeName",
                                    {.handle = handle, .child = child, .code = type, .pointer = Address(nameOut)});
    PutText(nameOut, answer);
    return Give(answer, error);
}

uint32_t DEV_FPGAConfig(vmc_device_handle handle, uint32_t child, const char* file, uint32_t kind,
                        uint32_t* error) {
    FakeCall call{.handle = handle, .child = child, .value1 = kind, .pointer = Address(file)};
    return Give(Ask("DEV_FPGAConfig", WithText(call, file)), error);
}
#endif

uint32_t DEV_ReadRegister(vmc_device_handle handle, uint32_t a, uint32_t b, uint32_t* error) {
    return Give(Ask("DEV_ReadRegister", {.handle = handle, .value1 = a, .value2 = b}), error);
}

uint32_t DEV_WriteRegister(vmc_device_handle handle, uint32_t a, uint32_t b, uint32_t c, uint32_t* error) {
    return Give(Ask("DEV_WriteRegister", {.handle = handle, .value1 = a, .value2 = b, .value3 = c}), error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_ReadCameraFile(vmc_device_handle handle, const char* file, uint32_t* error) {
    FakeCall call{.handle = handle, .pointer = Address(file)};
    return Give(Ask("DEV_ReadCameraFile", WithText(call, file)), error);
}
#endif

uint32_t DEV_WriteCameraFile(vmc_device_handle handle, const char* file, uint32_t* error) {
    FakeCall call{.handle = handle, .pointer = Address(file)};
    return Give(Ask("DEV_WriteCameraFile", WithText(call, file)), error);
}

uint32_t DEV_LoadFPGAConfigFile(vmc_device_handle handle, uint32_t zero, const char* file, uint32_t a, uint32_t b,
                                uint32_t* error) {
    FakeCall call{.handle = handle, .value1 = zero, .value2 = a, .value3 = b, .pointer = Address(file)};
    return Give(Ask("DEV_LoadFPGAConfigFile", WithText(call, file)), error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_GetFrameAddress(vmc_device_handle handle, uint32_t child, uint32_t frame, void* addressOut,
                             uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetFrameAddress", {.handle = handle, .child = child, .value1 = frame,
                                                            .pointer = Address(addressOut)});
    PutAddress(addressOut, answer);
    return Give(answer, error);
}
#endif

uint32_t DEV_GetLiveImageAddress2(vmc_device_handle handle, uint32_t child, uint32_t* indexOut, void* addressOut,
                                  uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_GetLiveImageAddress2", {.handle = handle, .child = child, .pointer = Address(addressOut),
                                         .pointer2 = Address(indexOut)});
    Put(indexOut, answer.value1, answer);
    PutAddress(addressOut, answer);
    return Give(answer, error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_GetDropFrameList(vmc_device_handle handle, uint32_t child, uint32_t* list, uint32_t* count,
                              uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetDropFrameList", {.handle = handle, .child = child,
                                                             .value1 = count ? *count : 0, .pointer = Address(list)});
    PutList(list, count, answer);
    return Give(answer, error);
}
#endif

uint32_t DEV_TransferMemImage2(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                               uint32_t channel, void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferMemImage2", {.handle = handle, .child = child, .value1 = frame, .value2 = depth,
                                              .value3 = channel, .pointer = Address(buffer)}),
                error);
}

uint32_t DEV_TransferMemImageStart2(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                                    uint32_t channel, uint64_t extra, uint32_t* error) {
    return Give(Ask("DEV_TransferMemImageStart2", {.handle = handle, .child = child, .value1 = frame,
                                                   .value2 = depth, .value3 = channel, .pointer = extra}),
                error);
}

uint32_t DEV_TransferMemImageEnd2(vmc_device_handle handle, uint32_t child, uint32_t depth, uint32_t channel,
                                  void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferMemImageEnd2", {.handle = handle, .child = child, .value1 = depth,
                                                 .value2 = channel, .pointer = Address(buffer)}),
                error);
}

#ifndef FAKE_SPARSE_MODULE
uint32_t DEV_GetSubInterface(vmc_device_handle handle, uint32_t* modeOut, uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetSubInterface", {.handle = handle});
    Put(modeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t DEV_OpenSubInterface(vmc_device_handle handle, uint32_t mode, uint32_t* error) {
    return Give(Ask("DEV_OpenSubInterface", {.handle = handle, .value1 = mode}), error);
}

uint32_t DEV_OpenDevice2(uint32_t interfaceCode, InterfaceModule* interfaceModule, uint32_t deviceAddress,
                         uint32_t param1, uint32_t param2, vmc_device_handle* handleOut, uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_OpenDevice2", {.value1 = interfaceCode, .value2 = deviceAddress, .value3 = param1,
                                .value4 = param2, .pointer = Address(interfaceModule)});
    Put(handleOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t DEV_OpenSubInterface2(vmc_device_handle handle, uint32_t mode, uint32_t param1, uint32_t param2,
                               uint32_t* error) {
    return Give(
        Ask("DEV_OpenSubInterface2", {.handle = handle, .value1 = mode, .value2 = param1, .value3 = param2}),
        error);
}

uint32_t DEV_CloseSubInterface(vmc_device_handle handle, uint32_t* error) {
    return Give(Ask("DEV_CloseSubInterface", {.handle = handle}), error);
}
#endif

uint32_t DEV_GetMemModeDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t partition, uint32_t code,
                                  uint32_t sub, uint32_t* value1Out, uint32_t* value2Out, uint32_t* error) {
    const fake::Reply answer =
        Ask("DEV_GetMemModeDeviceCaps", {.handle = handle, .child = child, .code = code, .sub = sub,
                                         .value1 = partition, .pointer = Address(value2Out)});
    Put(value1Out, answer.value1, answer);
    Put(value2Out, answer.value2, answer);
    return Give(answer, error);
}

uint32_t DEV_GetMemModeList(vmc_device_handle handle, uint32_t child, uint32_t partition, uint32_t code,
                            uint32_t sub, void* listOut, uint32_t* countOut, uint32_t* error) {
    const fake::Reply answer = Ask("DEV_GetMemModeList", {.handle = handle, .child = child, .code = code,
                                                           .sub = sub, .value1 = partition,
                                                           .pointer = Address(listOut)});
    PutList(listOut, countOut, answer);
    return Give(answer, error);
}

uint32_t DEV_TransferRapidPackImage(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b, uint32_t bits,
                                    void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferRapidPackImage", {.handle = handle, .child = child, .value1 = a, .value2 = b,
                                                   .value3 = bits, .pointer = Address(buffer)}),
                error);
}

uint32_t DEV_TransferRapidPackLut(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b, uint32_t c,
                                  void* d, uint32_t* error) {
    return Give(Ask("DEV_TransferRapidPackLut", {.handle = handle, .child = child, .value1 = a, .value2 = b,
                                                 .value3 = c, .pointer = Address(d)}),
                error);
}

uint32_t DEV_TransferRapidPackImageStart(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b,
                                         uint32_t bits, uint32_t* error) {
    return Give(Ask("DEV_TransferRapidPackImageStart",
                    {.handle = handle, .child = child, .value1 = a, .value2 = b, .value3 = bits}),
                error);
}

uint32_t DEV_TransferRapidPackImageEnd(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b,
                                       uint32_t bits, void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferRapidPackImageEnd", {.handle = handle, .child = child, .value1 = a, .value2 = b,
                                                      .value3 = bits, .pointer = Address(buffer)}),
                error);
}

uint32_t DEV_TransferMediaImage(vmc_device_handle handle, uint32_t child, uint32_t a, uint32_t b, uint32_t bits,
                                void* buffer, uint32_t* error) {
    return Give(Ask("DEV_TransferMediaImage", {.handle = handle, .child = child, .value1 = a, .value2 = b,
                                               .value3 = bits, .pointer = Address(buffer)}),
                error);
}

}  // extern "C"
