// Checks the test modules themselves, loaded with dlopen as the library loads
// them: the rules the other suites lean on without saying so (which scripted
// answer wins, what a refusal writes, the countdown, hooks outside the fake's
// own lock) and the entries each module file exports.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "fake.hpp"

namespace {

constexpr uint32_t kUnwritten = 0xDEADBEEF;

void* Load(const char* name) {
    const std::string path = std::string(FAKE_MODULE_DIR) + "/" + name + ".so";
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

template <class Fn>
Fn Entry(void* module, const char* name) {
    return reinterpret_cast<Fn>(dlsym(module, name));
}

class FakeModules : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dmod026 = Load("DMOD026");
        dmod015 = Load("DMOD015");
        ether = Load("IMOD_ETHER");
        ASSERT_TRUE(dmod026 && dmod015 && ether) << dlerror();
        getCaps = Entry<DEV_GetDeviceCapsFn>(dmod026, "DEV_GetDeviceCaps");
        detect = Entry<INT_DetectDeviceFn>(ether, "INT_DetectDevice");
    }
    static void TearDownTestSuite() {
        for (void* module : {dmod026, dmod015, ether})
            if (module) dlclose(module);
    }
    void SetUp() override { FAKE_Reset(); }

    // Calls DEV_GetDeviceCaps of DMOD026 and returns the value1 it left.
    uint32_t Caps(uint32_t child, uint32_t code, uint32_t sub, uint32_t* error, uint32_t* result = nullptr) {
        uint32_t value1 = kUnwritten, value2 = kUnwritten;
        const uint32_t r = getCaps(7, child, code, sub, &value1, &value2, error);
        if (result) *result = r;
        return value1;
    }

    static inline void *dmod026 = nullptr, *dmod015 = nullptr, *ether = nullptr;
    static inline DEV_GetDeviceCapsFn getCaps = nullptr;
    static inline INT_DetectDeviceFn detect = nullptr;
};

TEST_F(FakeModules, UnscriptedEntriesAreUnsupportedAndWriteNothing) {
    uint32_t error = 0, result = 9;
    EXPECT_EQ(Caps(0, 100, 0, &error, &result), kUnwritten);
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(error, 21u);
    vmc_device_handle handle = kUnwritten;
    EXPECT_EQ(Entry<DEV_OpenDeviceFn>(dmod026, "DEV_OpenDevice")(2, nullptr, 5, &handle, &error), 0u);
    EXPECT_EQ(handle, kUnwritten);
    // Init, exit and close succeed unless scripted otherwise.
    EXPECT_EQ(Entry<DEV_InitFn>(dmod026, "DEV_Init")(&error), 1u);
    EXPECT_EQ(Entry<DEV_CloseDeviceFn>(dmod026, "DEV_CloseDevice")(7, &error), 1u);
}

TEST_F(FakeModules, NewestMatchingRuleWinsAndQueuedAnswersComeFirst) {
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 5, 6, 1);
    uint32_t error = 0, result = 0, value1 = 0;
    EXPECT_EQ(Caps(2, 100, 3, &error, &result), 5u);
    EXPECT_EQ(Caps(0, 101, 0, &error), kUnwritten) << "other code";
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, 100, 0, 7, 0, 1);
    EXPECT_EQ(Caps(0, 100, 0, &error), 7u);
    EXPECT_EQ(Caps(1, 100, 0, &error), 5u) << "other child: the general rule";
    EXPECT_EQ(Entry<DEV_GetDeviceCapsFn>(dmod015, "DEV_GetDeviceCaps")(7, 0, 100, 0, &value1, nullptr, &error), 1u);
    EXPECT_EQ(value1, 5u) << "other module: the general rule";
    // A newer general failure overrides the older specific rule and still writes its outputs.
    FAKE_SetAnswer("", "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 8, 0, 30);
    EXPECT_EQ(Caps(0, 100, 0, &error, &result), 8u);
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(error, 30u);

    FAKE_QueueAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 1, 0, 1);
    FAKE_QueueAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 2, 0, 1);
    EXPECT_EQ(Caps(0, 101, 0, &error), kUnwritten) << "a non-matching call leaves the queue alone";
    EXPECT_EQ(Caps(0, 100, 0, &error), 1u);
    EXPECT_EQ(Caps(0, 100, 0, &error), 2u);
    EXPECT_EQ(Caps(0, 100, 0, &error), 8u);
    FAKE_Reset();
    EXPECT_EQ(Caps(0, 100, 0, &error), kUnwritten) << "the reset forgets the script";
}

// The library's detection arrays hold 64 cameras: the fake reports the count
// as scripted but writes no entry past the 64th.
TEST_F(FakeModules, DetectionWritesNoEntryPastTheLibrarysArrays) {
    std::vector<uint32_t> many(2 * 65, 1);
    FAKE_SetList(nullptr, "INT_DetectDevice", 0, 0, 0, many.data(), 65, 1);
    uint32_t ids[65], codes[65], count = 0, error = 0;
    ids[64] = codes[64] = kUnwritten;
    EXPECT_EQ(detect(&count, ids, codes, &error), 1u);
    EXPECT_EQ(count, 65u);
    EXPECT_EQ(ids[63], 1u);
    EXPECT_EQ(ids[64], kUnwritten);
    EXPECT_EQ(codes[64], kUnwritten);
}

TEST_F(FakeModules, FailCallCountsEveryModuleAndFailsOnce) {
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 5, 0, 1);
    uint32_t error = 0, result = 9, count = 0;
    Caps(0, 1, 0, &error);  // before the countdown: not counted
    FAKE_FailCall(1, 113);
    FAKE_QueueAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 6, 0, 1);
    detect(&count, nullptr, nullptr, &error);  // call 0, in another module
    EXPECT_EQ(Caps(0, 1, 0, &error, &result), kUnwritten) << "no output written";
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(error, 113u);
    EXPECT_EQ(fake::Log()[2].error, 113u);
    EXPECT_EQ(Caps(0, 1, 0, &error), 6u) << "once, and the queued answer is still there";
    FAKE_FailCall(0, 9);
    FAKE_Reset();
    EXPECT_EQ(Caps(0, 1, 0, &error), kUnwritten);
    EXPECT_EQ(error, 21u) << "the reset disarmed it";
}

struct Gate {
    std::mutex mutex;
    std::condition_variable changed;
    bool entered = false, open = false;
    FakeCall seen{};
};

void WaitAtGate(const FakeCall* call, void* context) {
    Gate& gate = *static_cast<Gate*>(context);
    std::unique_lock lock(gate.mutex);
    gate.seen = *call;
    gate.entered = true;
    gate.changed.notify_all();
    gate.changed.wait(lock, [&] { return gate.open; });
}

// The lock tests block a module call in a hook: the hook must see the call
// before it is answered, and other calls must run meanwhile.
TEST_F(FakeModules, AHookRunsBeforeTheAnswerAndBlocksOnlyItsOwnCall) {
    Gate gate;
    FAKE_SetHook("DEV_SetDeviceCaps", 3, WaitAtGate, &gate);
    FAKE_SetAnswer(nullptr, "DEV_SetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 0, 0, 1);
    std::thread blocked([] {
        uint32_t error = 0;
        Entry<DEV_SetDeviceCapsFn>(dmod026, "DEV_SetDeviceCaps")(1, 0, 3, 0, 11, 0, &error);
    });
    {
        std::unique_lock lock(gate.mutex);
        gate.changed.wait(lock, [&] { return gate.entered; });
    }
    uint32_t error = 0;
    Caps(0, 100, 0, &error);  // would hang if the hook ran under the fake's lock
    std::vector<FakeCall> log = fake::Log();
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[0].error, 0u) << "still running";
    EXPECT_EQ(gate.seen.value1, 11u);
    EXPECT_EQ(gate.seen.result, 0u) << "seen before the answer";
    {
        const std::lock_guard lock(gate.mutex);
        gate.open = true;
    }
    gate.changed.notify_all();
    blocked.join();
    EXPECT_EQ(fake::Log()[0].error, 1u);
    FAKE_SetHook("DEV_SetDeviceCaps", 3, nullptr, nullptr);
    gate.entered = false;
    Entry<DEV_SetDeviceCapsFn>(dmod026, "DEV_SetDeviceCaps")(1, 0, 3, 0, 0, 0, &error);
    EXPECT_FALSE(gate.entered) << "a removed hook ran";
}

#define FAKE_ENTRY_NAME(slot, name) #name,
constexpr const char* kDeviceEntries[] = {VMC_DEVICE_ENTRIES(FAKE_ENTRY_NAME)};
constexpr const char* kInterfaceEntries[] = {VMC_INTERFACE_ENTRIES(FAKE_ENTRY_NAME)};
#undef FAKE_ENTRY_NAME

TEST(FakeModuleFiles, ExportEveryEntryButTheSparseOnesAndTextFilesDoNotLoad) {
    static_assert(std::size(kDeviceEntries) == VMC_DEVICE_ENTRY_COUNT);
    static_assert(std::size(kInterfaceEntries) == VMC_INTERFACE_ENTRY_COUNT);
    const std::vector<std::string> sparse = {
        "DEV_GetDeviceCaps",     "DEV_SetDeviceCaps",    "DEV_GetHeadTypeName",   "DEV_OpenDevice2",
        "DEV_GetSubInterface",   "DEV_OpenSubInterface", "DEV_OpenSubInterface2", "DEV_CloseSubInterface",
        "DEV_FPGAConfig",        "DEV_ReadCameraFile",   "DEV_GetFrameAddress",   "DEV_GetDropFrameList",
        "DEV_GetMemImageAddress"};
    for (const char* name : {"DMOD001", "DMOD008", "DMOD015", "DMOD016", "DMOD026", "DMOD258", "DMOD903",
                             "DMOD007"}) {
        void* module = Load(name);
        ASSERT_NE(module, nullptr) << dlerror();
        const bool isSparse = std::string(name) == "DMOD007";
        for (const char* entry : kDeviceEntries) {
            const bool left = isSparse && std::find(sparse.begin(), sparse.end(), entry) != sparse.end();
            EXPECT_EQ(dlsym(module, entry) == nullptr, left) << name << " " << entry;
        }
        dlclose(module);
    }
    for (const char* name : {"IMOD_VIRTUAL", "IMOD_ETHER", "IMOD_USB", "IMOD_GIGEV", "IMOD_OPTICAL"}) {
        void* module = Load(name);
        ASSERT_NE(module, nullptr) << dlerror();
        for (const char* entry : kInterfaceEntries) EXPECT_NE(dlsym(module, entry), nullptr) << name << " " << entry;
        dlclose(module);
    }
    for (const char* name : {"DMOD005", "IMOD_1394"}) {
        struct stat info{};
        EXPECT_EQ(stat((std::string(FAKE_MODULE_DIR) + "/" + name + ".so").c_str(), &info), 0) << name;
        EXPECT_EQ(Load(name), nullptr) << name;
    }
}

}  // namespace
