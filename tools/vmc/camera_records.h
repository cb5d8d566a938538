// One read of the records the library keeps of an open camera: the device
// record and the record of each head present.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vmc/vmc.h>

namespace vmctool {

struct HeadRecord {
    uint32_t number = 0;  // child number, 1..
    ChildRecord record = {};
};

struct CameraRecords {
    DeviceRecord device = {};
    std::vector<HeadRecord> heads;
};

// Throws Failure; `index` names the camera in messages.
CameraRecords ReadRecords(uint32_t deviceNo, uint32_t index);

// A name field of a record: zero-terminated within its 256 bytes.
std::string RecordName(const char (&field)[VMC_NAME_SIZE]);

}  // namespace vmctool
