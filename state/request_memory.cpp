// Head requests about memory with a rule of their own: partitions, frame
// capacity, the memory trigger words, the recorded event and trigger lists,
// and the resolution of a stored partition.
#include <algorithm>

#include "state/request_frame.h"
#include "state/requests.h"

namespace vmc {
namespace {

// Frame capacity is kept only when the camera gives it: a guess would let a
// recording length be set that the camera cannot hold.
uint32_t FramesInto(uint32_t deviceNo, uint32_t childNo, uint32_t code, uint32_t* frames, uint32_t* blocks,
                    uint32_t* error) {
    const uint32_t result = AskPair(deviceNo, childNo, code, 0, frames, blocks, error);
    if (result) {
        ChildRecord& child = *Child(deviceNo, childNo);
        StoreField(child.maxFrames, *frames);
        StoreField(child.maxFrameBlocks, *blocks);
    }
    return result;
}

// A list answer of error 21 means an empty list.
uint32_t ListInto(uint32_t deviceNo, uint32_t childNo, uint32_t code, void* list, uint32_t* count,
                  uint32_t* error) {
    const uint32_t result = GetList(deviceNo, childNo, code, 0, list, count, error);
    if (!result && IsNotSupported(error)) *count = 0;
    return result;
}

// The event-frame view of a recording keeps ten events.
constexpr uint32_t kEventSlots = 10;

}  // namespace

// A camera without partitions has one, of no blocks.
uint32_t RefreshMaxPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* partitions, uint32_t* blocks,
                             uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_MAX_PARTITION, 0, partitions, blocks, error);
    if (!result) {
        *partitions = 1;
        *blocks = 0;
    }
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.maxPartition, *partitions);
    StoreField(child.maxPartitionBlocks, *blocks);
    return result;
}

// While partitionIncMode is not 2 the partition shown on the memory side
// follows the one recorded into; with 2 the two are independent.
uint32_t RefreshCurrentPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, VMC_CODE_CURRENT_PARTITION, 0, 1, value, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.currentPartition, *value);
    if (Record(deviceNo).partitionIncMode != 2) StoreField(child.memoryModePartition, *value);
    return result;
}

uint32_t RefreshMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* blocks, uint32_t* error) {
    return FramesInto(deviceNo, childNo, VMC_CODE_MAX_FRAMES, frames, blocks, error);
}

uint32_t RefreshMaxFramesCache(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* blocks,
                               uint32_t* error) {
    return FramesInto(deviceNo, childNo, VMC_CODE_MAX_FRAMES_CACHE, frames, blocks, error);
}

// Both trigger words or none: a half-read trigger is marked by mode 0.
uint32_t RefreshMemTriggerMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* afterFrames,
                               uint32_t* randomFrames, uint32_t* randomCount, uint32_t* error) {
    ChildRecord& child = *Child(deviceNo, childNo);
    uint32_t words[4] = {};
    const uint32_t result =
        GetCaps(deviceNo, childNo, VMC_CODE_TRIGGER_MODE, 0, &words[0], &words[1], error) &&
        GetCaps(deviceNo, childNo, VMC_CODE_TRIGGER_RANDOM, 0, &words[2], &words[3], error);
    if (result) {
        StoreField(child.memTriggerMode, words[0]);
        StoreField(child.memTriggerAfterFrames, words[1]);
        StoreField(child.memTriggerRandomFrames, words[2]);
        StoreField(child.memTriggerRandomCount, words[3]);
    } else {
        StoreField(child.memTriggerMode, 0);
    }
    *mode = child.memTriggerMode;
    *afterFrames = child.memTriggerAfterFrames;
    *randomFrames = child.memTriggerRandomFrames;
    *randomCount = child.memTriggerRandomCount;
    return result;
}

uint32_t RefreshMemEventFrame(uint32_t deviceNo, uint32_t childNo, int32_t* frames, uint32_t* count,
                              uint32_t* error) {
    const uint32_t result = ListInto(deviceNo, childNo, VMC_LIST_MEM_EVENT_FRAME, frames, count, error);
    if (result)
        for (uint32_t i = 0; i < *count; ++i) frames[i] = FromSignMagnitude32(static_cast<uint32_t>(frames[i]));
    StoreField(Child(deviceNo, childNo)->eventFrameCount, std::min(*count, kEventSlots));
    return result;
}

uint32_t RefreshMemEventRCount(uint32_t deviceNo, uint32_t childNo, uint32_t* counts, uint32_t* count,
                               uint32_t* error) {
    return ListInto(deviceNo, childNo, VMC_LIST_MEM_EVENT_R_COUNT, counts, count, error);
}

uint32_t RefreshMemTriggerFrameList(uint32_t deviceNo, uint32_t childNo, uint32_t* frames, uint32_t* count,
                                    uint32_t* error) {
    return ListInto(deviceNo, childNo, VMC_LIST_MEM_TRIGGER_FRAME, frames, count, error);
}

uint32_t RefreshMemTwoStageTriggerFrame(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                                        uint32_t* error) {
    return AskPair(deviceNo, childNo, VMC_CODE_TWO_STAGE_TRIGGER_FRAME, 0, value1, value2, error);
}

uint32_t RefreshMemRecordedFramesPerTrigger(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint32_t* value,
                                            uint32_t* error) {
    return AskValue(deviceNo, childNo, VMC_CODE_RECORDED_FRAMES_PER_TRIGGER, index, 0, value, error);
}

// The outputs take the halves of whatever word the call left, also when the
// module lacks the memory-mode entry.
uint32_t RefreshMemModeResolution(uint32_t deviceNo, uint32_t childNo, uint32_t partition, uint32_t* width,
                                  uint32_t* height, uint32_t* error) {
    uint32_t packed = 0;
    const uint32_t result = CallDevice(deviceNo, &DeviceModule::DEV_GetMemModeDeviceCaps, error, childNo, partition,
                                       static_cast<uint32_t>(VMC_CODE_RESOLUTION), 0u, &packed,
                                       static_cast<uint32_t*>(nullptr));
    *width = packed >> 16;
    *height = packed & 0xFFFFu;
    return result;
}

}  // namespace vmc

using namespace vmc;

// ---- Exports ---------------------------------------------------------------

REQUEST_EXPORT_CHILD_2(VMC_ReqMaxPartition, RefreshMaxPartition)
REQUEST_EXPORT_CHILD_1(VMC_ReqCurrentPartition, RefreshCurrentPartition)
REQUEST_EXPORT_CHILD_2(VMC_ReqMaxFrames, RefreshMaxFrames)
REQUEST_EXPORT_CHILD_2(VMC_ReqMaxFramesCache, RefreshMaxFramesCache)
REQUEST_EXPORT_CHILD_4(VMC_ReqMemTriggerMode, RefreshMemTriggerMode)
REQUEST_EXPORT_CHILD_LIST(VMC_ReqMemEventFrame, RefreshMemEventFrame, int32_t)
REQUEST_EXPORT_CHILD_LIST(VMC_ReqMemEventRCount, RefreshMemEventRCount, uint32_t)
REQUEST_EXPORT_CHILD_LIST(VMC_ReqMemTriggerFrameList, RefreshMemTriggerFrameList, uint32_t)
REQUEST_EXPORT_CHILD_2(VMC_ReqMemTwoStageTriggerFrame, RefreshMemTwoStageTriggerFrame)
REQUEST_EXPORT_CHILD_INDEXED(VMC_ReqMemRecordedFramesPerTrigger, RefreshMemRecordedFramesPerTrigger, uint32_t)

// A partition beyond those configured is not an error of the camera's: the
// call answers nothing and leaves the word at success, before any lock.
VMC_EXPORT uint32_t VMC_ReqMemModeResolution(uint32_t deviceNo, uint32_t childNo, uint32_t partition,
                                             uint32_t* width, uint32_t* height, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildAllowed(ChildRule::Child, deviceNo, childNo, err)) return 0;
        if (partition > LoadField(Child(deviceNo, childNo)->partitionCount)) return 0;
        if (!AllGiven({width, height}, err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return RefreshMemModeResolution(deviceNo, childNo, partition, width, height, err);
    });
}
