#include "core/library_state.h"

#include <cstdlib>

namespace vmc {

LibraryState state;

void FreeChildRecords(DeviceRecord& record) {
    for (uint32_t childNo = 1; childNo <= ChildSlots(record); ++childNo) {
        std::free(record.childRecords[childNo - 1]);
        record.childRecords[childNo - 1] = nullptr;
    }
}

}  // namespace vmc
