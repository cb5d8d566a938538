// Link queries and the sub-interface: a second channel to a camera.
// These range-check the device number, and the sub-interface calls do it
// even before the initialised test.
#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

// The device must be open and its interface loaded: error 103 otherwise.
InterfaceModule* OpenLink(uint32_t deviceNo, uint32_t* error) {
    InterfaceModule* link = Record(deviceNo).deviceCode ? InterfaceOf(deviceNo) : nullptr;
    if (!link) *error = VMC_ERR_NOT_OPEN;
    return link;
}

// The checks of the sub-interface calls: device number (5) before anything,
// then an open device on a loaded interface whose module has every entry
// the call needs (103).
template <class... Fn>
bool SubInterfaceReady(uint32_t deviceNo, uint32_t* error, Fn DeviceModule::*... entries) {
    if (!DeviceNoInRange(deviceNo, error)) return false;
    *error = VMC_ERR_OK;
    if (!OpenLink(deviceNo, error)) return false;
    const DeviceModule& module = ModuleOf(deviceNo);
    if (!((module.*entries != nullptr) && ...)) {
        *error = VMC_ERR_NOT_OPEN;
        return false;
    }
    return true;
}

// The openers first ask the current sub-interface mode, whatever that answers.
uint32_t CurrentSubInterface(uint32_t deviceNo, uint32_t* value) {
    uint32_t mode = 0, ignored = VMC_ERR_OK;
    CallDevice(deviceNo, &DeviceModule::DEV_GetSubInterface, &ignored, &mode);
    if (value) *value = mode;
    return mode;
}

// One entry of the Ethernet information is absent from cameras of older
// firmware; it then reads 0 and the call succeeds.
constexpr uint32_t kOptionalEthernetEntry = 4;

uint32_t EthernetInfoResult(uint32_t index, uint32_t answered, uint32_t* value, uint32_t* error) {
    if (answered) return 1;
    if (index != kOptionalEthernetEntry) return 0;
    *value = 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_GetPacketSize(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceNoInRange(deviceNo, err)) return 0;
        InterfaceModule* link = OpenLink(deviceNo, err);
        if (!link) return 0;
        if (link->interfaceCode != VMC_INTERFACE_ETHER) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        return CallInterface(*link, &InterfaceModule::INT_GetPacketSize, err, Record(deviceNo).moduleHandle, value);
    });
}

VMC_EXPORT uint32_t VMC_GetTimeOutInfo(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceNoInRange(deviceNo, err)) return 0;
        InterfaceModule* link = OpenLink(deviceNo, err);
        if (!link) return 0;
        if (link->interfaceCode != VMC_INTERFACE_ETHER) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        return CallInterface(*link, &InterfaceModule::INT_GetTimeOutInfo, err, deviceNo, a, b);
    });
}

VMC_EXPORT uint32_t VMC_PingDevice(uint32_t deviceNo, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!DeviceNoInRange(deviceNo, err)) return 0;
        *err = VMC_ERR_OK;
        InterfaceModule* link = OpenLink(deviceNo, err);
        if (!link) return 0;
        if (link->interfaceCode != VMC_INTERFACE_ETHER && link->interfaceCode != VMC_INTERFACE_GIGEV)
            return Fail(err, VMC_ERR_NOT_SUPPORTED);
        constexpr uint32_t kPingWaitMs = 1000;
        return CallInterface(*link, &InterfaceModule::INT_PingDevice, err, Record(deviceNo).deviceAddress,
                             kPingWaitMs);
    });
}

// Asked without the device lock, so it answers even while another thread
// holds the device. A module that can't tell counts as connected.
VMC_EXPORT uint32_t VMC_GetConnectStatus(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceNoInRange(deviceNo, err) || !NotNull(value, err)) return 0;
        if (!DeviceOpen(deviceNo, err)) return 0;
        if (GetCaps(deviceNo, 0, VMC_CODE_CONNECT_STATE, 0, value, nullptr, err)) return 1;
        if (!IsNotSupported(err)) return 0;
        *value = 1;
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetSubInterface(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!SubInterfaceReady(deviceNo, err, &DeviceModule::DEV_GetSubInterface)) return 0;
        return CallDevice(deviceNo, &DeviceModule::DEV_GetSubInterface, err, value);
    });
}

VMC_EXPORT uint32_t VMC_OpenSubInterface(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!SubInterfaceReady(deviceNo, err, &DeviceModule::DEV_GetSubInterface, &DeviceModule::DEV_OpenSubInterface))
            return 0;
        const uint32_t mode = CurrentSubInterface(deviceNo, value);
        return CallDevice(deviceNo, &DeviceModule::DEV_OpenSubInterface, err, mode);
    });
}

VMC_EXPORT uint32_t VMC_OpenSubInterface2(uint32_t deviceNo, uint32_t param1, uint32_t param2, uint32_t* value,
                                          uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!SubInterfaceReady(deviceNo, err, &DeviceModule::DEV_GetSubInterface,
                               &DeviceModule::DEV_OpenSubInterface2))
            return 0;
        const uint32_t mode = CurrentSubInterface(deviceNo, value);
        return CallDevice(deviceNo, &DeviceModule::DEV_OpenSubInterface2, err, mode, param1, param2);
    });
}

VMC_EXPORT uint32_t VMC_CloseSubInterface(uint32_t deviceNo, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!SubInterfaceReady(deviceNo, err, &DeviceModule::DEV_CloseSubInterface)) return 0;
        return CallDevice(deviceNo, &DeviceModule::DEV_CloseSubInterface, err);
    });
}

VMC_EXPORT uint32_t VMC_GetEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(value, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        const uint32_t answered = GetCaps(deviceNo, 0, VMC_CODE_ETHERNET_INFO, index, value, nullptr, err);
        return EthernetInfoResult(index, answered, value, err);
    });
}

VMC_EXPORT uint32_t VMC_SetEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return SetCaps(deviceNo, 0, VMC_CODE_ETHERNET_INFO, index, value, 0, err);
    });
}

// The camera names which of its two Ethernet ports is connected; a camera
// with one port can't say, and its first port is the one.
VMC_EXPORT uint32_t VMC_GetConnectedEthernetInfo(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                                 uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(value, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        uint32_t port = 0;
        if (!GetCaps(deviceNo, 0, VMC_CODE_CONNECTED_ETHERNET_INFO, index, &port, nullptr, err)) {
            if (!IsNotSupported(err)) return 0;
            port = 0;
        }
        const uint32_t code = port ? VMC_CODE_ETHERNET_INFO_2 : VMC_CODE_ETHERNET_INFO;
        const uint32_t answered = GetCaps(deviceNo, 0, code, index, value, nullptr, err);
        return EthernetInfoResult(index, answered, value, err);
    });
}
