// The value lists whose behaviour is their own: lists with a stand-in for
// cameras that cannot list, lists chosen by an argument, the two look-up
// table lists and the drop-frame list that keep the device lock on one
// failure, and the list of open devices, which asks no module at all.
#include <mutex>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

// What a list reads when the camera has the setting but cannot list it.
template <uint32_t N>
uint32_t StandIn(const uint32_t (&values)[N], uint32_t* count, uint32_t* entries, uint32_t* error) {
    for (uint32_t i = 0; i < N; ++i) entries[i] = values[i];
    *count = N;
    *error = VMC_ERR_OK;
    return 1;
}

// A device list, no lock: the frame the table-made device lists share.
uint32_t DeviceList(uint32_t deviceNo, uint32_t child, uint32_t list, uint32_t* count, uint32_t* entries,
                    uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceOpen(deviceNo, err) || !AllGiven({count, entries}, err)) return 0;
        return GetList(deviceNo, child, list, 0, entries, count, err);
    });
}

constexpr uint32_t kLUTValueLists[] = {VMC_LIST_LUT_VALUE_1, VMC_LIST_LUT_VALUE_2, VMC_LIST_LUT_VALUE_3};
constexpr uint32_t kLUTOrgValueLists[] = {VMC_LIST_LUT_ORG_VALUE_1, VMC_LIST_LUT_ORG_VALUE_2,
                                          VMC_LIST_LUT_ORG_VALUE_3};

uint32_t LUTList(const uint32_t (&lists)[3], uint32_t deviceNo, uint32_t childNo, uint32_t plane, uint32_t* count,
                 uint32_t* entries, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildRequired(deviceNo, childNo, err) || !AllGiven({count, entries}, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        if (plane < 1 || plane > 3) {
            lock.KeepHeld();  // intended: a bad plane leaves the device lock with the caller
            return Fail(err, VMC_ERR_BAD_ARGUMENT);
        }
        return GetList(deviceNo, childNo, lists[plane - 1], 0, entries, count, err);
    });
}

}  // namespace

}  // namespace vmc

using namespace vmc;

// The one exported use of error 3. Beyond the device table there is no
// module to ask, so the call ends there.
VMC_EXPORT uint32_t VMC_GetExistChildDeviceList(uint32_t deviceNo, uint32_t* count, uint32_t* list,
                                                uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        if (deviceNo >= kDeviceCount) return Fail(err, VMC_ERR_BAD_DEVICE_NO);
        return DeviceList(deviceNo, 0, VMC_LIST_EXIST_CHILD_DEVICE, count, list, err);
    });
}

// Without the setting the camera has the one mode 0; with it but without
// the list, the two modes 0 and 1.
VMC_EXPORT uint32_t VMC_GetPartitionIncModeList(uint32_t deviceNo, uint32_t* count, uint32_t* list,
                                                uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceOpen(deviceNo, err) || !AllGiven({count, list}, err)) return 0;
        if (!Record(deviceNo).hasPartitionIncMode) return StandIn({0u}, count, list, err);
        if (GetList(deviceNo, 0, VMC_LIST_PARTITION_INC_MODE, 0, list, count, err)) return 1;
        return IsNotSupported(err) ? StandIn({0u, 1u}, count, list, err) : 0;
    });
}

// A camera that cannot list its delay types has the seven basic ones.
VMC_EXPORT uint32_t VMC_GetDelayTypeList(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !DeviceOpen(deviceNo, err) || !AllGiven({count, list}, err)) return 0;
        if (GetList(deviceNo, 0, VMC_LIST_DELAY_TYPE, 0, list, count, err)) return 1;
        return IsNotSupported(err) ? StandIn({1u, 2u, 3u, 4u, 5u, 6u, 7u}, count, list, err) : 0;
    });
}

// Output signals 82 and 88 have their own exposure-output times.
VMC_EXPORT uint32_t VMC_GetExposeOutTimesList(uint32_t deviceNo, uint32_t signal, uint32_t* count, uint32_t* list,
                                              uint32_t* error) {
    const uint32_t code = signal == 88 || signal == 82 ? VMC_LIST_EXPOSE_OUT_TIMES_2 : VMC_LIST_EXPOSE_OUT_TIMES_1;
    return DeviceList(deviceNo, 0, code, count, list, error);
}

// The child number goes to the module as it stands: 0 asks the device.
VMC_EXPORT uint32_t VMC_GetTemperatureTypeList(uint32_t deviceNo, uint32_t childNo, uint32_t* count,
                                               uint32_t* list, uint32_t* error) {
    return DeviceList(deviceNo, childNo, VMC_LIST_TEMPERATURE_TYPE, count, list, error);
}

VMC_EXPORT uint32_t VMC_GetTemperatureTypeMList(uint32_t deviceNo, uint32_t childNo, uint32_t* count,
                                                uint32_t* list, uint32_t* error) {
    return DeviceList(deviceNo, childNo, VMC_LIST_TEMPERATURE_TYPE_M, count, list, error);
}

VMC_EXPORT uint32_t VMC_GetDeviceErrorList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                           uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildOrDevice(deviceNo, childNo, err)) return 0;
        if (!FlagSet(FlagRule{&DeviceRecord::hasDeviceErrorList}, deviceNo, 0, err) || !AllGiven({count, list}, err))
            return 0;
        if (!GetList(deviceNo, childNo, VMC_LIST_DEVICE_ERROR, 0, list, count, err)) return 0;
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetLUTValueList(uint32_t deviceNo, uint32_t childNo, uint32_t plane, uint32_t* count,
                                        uint32_t* list, uint32_t* error) {
    return LUTList(kLUTValueLists, deviceNo, childNo, plane, count, list, error);
}

VMC_EXPORT uint32_t VMC_GetLUTOrgValueList(uint32_t deviceNo, uint32_t childNo, uint32_t plane, uint32_t* count,
                                           uint32_t* list, uint32_t* error) {
    return LUTList(kLUTOrgValueLists, deviceNo, childNo, plane, count, list, error);
}

// The module's own entry, not a list code. Its result is not passed on:
// what the module wrote to count says what it found.
VMC_EXPORT uint32_t VMC_GetDropFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                         uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildOrDevice(deviceNo, childNo, err) || !AllGiven({count, list}, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        if (!ModuleOf(deviceNo).DEV_GetDropFrameList) {
            lock.KeepHeld();  // intended: a module without the entry leaves the device lock with the caller
            return Fail(err, VMC_ERR_NOT_SUPPORTED);
        }
        CallDevice(deviceNo, &DeviceModule::DEV_GetDropFrameList, err, childNo, list, count);
        *err = VMC_ERR_OK;
        return 1;
    });
}

// From the device table alone, under the table lock so that an open or a
// close on another thread is seen whole or not at all.
VMC_EXPORT uint32_t VMC_GetOpenedDeviceList(uint32_t* count, uint32_t* list, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !AllGiven({count, list}, err)) return 0;
        std::lock_guard<std::recursive_mutex> table(state.tableMutex);
        uint32_t found = 0;
        for (uint32_t deviceNo = 0; deviceNo < kDeviceCount; ++deviceNo)
            if (Record(deviceNo).deviceCode) list[found++] = deviceNo;
        *count = found;
        return 1;
    });
}
