// Unloading the library closes what is still open: the process-detach path.
// The library is loaded by hand here, so that it can be unloaded.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <vmc/codes.h>
#include <vmc/vmc.h>

#include "tests/fakes/fake.h"

namespace {

template <class Fn>
Fn Symbol(void* library, const char* name) {
    return reinterpret_cast<Fn>(dlsym(library, name));
}

TEST(Teardown, UnloadingTheLibraryClosesOpenDevices) {
    setenv("VMC_MODULE_PATH", VMC_TEST_MODULE_DIR, 1);
    void* library = dlopen(VMC_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, library) << dlerror();
    auto init = Symbol<decltype(&VMC_Init)>(library, "VMC_Init");
    auto detect = Symbol<decltype(&VMC_DetectDevice)>(library, "VMC_DetectDevice");
    auto open = Symbol<decltype(&VMC_OpenDevice)>(library, "VMC_OpenDevice");

    FAKE_Reset();
    FAKE_SetAnswer("DMOD016", "DEV_OpenDevice", 0, 0, 0, 5, 0, 1);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0, 0, 1);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_RANDOM, 0, 0, 0, 1);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DEVICE_ID, 0, 1, 0, 1);
    for (uint32_t code : {VMC_CODE_RECORD_RATE, VMC_CODE_RESOLUTION, VMC_CODE_SHUTTER_SPEED_FPS, VMC_CODE_MAX_FRAMES,
                          VMC_CODE_MAX_RESOLUTION})
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", FAKE_ANY, code, 0, 1, 0, 1);  // what a head must answer
    const uint32_t heads[] = {1};
    FAKE_SetList("DMOD016", "DEV_GetList", 0, VMC_LIST_EXIST_CHILD_DEVICE, 0, heads, 1, 1);

    uint32_t error = 0, deviceNo = 64;
    DetectInfo info;
    ASSERT_EQ(1u, init(&error));
    ASSERT_EQ(1u, detect(VMC_INTERFACE_VIRTUAL, nullptr, 0, 0, &info, &error));
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    ASSERT_EQ(1u, open(&param, &deviceNo, &error));
    FAKE_ClearLog();

    ASSERT_EQ(0, dlclose(library));
    FakeCall call;
    ASSERT_EQ(1, FAKE_GetCall(0, &call));
    EXPECT_STREQ("DEV_CloseDevice", call.entry);
    EXPECT_EQ(5u, call.handle);
    // The library is gone for real: loading it again starts uninitialised.
    library = dlopen(VMC_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, library);
    uint32_t count = 0;
    EXPECT_EQ(0u, Symbol<decltype(&VMC_GetNumberOfDevice)>(library, "VMC_GetNumberOfDevice")(&count, &error));
    EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error);
    dlclose(library);
}

}  // namespace
