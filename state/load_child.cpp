// The child half of the state load: one camera head, asked with its child number.
#include <cstring>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/module_calls.h"
#include "state/load.h"

namespace vmc {
namespace {

struct ChildLoad {
    uint32_t deviceNo;
    uint32_t childNo;
    uint32_t* error;
    ChildRecord& child;
};

using Step = bool (*)(ChildLoad&);

bool ReadChildName(ChildLoad& load) {
    char name[VMC_NAME_SIZE] = {};
    if (CallDevice(load.deviceNo, &DeviceModule::DEV_GetDeviceName, load.error, load.childNo, name)) {
        name[VMC_NAME_SIZE - 1] = '\0';
        std::memcpy(load.child.childName, name, sizeof name);
    } else {
        std::memset(load.child.childName, 0, sizeof load.child.childName);
        std::strcpy(load.child.childName, "Unknown Child Device");
    }
    return true;
}

constexpr Step kSteps[] = {
    ReadChildName,
};

}  // namespace

uint32_t LoadChildState(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    ChildLoad load = {deviceNo, childNo, error, *Child(deviceNo, childNo)};
    for (Step step : kSteps)
        if (!step(load)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc
