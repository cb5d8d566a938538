// The state load: right after a device is bound to a record, ask the camera
// everything the record caches. There is no capability list: a module that
// answers error 21 to a code lacks that function, and the flag says so.
#pragma once

#include <cstdint>

namespace vmc {

// Fills the device record and one child record per existing head. On
// failure the error word holds the module's code; children are freed.
uint32_t LoadDeviceState(uint32_t deviceNo, uint32_t packetMode, uint32_t* error);
uint32_t LoadChildState(uint32_t deviceNo, uint32_t childNo, uint32_t* error);

// Asks the module for the name of the device (child 0) or a head into a
// 256-byte field; a refused name leaves `fallback` there. Returns the
// module's result.
uint32_t ReadName(uint32_t deviceNo, uint32_t child, char* field, const char* fallback, uint32_t* error);

}  // namespace vmc
