// The library as the commands use it: initialise, detect on one link, open
// one camera of the detection and close it again on every path.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vmc/vmc.h>

namespace vmctool {

struct LinkOptions {
    std::string link = "virtual";        // a name of LinkNames()
    std::vector<std::string> addresses;  // IPv4, for the addressed links
};

struct Detection {
    uint32_t interfaceCode = 0;
    DetectInfo found = {};
};

// Throws Failure.
Detection Detect(const LinkOptions& options);

class OpenCamera {
public:
    // Opens entry `index` of a detection; throws Failure.
    OpenCamera(const Detection& detection, uint32_t index);
    ~OpenCamera();
    OpenCamera(const OpenCamera&) = delete;
    OpenCamera& operator=(const OpenCamera&) = delete;

    uint32_t deviceNo() const { return deviceNo_; }

private:
    uint32_t deviceNo_ = VMC_MAX_DEVICES;
};

}  // namespace vmctool
