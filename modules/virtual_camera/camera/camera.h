// One simulated camera: its identity and heads, the settings that depend on
// each other as on a real sensor, the trigger modes, the recording status
// on a simulated clock, partitions and the recorded frames.
//
// The camera answers the code vocabulary of include/vmc/codes.h as the
// firmware of a real camera of the family does. Every call returns a VMC
// error code: 1 (VMC_ERR_OK) on success, 21 for a code the camera lacks,
// other codes for refused values. It is safe to call from any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "camera/image.h"
#include "camera/profile.h"
#include "camera/side_data.h"

namespace vcam {

// Seconds of wall time since some fixed point; the camera scales it by the
// profile's time scale. Tests give their own clock.
using WallClock = std::function<double()>;
WallClock SteadyClock();

// A frame to be rendered on the link: its format and identity.
struct FrameJob {
    FrameFormat format;
    FrameId id;
};

class Camera {
public:
    Camera(const CameraProfile& profile, uint32_t index, WallClock clock = SteadyClock());
    ~Camera();
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    const CameraProfile& Profile() const;
    uint32_t Index() const;

    // Single settings: child 0 is the device, 1.. a head. value2 may be null
    // for one-value codes.
    uint32_t GetCaps(uint32_t child, uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2);
    uint32_t SetCaps(uint32_t child, uint32_t code, uint32_t sub, uint32_t value1, uint32_t value2);
    // Value lists: the camera's current choices.
    uint32_t GetList(uint32_t child, uint32_t code, uint32_t sub, std::vector<uint32_t>* list);
    uint32_t SetList(uint32_t child, uint32_t code, uint32_t sub, const uint32_t* list, uint32_t count);
    // The same for one partition of the recording memory.
    uint32_t GetMemModeCaps(uint32_t child, uint32_t partition, uint32_t code, uint32_t sub, uint32_t* value1,
                            uint32_t* value2);
    uint32_t GetMemModeList(uint32_t child, uint32_t partition, uint32_t code, uint32_t sub,
                            std::vector<uint32_t>* list);
    // Blocks: per-frame side data (index is the module frame index, count
    // the frames), and the other data codes. data and extra are the bytes
    // for the caller's two blocks.
    uint32_t GetData(uint32_t child, uint32_t code, uint32_t index, int32_t count, std::vector<uint8_t>* data,
                     std::vector<uint8_t>* extra);
    uint32_t SetData(uint32_t child, uint32_t code, uint32_t index, uint32_t value, const void* data);

    uint32_t DeviceName(uint32_t child, std::string* name);
    uint32_t HeadTypeName(uint32_t child, uint32_t type, std::string* name);

    // Images: what to render for the live frame of a head, or for memory
    // frame `index` (the module frame index: frames 0.. of the recording
    // first, then the frames before 0) of the shown partition.
    uint32_t LiveFrame(uint32_t child, uint32_t depth, FrameJob* job);
    uint32_t MemoryFrame(uint32_t child, uint32_t index, uint32_t depth, FrameJob* job);

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace vcam
