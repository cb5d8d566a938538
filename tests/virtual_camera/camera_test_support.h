// Helpers of the camera model's tests: a clock the test moves by hand, short
// forms of the camera's calls, and the library's own reading of a
// recording's frame range, so that a test checks what a caller would see.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "camera/camera.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam::test {

struct FakeClock {
    double seconds = 1000;
    WallClock Clock() {
        return [this] { return seconds; };
    }
};

// The built-in cameras, or a variant of them.
inline CameraProfile Mono() { return BuiltInProfile().cameras.at(0); }
inline CameraProfile Colour() { return BuiltInProfile().cameras.at(1); }

struct Values {
    uint32_t error = 0, first = 0, second = 0;
};

inline Values Get(Camera& camera, uint32_t child, uint32_t code, uint32_t sub = 0) {
    Values values;
    values.error = camera.GetCaps(child, code, sub, &values.first, &values.second);
    return values;
}

inline uint32_t Value(Camera& camera, uint32_t child, uint32_t code, uint32_t sub = 0) {
    const Values values = Get(camera, child, code, sub);
    EXPECT_EQ(values.error, VMC_ERR_OK) << "code " << code;
    return values.first;
}

inline std::vector<uint32_t> List(Camera& camera, uint32_t child, uint32_t code) {
    std::vector<uint32_t> list;
    EXPECT_EQ(camera.GetList(child, code, 0, &list), VMC_ERR_OK) << "list " << code;
    return list;
}

inline uint32_t Packed(uint32_t width, uint32_t height) { return width << 16 | height; }

inline int32_t Signed(uint32_t word) {
    return (word & 0x80000000u) ? -static_cast<int32_t>(word & 0x7FFFFFFFu) : static_cast<int32_t>(word);
}

// The frame information as the library computes it from the camera's answers.
struct FrameInfo {
    int32_t start = 0, end = 0;
    uint32_t recorded = 0;
    std::vector<int32_t> events;
    std::vector<int32_t> triggerFrames;
    uint32_t twoStage1 = 0, twoStage2 = 0;
};

inline FrameInfo LibraryFrameInfo(Camera& camera, uint32_t child) {
    const bool zero = Value(camera, 0, VMC_CODE_FRAME_ZERO_MODE) != 0;
    const Values trigger = Get(camera, 0, VMC_CODE_TRIGGER_MODE);
    const Values random = Get(camera, 0, VMC_CODE_TRIGGER_RANDOM);
    const uint32_t mode = trigger.first, after = trigger.second, f = random.first, n = random.second;
    FrameInfo info;
    int32_t r = static_cast<int32_t>(Value(camera, child, VMC_CODE_RECORDED_FRAMES));
    const std::vector<uint32_t> listed = List(camera, child, VMC_LIST_MEM_EVENT_FRAME);
    const std::vector<uint32_t> blocks = List(camera, child, VMC_LIST_MEM_EVENT_R_COUNT);
    for (uint32_t word : List(camera, child, VMC_LIST_MEM_TRIGGER_FRAME)) info.triggerFrames.push_back(Signed(word));
    const Values twoStage = Get(camera, child, VMC_CODE_TWO_STAGE_TRIGGER_FRAME);
    const int32_t plainStart = zero ? 0 : 1;
    const int32_t a = static_cast<int32_t>(after), fi = static_cast<int32_t>(f);
    auto plainEnd = [&] { return zero ? r - 1 : r; };
    for (size_t i = 0; i < listed.size(); ++i) info.events.push_back(Signed(listed[i]));
    switch (mode) {
    case 0x1000000:
    case 0x4000000:
        info.start = a - r;
        info.end = a - 1;
        if (!zero && info.end >= 0) ++info.end;
        break;
    case 0x2000000:
        info.start = 1 - r;
        info.end = zero ? 0 : 1;
        break;
    case 0x3000000:
    case 0x5000000:
    case 0x11000000:
        info.start = plainStart;
        info.end = plainEnd();
        for (size_t i = 0; i < info.events.size(); ++i)
            info.events[i] += (static_cast<int32_t>(blocks.at(i)) - 1) * fi;
        break;
    case 0x6000000:
    case 0x7000000:
        r = static_cast<int32_t>(n * f);
        info.start = plainStart;
        info.end = plainEnd();
        for (size_t i = 0; i < info.events.size(); ++i)
            info.events[i] += (static_cast<int32_t>(blocks.at(i)) - 1) * fi +
                              (mode == 0x6000000 ? fi / 2 : fi - a);
        std::sort(info.events.begin(), info.events.end());
        break;
    default:
        info.start = plainStart;
        info.end = plainEnd();
        if ((mode & ~3u) == 0x8000000) {
            info.twoStage1 = twoStage.first;
            info.twoStage2 = twoStage.second;
        }
        break;
    }
    info.recorded = static_cast<uint32_t>(r);
    return info;
}

// The module index of a caller's frame number (frame index mode 0).
inline uint32_t IndexOf(const FrameInfo& info, int32_t frame) {
    if (frame >= 0) return static_cast<uint32_t>(frame);
    return static_cast<uint32_t>(std::abs(info.start) + 1 + frame + info.end);
}

}  // namespace vcam::test
