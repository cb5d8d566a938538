// Opening a device: bind its module, take a record, run the state load.
// The load lives in state/, above core/: this is the one call upward, by
// design, as a device counts as open only once its state is loaded.
//
// VMC_OpenDevice and VMC_OpenDevice2 differ on their failure paths, and
// callers depend on the difference: the first undoes a failed load, the
// second leaves the record taken for the caller to close.
#include <cstring>
#include <mutex>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"
#include "core/modules.h"
#include "core/open_close.h"
#include "state/load.h"

namespace vmc {
namespace {

enum class Variant { Open, Open2 };

uint32_t OpenDevice(Variant variant, const OpenParam* param, uint32_t param1, uint32_t param2,
                    uint32_t* deviceNoOut, uint32_t* error) {
    if (!Begin(error)) return 0;
    if (!NotNull(param, error) || !NotNull(deviceNoOut, error)) return 0;

    // The flag is read once: the first open of a device of the set runs without the lock.
    bool locked = true;
    ScopedLock global = ScopedLock::GlobalIfRequired(error, &locked);
    if (!locked) return 0;
    std::lock_guard tables(state.tableMutex);

    const int moduleIndex = FindDeviceModuleSlot(param->deviceCode);
    if (moduleIndex < 0) return Fail(error, VMC_ERR_NO_FREE_SLOT);
    const int interfaceIndex = FindInterfaceSlot(param->interfaceCode);
    if (interfaceIndex < 0 || param->interfaceCode == 0) return Fail(error, VMC_ERR_INTERFACE_NOT_LOADED);
    DeviceModule& module = state.deviceModules[moduleIndex];
    InterfaceModule& link = state.interfaceModules[interfaceIndex];

    if (!module.handle) {
        if (!LoadDeviceModule(param->deviceCode, module, error)) return 0;
        module.deviceCode = param->deviceCode;
        BindDeviceModule(module);
        uint32_t initError = VMC_ERR_OK;
        if (module.DEV_Init) module.DEV_Init(&initError);
    }

    vmc_device_handle handle = 0;
    const bool viaOpen2 = variant == Variant::Open2 && module.DEV_OpenDevice2 &&
                          (param->interfaceCode == VMC_INTERFACE_ETHER || param->interfaceCode == VMC_INTERFACE_GIGEV);
    if (viaOpen2) {
        if (!module.DEV_OpenDevice2(param->interfaceCode, &link, param->deviceId, param1, param2, &handle, error))
            return 0;
    } else if (!module.DEV_OpenDevice ||
               !module.DEV_OpenDevice(param->interfaceCode, &link, param->deviceId, &handle, error)) {
        if (!module.DEV_OpenDevice) *error = VMC_ERR_NOT_SUPPORTED;
        if (variant == Variant::Open2) {
            global.Release();
            // Closes whatever number the caller left in deviceNoOut; the USB link is spared.
            if (param->interfaceCode != VMC_INTERFACE_USB) VMC_CloseDevice(*deviceNoOut, error);
        }
        return 0;
    }

    // The lowest free record; when none is free the caller's pre-set number decides.
    for (uint32_t i = 0; i < kDeviceCount; ++i) {
        if (Record(i).deviceCode == 0) {
            *deviceNoOut = i;
            break;
        }
    }
    const uint32_t deviceNo = *deviceNoOut;
    if (deviceNo >= kDeviceCount) return Fail(error, VMC_ERR_NO_FREE_SLOT);

    DeviceRecord& record = Record(deviceNo);
    ++state.openDeviceCount;
    StoreField(record.moduleIndex, static_cast<uint32_t>(moduleIndex));
    StoreField(record.moduleHandle, handle);
    StoreField(record.deviceCode, param->deviceCode);
    StoreField(record.interfaceCode, param->interfaceCode);
    ++module.useCount;
    StoreField(record.deviceAddress, param->deviceId);
    ++link.openCount;

    const uint32_t packetMode = variant == Variant::Open2 ? param2 : 1;
    if (LoadDeviceState(deviceNo, packetMode, error)) {
        RecomputeGlobalLockRequired();
        return 1;
    }

    global.Release();  // released before the close, as callers have always seen it
    if (variant == Variant::Open) {
        // The caller sees what the close left: error 1 after a clean close.
        VMC_CloseDevice(deviceNo, error);
        std::memset(&record, 0, sizeof record);
    }
    return 0;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_OpenDevice(OpenParam* param, uint32_t* deviceNo, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) { return OpenDevice(Variant::Open, param, 0, 1, deviceNo, err); });
}

VMC_EXPORT uint32_t VMC_OpenDevice2(OpenParam* param, uint32_t param1, uint32_t param2, uint32_t* deviceNo,
                                    uint32_t* error) {
    return RunExport(error,
                     [&](uint32_t* err) { return OpenDevice(Variant::Open2, param, param1, param2, deviceNo, err); });
}

VMC_EXPORT uint32_t VMC_OpenDeviceLV(uint32_t deviceCode, uint32_t deviceId, uint32_t interfaceCode,
                                     uint32_t* deviceNo, uint32_t* error) {
    OpenParam param = {deviceCode, deviceId, interfaceCode};
    return VMC_OpenDevice(&param, deviceNo, error);
}

VMC_EXPORT uint32_t VMC_OpenDevice2LV(uint32_t deviceCode, uint32_t deviceId, uint32_t interfaceCode,
                                      uint32_t param1, uint32_t param2, uint32_t* deviceNo, uint32_t* error) {
    OpenParam param = {deviceCode, deviceId, interfaceCode};
    return VMC_OpenDevice2(&param, param1, param2, deviceNo, error);
}
