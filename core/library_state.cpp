#include "core/library_state.h"

#include <cstdlib>
#include <cstring>

namespace vmc {

LibraryState state;

void PublishChild(uint32_t deviceNo, uint32_t childNo, ChildRecord* child) {
    __atomic_store_n(&state.children[deviceNo][childNo - 1], child, __ATOMIC_RELEASE);
    uint32_t halves[2];
    static_assert(sizeof halves == sizeof child);
    std::memcpy(halves, &child, sizeof halves);
    auto* slot = reinterpret_cast<uint32_t*>(&state.deviceTable[deviceNo].childRecords[childNo - 1]);
    StoreField(slot[0], halves[0]);
    StoreField(slot[1], halves[1]);
}

void FreeChildRecords(uint32_t deviceNo) {
    for (uint32_t childNo = 1; childNo <= kMaxChildren; ++childNo) {
        ChildRecord* child = Child(deviceNo, childNo);
        PublishChild(deviceNo, childNo, nullptr);
        std::free(child);
    }
}

}  // namespace vmc
