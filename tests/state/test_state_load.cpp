// The state load at open: its call order, the lock hand-over, the heads,
// the names and the failure rules of its steps.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class StateLoad : public LibraryTest {};

TEST_F(StateLoad, AsksInItsOrder) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    FAKE_ClearLog();
    Open(16);
    const std::vector<std::string> expected = {
        "DEV_Init", "DEV_OpenDevice",
        "DEV_SetData 58", "DEV_SetData 38", "DEV_SetData 38/1", "DEV_SetData 38/2", "DEV_SetData 38/3",
        "DEV_GetDeviceCaps 12", "DEV_GetDeviceCaps 20", "DEV_GetDeviceCaps 21", "DEV_GetDeviceCaps 22",
        "DEV_GetDeviceCaps 23", "DEV_GetDeviceCaps 128", "DEV_GetDeviceCaps 1", "DEV_GetDeviceCaps 66",
        "DEV_GetList 19",
        "DEV_GetDeviceName", "DEV_GetDeviceName",  // heads 1 and 2
        "DEV_GetDeviceCaps 6", "DEV_GetDeviceCaps 7", "DEV_GetDeviceName",
        "DEV_GetDeviceCaps 427", "DEV_GetDeviceCaps 424", "DEV_GetDeviceCaps 425",
    };
    EXPECT_EQ(expected, Calls("DMOD016"));
}

TEST_F(StateLoad, HandsTheModuleLocksItCanUse) {
    const uint32_t deviceNo = DetectAndOpen(16);
    for (uint32_t which = 0; which <= FAKE_GLOBAL_LOCK; ++which) {
        vmc_lock_slot slot = FAKE_LockSlot("DMOD016", 7, which);
        ASSERT_NE(nullptr, slot) << which;
        ASSERT_NE(nullptr, *slot) << which;
        EXPECT_EQ(0, pthread_mutex_lock(*slot));
        EXPECT_EQ(0, pthread_mutex_lock(*slot)) << "locks are recursive";
        pthread_mutex_unlock(*slot);
        pthread_mutex_unlock(*slot);
    }
    // The module holding the device lock makes a library call wait for it.
    vmc_lock_slot device = FAKE_LockSlot("DMOD016", 7, 0);
    pthread_mutex_lock(*device);
    uint32_t a = 0, b = 0, error = 0;
    bool returned = false;
    std::thread caller([&] {
        VMC_GetLastError(deviceNo, &a, &b, &error);
        returned = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(returned);
    pthread_mutex_unlock(*device);
    caller.join();
    EXPECT_TRUE(returned);
}

TEST_F(StateLoad, HeadsComeFromTheExistingList) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {2, 0, 4}, 4);
    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 4, 0, "Right head", kOk);
    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 2, 0, "", 5);
    const uint32_t deviceNo = Open(16);
    const DeviceRecord record = Info(deviceNo);
    EXPECT_EQ(4u, record.maxChildDeviceCount);
    EXPECT_EQ(3u, record.childDeviceCount);
    EXPECT_STREQ("Camera 16", record.deviceName);
    EXPECT_EQ(4016u, record.deviceId);
    EXPECT_EQ(0x1000000u, record.triggerMode);
    EXPECT_EQ(100u, record.triggerAfterFrames);
    EXPECT_EQ(5u, record.triggerRandomFrames);
    EXPECT_EQ(6u, record.triggerRandomCount);

    static ChildRecord child;
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    ASSERT_EQ(1u, VMC_GetChildInfo(deviceNo, 2, &child, &error));
    EXPECT_STREQ("Unknown Child Device", child.childName);
    ASSERT_EQ(1u, VMC_GetChildInfo(deviceNo, 4, &child, &error));
    EXPECT_STREQ("Right head", child.childName);
}

TEST_F(StateLoad, ChildCountsDefaultToOne) {
    const uint32_t deviceNo = DetectAndOpen(16);
    EXPECT_EQ(1u, Info(deviceNo).childDeviceCount);
    EXPECT_EQ(1u, Info(deviceNo).maxChildDeviceCount);
}

TEST_F(StateLoad, DeviceNameFailures) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 0, 0, "garbage", 5);
    EXPECT_STREQ("Unknown Device", Info(Open(16)).deviceName);

    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 0, 0, "", VMC_ERR_MODULE_FATAL);
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_MODULE_FATAL, error);
}

TEST_F(StateLoad, FailureRules) {
    struct Case {
        const char* what;
        uint32_t code, error;
        bool opens;
    } cases[] = {
        {"device id is required", VMC_CODE_DEVICE_ID, VMC_ERR_NOT_SUPPORTED, false},
        {"identity tolerates 21", VMC_CODE_VERSION, VMC_ERR_NOT_SUPPORTED, true},
        {"identity fails on other errors", VMC_CODE_LOT_ID, 5, false},
        {"head count fails on other errors", VMC_CODE_MAX_CHILD_DEVICE_COUNT, 9, false},
        {"trigger mode is required", VMC_CODE_TRIGGER_RANDOM, VMC_ERR_NOT_SUPPORTED, false},
        {"link speed tolerates 21", VMC_CODE_LINK_SPEED, VMC_ERR_NOT_SUPPORTED, true},
        {"link speed fails on other errors", VMC_CODE_LINK_SPEED, 8, false},
    };
    Detect(VMC_INTERFACE_VIRTUAL);
    for (const Case& c : cases) {
        FAKE_Reset();
        ScriptCamera(16, 7, {1, 2}, 2);
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, c.code, 0, 0, 0, c.error);
        OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
        uint32_t deviceNo = 64, error = 0;
        EXPECT_EQ(c.opens ? 1u : 0u, VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error)) << c.what;
        EXPECT_EQ(c.opens ? kOk : c.error, error) << c.what;
        VMC_CloseDevice(deviceNo, &error);
    }
}

TEST_F(StateLoad, TriggerModeRefusedFreesTheHeads) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0, 0, VMC_ERR_NOT_SUPPORTED);
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error));
    static ChildRecord child;
    EXPECT_EQ(0u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_EQ(0u, Info(deviceNo).triggerMode);
}

TEST_F(StateLoad, AHeadNumberBeyondTheMaximumFailsTheOpen) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 3}, 2);
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
}

}  // namespace
}  // namespace vmc::test
