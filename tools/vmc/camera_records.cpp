#include "camera_records.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "errors.h"

namespace vmctool {

CameraRecords ReadRecords(uint32_t deviceNo, uint32_t index) {
    CameraRecords records;
    uint32_t error = 0;
    if (!VMC_GetDeviceInfo(deviceNo, &records.device, &error))
        throw Failure("reading the record of camera " + std::to_string(index) + " failed: " + ExplainError(error));
    // Heads are numbered up to the most the camera has room for; the slots of absent ones are empty.
    const uint32_t last = std::min(records.device.maxChildDeviceCount, VMC_MAX_CHILDREN);
    for (uint32_t number = 1; number <= last; ++number) {
        HeadRecord& head = records.heads.emplace_back();
        head.number = number;
        if (VMC_GetChildInfo(deviceNo, number, &head.record, &error)) continue;
        records.heads.pop_back();
        if (error != VMC_ERR_BAD_CHILD)
            throw Failure("reading the record of head " + std::to_string(number) + " of camera " +
                          std::to_string(index) + " failed: " + ExplainError(error));
    }
    return records;
}

std::string RecordName(const char (&field)[VMC_NAME_SIZE]) { return std::string(field, strnlen(field, sizeof field)); }

}  // namespace vmctool
