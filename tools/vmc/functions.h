// What a camera and each of its heads can do, by the function indices of
// the library (functions.def).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vmctool {

struct FunctionAnswer {
    uint32_t index;
    std::string key;    // "sensorGain"
    const char* label;  // "sensor gain"
    bool present;
};

// The indices that mean something for the device (childNo 0) or for head
// childNo, each with the camera's answer. Throws Failure.
std::vector<FunctionAnswer> AskFunctions(uint32_t deviceNo, uint32_t childNo);

}  // namespace vmctool
