// The frame range of a recording: which frame numbers exist, where the
// trigger and the events fall, and how many frames were stored. The camera
// reports counts and raw event positions; the trigger mode the recording was
// made with decides how they become frame numbers.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "state/request_frame.h"
#include "state/requests.h"

namespace vmc {
namespace {

// The frame-info image of a head is the run of fields from frameStart to
// recordedFrames, and that is the record handed to callers.
static_assert(sizeof(MemFrameInfoRecord) == 72);
static_assert(offsetof(ChildRecord, recordedFrames) - offsetof(ChildRecord, frameStart) ==
              offsetof(MemFrameInfoRecord, recordedFrames));
static_assert(offsetof(ChildRecord, eventFrame) - offsetof(ChildRecord, frameStart) ==
              offsetof(MemFrameInfoRecord, eventFrame));

MemFrameInfoRecord ImageOf(const ChildRecord& child) {
    MemFrameInfoRecord image;
    CopyFieldsOut(&image, &child.frameStart, sizeof image);
    return image;
}

void Keep(ChildRecord& child, const MemFrameInfoRecord& image) { CopyFieldsIn(&child.frameStart, &image, sizeof image); }

constexpr uint32_t kEventSlots = 10;
constexpr uint32_t kTriggerSlots = 1024;  // the head record's trigger-frame list

// Trigger modes (the mode is the top byte), grouped by how they lay out frames.
constexpr uint32_t kPlain = 0x0000000;          // frames 1..R from the start
constexpr uint32_t kAround = 0x1000000;         // around the trigger, after-frames past it
constexpr uint32_t kEnding = 0x2000000;         // ending at the trigger
constexpr uint32_t kRandom = 0x3000000;         // blocks of random triggers
constexpr uint32_t kAroundManual = 0x4000000;   // around the trigger, as kAround
constexpr uint32_t kRandomReset = 0x5000000;    // blocks of random triggers
constexpr uint32_t kBlockCentred = 0x6000000;   // full blocks, events moved by half a block
constexpr uint32_t kBlockAfter = 0x7000000;     // full blocks, events moved by the after-frames
constexpr uint32_t kTwoStageFirst = 0x8000000;  // two-stage family, 0x8000000..0x8000003
constexpr uint32_t kTwoStageLast = 0x8000003;
constexpr uint32_t kPlainB = 0x9000000;
constexpr uint32_t kPlainC = 0x10000000;
constexpr uint32_t kRandomForced = 0x11000000;  // blocks of random triggers

struct TriggerWords {
    uint32_t mode, afterFrames, randomFrames, randomCount;
};

// What the camera said about one recording.
struct Reads {
    uint32_t recorded = 0;             // code 42, first value
    bool eventsRead = false;           // lists 23 and 30, codes 43 and 84 were asked
    uint32_t eventCount = 0;           // at most kEventSlots
    uint32_t events[kEventSlots] = {}; // raw list 23 entries, sign and magnitude
    uint32_t blocks[kEventSlots] = {}; // 1-based block of each event (list 30)
    uint32_t twoStage[2] = {};         // code 43
    uint32_t timing = 0;               // code 84
};

// Where the reads go: the head's present state, or a stored partition
// through the memory-mode entries (a module without them refuses with 21).
struct Source {
    uint32_t deviceNo, childNo;
    bool partitioned;
    uint32_t partition;

    uint32_t Caps(uint32_t code, uint32_t* value1, uint32_t* value2, uint32_t* error) const {
        if (!partitioned) return GetCaps(deviceNo, childNo, code, 0, value1, value2, error);
        return CallDevice(deviceNo, &DeviceModule::DEV_GetMemModeDeviceCaps, error, childNo, partition, code, 0u,
                          value1, value2);
    }
    uint32_t List(uint32_t code, uint32_t* list, uint32_t* count, uint32_t* error) const {
        *count = 0;
        const uint32_t result =
            partitioned ? CallDevice(deviceNo, &DeviceModule::DEV_GetMemModeList, error, childNo, partition, code,
                                     0u, static_cast<void*>(list), count)
                        : GetList(deviceNo, childNo, code, 0, list, count, error);
        if (!result) *count = 0;
        return result;
    }
};

// Events and their blocks; any refusal or failure of the lists means no
// events, and a block the camera does not name is the first.
void ReadEvents(const Source& source, bool zero, Reads& reads, uint32_t* error) {
    std::vector<uint32_t> buffer(VMC_MAX_LIST_ENTRIES);
    uint32_t count = 0;
    source.List(VMC_LIST_MEM_EVENT_FRAME, buffer.data(), &count, error);
    reads.eventCount = std::min(count, kEventSlots);
    std::copy_n(buffer.begin(), reads.eventCount, reads.events);
    source.List(VMC_LIST_MEM_EVENT_R_COUNT, buffer.data(), &count, error);
    for (uint32_t i = 0; i < kEventSlots; ++i) reads.blocks[i] = i < count && buffer[i] ? buffer[i] : 1;
    // Without two-stage values the first frame stands for both stages.
    if (!source.Caps(VMC_CODE_TWO_STAGE_TRIGGER_FRAME, &reads.twoStage[0], &reads.twoStage[1], error))
        reads.twoStage[0] = reads.twoStage[1] = zero ? 0 : 1;
    if (!source.Caps(VMC_CODE_TWO_STAGE_TRIGGER_TIMING, &reads.timing, nullptr, error)) reads.timing = 0;
    reads.eventsRead = true;
}

// Trigger frames of the present recording into the head record, cut to its list.
void ReadTriggerFrames(const Source& source, ChildRecord& child, uint32_t* error) {
    std::vector<uint32_t> buffer(VMC_MAX_LIST_ENTRIES);
    uint32_t count = 0;
    source.List(VMC_LIST_MEM_TRIGGER_FRAME, buffer.data(), &count, error);
    StoreField(child.triggerFrameCount, std::min({count, kTriggerSlots, static_cast<uint32_t>(buffer.size())}));
    std::copy_n(buffer.begin(), child.triggerFrameCount, child.triggerFrame);
}

// The table of trigger modes. `info` holds the image before; what a mode
// does not decide stays as it was. Random modes may rewrite the count of
// random triggers.
void ComputeRange(const TriggerWords& trigger, bool zero, uint32_t childNo, const Reads& reads,
                  MemFrameInfoRecord& info, uint32_t& randomCount) {
    const int64_t after = trigger.afterFrames;
    const int64_t perTrigger = trigger.randomFrames;
    int64_t recorded = reads.recorded;
    int64_t start = 0, end = 0;
    auto plain = [&](int64_t frames) {
        start = zero ? 0 : 1;
        end = zero ? frames - 1 : frames;
    };

    enum class Events { Listed, ByBlock, Untouched } events = Events::Listed;
    int64_t shift = 0;
    bool sorted = false, twoStage = false;
    const uint32_t mode = trigger.mode;
    if (mode == kPlain || mode == kPlainB || mode == kPlainC) {
        plain(recorded);
    } else if (mode == kAround || mode == kAroundManual) {
        // The trigger frame is 0 (or 1 where there is no frame 0): the range
        // ends after-frames past it.
        start = after - recorded;
        end = start + recorded - 1;
        if (!zero && end >= 0) end += 1;
    } else if (mode == kEnding) {
        start = 1 - recorded;
        end = zero ? 0 : 1;
    } else if (mode == kRandom || mode == kRandomReset || mode == kRandomForced) {
        plain(recorded);
        events = Events::ByBlock;
        if (perTrigger) randomCount = static_cast<uint32_t>((recorded + perTrigger - 1) / perTrigger);
    } else if (mode == kBlockCentred || mode == kBlockAfter) {
        // Every trigger stored its full block, whatever the counter says.
        recorded = static_cast<int64_t>(trigger.randomCount) * perTrigger;
        plain(recorded);
        events = Events::ByBlock;
        shift = mode == kBlockCentred ? perTrigger / 2 : perTrigger - after;
        sorted = true;
    } else if (mode >= kTwoStageFirst && mode <= kTwoStageLast) {
        plain(recorded);
        twoStage = true;
    } else {
        // A mode this library does not know: one frame, the camera's timing value.
        start = end = reads.eventsRead ? reads.timing : info.frameTwoStageTiming;
        events = Events::Untouched;
    }

    if (reads.eventsRead) {
        info.eventFrameCount = reads.eventCount;
        if (events != Events::Untouched) {
            for (uint32_t i = 0; i < reads.eventCount; ++i) {
                int64_t frame = FromSignMagnitude32(reads.events[i]);
                if (events == Events::ByBlock)
                    frame += (static_cast<int64_t>(reads.blocks[i]) - 1) * perTrigger + shift;
                info.eventFrame[i] = static_cast<int32_t>(frame);
            }
            if (sorted) std::sort(info.eventFrame, info.eventFrame + reads.eventCount);
        }
        info.frameTwoStageTiming = reads.timing;
        // Outside the two-stage modes these two fields carry the head number
        // and the after-frames; readers of the record expect them there.
        info.frameTwoStage1 = twoStage ? reads.twoStage[0] : childNo;
        info.frameTwoStage2 = twoStage ? reads.twoStage[1] : trigger.afterFrames;
    }
    info.frameStart = static_cast<int32_t>(start);
    info.frameEnd = static_cast<int32_t>(end);
    info.frameTrigger = zero ? 0 : 1;
    info.recordedFrames = static_cast<uint32_t>(recorded);
}

TriggerWords MemoryTrigger(const ChildRecord& child) {
    return {child.memTriggerMode, child.memTriggerAfterFrames, child.memTriggerRandomFrames,
            child.memTriggerRandomCount};
}

}  // namespace

uint32_t RefreshMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* record, uint32_t* error) {
    ChildRecord& child = *Child(deviceNo, childNo);
    const bool zero = Record(deviceNo).frameZeroMode != 0;
    const Source source = {deviceNo, childNo, false, 0};
    Reads reads;
    uint32_t second = 0;
    if (!source.Caps(VMC_CODE_RECORDED_FRAMES, &reads.recorded, &second, error)) return 0;
    StoreField(child.recordedFrames, reads.recorded);
    ReadEvents(source, zero, reads, error);
    ReadTriggerFrames(source, child, error);

    MemFrameInfoRecord image = ImageOf(child);
    ComputeRange(MemoryTrigger(child), zero, childNo, reads, image, child.memTriggerRandomCount);
    Keep(child, image);
    if (record) *record = image;
    *error = VMC_ERR_OK;
    return 1;
}

uint32_t RefreshMemModeFrameInfo(uint32_t deviceNo, uint32_t childNo, uint32_t partition, uint32_t noEventLists,
                                 MemFrameInfoRecord* record, uint32_t* error) {
    ChildRecord& child = *Child(deviceNo, childNo);
    const bool zero = Record(deviceNo).frameZeroMode != 0;
    const bool present = partition == child.memoryModePartition;
    const Source source = {deviceNo, childNo, true, partition};

    // Another partition is computed from its own trigger words, and only for the caller.
    TriggerWords trigger = MemoryTrigger(child);
    if (!present && (!source.Caps(VMC_CODE_TRIGGER_MODE, &trigger.mode, &trigger.afterFrames, error) ||
                     !source.Caps(VMC_CODE_TRIGGER_RANDOM, &trigger.randomFrames, &trigger.randomCount, error)))
        return 0;
    Reads reads;
    uint32_t second = 0;
    if (!source.Caps(VMC_CODE_RECORDED_FRAMES, &reads.recorded, &second, error)) return 0;
    if (!noEventLists) ReadEvents(source, zero, reads, error);

    if (present) {
        ReadTriggerFrames(source, child, error);
        MemFrameInfoRecord image = ImageOf(child);
        ComputeRange(trigger, zero, childNo, reads, image, child.memTriggerRandomCount);
        Keep(child, image);
        if (record) *record = image;
    } else if (record) {
        ComputeRange(trigger, zero, childNo, reads, *record, trigger.randomCount);
    }
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_ReqMemFrameInfo(uint32_t deviceNo, uint32_t childNo, MemFrameInfoRecord* record,
                                        uint32_t* error) {
    return RequestFrame(deviceNo, childNo, ChildRule::Child, record, error,
                        [&](uint32_t* err) { return RefreshMemFrameInfo(deviceNo, childNo, record, err); });
}

// A partition beyond those configured answers nothing and leaves the word at
// success, before any lock. This request waits for the device lock without
// the link test of the other requests.
VMC_EXPORT uint32_t VMC_ReqMemModeFrameInfo(uint32_t deviceNo, uint32_t childNo, uint32_t partition,
                                            uint32_t noEventLists, MemFrameInfoRecord* record, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !ChildRequired(deviceNo, childNo, err)) return 0;
        if (partition > Child(deviceNo, childNo)->partitionCount) return 0;
        if (!NotNull(record, err)) return 0;
        ScopedLock lock = ScopedLock::DevicePlain(deviceNo, err);
        if (!lock) return 0;
        return RefreshMemModeFrameInfo(deviceNo, childNo, partition, noEventLists, record, err);
    });
}
