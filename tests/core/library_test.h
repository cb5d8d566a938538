// The fixture of the library tests: an initialised library, a fresh script
// of the test modules, and every device closed at the end.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <string>
#include <thread>
#include <vector>

#include <vmc/codes.h>
#include <vmc/vmc.h>

#include "tests/fakes/fake.h"

namespace vmc::test {

inline constexpr uint32_t kOk = VMC_ERR_OK;

// A call as the tests compare it: "DEV_GetDeviceCaps 325", "DEV_SetData 38/2".
inline std::string Describe(const FakeCall& call) {
    std::string text = call.entry;
    const std::string entry = call.entry;
    if (entry.find("Caps") != std::string::npos || entry.find("List") != std::string::npos ||
        entry.find("Data") != std::string::npos) {
        text.append(" ").append(std::to_string(call.code));
        if (call.sub) text.append("/").append(std::to_string(call.sub));
    }
    return text;
}

// The calls the library made, oldest first, optionally only those of one module.
inline std::vector<std::string> Calls(const char* module = nullptr) {
    std::vector<std::string> calls;
    FakeCall call;
    for (uint32_t i = 0; FAKE_GetCall(i, &call); ++i)
        if (!module || std::string(call.module) == module) calls.push_back(Describe(call));
    return calls;
}

inline std::vector<FakeCall> CallRecords(const char* entry) {
    std::vector<FakeCall> calls;
    FakeCall call;
    for (uint32_t i = 0; FAKE_GetCall(i, &call); ++i)
        if (std::string(call.entry) == entry) calls.push_back(call);
    return calls;
}

inline int Count(const char* entry, uint32_t code = FAKE_ANY) {
    int n = 0;
    for (const FakeCall& call : CallRecords(entry))
        if (code == FAKE_ANY || call.code == code) ++n;
    return n;
}

// Whether a module file is mapped in this process now.
inline bool Loaded(const char* module) {
    const std::string path = std::string(VMC_TEST_MODULE_DIR) + "/" + module + ".so";
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

// Whether some thread holds the lock in a slot, seen from another thread.
inline bool HeldElsewhere(vmc_lock_slot slot) {
    bool held = false;
    std::thread([&] {
        int rc = pthread_mutex_trylock(*slot);
        held = rc == EBUSY;
        if (rc == 0) pthread_mutex_unlock(*slot);
    }).join();
    return held;
}

// The module file of a device code among the test modules.
inline std::string ModuleOf(uint32_t deviceCode) {
    char name[16];
    snprintf(name, sizeof name, "DMOD%03u", deviceCode == 4096 ? 903u : deviceCode == 11 ? 8u : deviceCode);
    return name;
}

class LibraryTest : public ::testing::Test {
protected:
    void SetUp() override {
        uint32_t error = 0;
        VMC_Init(&error);
        FAKE_Reset();
    }

    void TearDown() override {
        uint32_t error = 0;
        for (uint32_t deviceNo = 0; deviceNo < VMC_MAX_DEVICES; ++deviceNo) {
            DeviceRecord record;
            VMC_GetDeviceInfo(deviceNo, &record, &error);
            if (record.deviceCode) VMC_CloseDevice(deviceNo, &error);
        }
        FAKE_Reset();
    }

    // A camera that opens: it answers the device id, the trigger mode, one
    // existing head per entry of heads, and names; 21 to everything else.
    static void ScriptCamera(uint32_t deviceCode, uint32_t handle = 7, std::vector<uint32_t> heads = {1},
                             uint32_t maxHeads = 0) {
        const std::string module = ModuleOf(deviceCode);
        const char* m = module.c_str();
        FAKE_SetAnswer(m, "DEV_OpenDevice", 0, 0, 0, handle, 0, kOk);
        FAKE_SetAnswer(m, "DEV_OpenDevice2", 0, 0, 0, handle, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_DEVICE_ID, 0, 4000 + deviceCode, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0x1000000, 100, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_RANDOM, 0, 5, 6, kOk);
        if (maxHeads) {
            FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_MAX_CHILD_DEVICE_COUNT, 0, maxHeads, 0, kOk);
            FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_CHILD_DEVICE_COUNT, 0,
                           static_cast<uint32_t>(heads.size()), 0, kOk);
        }
        // What every head must answer: rate, resolution, shutter, maximum frames and resolution.
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_RECORD_RATE, 0, 1000, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_RESOLUTION, 0, (1024u << 16) | 512u, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_SHUTTER_SPEED_FPS, 0, 2000, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_MAX_FRAMES, 0, 5000, 2, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_MAX_RESOLUTION, 0, (1024u << 16) | 1024u, 0, kOk);
        FAKE_SetList(m, "DEV_GetList", 0, VMC_LIST_EXIST_CHILD_DEVICE, 0, heads.data(),
                     static_cast<uint32_t>(heads.size()), kOk);
        FAKE_SetText(m, "DEV_GetDeviceName", FAKE_ANY, 0, "Head", kOk);
        FAKE_SetText(m, "DEV_GetDeviceName", 0, 0, ("Camera " + std::to_string(deviceCode)).c_str(), kOk);
    }

    // Cameras the interface module reports: pairs of device code and id.
    static void ScriptDetection(const char* interfaceModule, std::vector<uint32_t> pairs) {
        FAKE_SetList(interfaceModule, "INT_DetectDevice", 0, 0, 0, pairs.data(),
                     static_cast<uint32_t>(pairs.size() / 2), kOk);
    }

    static uint32_t Detect(uint32_t interfaceCode, DetectInfo* info = nullptr) {
        static uint32_t addresses[] = {0xC0A80001};
        DetectInfo local;
        uint32_t error = 0;
        VMC_DetectDevice(interfaceCode, addresses, 1, 0, info ? info : &local, &error);
        return error;
    }

    // Opens and returns the device number; fails the test when the open fails.
    static uint32_t Open(uint32_t deviceCode, uint32_t interfaceCode = VMC_INTERFACE_VIRTUAL) {
        OpenParam param = {deviceCode, 4000 + deviceCode, interfaceCode};
        uint32_t deviceNo = VMC_MAX_DEVICES, error = 0;
        EXPECT_EQ(1u, VMC_OpenDevice(&param, &deviceNo, &error)) << "open of code " << deviceCode;
        EXPECT_EQ(kOk, error);
        return deviceNo;
    }

    // Detects on the interface, then scripts and opens one camera of that code.
    static uint32_t DetectAndOpen(uint32_t deviceCode, uint32_t interfaceCode = VMC_INTERFACE_VIRTUAL) {
        Detect(interfaceCode);
        ScriptCamera(deviceCode);
        return Open(deviceCode, interfaceCode);
    }

    static DeviceRecord Info(uint32_t deviceNo) {
        DeviceRecord record;
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetDeviceInfo(deviceNo, &record, &error));
        return record;
    }
};

}  // namespace vmc::test
