#include "core/library_state.h"

#include <cstdlib>

namespace vmc {

LibraryState state;

void FreeChildRecords(uint32_t deviceNo) {
    for (uint32_t childNo = 1; childNo <= kMaxChildren; ++childNo) {
        ChildRecord* child = Child(deviceNo, childNo);
        PublishChild(deviceNo, childNo, nullptr);
        std::free(child);
    }
}

}  // namespace vmc
