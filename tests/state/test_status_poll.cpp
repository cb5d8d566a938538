// VMC_DeviceStatusUpdate: what it asks, in which order, and how each kind of
// failure ends it, with the device lock released or, where callers expect
// it, still held.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class StatusPoll : public LibraryTest {
protected:
    // The device-caps codes the poll asked, as "code" or "code@child", link checks left out.
    static std::string Asked() {
        std::string asked;
        for (const FakeCall& call : CallRecords("DEV_GetDeviceCaps")) {
            if (call.code == VMC_CODE_CONNECT_STATE) continue;
            asked += (asked.empty() ? "" : " ") + std::to_string(call.code);
            if (call.child) asked += "@" + std::to_string(call.child);
        }
        return asked;
    }
    // What a head must answer to a poll besides what it answers at open.
    static void ScriptHeadState() {
        for (uint32_t code : {VMC_CODE_COLOR_TYPE, VMC_CODE_SEGMENT_POSITION, VMC_CODE_CAM_MODE,
                              VMC_CODE_PARTITION_COUNT, VMC_CODE_CURRENT_PARTITION})
            FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", FAKE_ANY, code, 0, 1, 0, kOk);
    }
    static uint32_t Poll(uint32_t deviceNo, uint32_t* error) {
        FAKE_ClearLog();
        return VMC_DeviceStatusUpdate(deviceNo, error);
    }
};

TEST_F(StatusPoll, AsksOnlyWhatTheCameraHas) {
    const uint32_t deviceNo = DetectAndOpen(16);
    ScriptHeadState();
    uint32_t error = 0;
    EXPECT_EQ(1u, Poll(deviceNo, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ("11@1 2@1 3@1 48@1 4@1 49@1 40@1 31@1 33@1 6 7", Asked());
    EXPECT_FALSE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));
}

TEST_F(StatusPoll, StoresWhatChangedAtTheCamera) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_KEY_PAD_LOCK, 0, 0, 0, kOk);
    const uint32_t deviceNo = Open(16);
    ScriptHeadState();
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_KEY_PAD_LOCK, 0, 1, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 2, VMC_CODE_RECORD_RATE, 0, 5000, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0x2000000, 7, kOk);
    uint32_t error = 0;
    ASSERT_EQ(1u, Poll(deviceNo, &error));
    uint32_t value = 0, mode = 0, after = 0, frames = 0, count = 0;
    EXPECT_EQ(1u, VMC_GetKeyPadLock(deviceNo, &value, &error));
    EXPECT_EQ(1u, value);
    EXPECT_EQ(1u, VMC_GetRecordRate(deviceNo, 2, &value, &error));
    EXPECT_EQ(5000u, value);
    EXPECT_EQ(1u, VMC_GetRecordRate(deviceNo, 1, &value, &error));
    EXPECT_EQ(1000u, value);
    EXPECT_EQ(1u, VMC_GetTriggerMode(deviceNo, &mode, &after, &frames, &count, &error));
    EXPECT_EQ(0x2000000u, mode);
    EXPECT_EQ(7u, after);
}

TEST_F(StatusPoll, FailureEndsThePollAndReleasesTheLock) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_VIDEO_OUT_MODE, 0, 3, 0, kOk);
    const uint32_t deviceNo = Open(16);
    ScriptHeadState();
    vmc_lock_slot lock = FAKE_LockSlot("DMOD016", 7, 0);
    uint32_t error = 0;

    // A head that fails: the head before it is already refreshed.
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_RECORD_RATE, 0, 2500, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 2, VMC_CODE_RESOLUTION, 0, 0, 0, 8);
    EXPECT_EQ(0u, Poll(deviceNo, &error));
    EXPECT_EQ(8u, error);
    EXPECT_EQ("29 11@1 2@1 3@1 48@1 4@1 49@1 40@1 31@1 33@1 11@2 2@2 3@2", Asked());
    uint32_t rate = 0;
    EXPECT_EQ(1u, VMC_GetRecordRate(deviceNo, 1, &rate, &error));
    EXPECT_EQ(2500u, rate);
    EXPECT_FALSE(HeldElsewhere(lock));

    // A device setting that the camera no longer offers: its default is stored.
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_VIDEO_OUT_MODE, 0, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, Poll(deviceNo, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(2u, Info(deviceNo).videoOutMode);
    EXPECT_FALSE(HeldElsewhere(lock));
}

// Callers' retry logic was written against these failures returning with the
// device lock held: another thread then times out.
TEST_F(StatusPoll, SignalCountFailuresKeepTheLock) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_SYNC_OUT_TIMES, 0, 4, 0, kOk);
    const uint32_t deviceNo = Open(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_SYNC_OUT_TIMES, 0, 0, 0, 5);
    uint32_t error = 0;
    EXPECT_EQ(0u, Poll(deviceNo, &error));
    EXPECT_EQ(1u, Info(deviceNo).syncOutTimes);
    EXPECT_TRUE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));
    pthread_mutex_unlock(*FAKE_LockSlot("DMOD016", 7, 0));  // give it back so the close can run
}

TEST_F(StatusPoll, ADisconnectedCameraIsNotAsked) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, 0, 0, kOk);
    uint32_t error = 0;
    EXPECT_EQ(0u, Poll(deviceNo, &error));
    EXPECT_EQ(VMC_ERR_DISCONNECTED, error);
    EXPECT_EQ(std::vector<std::string>{"DEV_GetDeviceCaps 325"}, Calls("DMOD016"));
}

}  // namespace
}  // namespace vmc::test
