// The state load at open: its call order, the lock hand-over, the heads,
// the names and the failure rules of its steps.
#include <algorithm>
#include <iterator>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class StateLoad : public LibraryTest {};

// The calls of one module in a short form: "12" is code 12 of the device,
// "4@2" code 4 of head 2, "75/12" code 75 with sub-code 12, "list 19",
// "data 52", "set 425/1", "name@1"; the lock hand-over is left out.
std::string CallTrace(const char* module) {
    std::string trace;
    FakeCall call;
    for (uint32_t i = 0; FAKE_GetCall(i, &call); ++i) {
        const std::string entry = call.entry, from = call.module;
        if (from != module || entry == "DEV_SetData" || entry == "DEV_Init" || entry == "DEV_OpenDevice") continue;
        std::string item = entry == "DEV_GetDeviceCaps" ? ""
                           : entry == "DEV_SetDeviceCaps" ? "set "
                           : entry == "DEV_GetList"       ? "list "
                           : entry == "DEV_GetData"       ? "data "
                           : entry == "DEV_GetDeviceName" ? "name"
                                                          : entry + " ";
        if (entry != "DEV_GetDeviceName") item += std::to_string(call.code);
        if (call.sub) item += "/" + std::to_string(call.sub);
        if (call.child) item += "@" + std::to_string(call.child);
        trace += (trace.empty() ? "" : " ") + item;
    }
    return trace;
}

// A camera that answers only what every camera must: its id, the trigger
// words, the list of heads and what a head must say. All else is 21.
TEST_F(StateLoad, AsksAMinimalCameraInItsOrder) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_ClearLog();
    const DeviceRecord record = Info(Open(16));
    EXPECT_EQ(
        "12 20 21 22 23 305 36 174 94 173 175 24 130 25 28 29 114 400 115 14 15 283 99 38 96 75/1 75/12 75/2 "
        "75/3 75/4 75/5 75/6 75/7 75/8 75/9 75/10 75/11 239 78 80 329 82 83/1 101 325 325 102 325 325 281 325 "
        "325 104 97 110 117 118 325 325 124 325 325 125 126 394 128 131 188 163 169 164 165 166 217 132 133 "
        "150 139 1 66 list 19 318 320 323 326 385 386 147 159 160 161 186 189 195 387 202 325 325 203 273 221 "
        "242@1 270 271 278 280 11@1 20@1 21@1 22@1 23@1 2@1 47@1 3@1 116@1 48@1 37@1 176@1 4@1 5@1 127@1 9@1 "
        "10@1 89@1 120@1 121@1 122@1 123@1 18@1 17@1 16@1 105@1 32@1 13@1 119@1 72@1 113@1 158@1 81@1 77@1 "
        "49@1 134@1 167@1 136@1 141@1 151@1 152@1 153@1 155@1 156@1 234@1 185@1 name@1 30@1 40@1 31@1 187@1 "
        "33@1 list 23@1 list 49@1 109@1 112@1 148@1 383@1 85@1 list 53@1 369@1 325 325 370@1 325 325 371@1 "
        "data 52@1 325 325 390@1 data 52@1 401@1 403@1 data 68@1 428/162@1 6 7 name 240 273 273 325 325 272 "
        "296 285 216 319 325 325 370 273 429 342 344 391 list 53 353 372 410 317 374 list 53 369 36 359 358 "
        "357 369 325 325 370 316 399 380 384 360 data 52 368 397 325 325 390 325 325 193 398 325 325 327 403 "
        "408@1 427 424 425 428/161 428/162 428/164 428/165 428/166 428/168",
        CallTrace("DMOD016"));
    EXPECT_EQ(1u, record.childDeviceCount) << "defaults to 1";
    EXPECT_EQ(1u, record.maxChildDeviceCount) << "defaults to 1";
    // Every optional flag of the device stays 0 (the flag bytes run from offset 944 to the end),
    // but those that say which entries the module has: the test module has them all.
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(&record);
    const size_t entryFlags[] = {offsetof(DeviceRecord, hasFPGAConfig), offsetof(DeviceRecord, hasCameraFile),
                                 offsetof(DeviceRecord, hasImageAddress), offsetof(DeviceRecord, hasFrameAddress)};
    for (size_t at = offsetof(DeviceRecord, hasShutterLockMode); at < sizeof record; ++at) {
        if (at >= offsetof(DeviceRecord, childRecords) && at < offsetof(DeviceRecord, childRecords) + sizeof record.childRecords)
            continue;
        const bool entryFlag = std::find(std::begin(entryFlags), std::end(entryFlags), at) != std::end(entryFlags);
        EXPECT_EQ(entryFlag ? 1 : 0, bytes[at]) << "flag byte at offset " << at;
    }
}

// A camera that answers everything with 1: every optional step runs, one port
// of each kind, the storage box (storage mode 1) and one of every list.
TEST_F(StateLoad, AsksAFullFeaturedCameraInItsOrder) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    const uint32_t one[] = {1};
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 1, 1, kOk);
    FAKE_SetList("DMOD016", "DEV_GetList", FAKE_ANY, FAKE_ANY, FAKE_ANY, one, 1, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetData", FAKE_ANY, FAKE_ANY, FAKE_ANY, 1, 1, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0x1000000, 100, kOk);
    FAKE_ClearLog();
    Open(16);
    EXPECT_EQ(
        "12 20 21 22 23 305 36 174 34/1 35/1 94 173 175 24 130 25 list 50 28 29 114 400 115 14 19 293 15 283 "
        "291 99 100 38 96 75/1 75/12 75/2 75/3 75/4 75/5 75/6 75/7 75/8 75/9 75/10 75/11 74/1 74/12 74/2 74/3 "
        "74/4 74/5 74/6 74/7 74/8 74/9 74/10 219/11 74/11 219/10 239 78 80 329 82 83/1 101 325 325 102 325 "
        "325 281 325 325 104 97 83/2 83/3 83/4 110 117 118 325 325 124 325 325 125 126 394 128 131 188 163 "
        "169 164 165 166 217 132 133 150 139 1 66 list 19 318 320 323 326 385 386 147 159 160 161 186 189 195 "
        "387 202 325 325 203 273 221 242@1 270 271 278 280 11@1 20@1 21@1 22@1 23@1 54@1 2@1 47@1 3@1 116@1 "
        "48@1 37@1 294@1 176@1 4@1 5@1 127@1 9@1 10@1 89@1 8@1 86@1 87@1 88@1 120@1 121@1 122@1 123@1 18@1 "
        "17@1 93@1 16@1 105@1 32@1 321@1 381@1 13@1 119@1 72@1 113@1 158@1 81@1 77@1 44@1 45@1 46@1 49@1 "
        "134@1 167@1 136@1 137@1 138@1 141@1 151@1 152@1 153@1 154@1 set 85@1 155@1 156@1 234@1 185@1 name@1 "
        "30@1 40@1 31@1 187@1 33@1 list 23@1 list 49@1 109@1 112@1 148@1 383@1 85@1 list 53@1 369@1 325 325 "
        "370@1 325 325 371@1 data 52@1 325 325 390@1 data 52@1 401@1 403@1 data 68@1 428/162@1 6 7 name 240 "
        "273 204 404 405 406 407 273 325 325 272 325 325 272 325 325 272/1 296 285 216 319 325 325 370 273 "
        "429 342 343 373 344 391 list 53 393/1 353 372 410 317 382 374 389 list 53 369 36 354/1 359 358 357 "
        "369 325 325 370 316 399 380 384 384/1 384/2 360 data 52 368 397 325 325 390 325 325 193 398 325 325 "
        "327 403 408@1 427 424 425 set 425/1 428/161 428/162 428/164 428/165 428/166 428/168",
        CallTrace("DMOD016"));
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

// One refusal per case; the open either survives it or fails with the module's error.
TEST_F(StateLoad, FailureRules) {
    struct Case {
        const char* what;
        uint32_t child, code, sub, error;
        bool opens;
    } cases[] = {
        {"device id is required", 0, VMC_CODE_DEVICE_ID, 0, VMC_ERR_NOT_SUPPORTED, false},
        {"identity tolerates 21", 0, VMC_CODE_VERSION, 0, VMC_ERR_NOT_SUPPORTED, true},
        {"identity fails on other errors", 0, VMC_CODE_LOT_ID, 0, 5, false},
        {"a probe fails on other errors", 0, VMC_CODE_KEY_PAD_LOCK, 0, 5, false},
        {"shutter display mode is ignored", 0, VMC_CODE_SHUTTER_DISP_MODE, 0, 5, true},
        {"storage-pack recording counts every failure as absent", 0, VMC_CODE_DIRECT_RECORD_RAPID_PACK, 0, 9, true},
        {"delays tolerate 5", 0, VMC_CODE_DELAY_LIMIT, 1, 5, true},
        {"delays fail on other errors", 0, VMC_CODE_DELAY_LIMIT, 12, 6, false},
        {"head count fails on other errors", 0, VMC_CODE_MAX_CHILD_DEVICE_COUNT, 0, 9, false},
        {"pixel gain magnification says nothing of health", 1, VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD, 0, 9, true},
        {"a head must give its rate", 2, VMC_CODE_RECORD_RATE, 0, VMC_ERR_NOT_SUPPORTED, false},
        {"a head must give its shutter", 1, VMC_CODE_SHUTTER_SPEED_FPS, 0, VMC_ERR_NOT_SUPPORTED, false},
        {"a head probe fails on other errors", 2, VMC_CODE_SENSOR_GAIN_MODE, 0, 5, false},
        {"head pixel gain tolerates everything", 1, VMC_CODE_PIXEL_GAIN_MODE, 0, 9, true},
        {"trigger mode is required", 0, VMC_CODE_TRIGGER_RANDOM, 0, VMC_ERR_NOT_SUPPORTED, false},
        {"link speed tolerates 21", 0, VMC_CODE_LINK_SPEED, 0, VMC_ERR_NOT_SUPPORTED, true},
        {"link speed fails on other errors", 0, VMC_CODE_LINK_SPEED, 0, 8, false},
        {"a feature probe fails on other errors", 0, VMC_CODE_FEATURE, 166, 5, false},
    };
    Detect(VMC_INTERFACE_VIRTUAL);
    for (const Case& c : cases) {
        FAKE_Reset();
        ScriptCamera(16, 7, {1, 2}, 2);
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", c.child, c.code, c.sub, 0, 0, c.error);
        // The second form of the open keeps the module's error word.
        OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
        uint32_t deviceNo = 64, error = 0;
        EXPECT_EQ(c.opens ? 1u : 0u, VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error)) << c.what;
        EXPECT_EQ(c.opens ? kOk : c.error, error) << c.what;
        VMC_CloseDevice(deviceNo, &error);
        if (c.opens) continue;
        // The first form leaves nothing behind: no record, no module reference, no heads.
        EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error)) << c.what;
        EXPECT_EQ(0u, Info(0).deviceCode) << c.what;
        EXPECT_FALSE(Loaded("DMOD016")) << c.what;
    }
}

// Quirks of the load that callers and modules rely on.
TEST_F(StateLoad, PortsStorageAndMedia) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_EXTERNAL_COUNT, 0, 2, 1, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_EXTERNAL_IN_MODE, 1, 7, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_EXTERNAL_OUT_MODE, 1, 3, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_STORAGE_MODE, 0, 1, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_SD_CARD_CTRL, 0, 4, 0, kOk);
    DeviceRecord record = Info(Open(16));
    EXPECT_EQ(0u, record.externalInCount) << "port 2 refused: no usable in ports";
    EXPECT_EQ(1u, record.externalOutCount);
    EXPECT_EQ(3u, record.externalOutMode[0]);
    EXPECT_EQ(0, record.hasMedia) << "storage mode 1 is a storage box";
    EXPECT_EQ(0, record.hasSdCardCtrl);
    EXPECT_EQ(1, record.hasSSDBoxCtrl);
    EXPECT_EQ(4u, record.ssdBoxCtrl);
    uint32_t error = 0;
    VMC_CloseDevice(0, &error);

    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_STORAGE_MODE, 0, 2, 0, kOk);
    record = Info(Open(16));
    EXPECT_EQ(1, record.hasMedia);
    EXPECT_EQ(0, record.hasSSDBoxCtrl) << "storage mode 2 is on-camera media";
    EXPECT_EQ(1, record.hasStorageMode);
    EXPECT_EQ(2u, record.storageMode);
}

// Delay types 10 and 11 share a flag, and each value brings the other type's limit.
TEST_F(StateLoad, DelaysCrossTypesTenAndEleven) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DELAY_LIMIT, 12, 500, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DELAY_LIMIT, 10, 40, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DELAY, 12, 50, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DELAY, 10, 4, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DELAY_LIMIT_10_11, 11, 90, 9, kOk);
    const DeviceRecord record = Info(Open(16));
    EXPECT_EQ(1, record.hasDelay);
    EXPECT_EQ(500u, record.delayLimit[1]);
    EXPECT_EQ(50u, record.delayValue[1]);
    EXPECT_EQ(0, record.hasDelayType10) << "type 11 answered last, with a refusal";
    EXPECT_EQ(4u, record.delayValue10);
    EXPECT_EQ(90u, record.delayLimit11);
    EXPECT_EQ(9u, record.delayLimit11Low);
    EXPECT_EQ(1, Count("DEV_GetDeviceCaps", VMC_CODE_DELAY_LIMIT_10_11)) << "no value of type 11, no limit of 10";
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
