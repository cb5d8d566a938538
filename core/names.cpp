// Device, head and head-type names, narrow and wide.
#include <cstring>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"
#include "platform/text.h"

namespace vmc {
namespace {

// Heads of these devices can be exchanged while open, so their names are asked anew.
constexpr uint32_t kExchangeableHeadsBit = 0x1000;

uint32_t DeviceNameA(uint32_t deviceNo, uint32_t childNo, char* name, uint32_t* error) {
    if (!Begin(error) || !NotNull(name, error)) return 0;
    const DeviceRecord& record = Record(deviceNo);
    if (childNo == 0) {
        std::memcpy(name, record.deviceName, VMC_NAME_SIZE);
        return 1;
    }
    if (childNo > ChildSlots(record)) return Fail(error, VMC_ERR_BAD_CHILD);
    if (record.deviceCode & kExchangeableHeadsBit)
        return CallDevice(deviceNo, &DeviceModule::DEV_GetDeviceName, error, childNo, name);
    const ChildRecord* child = Child(deviceNo, childNo);
    if (!child) return Fail(error, VMC_ERR_BAD_CHILD);
    std::memcpy(name, child->childName, VMC_NAME_SIZE);
    return 1;
}

uint32_t HeadTypeNameA(uint32_t deviceNo, uint32_t childNo, uint32_t headType, char* name, uint32_t* error) {
    if (!Begin(error)) return 0;
    if (!Record(deviceNo).hasHeadExchange || !ModuleOf(deviceNo).DEV_GetHeadTypeName)
        return Fail(error, VMC_ERR_NOT_SUPPORTED);
    ScopedLock lock = ScopedLock::Device(deviceNo, error);
    if (!lock) return 0;
    return CallDevice(deviceNo, &DeviceModule::DEV_GetHeadTypeName, error, childNo, headType, name);
}

// Runs the narrow form into a zeroed buffer and widens its answer.
template <class NarrowCall>
uint32_t Widen(wchar_t* wide, uint32_t* error, NarrowCall narrow) {
    char buffer[VMC_NAME_SIZE] = {};
    const uint32_t result = narrow(buffer);
    if (!result) return 0;
    if (!NotNull(wide, error)) return 0;
    buffer[VMC_NAME_SIZE - 1] = '\0';
    if (!platform::NarrowToWide(buffer, wide, VMC_NAME_SIZE)) return Fail(error, VMC_ERR_CHAR_CONVERSION);
    return result;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_GetDeviceNameA(uint32_t deviceNo, uint32_t childNo, char* name, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) { return DeviceNameA(deviceNo, childNo, name, err); });
}

VMC_EXPORT uint32_t VMC_GetDeviceNameW(uint32_t deviceNo, uint32_t childNo, wchar_t* name, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) {
        return Widen(name, err, [&](char* buffer) { return DeviceNameA(deviceNo, childNo, buffer, err); });
    });
}

VMC_EXPORT uint32_t VMC_GetHeadTypeNameA(uint32_t deviceNo, uint32_t childNo, uint32_t headType, char* name,
                                         uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) { return HeadTypeNameA(deviceNo, childNo, headType, name, err); });
}

VMC_EXPORT uint32_t VMC_GetHeadTypeNameW(uint32_t deviceNo, uint32_t childNo, uint32_t headType, wchar_t* name,
                                         uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) {
        return Widen(name, err,
                     [&](char* buffer) { return HeadTypeNameA(deviceNo, childNo, headType, buffer, err); });
    });
}
