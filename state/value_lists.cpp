// The value lists: what the camera offers for a setting, passed from the
// module to the caller's array. Nothing is cached, so a list is asked anew
// on every call; count and result are the module's.
#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

enum class Target : uint8_t { Child, Device };

// A device list has no child to vouch for the device, so the slot itself
// must be taken, or the call would reach whichever module sits in slot 0.
bool DeviceOpen(uint32_t deviceNo, uint32_t* error) {
    if (deviceNo >= kDeviceCount || !Record(deviceNo).deviceCode) {
        *error = VMC_ERR_NOT_OPEN;
        return false;
    }
    return true;
}

uint32_t ReadList(uint32_t deviceNo, uint32_t childNo, uint32_t list, uint32_t sub, Target target, bool locked,
                  uint32_t* count, uint32_t* entries, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        if (target == Target::Child ? !ChildRequired(deviceNo, childNo, err) : !DeviceOpen(deviceNo, err)) return 0;
        if (!NotNull(count, err) || !NotNull(entries, err)) return 0;
        if (!locked) return GetList(deviceNo, childNo, list, sub, entries, count, err);
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return GetList(deviceNo, childNo, list, sub, entries, count, err);
    });
}

}  // namespace

#define LOCKED true
#define UNLOCKED false
#define VALUE_LIST(exportName, list, child, lock, sub) LIST_##child##_##sub(exportName, list, lock)

#define LIST_CHILD_0(exportName, list, lock)                                                                     \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* entries,     \
                                   uint32_t* error) {                                                           \
        return ReadList(deviceNo, childNo, list, 0, Target::Child, lock, count, entries, error);                 \
    }
#define LIST_DEVICE_0(exportName, list, lock)                                                                    \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* count, uint32_t* entries, uint32_t* error) {    \
        return ReadList(deviceNo, 0, list, 0, Target::Device, lock, count, entries, error);                      \
    }
#define LIST_DEVICE_CALLER(exportName, list, lock)                                                               \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t port, uint32_t* count, uint32_t* entries,        \
                                   uint32_t* error) {                                                           \
        return ReadList(deviceNo, 0, list, port, Target::Device, lock, count, entries, error);                   \
    }

#include "state/value_lists.def"

#undef LIST_CHILD_0
#undef LIST_DEVICE_0
#undef LIST_DEVICE_CALLER
#undef LOCKED
#undef UNLOCKED

}  // namespace vmc
