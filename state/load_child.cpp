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
    ReadName(load.deviceNo, load.childNo, load.child.childName, "Unknown Child Device", load.error);
    return true;
}

constexpr Step kSteps[] = {
    ReadChildName,
};

}  // namespace

uint32_t ReadName(uint32_t deviceNo, uint32_t child, char* field, const char* fallback, uint32_t* error) {
    char name[VMC_NAME_SIZE] = {};
    const uint32_t answered = CallDevice(deviceNo, &DeviceModule::DEV_GetDeviceName, error, child, name);
    name[VMC_NAME_SIZE - 1] = '\0';
    if (!answered) {
        std::memset(name, 0, sizeof name);
        std::strcpy(name, fallback);
    }
    std::memcpy(field, name, sizeof name);
    return answered;
}

uint32_t LoadChildState(uint32_t deviceNo, uint32_t childNo, uint32_t* error) {
    ChildLoad load = {deviceNo, childNo, error, *Child(deviceNo, childNo)};
    for (Step step : kSteps)
        if (!step(load)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc
