// IMOD_VIRTUAL: the interface module of the virtual link (interface code 1).
// Detection reports the cameras of the active profile; device modules open
// links to them and talk through INT_AccessCommand and INT_ReadDataEx.
#include <vmc/module.h>
#include <vmc/vmc.h>

#include <type_traits>
#include <vector>

#include "link/virtual_link.h"

#define VLINK_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

using vcam::VirtualLink;

uint32_t Answer(uint32_t code, uint32_t* error) {
    if (error) *error = code;
    return code == VMC_ERR_OK ? 1 : 0;
}

// Guards the C boundary: nothing thrown inside may leave the module.
template <class Body>
uint32_t Guarded(uint32_t* error, Body&& body) noexcept {
    try {
        return Answer(body(), error);
    } catch (...) {
        return Answer(VMC_ERR_NO_MEMORY, error);
    }
}

}  // namespace

// Declared with the contract's types, so a signature that drifts fails to build.

VLINK_EXPORT uint32_t INT_Init(uint32_t* error) {
    return Guarded(error, [] {
        VirtualLink::Instance();  // reads the profile now, so a bad file is reported at detection
        return VMC_ERR_OK;
    });
}

VLINK_EXPORT uint32_t INT_Exit(uint32_t* error) { return Answer(VMC_ERR_OK, error); }

VLINK_EXPORT uint32_t INT_DetectDevice(uint32_t* countOut, uint32_t* deviceIdListOut, uint32_t* deviceCodeListOut,
                                       uint32_t* error) {
    return Guarded(error, [&] {
        std::vector<uint32_t> codes, ids;
        VirtualLink::Instance().Detect(&codes, &ids);
        const size_t count = codes.size() < VMC_MAX_DEVICES ? codes.size() : VMC_MAX_DEVICES;
        if (countOut) *countOut = static_cast<uint32_t>(count);
        for (size_t i = 0; i < count; ++i) {
            if (deviceIdListOut) deviceIdListOut[i] = ids[i];
            if (deviceCodeListOut) deviceCodeListOut[i] = codes[i];
        }
        return VMC_ERR_OK;
    });
}

// The virtual link needs no address list: every camera on it answers.
VLINK_EXPORT uint32_t INT_SetTargetDevice(uint32_t*, uint32_t, uint32_t, uint32_t* error) {
    return Answer(VMC_ERR_OK, error);
}

VLINK_EXPORT uint32_t INT_Open(uint32_t deviceAddress, uint32_t* linkOut, uint32_t* error) {
    return Guarded(error, [&] { return linkOut ? VirtualLink::Instance().Open(deviceAddress, linkOut) : VMC_ERR_BAD_ARGUMENT; });
}

VLINK_EXPORT uint32_t INT_Close(uint32_t link, uint32_t* error) {
    return Guarded(error, [&] { return VirtualLink::Instance().Close(link); });
}

VLINK_EXPORT uint32_t INT_AccessCommand(uint32_t link, const void* command, uint32_t commandSize, void* reply,
                                        uint32_t replySize, uint32_t* replySizeOut, uint32_t* error) {
    return Guarded(error, [&] {
        return VirtualLink::Instance().Exchange(link, command, commandSize, reply, replySize, replySizeOut);
    });
}

VLINK_EXPORT uint32_t INT_ReadDataEx(uint32_t link, uint64_t offset, void* data, uint64_t size, uint32_t* error) {
    return Guarded(error, [&] { return VirtualLink::Instance().ReadFrame(link, offset, data, size); });
}

// The link has no use for the byte-stream, sub-port and Ethernet entries.
#define VLINK_NOT_SUPPORTED(name, ...) \
    VLINK_EXPORT uint32_t name(__VA_ARGS__, uint32_t* error) { return Answer(VMC_ERR_NOT_SUPPORTED, error); }
VLINK_NOT_SUPPORTED(INT_Write, uint32_t, const void*, uint32_t)
VLINK_NOT_SUPPORTED(INT_Read, uint32_t, void*, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_Clear, uint32_t)
VLINK_NOT_SUPPORTED(INT_GetRecvTimeOut, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_SetRecvTimeOut, uint32_t, uint32_t)
VLINK_NOT_SUPPORTED(INT_StartStream, uint32_t, uint32_t)
VLINK_NOT_SUPPORTED(INT_EndStream, uint32_t)
VLINK_NOT_SUPPORTED(INT_WriteSubPort, uint32_t, const void*, uint32_t)
VLINK_NOT_SUPPORTED(INT_ReadSubPort, uint32_t, void*, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_ClearSubPort, uint32_t)
VLINK_NOT_SUPPORTED(INT_GetSubInterface, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_OpenSubInterface, uint32_t, uint32_t)
VLINK_NOT_SUPPORTED(INT_Open2, uint32_t, uint32_t, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_OpenSubInterface2, uint32_t, uint32_t, uint32_t, uint32_t)
VLINK_NOT_SUPPORTED(INT_PingDevice, uint32_t, uint32_t)
VLINK_NOT_SUPPORTED(INT_GetPacketSize, uint32_t, uint32_t*)
VLINK_NOT_SUPPORTED(INT_GetTimeOutInfo, uint32_t, uint32_t*, uint32_t*)
#undef VLINK_NOT_SUPPORTED

// Every entry has the type the contract gives it.
#define VLINK_CHECK_SLOT(slot, name) static_assert(std::is_same_v<decltype(&name), name##Fn>, #name);
VMC_INTERFACE_ENTRIES(VLINK_CHECK_SLOT)
#undef VLINK_CHECK_SLOT

// For tests and benchmarks: the exchanges made with one camera so far.
VLINK_EXPORT uint64_t VLINK_ExchangeCount(uint32_t deviceId) {
    try {
        return VirtualLink::Instance().ExchangeCount(deviceId);
    } catch (...) {
        return 0;
    }
}
