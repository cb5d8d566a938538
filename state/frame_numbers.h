// Frame numbers as a caller gives them, turned into the index the device
// module reads a stored frame by. Every memory read by frame number goes
// through here.
#pragma once

#include <cstdint>

namespace vmc {

// The index of `frame` in a recording numbered frameStart..frameEnd. A
// camera that numbers from the start frame (frameIndexMode 1) counts every
// frame from there. Otherwise a frame of 0 or more is its own index, and a
// frame before the trigger (negative) lies past the frames after it: the
// camera stores the recording as a ring. 32-bit arithmetic that wraps; a
// frame outside the range is for the module to refuse.
inline uint32_t FrameIndex(uint32_t frameIndexMode, int32_t frame, int32_t frameStart, int32_t frameEnd) {
    const uint32_t start = frameStart < 0 ? 0u - static_cast<uint32_t>(frameStart) : static_cast<uint32_t>(frameStart);
    if (frameIndexMode == 1) return start + static_cast<uint32_t>(frame);
    if (frame >= 0) return static_cast<uint32_t>(frame);
    return start + 1u + static_cast<uint32_t>(frame) + static_cast<uint32_t>(frameEnd);
}

// FrameIndex with the numbering mode of the device. No lock: the mode is
// read once at open.
uint32_t MapFrameNumber(uint32_t deviceNo, int32_t frame, int32_t frameStart, int32_t frameEnd);

}  // namespace vmc
