// Closing a device. Close takes no lock: the caller quiesces its own
// threads on the device first.
#include <cstdlib>
#include <cstring>
#include <mutex>

#include "core/frame.h"
#include "core/module_calls.h"
#include "core/modules.h"
#include "core/open_close.h"

namespace vmc {

void RecomputeGlobalLockRequired() {
    uint32_t required = 0;
    for (const DeviceRecord& record : state.deviceTable)
        if (InGlobalLockSet(record.deviceCode)) required = 1;
    state.globalLockRequired.store(required, std::memory_order_relaxed);
}

namespace {

uint32_t CloseDevice(uint32_t deviceNo, uint32_t* error) {
    if (!DeviceNoInRange(deviceNo, error)) return 0;
    *error = VMC_ERR_OK;
    DeviceRecord& record = Record(deviceNo);
    if (record.deviceCode == 0) return Fail(error, VMC_ERR_NOT_OPEN);
    InterfaceModule* link = InterfaceOf(deviceNo);
    if (!link) return Fail(error, VMC_ERR_NOT_OPEN);

    const uint32_t closed = CallDevice(deviceNo, &DeviceModule::DEV_CloseDevice, error);

    DeviceModule& module = ModuleOf(deviceNo);
    FreeChildRecords(deviceNo);
    std::memset(&record, 0, sizeof record);

    if (closed == 1) {
        // A module that failed to close keeps its counts, and so stays loaded for good.
        if (module.useCount > 0) --module.useCount;
        if (module.useCount < 1) UnloadDeviceModule(module, error);
        --link->openCount;
        --state.openDeviceCount;
    }

    for (uint32_t channel = 0; channel < kChannelCount; ++channel) {
        platform::CloseMutex(state.channelMutex[channel][deviceNo]);
        state.channelMutex[channel][deviceNo] = nullptr;
        state.transferActive[channel][deviceNo] = 0;
    }

    // With no device left the flag stays as it was until the next open recomputes it.
    if (state.openDeviceCount != 0) RecomputeGlobalLockRequired();
    return closed;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_CloseDevice(uint32_t deviceNo, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) {
        std::lock_guard tables(state.tableMutex);
        return CloseDevice(deviceNo, err);
    });
}
