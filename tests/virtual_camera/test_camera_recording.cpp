// Recordings in every trigger mode, read back as the library reads them:
// the frame range and events it derives from the camera's answers must
// name exactly the frames the camera hands out.
#include <gtest/gtest.h>

#include "camera_test_support.h"

namespace vcam::test {
namespace {

// A memory of exactly 1000 frames of 128 x 16 at 12 bits, recorded at 1000 fps,
// on a clock where camera time runs as wall time.
CameraProfile ThousandFrames(bool frameZero) {
    CameraProfile profile = Mono();
    profile.heads[0].memoryBytes = 1000 * (128 * 16 * 12 / 8);
    profile.timeScale = 1;
    profile.features["frameZero"] = frameZero;
    return profile;
}

void Prepare(Camera& camera) {
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 1000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RESOLUTION, 0, Packed(128, 16), 0), VMC_ERR_OK);
    ASSERT_EQ(Value(camera, 1, VMC_CODE_MAX_FRAMES), 1000u);
}

struct Step {
    double at;        // camera seconds after the start of the test
    uint32_t status;  // written to code 0
};

struct Case {
    const char* name;
    uint32_t mode, afterFrames, randomFrames, randomCount;
    std::vector<Step> steps;
    // Expected for a camera without frame 0.
    uint32_t recorded;
    int32_t start, end;
    std::vector<int32_t> events, triggerFrames;
    uint32_t twoStage1 = 0, twoStage2 = 0;
};

constexpr uint32_t kArm = 2, kEndless = 4, kTrigger = 8, kLive = 0;

std::vector<Step> Triggers(uint32_t count, double every, double first = 0.0005) {
    std::vector<Step> steps = {{0, kArm}};
    for (uint32_t i = 0; i < count; ++i) steps.push_back({first + i * every, kTrigger});
    return steps;
}

std::vector<Step> Then(std::vector<Step> steps, Step last) {
    steps.push_back(last);
    return steps;
}

std::vector<int32_t> Every(int32_t first, int32_t step, int32_t count) {
    std::vector<int32_t> values;
    for (int32_t i = 0; i < count; ++i) values.push_back(first + i * step);
    return values;
}

const Case kCases[] = {
    {"start, with an event", 0, 0, 1, 1, {{0, kArm}, {0.1005, kTrigger}, {0.5005, kTrigger}}, 1000, 1, 1000, {401}, {1}},
    {"centre", 0x1000000, 0, 1, 1, {{0, kArm}, {0.0005, kEndless}, {2.0005, kTrigger}}, 1000, -500, 500, {}, {1}},
    {"centre, ring not full", 0x1000000, 0, 1, 1, {{0, kEndless}, {0.2005, kTrigger}}, 700, -200, 500, {}, {1}},
    {"end", 0x2000000, 0, 1, 1, {{0, kEndless}, {1.5005, kTrigger}}, 1000, -999, 1, {}, {1}},
    {"manual", 0x4000000, 100, 1, 1, {{0, kEndless}, {2.0005, kTrigger}}, 1000, -900, 100, {}, {1}},
    {"random", 0x3000000, 0, 100, 1, Triggers(10, 0.5), 1000, 1, 1000, Every(1, 100, 10), Every(1, 100, 10)},
    {"random reset, stopped", 0x5000000, 0, 100, 1, Then(Triggers(3, 0.5), {2.0, kLive}), 300, 1, 300,
     Every(1, 100, 3), Every(1, 100, 3)},
    {"random with pre-trigger frames", 0x11000000, 40, 100, 1, Then(Triggers(2, 0.5, 0.5005), {2.0, kLive}), 200, 1,
     200, Every(61, 100, 2), Every(61, 100, 2)},
    {"random centre", 0x6000000, 0, 100, 3, Triggers(3, 0.5, 0.5005), 300, 1, 300, Every(51, 100, 3),
     Every(51, 100, 3)},
    {"random manual", 0x7000000, 30, 100, 2, Triggers(2, 0.5, 0.5005), 200, 1, 200, Every(71, 100, 2),
     Every(71, 100, 2)},
    {"two-stage", 0x8000001, 0, 1, 1, {{0, kArm}, {0.0005, kTrigger}, {0.4005, kTrigger}}, 1000, 1, 1000, {}, {1, 101},
     100, 900},
    {"start, alternate", 0x9000000, 0, 1, 1, {{0, kArm}, {0.0005, kTrigger}}, 1000, 1, 1000, {}, {1}},
    {"record on command", 0x10000000, 250, 1, 1, Triggers(4, 0.5), 1000, 1, 1000, {}, Every(1, 250, 4)},
};

// Numbers of a camera with frame 0: every positive number moves down by one.
int32_t WithFrameZero(int32_t number) { return number > 0 ? number - 1 : number; }

std::vector<int32_t> WithFrameZero(std::vector<int32_t> numbers) {
    for (int32_t& number : numbers) number = WithFrameZero(number);
    return numbers;
}

void RecordEveryMode(bool frameZero) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(std::string(c.name) + (frameZero ? ", frame zero" : ""));
        FakeClock clock;
        Camera camera(ThousandFrames(frameZero), 0, clock.Clock());
        Prepare(camera);
        ASSERT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_RANDOM, 0, c.randomFrames, c.randomCount), VMC_ERR_OK);
        ASSERT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_MODE, 0, c.mode, c.afterFrames), VMC_ERR_OK);
        const double origin = clock.seconds;
        for (const Step& step : c.steps) {
            clock.seconds = origin + step.at;
            ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, step.status, 0), VMC_ERR_OK);
        }
        clock.seconds = origin + 100;
        ASSERT_EQ(Value(camera, 0, VMC_CODE_STATUS), kLive);

        const FrameInfo info = LibraryFrameInfo(camera, 1);
        auto expect = [&](int32_t number) { return frameZero ? WithFrameZero(number) : number; };
        EXPECT_EQ(info.recorded, c.recorded);
        EXPECT_EQ(info.start, c.start < 0 ? c.start : expect(c.start));
        EXPECT_EQ(info.end, expect(c.end));
        EXPECT_EQ(info.events, frameZero ? WithFrameZero(c.events) : c.events);
        EXPECT_EQ(info.triggerFrames, frameZero ? WithFrameZero(c.triggerFrames) : c.triggerFrames);
        EXPECT_EQ(info.twoStage1, c.twoStage1);
        EXPECT_EQ(info.twoStage2, c.twoStage2);

        // Every number of the range is a frame, in time order; nothing beyond it is.
        int64_t previous = INT64_MIN;
        uint32_t frames = 0;
        for (int32_t number = info.start; number <= info.end; ++number) {
            if (number == 0 && !frameZero) continue;
            FrameJob job;
            ASSERT_EQ(camera.MemoryFrame(1, IndexOf(info, number), 16, &job), VMC_ERR_OK) << number;
            EXPECT_EQ(job.id.number, number);
            EXPECT_GT(job.id.absolute, previous) << number;
            EXPECT_EQ(job.format.width, 128u);
            previous = job.id.absolute;
            ++frames;
        }
        EXPECT_EQ(frames, info.recorded);
        FrameJob job;
        const uint32_t beyond = static_cast<uint32_t>(std::max(info.end, 0) + std::abs(info.start) + 1);
        EXPECT_EQ(camera.MemoryFrame(1, beyond, 16, &job), VMC_ERR_BAD_ARGUMENT);
        if (!frameZero) {
            EXPECT_EQ(camera.MemoryFrame(1, 0, 16, &job), VMC_ERR_BAD_ARGUMENT);
        }
    }
}

TEST(CameraRecording, EveryTriggerModeGivesTheRangeTheLibraryDerives) { RecordEveryMode(false); }
TEST(CameraRecording, EveryTriggerModeWithFrameZero) { RecordEveryMode(true); }

// Polling the status sees the recording run on the camera's clock, scaled:
// with a time scale of 0.2 one second of recording takes 200 ms.
TEST(CameraRecording, StatusFollowsTheScaledClock) {
    FakeClock clock;
    CameraProfile profile = ThousandFrames(false);
    profile.timeScale = 0.2;
    Camera camera(profile, 0, clock.Clock());
    Prepare(camera);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_MODE, 0, 0x4000000, 500), VMC_ERR_OK);
    const double origin = clock.seconds;
    struct Poll {
        double wall;          // seconds after the origin
        uint32_t write;       // status written first, or kNone
        uint32_t status;      // read back
        uint32_t framesSoFar;
    };
    constexpr uint32_t kNone = 0xFFFFFFFF;
    const Poll polls[] = {
        {0, kNone, kLive, 0},
        {0, kArm, kArm, 0},
        {0.01, kNone, kArm, 0},
        {0.02, kEndless, kEndless, 0},
        {0.04, kNone, kEndless, 100},       // 20 ms of wall time is 100 ms of camera time
        {0.24, kNone, kEndless, 500},       // the ring holds what may precede the trigger
        {0.2401, kTrigger, kTrigger, 500},
        {0.3, kNone, kTrigger, 800},
        {0.3399, kNone, kTrigger, 999},
        {0.3401, kNone, kLive, 1000},
    };
    for (const Poll& poll : polls) {
        SCOPED_TRACE(poll.wall);
        clock.seconds = origin + poll.wall;
        if (poll.write != kNone) {
            ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, poll.write, 0), VMC_ERR_OK);
        }
        EXPECT_EQ(Value(camera, 0, VMC_CODE_STATUS), poll.status);
        EXPECT_NEAR(Value(camera, 1, VMC_CODE_CURRENT_FRAMES_RECORDED), poll.framesSoFar, 1);
    }
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORDED_FRAMES), 1000u);
    EXPECT_EQ(LibraryFrameInfo(camera, 1).start, -500);
}

TEST(CameraRecording, SettingsHoldStillWhileRecordingAndPlaybackShowsTheRecording) {
    FakeClock clock;
    Camera camera(ThousandFrames(false), 0, clock.Clock());
    Prepare(camera);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, kArm, 0), VMC_ERR_OK);
    for (uint32_t code : {VMC_CODE_RECORD_RATE, VMC_CODE_RESOLUTION, VMC_CODE_BIT_DEPTH, VMC_CODE_PARTITION_COUNT})
        EXPECT_EQ(camera.SetCaps(1, code, 0, Value(camera, 1, code), 0), VMC_ERR_BUSY) << code;
    EXPECT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_MODE, 0, 0, 0), VMC_ERR_BUSY);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, kTrigger, 0), VMC_ERR_OK);
    clock.seconds += 0.1005;
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, kLive, 0), VMC_ERR_OK);  // cut short: keeps what it took
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORDED_FRAMES), 100u);

    // Changed live settings; in playback the recording's own are reported.
    ASSERT_EQ(camera.SetCaps(1, VMC_CODE_RECORD_RATE, 0, 2000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_TRIGGER_MODE, 0, 0x2000000, 0), VMC_ERR_OK);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, 1, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 0, VMC_CODE_STATUS), 1u);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORD_RATE), 1000u);
    EXPECT_EQ(Value(camera, 0, VMC_CODE_TRIGGER_MODE), 0u);
    EXPECT_EQ(LibraryFrameInfo(camera, 1).end, 100);
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, kLive, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 1, VMC_CODE_RECORD_RATE), 2000u);
    // A trigger with no recording armed does nothing.
    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_STATUS, 0, kTrigger, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 0, VMC_CODE_STATUS), kLive);
}

}  // namespace
}  // namespace vcam::test
