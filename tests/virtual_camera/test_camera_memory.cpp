// Partitions of the recording memory, the memory-mode queries of one
// partition, and the side data recorded beside the frames.
#include <gtest/gtest.h>

#include <cstring>

#include "camera/side_data.h"
#include "camera_test_support.h"

namespace vcam::test {
namespace {

constexpr uint32_t kFrameBytes = 128 * 16 * 12 / 8;

CameraProfile SmallMemory() {
    CameraProfile profile = Mono();
    profile.heads[0].memoryBytes = uint64_t{4000} * kFrameBytes;
    profile.timeScale = 1;
    return profile;
}

// One start-mode recording of `frames` frames (stopped when short of the memory).
void Record(Camera& camera, FakeClock& clock, uint32_t frames) {
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 2, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 8, 0), VMC_ERR_OK);
    clock.seconds += frames / 1000.0 + 0.0005;
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 0, 0), VMC_ERR_OK);
}

TEST(CameraMemory, PartitionsHoldTheirOwnRecordings) {
    FakeClock clock;
    Camera camera(SmallMemory(), 0, clock.Clock());
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(128, 16), 0), VMC_ERR_OK);
    // Sizes asked ahead of the count: a quarter and three quarters of the memory.
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_PARTITION_LIST, 1, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_PARTITION_LIST, 2, 3000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_PARTITION_COUNT, 0, 2, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_PARTITION_COUNT), 2u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_PARTITION_LIST, 1) + Value(camera, 1, VMC_CODE_PARTITION_LIST, 2), 4000u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), Value(camera, 1, VMC_CODE_PARTITION_LIST, 1));

    // Increment mode 1: the next recording goes to the next partition, and
    // the memory side shows the one just recorded.
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_PARTITION_INC_MODE, 0, 1, 0), VMC_ERR_OK);
    Record(camera, clock, 300);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_CURRENT_PARTITION), 2u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MEMORY_MODE_PARTITION), 1u);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(256, 16), 0), VMC_ERR_OK);
    Record(camera, clock, 500);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MEMORY_MODE_PARTITION), 2u);

    struct Row {
        uint32_t partition, recorded, resolution;
    } rows[] = {{1, 300, Packed(128, 16)}, {2, 500, Packed(256, 16)}};
    for (const Row& row : rows) {
        uint32_t first = 0, second = 0;
        ASSERT_EQ(camera.GetMemModeCaps(1, row.partition, VMC_CODE_RECORDED_FRAMES, 0, &first, &second), VMC_ERR_OK);
        EXPECT_EQ(first, row.recorded);
        ASSERT_EQ(camera.GetMemModeCaps(1, row.partition, VMC_CODE_RESOLUTION, 0, &first, nullptr), VMC_ERR_OK);
        EXPECT_EQ(first, row.resolution);
        ASSERT_EQ(camera.GetMemModeCaps(1, row.partition, VMC_CODE_RECORD_RATE, 0, &first, nullptr), VMC_ERR_OK);
        EXPECT_EQ(first, 1000u);
        std::vector<uint32_t> triggers;
        ASSERT_EQ(camera.GetMemModeList(1, row.partition, VMC_LIST_MEM_TRIGGER_FRAME, 0, &triggers), VMC_ERR_OK);
        EXPECT_EQ(triggers, std::vector<uint32_t>{1});
    }
    uint32_t value = 0;
    EXPECT_EQ(camera.GetMemModeCaps(1, 3, VMC_CODE_RECORDED_FRAMES, 0, &value, nullptr), VMC_ERR_BAD_ARGUMENT);
    EXPECT_EQ(camera.GetMemModeCaps(1, 0, VMC_CODE_RECORDED_FRAMES, 0, &value, nullptr), VMC_ERR_BAD_ARGUMENT);

    // Frames come from the partition the memory side shows.
    FrameJob job;
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_MEMORY_MODE_PARTITION, 0, 1, 0), VMC_ERR_OK);
    EXPECT_EQ(camera.MemoryFrame(1, 300, 8, &job), VMC_ERR_OK);
    EXPECT_EQ(job.format.width, 128u);
    EXPECT_EQ(camera.MemoryFrame(1, 301, 8, &job), VMC_ERR_BAD_ARGUMENT);

    // A new layout empties the memory.
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_PARTITION_COUNT, 0, 4, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_CURRENT_PARTITION), 1u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORDED_FRAMES), 0u);
    EXPECT_EQ(camera.MemoryFrame(1, 1, 8, &job), VMC_ERR_BAD_ARGUMENT);
}

TEST(CameraMemory, SideDataFollowsTheRecordedFrames) {
    FakeClock clock;
    CameraProfile profile = SmallMemory();
    profile.sideData.acceleration = true;
    Camera camera(profile, 0, clock.Clock());
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(128, 16), 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_MODE, 0, 0x4000000, 10), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 4, 0), VMC_ERR_OK);
    clock.seconds += 0.1005;
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 8, 0), VMC_ERR_OK);
    clock.seconds += 1;
    ASSERT_EQ(Value(camera, 0, VMC_CODE_STATUS), 0u);
    const FrameInfo info = LibraryFrameInfo(camera, 1);
    ASSERT_EQ(info.start, -100);
    ASSERT_EQ(info.end, 10);

    // The IRIG times of frames -2, -1, 1, 2 (index order puts frame 1 first)
    // are one frame period apart; frame 0 does not exist.
    std::vector<uint8_t> data, extra;
    const size_t irig = SideRecordBytes(SideKind::Irig);
    auto micros = [&](const uint8_t* record) {
        uint32_t days = 0, sub = 0;
        std::memcpy(&days, record, 4);
        std::memcpy(&sub, record + 8, 4);
        return ((uint64_t{days} * 24 + record[4]) * 60 + record[5]) * 60000000ull + record[6] * 1000000ull + sub;
    };
    ASSERT_EQ(camera.GetData(1, VMC_DATA_MEM_IRIG, IndexOf(info, -2), 2, &data, &extra), VMC_ERR_OK);
    ASSERT_EQ(data.size(), 2 * irig);
    const uint64_t minus2 = micros(data.data()), minus1 = micros(data.data() + irig);
    ASSERT_EQ(camera.GetData(1, VMC_DATA_MEM_IRIG, IndexOf(info, 1), 2, &data, &extra), VMC_ERR_OK);
    EXPECT_EQ(minus1 - minus2, 1000u);
    EXPECT_EQ(micros(data.data()) - minus1, 1000u);
    EXPECT_EQ(micros(data.data() + irig) - micros(data.data()), 1000u);
    EXPECT_EQ(camera.GetData(1, VMC_DATA_MEM_IRIG, 0, 1, &data, &extra), VMC_ERR_BAD_ARGUMENT);
    EXPECT_EQ(camera.GetData(1, VMC_DATA_MEM_IRIG, IndexOf(info, -1) + 1, 1, &data, &extra), VMC_ERR_BAD_ARGUMENT);

    // Every kind the profile records answers with whole records; a probe of no frames answers nothing.
    struct Row {
        uint32_t code;
        SideKind kind;
    } rows[] = {{VMC_DATA_MEM_TEMPERATURE, SideKind::Temperature}, {VMC_DATA_ACCELERATION, SideKind::Acceleration},
                {VMC_DATA_EXPOSE_TIME, SideKind::ExposureTime}, {VMC_DATA_LIVE_IMAGE_IRIG, SideKind::Irig}};
    for (const Row& row : rows) {
        ASSERT_EQ(camera.GetData(1, row.code, IndexOf(info, 5), 1, &data, &extra), VMC_ERR_OK) << row.code;
        EXPECT_EQ(data.size(), SideRecordBytes(row.kind)) << row.code;
    }
    ASSERT_EQ(camera.GetData(1, VMC_DATA_ACCELERATION, 0, 0, &data, &extra), VMC_ERR_OK);
    EXPECT_TRUE(data.empty());

    // The live IRIG time runs with the camera's clock.
    const Values before = Get(camera, 0, VMC_CODE_LIVE_IRIG);
    clock.seconds += 1;
    const Values after = Get(camera, 0, VMC_CODE_LIVE_IRIG);
    ASSERT_EQ(before.error, VMC_ERR_OK);
    EXPECT_EQ(after.first, before.first);
    EXPECT_EQ((after.second & 63) - (before.second & 63), 1u);
}

}  // namespace
}  // namespace vcam::test
