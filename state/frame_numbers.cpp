#include "state/frame_numbers.h"

#include "state/cached_reads.h"

namespace vmc {

uint32_t MapFrameNumber(uint32_t deviceNo, int32_t frame, int32_t frameStart, int32_t frameEnd) {
    return FrameIndex(LoadField(Record(deviceNo).frameIndexMode), frame, frameStart, frameEnd);
}

}  // namespace vmc
