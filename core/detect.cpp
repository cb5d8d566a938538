// Detection: load the interface module of a link and ask it which cameras
// it reaches.
#include <cstring>
#include <mutex>

#include "core/frame.h"
#include "core/module_calls.h"
#include "core/modules.h"

namespace vmc {
namespace {

constexpr uint32_t kFirmwareGateDeviceCode = 26;
constexpr uint32_t kFirmwareGateMinVersion = 202;

bool NeedsAddressList(uint32_t interfaceCode) {
    return interfaceCode == VMC_INTERFACE_ETHER || interfaceCode == VMC_INTERFACE_GIGEV;
}

// Links of these kinds can look for cameras while others are open on them.
bool DetectsWhileOpen(uint32_t interfaceCode) {
    return interfaceCode == VMC_INTERFACE_ETHER || interfaceCode == VMC_INTERFACE_USB ||
           interfaceCode == VMC_INTERFACE_GIGEV;
}

// A device of this code with old firmware can't stand a detection broadcast.
bool OldFirmwareOpen() {
    for (const DeviceRecord& record : state.deviceTable)
        if (record.deviceCode == kFirmwareGateDeviceCode && record.version < kFirmwareGateMinVersion) return true;
    return false;
}

// The Ethernet broadcast must not overlap traffic to open cameras: hold
// every open device's lock, taken in ascending order, across it.
class AllDeviceLocks {
public:
    bool Take(uint32_t* error) {
        for (uint32_t deviceNo = 0; deviceNo < kDeviceCount; ++deviceNo) {
            if (!Record(deviceNo).deviceCode) continue;
            platform::MutexHandle mutex = DeviceMutex(deviceNo);
            if (!mutex) return Fail(error, VMC_ERR_NOT_INITIALISED);
            if (platform::WaitMutex(mutex) != platform::WaitResult::Taken) return Fail(error, VMC_ERR_LOCK_TIMEOUT);
            taken_[count_++] = mutex;
        }
        return true;
    }
    ~AllDeviceLocks() {
        for (uint32_t i = 0; i < count_; ++i) platform::ReleaseMutex(taken_[i]);
    }

private:
    platform::MutexHandle taken_[kDeviceCount] = {};
    uint32_t count_ = 0;
};

uint32_t Detect(uint32_t interfaceCode, uint32_t* addressList, uint32_t addressCount, uint32_t mode,
                DetectInfo* info, uint32_t* error) {
    if (!Begin(error)) return 0;
    if (NeedsAddressList(interfaceCode) && !addressList) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    if (!NotNull(info, error)) return 0;

    int found = -1, firstEmpty = -1;
    for (uint32_t i = 0; i < kInterfaceSlots; ++i) {
        InterfaceModule& slot = state.interfaceModules[i];
        if (interfaceCode != 0 && slot.interfaceCode == interfaceCode) {
            if (slot.openCount >= 1 && !DetectsWhileOpen(interfaceCode)) return Fail(error, VMC_ERR_BUSY);
            std::memset(&state.detectResults[i], 0, sizeof(DetectResult));
            found = static_cast<int>(i);
        } else if (slot.interfaceCode == 0 && firstEmpty < 0) {
            firstEmpty = static_cast<int>(i);
        }
    }
    const bool isNew = found < 0;
    const int index = isNew ? firstEmpty : found;
    // The tenth slot is never used; with eight interface codes it is never needed.
    if (index < 0 || index >= static_cast<int>(kInterfaceSlots) - 1) return 0;
    InterfaceModule& slot = state.interfaceModules[index];

    if (isNew) {
        if (!LoadInterfaceModule(interfaceCode, slot, error)) return 0;
        slot.interfaceCode = interfaceCode;
        BindInterfaceModule(slot);
        uint32_t initError = VMC_ERR_OK;
        CallInterface(slot, &InterfaceModule::INT_Init, &initError);
    }

    if (OldFirmwareOpen()) return Fail(error, VMC_ERR_OLD_FIRMWARE);

    if (NeedsAddressList(interfaceCode))
        CallInterface(slot, &InterfaceModule::INT_SetTargetDevice, error, addressList, addressCount, mode);

    uint32_t count = 0;
    uint32_t deviceIds[kDeviceCount] = {};
    uint32_t deviceCodes[kDeviceCount] = {};
    {
        AllDeviceLocks locks;
        if (interfaceCode == VMC_INTERFACE_ETHER && !locks.Take(error)) return 0;
        CallInterface(slot, &InterfaceModule::INT_DetectDevice, error, &count, deviceIds, deviceCodes);
    }
    if (count > kDeviceCount) count = kDeviceCount;  // the lists hold no more

    DetectResult& result = state.detectResults[index];
    info->count = result.count = count;
    for (uint32_t i = 0; i < count; ++i) {
        const OpenParam entry = {deviceCodes[i], deviceIds[i], interfaceCode};
        info->entries[i] = result.entries[i] = entry;
    }
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_DetectDevice(uint32_t interfaceCode, uint32_t* addressList, uint32_t addressCount,
                                     uint32_t mode, DetectInfo* info, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) {
        std::lock_guard tables(state.tableMutex);
        return Detect(interfaceCode, addressList, addressCount, mode, info, err);
    });
}

VMC_EXPORT uint32_t VMC_DetectDeviceLV(uint32_t interfaceCode, uint32_t* addressList, uint32_t addressCount,
                                       uint32_t mode, uint32_t* count, uint32_t* deviceCodeList,
                                       uint32_t* deviceIdList, uint32_t* interfaceCodeList, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        DetectInfo info = {};
        std::lock_guard tables(state.tableMutex);
        const uint32_t result = Detect(interfaceCode, addressList, addressCount, mode, &info, err);
        if (!result) return 0;
        if (!NotNull(count, err)) return 0;
        *count = info.count;
        if (info.count && (!NotNull(deviceCodeList, err) || !NotNull(deviceIdList, err) ||
                           !NotNull(interfaceCodeList, err)))
            return 0;
        for (uint32_t i = 0; i < info.count; ++i) {
            deviceCodeList[i] = info.entries[i].deviceCode;
            deviceIdList[i] = info.entries[i].deviceId;
            interfaceCodeList[i] = info.entries[i].interfaceCode;
        }
        return result;
    });
}
