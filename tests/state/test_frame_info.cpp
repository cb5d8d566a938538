// The frame range of a recording, one case per row of the trigger-mode
// table: what the camera reports and what the library makes of it.
#include <cstring>
#include <vector>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

constexpr const char* kModule = "DMOD016";

struct Case {
    const char* name;
    // The recording as the camera reports it.
    uint32_t mode, afterFrames, randomFrames, randomCount;
    bool zero;
    uint32_t recorded;
    std::vector<uint32_t> events, blocks;
    bool twoStageAnswered;
    // What the library makes of it.
    int32_t start, end;
    uint32_t recordedAfter;
    std::vector<int32_t> eventFrames;
    uint32_t twoStage1, twoStage2;
    uint32_t randomCountAfter;
};

constexpr uint32_t kTiming = 77;  // code 84

const Case kCases[] = {
    {"plain", 0, 0, 0, 0, false, 500, {12, 0x80000003u}, {}, false, 1, 500, 500, {12, -3}, 1, 0, 0},
    {"plain with frame 0", 0x9000000, 0, 0, 0, true, 500, {}, {}, false, 0, 499, 500, {}, 1, 0, 0},
    {"around the trigger", 0x1000000, 100, 0, 0, false, 1000, {5}, {}, false, -900, 100, 1000, {5}, 1, 100, 0},
    {"around, all before", 0x4000000, 0, 0, 0, false, 1000, {}, {}, false, -1000, -1, 1000, {}, 1, 0, 0},
    {"around with frame 0", 0x1000000, 100, 0, 0, true, 1000, {}, {}, false, -900, 99, 1000, {}, 1, 100, 0},
    {"ending at the trigger", 0x2000000, 0, 0, 0, true, 1000, {}, {}, false, -999, 0, 1000, {}, 1, 0, 0},
    {"ending without frame 0", 0x2000000, 0, 0, 0, false, 1000, {}, {}, false, -999, 1, 1000, {}, 1, 0, 0},
    {"random blocks", 0x3000000, 0, 100, 1, false, 950, {10, 20}, {1, 3}, false, 1, 950, 950, {10, 220}, 1, 0, 10},
    {"random forced", 0x11000000, 0, 100, 1, true, 1000, {}, {}, false, 0, 999, 1000, {}, 1, 0, 10},
    {"full blocks, centred", 0x6000000, 0, 100, 4, false, 999, {30, 0x80000005u, 10}, {3, 1, 2}, false, 1, 400, 400,
     {45, 160, 280}, 1, 0, 4},
    {"full blocks, after-frames", 0x7000000, 30, 100, 2, true, 999, {10, 3}, {2, 1}, false, 0, 199, 200, {73, 180},
     1, 30, 2},
    {"two-stage", 0x8000002, 0, 0, 0, false, 300, {}, {}, true, 1, 300, 300, {}, 11, 22, 0},
    {"two-stage, no stages", 0x8000000, 0, 0, 0, false, 300, {}, {}, false, 1, 300, 300, {}, 1, 1, 0},
    {"two-stage, no stages, frame 0", 0x8000003, 0, 0, 0, true, 300, {}, {}, false, 0, 299, 300, {}, 0, 0, 0},
};

class FrameInfo : public LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        Detect(VMC_INTERFACE_VIRTUAL);
        ScriptCamera(16);
        deviceNo = Open(16);
    }

    void Caps(uint32_t child, uint32_t code, uint32_t value1, uint32_t value2 = 0, uint32_t error = kOk) {
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", child, code, 0, value1, value2, error);
    }

    // Scripts the recording of a case and loads the memory trigger and the frame-0 mode.
    void Record(const Case& c) {
        Caps(1, VMC_CODE_TRIGGER_MODE, c.mode, c.afterFrames);
        Caps(1, VMC_CODE_TRIGGER_RANDOM, c.randomFrames, c.randomCount);
        Caps(0, VMC_CODE_FRAME_ZERO_MODE, c.zero ? 1 : 0);
        Caps(1, VMC_CODE_RECORDED_FRAMES, c.recorded, 0);
        FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_EVENT_FRAME, 0, c.events.data(),
                     static_cast<uint32_t>(c.events.size()), kOk);
        FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_EVENT_R_COUNT, 0, c.blocks.data(),
                     static_cast<uint32_t>(c.blocks.size()), c.blocks.empty() ? VMC_ERR_NOT_SUPPORTED : kOk);
        Caps(1, VMC_CODE_TWO_STAGE_TRIGGER_FRAME, 11, 22, c.twoStageAnswered ? kOk : VMC_ERR_NOT_SUPPORTED);
        Caps(1, VMC_CODE_TWO_STAGE_TRIGGER_TIMING, kTiming);
        uint32_t words[4] = {}, error = 0;
        ASSERT_EQ(1u, VMC_ReqMemTriggerMode(deviceNo, 1, &words[0], &words[1], &words[2], &words[3], &error));
        ASSERT_EQ(1u, VMC_ReqFrameZero(deviceNo, &words[0], &error));
    }

    ChildRecord Head() {
        ChildRecord child{};
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
        return child;
    }

    uint32_t deviceNo = VMC_MAX_DEVICES;
};

TEST_F(FrameInfo, EachTriggerModeLaysOutItsFrames) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        Record(c);
        MemFrameInfoRecord info{};
        uint32_t error = 0;
        ASSERT_EQ(1u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));
        EXPECT_EQ(kOk, error);
        EXPECT_EQ(c.start, info.frameStart);
        EXPECT_EQ(c.end, info.frameEnd);
        EXPECT_EQ(c.zero ? 0u : 1u, info.frameTrigger);
        EXPECT_EQ(c.recordedAfter, info.recordedFrames);
        ASSERT_EQ(c.eventFrames.size(), info.eventFrameCount);
        EXPECT_EQ(c.eventFrames, std::vector<int32_t>(info.eventFrame, info.eventFrame + info.eventFrameCount));
        // Outside the two-stage modes the stage fields hold the head and the after-frames.
        const bool twoStage = c.mode >= 0x8000000 && c.mode <= 0x8000003;
        EXPECT_EQ(twoStage ? c.twoStage1 : 1u, info.frameTwoStage1);
        EXPECT_EQ(twoStage ? c.twoStage2 : c.afterFrames, info.frameTwoStage2);
        EXPECT_EQ(kTiming, info.frameTwoStageTiming);

        // The head keeps the same image, and the random count the layout implies.
        const ChildRecord child = Head();
        EXPECT_EQ(0, std::memcmp(&child.frameStart, &info, sizeof info));
        EXPECT_EQ(c.randomCountAfter, child.memTriggerRandomCount);
    }
}

TEST_F(FrameInfo, AnUnknownModeIsOneFrameAtTheTimingValueAndKeepsItsEvents) {
    const Case before = kCases[0];
    Record(before);
    MemFrameInfoRecord info{};
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));

    Case unknown = before;
    unknown.mode = 0x0F000000;
    unknown.events = {1, 2, 3};
    Record(unknown);
    ASSERT_EQ(1u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));
    EXPECT_EQ(static_cast<int32_t>(kTiming), info.frameStart);
    EXPECT_EQ(static_cast<int32_t>(kTiming), info.frameEnd);
    EXPECT_EQ(3u, info.eventFrameCount);
    EXPECT_EQ(12, info.eventFrame[0]);  // as the last known layout left them
    EXPECT_EQ(-3, info.eventFrame[1]);
}

TEST_F(FrameInfo, TriggerFramesAreKeptAndANeededCountMustAnswer) {
    const std::vector<uint32_t> triggers = {10, 20, 30};
    FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_TRIGGER_FRAME, 0, triggers.data(), 3, kOk);
    Record(kCases[0]);
    MemFrameInfoRecord info{};
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));
    ChildRecord child = Head();
    EXPECT_EQ(3u, child.triggerFrameCount);
    EXPECT_EQ(30u, child.triggerFrame[2]);

    // Without a stored-frame count there is no range to compute: nothing changes.
    Caps(1, VMC_CODE_RECORDED_FRAMES, 0, 0, 5);
    info.frameStart = 1234;
    EXPECT_EQ(0u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(1234, info.frameStart);
    EXPECT_EQ(1, Head().frameStart);
}

// Needs the state load to read the partition count (code 40) at open.
TEST_F(FrameInfo, AStoredPartitionIsComputedFromItsOwnTriggerForTheCallerOnly) {
    uint32_t error = 0, value = 0;
    VMC_CloseDevice(deviceNo, &error);
    Caps(1, VMC_CODE_PARTITION_COUNT, 3);
    deviceNo = Open(16);
    Record(kCases[0]);
    Caps(1, VMC_CODE_MEMORY_MODE_PARTITION, 0);
    ASSERT_EQ(1u, VMC_ReqMemoryModePartition(deviceNo, 1, &value, &error));
    MemFrameInfoRecord info{};
    ASSERT_EQ(1u, VMC_ReqMemFrameInfo(deviceNo, 1, &info, &error));
    const ChildRecord before = Head();
    ASSERT_EQ(3u, before.partitionCount);

    // Partition 2 was recorded ending at the trigger: only the caller hears of it.
    FAKE_SetAnswer(kModule, "DEV_GetMemModeDeviceCaps", 1, VMC_CODE_TRIGGER_MODE, 0, 0x2000000, 0, kOk);
    FAKE_SetAnswer(kModule, "DEV_GetMemModeDeviceCaps", 1, VMC_CODE_TRIGGER_RANDOM, 0, 0, 0, kOk);
    FAKE_SetAnswer(kModule, "DEV_GetMemModeDeviceCaps", 1, VMC_CODE_RECORDED_FRAMES, 0, 200, 0, kOk);
    MemFrameInfoRecord other{};
    ASSERT_EQ(1u, VMC_ReqMemModeFrameInfo(deviceNo, 1, 2, 0, &other, &error));
    EXPECT_EQ(-199, other.frameStart);
    EXPECT_EQ(1, other.frameEnd);
    ChildRecord after = Head();
    EXPECT_EQ(0, std::memcmp(&before.frameStart, &after.frameStart, sizeof info));

    // The partition in force is laid out by the cached memory trigger, and the head keeps it.
    FAKE_ClearLog();
    MemFrameInfoRecord present{};
    ASSERT_EQ(1u, VMC_ReqMemModeFrameInfo(deviceNo, 1, 0, 1, &present, &error));
    EXPECT_EQ(1, present.frameStart);
    EXPECT_EQ(200, present.frameEnd);
    EXPECT_EQ(200u, Head().recordedFrames);
    EXPECT_EQ(0, Count("DEV_GetMemModeDeviceCaps", VMC_CODE_TRIGGER_MODE));
    EXPECT_EQ(0, Count("DEV_GetMemModeList", VMC_LIST_MEM_EVENT_FRAME));  // no event lists asked
    const std::vector<FakeCall> calls = CallRecords("DEV_GetMemModeDeviceCaps");
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(0u, calls[0].value1);  // the partition
}

}  // namespace
}  // namespace vmc::test
