// An interface module whose every INT_ entry logs its call in libvmcfake and
// answers what the test scripted (fake.h says what each entry logs and
// writes). Built once per module file name.
#include <type_traits>

#include <vmc/module.h>

#include "fake_module_call.h"

// Declared with the contract's own types: a definition below whose signature
// differs from module.h does not compile.
#define FAKE_DECLARE_ENTRY(slot, name) FAKE_API std::remove_pointer_t<name##Fn> name;
extern "C" {
VMC_INTERFACE_ENTRIES(FAKE_DECLARE_ENTRY)
}
#undef FAKE_DECLARE_ENTRY

namespace {
// The library's detection arrays hold this many cameras.
constexpr uint32_t kMaxDetected = 64;
}  // namespace

extern "C" {

uint32_t INT_Init(uint32_t* error) { return Give(Ask("INT_Init", {}), error); }

uint32_t INT_Exit(uint32_t* error) { return Give(Ask("INT_Exit", {}), error); }

uint32_t INT_DetectDevice(uint32_t* countOut, uint32_t* deviceIdListOut, uint32_t* deviceCodeListOut,
                          uint32_t* error) {
    const fake::Reply answer = Ask("INT_DetectDevice", {});
    if (answer.writesOutputs) {
        // The list holds pairs (deviceCode, deviceId).
        const uint32_t count = static_cast<uint32_t>(answer.list.size() / 2);
        Put(countOut, count, answer);
        for (uint32_t i = 0; i < std::min(count, kMaxDetected); ++i) {
            if (deviceCodeListOut) deviceCodeListOut[i] = answer.list[2 * i];
            if (deviceIdListOut) deviceIdListOut[i] = answer.list[2 * i + 1];
        }
    }
    return Give(answer, error);
}

uint32_t INT_SetTargetDevice(uint32_t* addressList, uint32_t count, uint32_t mode, uint32_t* error) {
    const uint32_t first = addressList && count ? addressList[0] : 0;
    return Give(Ask("INT_SetTargetDevice",
                    {.value1 = count, .value2 = mode, .value3 = first, .pointer = Address(addressList)}),
                error);
}

uint32_t INT_Open(uint32_t deviceAddress, uint32_t* linkOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_Open", {.value1 = deviceAddress});
    Put(linkOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_Close(uint32_t link, uint32_t* error) { return Give(Ask("INT_Close", {.handle = link}), error); }

uint32_t INT_Write(uint32_t link, const void* data, uint32_t size, uint32_t* error) {
    return Give(Ask("INT_Write", {.handle = link, .value1 = size, .pointer = Address(data)}), error);
}

uint32_t INT_Read(uint32_t link, void* data, uint32_t size, uint32_t* sizeOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_Read", {.handle = link, .value1 = size, .pointer = Address(data)});
    Put(sizeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_Clear(uint32_t link, uint32_t* error) { return Give(Ask("INT_Clear", {.handle = link}), error); }

uint32_t INT_GetRecvTimeOut(uint32_t link, uint32_t* timeoutMsOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_GetRecvTimeOut", {.handle = link});
    Put(timeoutMsOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_SetRecvTimeOut(uint32_t link, uint32_t timeoutMs, uint32_t* error) {
    return Give(Ask("INT_SetRecvTimeOut", {.handle = link, .value1 = timeoutMs}), error);
}

uint32_t INT_StartStream(uint32_t link, uint32_t mode, uint32_t* error) {
    return Give(Ask("INT_StartStream", {.handle = link, .value1 = mode}), error);
}

uint32_t INT_EndStream(uint32_t link, uint32_t* error) {
    return Give(Ask("INT_EndStream", {.handle = link}), error);
}

uint32_t INT_AccessCommand(uint32_t link, const void* command, uint32_t commandSize, void* reply,
                           uint32_t replySize, uint32_t* replySizeOut, uint32_t* error) {
    const fake::Reply answer =
        Ask("INT_AccessCommand", {.handle = link, .value1 = commandSize, .value2 = replySize,
                                  .pointer = Address(command), .pointer2 = Address(reply)});
    Put(replySizeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_ReadDataEx(uint32_t link, uint64_t offset, void* data, uint64_t size, uint32_t* error) {
    return Give(Ask("INT_ReadDataEx", {.handle = link, .value1 = static_cast<uint32_t>(size),
                                       .pointer = Address(data), .pointer2 = offset}),
                error);
}

uint32_t INT_WriteSubPort(uint32_t link, const void* data, uint32_t size, uint32_t* error) {
    return Give(Ask("INT_WriteSubPort", {.handle = link, .value1 = size, .pointer = Address(data)}), error);
}

uint32_t INT_ReadSubPort(uint32_t link, void* data, uint32_t size, uint32_t* sizeOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_ReadSubPort", {.handle = link, .value1 = size, .pointer = Address(data)});
    Put(sizeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_ClearSubPort(uint32_t link, uint32_t* error) {
    return Give(Ask("INT_ClearSubPort", {.handle = link}), error);
}

uint32_t INT_GetSubInterface(uint32_t link, uint32_t* modeOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_GetSubInterface", {.handle = link});
    Put(modeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_OpenSubInterface(uint32_t link, uint32_t mode, uint32_t* error) {
    return Give(Ask("INT_OpenSubInterface", {.handle = link, .value1 = mode}), error);
}

uint32_t INT_Open2(uint32_t deviceAddress, uint32_t param1, uint32_t param2, uint32_t* linkOut, uint32_t* error) {
    const fake::Reply answer =
        Ask("INT_Open2", {.value1 = deviceAddress, .value2 = param1, .value3 = param2});
    Put(linkOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_OpenSubInterface2(uint32_t link, uint32_t mode, uint32_t param1, uint32_t param2, uint32_t* error) {
    return Give(
        Ask("INT_OpenSubInterface2", {.handle = link, .value1 = mode, .value2 = param1, .value3 = param2}),
        error);
}

uint32_t INT_PingDevice(uint32_t deviceAddress, uint32_t waitMs, uint32_t* error) {
    return Give(Ask("INT_PingDevice", {.value1 = deviceAddress, .value2 = waitMs}), error);
}

uint32_t INT_GetPacketSize(uint32_t moduleHandle, uint32_t* sizeOut, uint32_t* error) {
    const fake::Reply answer = Ask("INT_GetPacketSize", {.handle = moduleHandle});
    Put(sizeOut, answer.value1, answer);
    return Give(answer, error);
}

uint32_t INT_GetTimeOutInfo(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* error) {
    const fake::Reply answer = Ask("INT_GetTimeOutInfo", {.handle = deviceNo});
    Put(a, answer.value1, answer);
    Put(b, answer.value2, answer);
    return Give(answer, error);
}

}  // extern "C"
