// What a virtual camera is: the profile a set of simulated cameras is built
// from. The built-in profile presents two cameras; a JSON file named by
// VMC_VIRTUAL_CAMERAS replaces it (schema in docs/virtual-camera.md).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vcam {

// How a head's sensor delivers colour.
enum class ColourLayout : uint32_t {
    Mono = 0,
    BayerRGGB = 1,
    BayerGRBG = 2,
    BayerGBRG = 3,
    BayerBGGR = 4,
};

struct HeadProfile {
    std::string name;              // the head's name, as the camera reports it
    std::string typeName;          // name of its head type
    uint32_t sensorWidth = 1024;   // pixels
    uint32_t sensorHeight = 1024;
    uint32_t bitDepth = 12;        // the sensor's depth, the highest the head can deliver
    ColourLayout colour = ColourLayout::Mono;
    uint64_t memoryBytes = 16ull << 30;  // recording memory of this head
    uint64_t serialNumber = 0;
    uint32_t productId = 0;
    uint32_t version = 0;          // head firmware
};

// What a fault does to a camera, for driving failure paths through a real module.
enum class FaultKind : uint32_t {
    Unsupported,    // code answers error 21: the feature is absent
    Fail,           // code fails with `error`
    FailAfter,      // after `calls` exchanges, code (or every code when code is kAnyCode) fails with `error`
    LinkDropAfter,  // the link goes down after `calls` exchanges
    LinkDropAt,     // the link goes down `seconds` of camera time after the camera was opened
    SlowTransfers,  // image transfers run at `bytesPerSecond`
};

inline constexpr uint32_t kAnyCode = 0xFFFFFFFFu;

struct Fault {
    FaultKind kind = FaultKind::Unsupported;
    uint32_t code = kAnyCode;   // the setting code it touches (Unsupported, Fail, FailAfter)
    uint32_t error = 21;        // the error it answers (Fail, FailAfter)
    uint64_t calls = 0;         // FailAfter, LinkDropAfter
    double seconds = 0;         // LinkDropAt
    double bytesPerSecond = 0;  // SlowTransfers
};

// Per-frame data a camera records beside its images.
struct SideData {
    bool irig = true;
    bool mcdl = false;
    bool adc = false;
    bool autoExposure = false;
    bool exposureTime = true;
    bool temperature = true;
    bool acceleration = false;
};

struct CameraProfile {
    std::string name;            // the device name the camera reports
    uint32_t deviceCode = 0;     // model code: selects the device module file
    uint32_t deviceId = 0;       // what detection reports, and code 12
    uint32_t productId = 0;
    uint32_t lotId = 0;
    uint32_t individualId = 0;
    uint32_t version = 0;        // firmware version
    uint64_t serialNumber = 0;
    uint32_t maxHeads = 1;       // highest head number
    std::vector<HeadProfile> heads;  // heads present, numbered 1.. in this order

    // Recording. The resolutions offered shrink as the rate rises: a
    // resolution is offered at a rate when width * height * rate fits the
    // pixel rate.
    std::vector<uint32_t> recordRates;       // frames per second, ascending
    uint64_t pixelRate = 0;                  // pixels per second the sensor reads out
    uint32_t widthStep = 128;                // resolutions are multiples of these
    uint32_t heightStep = 16;
    uint32_t minWidth = 128;
    uint32_t minHeight = 16;
    uint32_t fastestShutter = 1000000;       // 1/s: the shortest exposure
    std::vector<uint32_t> triggerModes;      // offered trigger modes
    uint32_t maxPartitions = 16;

    // Features: name -> present. Unknown names are refused when a profile is
    // read; names not listed take their default (see features.h).
    std::map<std::string, bool> features;
    SideData sideData;

    // The link: 0 means unpaced; otherwise image transfers take size / rate.
    double linkBytesPerSecond = 0;
    // Wall seconds per camera second: 0.2 makes a one-second recording take 200 ms.
    double timeScale = 0.2;

    std::vector<Fault> faults;
};

struct Profile {
    std::vector<CameraProfile> cameras;
};

// The two default cameras: a single-head monochrome camera and a two-head colour camera.
Profile BuiltInProfile();

// Reads a profile file. On failure returns false with a one-line problem
// that names the file and, where it can, the place in it.
bool LoadProfileFile(const std::string& path, Profile* profile, std::string* problem);

// The profile in force: the file named by VMC_VIRTUAL_CAMERAS, else the
// built-in one. A file that can't be used is reported on standard error and
// gives a profile with no camera.
Profile ActiveProfile();

}  // namespace vcam
