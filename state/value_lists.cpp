// The value lists: what the camera offers for a setting, passed from the
// module to the caller's array. Nothing is cached, so a list is asked anew
// on every call; count and result are the module's.
#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

// A list of a child (ChildRule::Child) or of the device (ChildRule::Device).
uint32_t ReadList(uint32_t deviceNo, uint32_t childNo, uint32_t list, uint32_t sub, ChildRule rule, bool locked,
                  uint32_t* count, uint32_t* entries, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        if (rule == ChildRule::Device ? !DeviceOpen(deviceNo, err) : !ChildAllowed(rule, deviceNo, childNo, err))
            return 0;
        if (!AllGiven({count, entries}, err)) return 0;
        bool taken = false;
        ScopedLock lock = ScopedLock::DeviceIf(locked, deviceNo, err, &taken);
        if (!taken) return 0;
        return GetList(deviceNo, childNo, list, sub, entries, count, err);
    });
}

}  // namespace

}  // namespace vmc

using namespace vmc;

#define LOCKED true
#define UNLOCKED false
#define VALUE_LIST(exportName, list, child, lock, sub) LIST_##child##_##sub(exportName, list, lock)

#define LIST_CHILD_0(exportName, list, lock)                                                                     \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* entries,     \
                                   uint32_t* error) {                                                           \
        return ReadList(deviceNo, childNo, list, 0, ChildRule::Child, lock, count, entries, error);                 \
    }
#define LIST_DEVICE_0(exportName, list, lock)                                                                    \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t* count, uint32_t* entries, uint32_t* error) {    \
        return ReadList(deviceNo, 0, list, 0, ChildRule::Device, lock, count, entries, error);                      \
    }
#define LIST_DEVICE_CALLER(exportName, list, lock)                                                               \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t port, uint32_t* count, uint32_t* entries,        \
                                   uint32_t* error) {                                                           \
        return ReadList(deviceNo, 0, list, port, ChildRule::Device, lock, count, entries, error);                   \
    }

#include "state/value_lists.def"

#undef LIST_CHILD_0
#undef LIST_DEVICE_0
#undef LIST_DEVICE_CALLER
#undef LOCKED
#undef UNLOCKED
