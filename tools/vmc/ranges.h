// The value lists of a camera and of its heads (ranges.def), asked now.
#pragma once

#include <cstdint>
#include <vector>

#include <vmc/vmc.h>

#include "record_fields.h"

namespace vmctool {

struct ListAnswer {
    const char* key;    // "recordRates"
    const char* label;  // "record rates"
    Format format;
    bool answered;      // false: not asked (the camera lacks the function) or the camera has no such list
    std::vector<uint32_t> values;
};

// Throws Failure for an error other than the camera's "not supported".
std::vector<ListAnswer> AskDeviceLists(uint32_t deviceNo, const DeviceRecord& record);
std::vector<ListAnswer> AskHeadLists(uint32_t deviceNo, uint32_t childNo, const ChildRecord& record);

}  // namespace vmctool
