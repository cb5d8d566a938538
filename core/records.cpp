// The record copies and the two child checks that the whole library uses.
#include "core/frame.h"

namespace vmc {
namespace {

bool ChildExists(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    if (childNo > ChildSlots(Record(deviceNo)) || !Child(deviceNo, childNo)) {
        *error = VMC_ERR_BAD_CHILD;
        return false;
    }
    return true;
}

}  // namespace

bool ChildRequired(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    if (childNo == 0) {
        *error = VMC_ERR_BAD_CHILD;
        return false;
    }
    return ChildExists(deviceNo, childNo, error);
}

bool ChildOrDevice(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    return childNo == 0 || ChildExists(deviceNo, childNo, error);
}

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_GetDeviceInfo(uint32_t deviceNo, DeviceRecord* record, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(record, err)) return 0;
        CopyFieldsOut(record, &Record(deviceNo), sizeof(DeviceRecord));
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetChildInfo(uint32_t deviceNo, uint32_t childNo, ChildRecord* record, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildRequired(deviceNo, childNo, err) || !NotNull(record, err)) return 0;
        CopyFieldsOut(record, Child(deviceNo, childNo), sizeof(ChildRecord));
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetChildMemoryInfo(uint32_t deviceNo, uint32_t childNo, void* record, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildRequired(deviceNo, childNo, err) || !NotNull(record, err)) return 0;
        const auto* child = reinterpret_cast<const char*>(Child(deviceNo, childNo));
        CopyFieldsOut(record, child + VMC_CHILD_MEMORY_OFFSET, sizeof(ChildRecord) - VMC_CHILD_MEMORY_OFFSET);
        return 1;
    });
}
