// What a camera can do, by function index: the flags the state load
// filled, read without a lock; and the one flag that can change after open,
// shading, switched by the caller.
#include <iterator>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"
#include "state/requests.h"

namespace vmc {
namespace {

// Where one case of an index reads its flag: in the device record, in the
// named child's record, or nowhere (the index means nothing in that case).
struct FunctionRow {
    uint32_t index;
    FlagRule withChild;   // the caller named a child
    FlagRule withDevice;  // the caller named the device, child 0
};

#define CHILD(flag) FlagRule{nullptr, nullptr, &ChildRecord::flag}
#define DEVICE(flag) FlagRule{&DeviceRecord::flag}
#define NONE kNoFlag
#define FUNCTION(index, name, withChild, withDevice) {index, withChild, withDevice},
#define RESERVED_FUNCTION(index, withChild, withDevice) {index, withChild, withDevice},
#define NO_FUNCTION(index) {index, NONE, NONE},
constexpr FunctionRow kFunctions[] = {
#include "state/availability.def"
};
#undef CHILD
#undef DEVICE
#undef NONE

constexpr uint32_t kFirstIndex = 2;
constexpr uint32_t kLastIndex = 168;

// The table is indexed directly, so it must hold every index once, in order.
constexpr bool EveryIndexInOrder() {
    for (uint32_t i = 0; i < std::size(kFunctions); ++i)
        if (kFunctions[i].index != kFirstIndex + i) return false;
    return std::size(kFunctions) == kLastIndex - kFirstIndex + 1;
}
static_assert(EveryIndexInOrder());

// The public names say the same numbers as the table.
#define FUNCTION(index, name, withChild, withDevice) static_assert(VMC_FUNCTION_##name == (index));
#include "state/availability.def"

// Some flags hold a value the camera reported; all are passed on as stored,
// each loaded whole: VMC_EnableFunction may rewrite a flag while a reader runs.

struct StorageRow {
    int32_t indices[3];   // 0 ends a shorter row
    uint32_t codes[9];
};

#define INDICES(...) {__VA_ARGS__}
#define CODES(...) {__VA_ARGS__}
#define STORAGE_FUNCTION(indices, deviceCodes) {indices, deviceCodes},
constexpr StorageRow kStorageFunctions[] = {
#include "state/availability.def"
};
#undef INDICES
#undef CODES

constexpr int32_t kFirstStorageIndex = 15;
constexpr int32_t kLastStorageIndex = 153;

bool StorageHas(uint32_t deviceCode, int32_t index) {
    for (const StorageRow& row : kStorageFunctions)
        for (int32_t rowIndex : row.indices)
            if (rowIndex == index)
                for (uint32_t code : row.codes)
                    if (code && code == deviceCode) return true;
    return false;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_IsFunction(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint8_t* result,
                                   uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildOrDevice(deviceNo, childNo, err)) return 0;
        if (index < kFirstIndex || index > kLastIndex) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        const FunctionRow& row = kFunctions[index - kFirstIndex];
        const FlagRule& flag = childNo ? row.withChild : row.withDevice;
        if (!flag.device && !flag.child) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        if (!NotNull(result, err)) return 0;
        *result = flag.device ? LoadFlag(Record(deviceNo).*flag.device)
                              : LoadFlag(Child(deviceNo, childNo)->*flag.child);
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_StorageIsFunction(uint32_t deviceCode, uint64_t /*reserved*/, int32_t index,
                                          uint8_t* result, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(result, err)) return 0;
        *result = 0;
        if (index < kFirstStorageIndex || index > kLastStorageIndex || !StorageHas(deviceCode, index))
            return Fail(err, VMC_ERR_NOT_SUPPORTED);
        *result = 1;
        return 1;
    });
}

// Shading is switched on through head 1, and the answer of head 1 then
// stands for every head; a device without head 1 has none to ask.
VMC_EXPORT uint32_t VMC_EnableFunction(uint32_t deviceNo, uint32_t index, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        if (index == VMC_FUNCTION_SHADING && !ChildRequired(deviceNo, 1, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        if (index == VMC_FUNCTION_SHADING) {
            if (!SetCaps(deviceNo, 1, VMC_CODE_ENABLE_FUNCTION, 0, 1, 0, err)) return 0;
            uint32_t mode = 0;
            const bool reported = RefreshShadingMode(deviceNo, 1, &mode, err) != 0;
            if (!reported && !IsNotSupported(err)) {
                lock.KeepHeld();  // intended: this failure leaves the device lock with the caller
                return 0;
            }
            DeviceRecord& record = Record(deviceNo);
            for (uint32_t childNo = 1; childNo <= ChildSlots(record); ++childNo) {
                ChildRecord* child = Child(deviceNo, childNo);
                if (!child) continue;
                StoreField(child->shadingMode, mode);
                StoreField(child->hasShading, reported);
            }
        }
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_DisableFunction(uint32_t deviceNo, uint32_t index, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        if (index != VMC_FUNCTION_SHADING) return 1;
        for (uint32_t childNo = 1; childNo <= ChildSlots(Record(deviceNo)); ++childNo)
            if (ChildRecord* child = Child(deviceNo, childNo))
                StoreField(child->hasShading, 0);
        return 1;
    });
}
