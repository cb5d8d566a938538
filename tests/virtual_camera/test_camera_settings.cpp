// Recording settings that constrain each other as on a real sensor.
#include <gtest/gtest.h>

#include "camera_test_support.h"

namespace vcam::test {
namespace {

uint32_t Width(uint32_t packed) { return packed >> 16; }
uint32_t Height(uint32_t packed) { return packed & 0xFFFF; }

TEST(CameraSettings, ResolutionsShrinkAsTheRateRises) {
    FakeClock clock;
    const CameraProfile profile = Mono();
    Camera camera(profile, 0, clock.Clock());
    const std::vector<uint32_t> rates = List(camera, 1, VMC_LIST_RECORD_RATE);
    ASSERT_FALSE(rates.empty());
    size_t previous = SIZE_MAX;
    for (uint32_t rate : rates) {
        ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, rate, 0), VMC_ERR_OK) << rate;
        const std::vector<uint32_t> offered = List(camera, 1, VMC_LIST_RESOLUTION);
        ASSERT_FALSE(offered.empty()) << rate;
        EXPECT_LE(offered.size(), previous) << rate;
        EXPECT_LE(offered.size(), 256u);
        previous = offered.size();
        for (uint32_t packed : offered) {
            EXPECT_EQ(Width(packed) % profile.widthStep, 0u);
            EXPECT_EQ(Height(packed) % profile.heightStep, 0u);
            EXPECT_LE(Width(packed), 1024u);
            EXPECT_LE(Height(packed), 1024u);
            EXPECT_LE(uint64_t{Width(packed)} * Height(packed) * rate, profile.pixelRate) << rate;
        }
        // The present resolution is always one the camera offers at the rate.
        const uint32_t present = Value(camera, 1, VMC_CODE_RESOLUTION);
        EXPECT_NE(std::find(offered.begin(), offered.end(), present), offered.end()) << rate;
    }
}

TEST(CameraSettings, ARateWriteShrinksTheResolutionAndItsDependants) {
    FakeClock clock;
    Camera camera(Mono(), 0, clock.Clock());
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(1024, 1024), 0), VMC_ERR_OK);
    const uint32_t framesAtFull = Value(camera, 1, VMC_CODE_MAX_FRAMES);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_SHUTTER_SPEED_FPS, 0, 1000, 0), VMC_ERR_OK);

    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 100000, 0), VMC_ERR_OK);
    const uint32_t shrunk = Value(camera, 1, VMC_CODE_RESOLUTION);
    EXPECT_EQ(Width(shrunk), 1024u);  // the width is kept where a shorter window fits
    EXPECT_LE(uint64_t{1024} * Height(shrunk) * 100000, Mono().pixelRate);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RESOLUTION_CACHE), shrunk);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RESOLUTION_ROI), shrunk);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORD_RATE_CACHE), 100000u);
    EXPECT_GT(Value(camera, 1, VMC_CODE_MAX_FRAMES), framesAtFull);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES_CACHE), Value(camera, 1, VMC_CODE_MAX_FRAMES));
    // The window stays centred on the sensor.
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SEGMENT_POSITION), Packed(0, (1024 - Height(shrunk)) / 2));
    // An exposure of 1 ms no longer fits a 10 µs frame period.
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_FPS), 100000u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_USEC), 10u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_NSEC), 10000u);
}

TEST(CameraSettings, ShutterChoicesFollowTheRate) {
    FakeClock clock;
    const CameraProfile profile = Mono();
    Camera camera(profile, 0, clock.Clock());
    for (uint32_t rate : {50u, 1000u, 20000u, 1000000u}) {
        ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, rate, 0), VMC_ERR_OK);
        const std::vector<uint32_t> fps = List(camera, 1, VMC_LIST_SHUTTER_SPEED_FPS);
        const std::vector<uint32_t> usec = List(camera, 1, VMC_LIST_SHUTTER_SPEED_USEC);
        const std::vector<uint32_t> nsec = List(camera, 1, VMC_LIST_SHUTTER_SPEED_NSEC);
        ASSERT_FALSE(fps.empty());
        EXPECT_EQ(fps.front(), rate);  // the longest exposure is the frame period
        EXPECT_EQ(fps.back(), profile.fastestShutter);
        EXPECT_TRUE(std::is_sorted(fps.begin(), fps.end()));
        EXPECT_EQ(nsec.size(), fps.size());
        EXPECT_EQ(nsec.front(), 1000000000u / rate);
        EXPECT_EQ(usec.back(), 1u);
        for (uint32_t speed : fps) {
            ASSERT_EQ(camera.SetCaps(1, VMC_CODE_SHUTTER_SPEED_FPS, 0, speed, 0), VMC_ERR_OK) << speed;
            EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_FPS), speed);
            EXPECT_NE(std::find(nsec.begin(), nsec.end(), Value(camera, 1, VMC_CODE_SHUTTER_SPEED_NSEC)),
                      nsec.end());
        }
    }
}

TEST(CameraSettings, MaxFramesFollowMemoryResolutionDepthAndPartitions) {
    FakeClock clock;
    const CameraProfile profile = Mono();
    Camera camera(profile, 0, clock.Clock());
    auto expected = [&](uint64_t width, uint64_t height, uint64_t bits, uint64_t partitions) {
        return static_cast<uint32_t>(profile.heads[0].memoryBytes / partitions / ((width * height * bits + 7) / 8));
    };
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(1024, 1024), 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), expected(1024, 1024, 12, 1));
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(512, 256), 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), expected(512, 256, 12, 1));
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_BIT_DEPTH, 0, 8, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), expected(512, 256, 8, 1));
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_PARTITION_COUNT, 0, 4, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), expected(512, 256, 8, 4));
    // Blocks: the second value, a share of the memory's blocks.
    const Values partition = Get(camera, 1, VMC_CODE_MAX_PARTITION);
    EXPECT_EQ(partition.first, profile.maxPartitions);
    EXPECT_EQ(Get(camera, 1, VMC_CODE_MAX_FRAMES).second, partition.second / 4);
}

TEST(CameraSettings, RefusesWhatTheListsDoNotOffer) {
    FakeClock clock;
    Camera camera(Mono(), 0, clock.Clock());
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 100000, 0), VMC_ERR_OK);
    struct Row {
        uint32_t code, value;
    } refused[] = {
        {VMC_CODE_RECORD_RATE, 1234},
        {VMC_CODE_RESOLUTION, Packed(1024, 1024)},        // too many pixels at this rate
        {VMC_CODE_RESOLUTION, Packed(1000, 16)},          // off the width step
        {VMC_CODE_SHUTTER_SPEED_FPS, 1000},               // longer than the frame period
        {VMC_CODE_SHUTTER_SPEED_FPS, 100001},             // not offered
        {VMC_CODE_EXPOSURE_TIME_NSEC, 20000},             // longer than the frame period
        {VMC_CODE_EXPOSURE_TIME_NSEC, 500},               // shorter than the fastest shutter
        {VMC_CODE_BIT_DEPTH, 14},                         // above the sensor's depth
        {VMC_CODE_SEGMENT_POSITION, Packed(1, 0)},        // the window would leave the sensor
        {VMC_CODE_TRIGGER_MODE, 0x12000000},
        {VMC_CODE_PARTITION_COUNT, 0},
        {VMC_CODE_PARTITION_COUNT, 17},
        {VMC_CODE_CURRENT_PARTITION, 2},
        {VMC_CODE_STATUS, 3},
    };
    const uint32_t before = Value(camera, 1, VMC_CODE_RESOLUTION);
    for (const Row& row : refused)
        EXPECT_EQ(camera.SetCaps(row.code == VMC_CODE_TRIGGER_MODE || row.code == VMC_CODE_STATUS ? 0 : 1, row.code,
                                 0, row.value, 0),
                  VMC_ERR_BAD_ARGUMENT)
            << "code " << row.code << " value " << row.value;
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RESOLUTION), before);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORD_RATE), 100000u);
    EXPECT_EQ(camera.SetCaps(1, VMC_CODE_EXPOSURE_TIME_NSEC, 0, 5000, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_NSEC), 5000u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_SHUTTER_SPEED_FPS), 200000u);
}

TEST(CameraSettings, AWriteToTheDeviceReachesEveryHead) {
    FakeClock clock;
    Camera camera(Colour(), 0, clock.Clock());
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_RECORD_RATE, 0, 2000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(2, VMC_CODE_RESOLUTION, 0, Packed(640, 384), 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORD_RATE), 2000u);
    EXPECT_EQ(Value(camera, 2, VMC_CODE_RECORD_RATE), 2000u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RESOLUTION), Packed(1280, 800));
    EXPECT_EQ(Value(camera, 2, VMC_CODE_RESOLUTION), Packed(640, 384));
    // Bit 8 of the transfer option asks for the raw mosaic of a colour head.
    ASSERT_EQ(camera.SetCaps(2, VMC_CODE_TRANSFER_OPTION, 0, 0x100, 0), VMC_ERR_OK);
    FrameJob job;
    ASSERT_EQ(camera.LiveFrame(2, 16, &job), VMC_ERR_OK);
    EXPECT_TRUE(job.format.rawMosaic);
    EXPECT_EQ(job.format.colour, ColourLayout::BayerRGGB);
    EXPECT_EQ(job.format.width, 640u);
    ASSERT_EQ(camera.LiveFrame(1, 8, &job), VMC_ERR_OK);
    EXPECT_FALSE(job.format.rawMosaic);
    EXPECT_EQ(job.id.head, 1u);
    EXPECT_EQ(camera.LiveFrame(1, 0, &job), VMC_ERR_BAD_ARGUMENT);
}

}  // namespace
}  // namespace vcam::test
