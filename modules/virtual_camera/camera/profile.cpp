// The built-in cameras, and the choice between them and a profile file.
#include "camera/profile.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace vcam {
namespace {

constexpr uint64_t kGiB = 1ull << 30;

// Every trigger mode the library knows: the built-in cameras offer them all.
std::vector<uint32_t> AllTriggerModes() {
    return {0x0000000, 0x1000000, 0x2000000, 0x3000000, 0x4000000, 0x5000000,  0x6000000,  0x7000000,
            0x8000000, 0x8000001, 0x8000002, 0x8000003, 0x9000000, 0x10000000, 0x11000000};
}

CameraProfile MonoCamera() {
    CameraProfile camera;
    camera.name = "VC-M1024 Mono";
    camera.deviceCode = 258;
    camera.deviceId = 1;
    camera.productId = 0x0102;
    camera.lotId = 3;
    camera.individualId = 1001;
    camera.version = 120;  // firmware 1.20
    camera.serialNumber = 2580001;
    camera.maxHeads = 1;

    HeadProfile head;
    head.name = "M1024 head";
    head.typeName = "M1024 monochrome, 12 bit";
    head.sensorWidth = 1024;
    head.sensorHeight = 1024;
    head.bitDepth = 12;
    head.colour = ColourLayout::Mono;
    head.memoryBytes = 16 * kGiB;
    head.serialNumber = 2581001;
    head.productId = 0x0103;
    head.version = 110;
    camera.heads = {head};

    camera.recordRates = {50,    60,    125,    250,    500,    1000,   2000,   5000,
                          10000, 20000, 50000, 100000, 200000, 500000, 1000000};
    camera.pixelRate = 1024ull * 1024 * 20000;  // full resolution up to 20000 fps
    camera.fastestShutter = 1000000;            // 1 µs
    camera.triggerModes = AllTriggerModes();
    return camera;
}

CameraProfile ColourCamera() {
    CameraProfile camera;
    camera.name = "VC-C1280 Colour Twin";
    camera.deviceCode = 260;
    camera.deviceId = 2;
    camera.productId = 0x0104;
    camera.lotId = 5;
    camera.individualId = 2001;
    camera.version = 105;
    camera.serialNumber = 2600001;
    camera.maxHeads = 2;

    for (uint32_t number = 1; number <= 2; ++number) {
        HeadProfile head;
        head.name = "C1280 head " + std::to_string(number);
        head.typeName = "C1280 colour, 12 bit";
        head.sensorWidth = 1280;
        head.sensorHeight = 800;
        head.bitDepth = 12;
        head.colour = ColourLayout::BayerRGGB;
        head.memoryBytes = 8 * kGiB;
        head.serialNumber = 2601000 + number;
        head.productId = 0x0105;
        head.version = 102;
        camera.heads.push_back(head);
    }

    camera.recordRates = {50,   60,    125,   250,   500,    1000,   2000,
                          5000, 10000, 20000, 50000, 100000, 200000, 500000};
    camera.pixelRate = 1280ull * 800 * 10000;  // full resolution up to 10000 fps
    camera.fastestShutter = 1000000;
    camera.triggerModes = AllTriggerModes();
    return camera;
}

}  // namespace

Profile BuiltInProfile() {
    Profile profile;
    profile.cameras = {MonoCamera(), ColourCamera()};
    return profile;
}

Profile ActiveProfile() {
    const char* path = std::getenv("VMC_VIRTUAL_CAMERAS");
    if (!path || !*path) return BuiltInProfile();
    // This runs inside a module: nothing may escape, and a bad file leaves no camera.
    std::string problem;
    try {
        Profile profile;
        if (LoadProfileFile(path, &profile, &problem)) return profile;
    } catch (const std::exception& e) {
        problem = std::string(path) + ": " + e.what();
    } catch (...) {
        problem = std::string(path) + ": cannot be read";
    }
    std::fprintf(stderr, "vmc virtual camera: %s\n", problem.c_str());
    return {};
}

}  // namespace vcam
