// Checks the test modules themselves: loaded with dlopen as the library
// loads them, they must answer exactly what was scripted and log every call.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <condition_variable>
#include <cstring>
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
        ASSERT_NE(dmod026, nullptr) << dlerror();
        ASSERT_NE(dmod015, nullptr) << dlerror();
        ASSERT_NE(ether, nullptr) << dlerror();
        getCaps = Entry<DEV_GetDeviceCapsFn>(dmod026, "DEV_GetDeviceCaps");
        getCaps15 = Entry<DEV_GetDeviceCapsFn>(dmod015, "DEV_GetDeviceCaps");
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

    static inline void* dmod026 = nullptr;
    static inline void* dmod015 = nullptr;
    static inline void* ether = nullptr;
    static inline DEV_GetDeviceCapsFn getCaps = nullptr;
    static inline DEV_GetDeviceCapsFn getCaps15 = nullptr;
    static inline INT_DetectDeviceFn detect = nullptr;
};

TEST_F(FakeModules, UnscriptedEntriesAreUnsupportedAndWriteNothing) {
    uint32_t error = 0, result = 9;
    EXPECT_EQ(Caps(0, 100, 0, &error, &result), kUnwritten);
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(error, 21u);

    vmc_device_handle handle = kUnwritten;
    EXPECT_EQ(Entry<DEV_OpenDeviceFn>(dmod026, "DEV_OpenDevice")(2, nullptr, 5, &handle, &error), 0u);
    EXPECT_EQ(error, 21u);
    EXPECT_EQ(handle, kUnwritten);

    EXPECT_EQ(Entry<DEV_InitFn>(dmod026, "DEV_Init")(&error), 1u);
    EXPECT_EQ(error, 1u);
    EXPECT_EQ(Entry<DEV_CloseDeviceFn>(dmod026, "DEV_CloseDevice")(7, &error), 1u);
    EXPECT_EQ(Entry<INT_InitFn>(ether, "INT_Init")(&error), 1u);

    uint32_t count = kUnwritten;
    EXPECT_EQ(detect(&count, nullptr, nullptr, &error), 0u);
    EXPECT_EQ(error, 21u);
    EXPECT_EQ(count, 0u);
}

TEST_F(FakeModules, NewestMatchingRuleWins) {
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 5, 6, 1);
    uint32_t error = 0, result = 0;
    uint32_t value2 = 0;
    EXPECT_EQ(getCaps(7, 2, 100, 3, nullptr, &value2, &error), 1u);
    EXPECT_EQ(value2, 6u);
    EXPECT_EQ(Caps(2, 100, 3, &error, &result), 5u);
    EXPECT_EQ(result, 1u);
    EXPECT_EQ(error, 1u);
    EXPECT_EQ(Caps(0, 101, 0, &error), kUnwritten) << "other code";

    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, 100, 0, 7, 0, 1);
    EXPECT_EQ(Caps(0, 100, 0, &error), 7u);
    EXPECT_EQ(Caps(1, 100, 0, &error), 5u) << "other child: the general rule";
    uint32_t value1 = 0;
    EXPECT_EQ(getCaps15(7, 0, 100, 0, &value1, nullptr, &error), 1u);
    EXPECT_EQ(value1, 5u) << "other module: the general rule";

    // A newer general failure overrides the older specific rule, and a
    // scripted failure still writes its outputs.
    FAKE_SetAnswer("", "DEV_GetDeviceCaps", FAKE_ANY, 100, FAKE_ANY, 8, 0, 30);
    EXPECT_EQ(Caps(0, 100, 0, &error, &result), 8u);
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(error, 30u);
}

TEST_F(FakeModules, QueuedAnswersComeFirstInOrder) {
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 325, FAKE_ANY, 9, 0, 1);
    FAKE_QueueAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 325, FAKE_ANY, 1, 0, 1);
    FAKE_QueueAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, 325, FAKE_ANY, 0, 0, 1);
    uint32_t error = 0;
    EXPECT_EQ(Caps(0, 326, 0, &error), kUnwritten) << "a non-matching call leaves the queue alone";
    EXPECT_EQ(Caps(0, 325, 0, &error), 1u);
    EXPECT_EQ(Caps(0, 325, 0, &error), 0u);
    EXPECT_EQ(Caps(0, 325, 0, &error), 9u);
}

TEST_F(FakeModules, ListsAndDetection) {
    fake::List("DEV_GetList", 5, {3, 4, 5});
    uint32_t list[4] = {0, 0, 0, kUnwritten}, count = 0, error = 0;
    EXPECT_EQ(Entry<DEV_GetListFn>(dmod026, "DEV_GetList")(7, 0, 5, 0, list, &count, &error), 1u);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(list[0], 3u);
    EXPECT_EQ(list[2], 5u);
    EXPECT_EQ(list[3], kUnwritten);

    const uint32_t cameras[] = {26, 0xC0A80001, 15, 0xC0A80002};
    FAKE_SetList("IMOD_ETHER", "INT_DetectDevice", 0, 0, 0, cameras, 2, 1);
    uint32_t ids[64] = {}, codes[64] = {};
    EXPECT_EQ(detect(&count, ids, codes, &error), 1u);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(codes[0], 26u);
    EXPECT_EQ(ids[0], 0xC0A80001u);
    EXPECT_EQ(codes[1], 15u);
    EXPECT_EQ(ids[1], 0xC0A80002u);

    // More cameras than the library's arrays hold: the count as scripted,
    // but no entry past the 64th.
    std::vector<uint32_t> many(2 * 65, 1);
    FAKE_SetList(nullptr, "INT_DetectDevice", 0, 0, 0, many.data(), 65, 1);
    uint32_t bigIds[65], bigCodes[65];
    bigIds[64] = bigCodes[64] = kUnwritten;
    EXPECT_EQ(detect(&count, bigIds, bigCodes, &error), 1u);
    EXPECT_EQ(count, 65u);
    EXPECT_EQ(bigIds[63], 1u);
    EXPECT_EQ(bigIds[64], kUnwritten);
    EXPECT_EQ(bigCodes[64], kUnwritten);
}

TEST_F(FakeModules, TextsAndAddresses) {
    FAKE_SetText(nullptr, "DEV_GetDeviceName", 1, 0, "HEAD-A", 1);
    FAKE_SetText(nullptr, "DEV_GetHeadTypeName", FAKE_ANY, 3, std::string(300, 'x').c_str(), 1);
    char name[256];
    std::memset(name, '?', sizeof name);
    uint32_t error = 0;
    const auto getName = Entry<DEV_GetDeviceNameFn>(dmod026, "DEV_GetDeviceName");
    EXPECT_EQ(getName(7, 0, name, &error), 0u);
    EXPECT_EQ(name[0], '?');
    EXPECT_EQ(getName(7, 1, name, &error), 1u);
    EXPECT_STREQ(name, "HEAD-A");
    EXPECT_EQ(Entry<DEV_GetHeadTypeNameFn>(dmod026, "DEV_GetHeadTypeName")(7, 1, 3, name, &error), 1u);
    EXPECT_EQ(std::strlen(name), 255u);

    int pixels = 0;
    FAKE_SetAddress(nullptr, "DEV_GetLiveImageAddress2", FAKE_ANY, &pixels, 4, 1);
    void* address = nullptr;
    uint32_t index = 0;
    EXPECT_EQ(Entry<DEV_GetLiveImageAddress2Fn>(dmod026, "DEV_GetLiveImageAddress2")(7, 0, &index, &address, &error),
              1u);
    EXPECT_EQ(address, &pixels);
    EXPECT_EQ(index, 4u);
}

TEST_F(FakeModules, LogRecordsArgumentsAndModuleIdentity) {
    FAKE_SetAnswer(nullptr, "DEV_OpenDevice", 0, 0, 0, 0x1234, 0, 1);
    FAKE_SetAnswer(nullptr, "DEV_ReadRegister", FAKE_ANY, FAKE_ANY, FAKE_ANY, 0xABCD, 0, 1);
    uint32_t error = 0;
    vmc_device_handle handle = 0;
    EXPECT_EQ(Entry<DEV_OpenDeviceFn>(dmod026, "DEV_OpenDevice")(2, nullptr, 0xC0A80001, &handle, &error), 1u);
    EXPECT_EQ(handle, 0x1234u);
    Entry<DEV_SetDeviceCapsFn>(dmod015, "DEV_SetDeviceCaps")(0x55, 1, 40, 2, 1000, 2000, &error);
    uint32_t value1 = 0;
    getCaps(0x1234, 0, 41, 0, &value1, nullptr, &error);
    EXPECT_EQ(Entry<DEV_ReadRegisterFn>(dmod026, "DEV_ReadRegister")(0x1234, 0x10, 0, &error), 0xABCDu);

    const std::vector<FakeCall> log = fake::Log();
    ASSERT_EQ(log.size(), 4u);
    EXPECT_STREQ(log[0].module, "DMOD026");
    EXPECT_STREQ(log[0].entry, "DEV_OpenDevice");
    EXPECT_EQ(log[0].handle, 0x1234u);
    EXPECT_EQ(log[0].value1, 2u);
    EXPECT_EQ(log[0].value2, 0xC0A80001u);
    EXPECT_EQ(log[0].result, 1u);

    EXPECT_STREQ(log[1].module, "DMOD015");
    EXPECT_STREQ(log[1].entry, "DEV_SetDeviceCaps");
    EXPECT_EQ(log[1].handle, 0x55u);
    EXPECT_EQ(log[1].child, 1u);
    EXPECT_EQ(log[1].code, 40u);
    EXPECT_EQ(log[1].sub, 2u);
    EXPECT_EQ(log[1].value1, 1000u);
    EXPECT_EQ(log[1].value2, 2000u);
    EXPECT_EQ(log[1].error, 21u);

    EXPECT_EQ(log[2].code, 41u);
    EXPECT_EQ(log[2].pointer, 0u) << "one-value read passed no value2Out";
    EXPECT_EQ(log[3].result, 0xABCDu);
    EXPECT_EQ(fake::Count("DEV_SetDeviceCaps", 40), 1u);
    EXPECT_EQ(fake::Count("DEV_SetDeviceCaps", 41), 0u);

    FAKE_ClearLog();
    EXPECT_EQ(FAKE_CallCount(), 0u);
}

TEST_F(FakeModules, HandedOverLockSlotsAreKept) {
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    vmc_lock_handle channel3 = &mutex, global = &mutex;
    const auto setData = Entry<DEV_SetDataFn>(dmod026, "DEV_SetData");
    uint32_t result = 0, error = 0;
    setData(0x1234, 0, 38, 2, 0, &channel3, &result, &error);
    setData(0x1234, 0, 58, 0, 0, &global, &result, &error);
    setData(0x1234, 0, 38, 4, 0, &channel3, &result, &error);  // no such slot
    EXPECT_EQ(FAKE_LockSlot("DMOD026", 0x1234, 2), &channel3);
    EXPECT_EQ(FAKE_LockSlot(nullptr, 0x1234, FAKE_GLOBAL_LOCK), &global);
    EXPECT_EQ(FAKE_LockSlot("DMOD015", 0x1234, 2), nullptr);
    EXPECT_EQ(FAKE_LockSlot("DMOD026", 0x1235, 2), nullptr);
    EXPECT_EQ(FAKE_LockSlot("DMOD026", 0x1234, 0), nullptr);
    EXPECT_EQ(result, 0u) << "the result word is never written";
}

// The hook sees the call before it is answered and may change the script.
void Rescript(const FakeCall* call, void* context) {
    *static_cast<FakeCall*>(context) = *call;
    FAKE_SetAnswer(nullptr, call->entry, FAKE_ANY, call->code, FAKE_ANY, 0, 0, 1);
}

TEST_F(FakeModules, HookRunsBeforeTheAnswer) {
    FakeCall seen{};
    FAKE_SetHook("DEV_SetDeviceCaps", 7, Rescript, &seen);
    const auto setCaps = Entry<DEV_SetDeviceCapsFn>(dmod026, "DEV_SetDeviceCaps");
    uint32_t error = 0;
    EXPECT_EQ(setCaps(0x1234, 0, 7, 0, 11, 12, &error), 1u);
    EXPECT_EQ(seen.value1, 11u);
    EXPECT_EQ(seen.result, 0u);
    seen = {};
    EXPECT_EQ(setCaps(0x1234, 0, 8, 0, 11, 12, &error), 0u);
    EXPECT_EQ(seen.entry[0], '\0') << "hook for another code ran";
    FAKE_SetHook("DEV_SetDeviceCaps", 7, nullptr, nullptr);
    setCaps(0x1234, 0, 7, 0, 13, 0, &error);
    EXPECT_EQ(seen.entry[0], '\0') << "removed hook ran";
}

struct Gate {
    std::mutex mutex;
    std::condition_variable changed;
    bool entered = false, open = false;
};

void WaitAtGate(const FakeCall*, void* context) {
    Gate& gate = *static_cast<Gate*>(context);
    std::unique_lock lock(gate.mutex);
    gate.entered = true;
    gate.changed.notify_all();
    gate.changed.wait(lock, [&] { return gate.open; });
}

TEST_F(FakeModules, BlockedHookLeavesOtherCallsRunning) {
    Gate gate;
    FAKE_SetHook("DEV_SetDeviceCaps", FAKE_ANY, WaitAtGate, &gate);
    FAKE_SetAnswer(nullptr, "DEV_SetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 0, 0, 1);
    std::thread blocked([] {
        uint32_t error = 0;
        Entry<DEV_SetDeviceCapsFn>(dmod026, "DEV_SetDeviceCaps")(1, 0, 3, 0, 0, 0, &error);
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
    EXPECT_EQ(log[1].error, 21u);
    {
        const std::lock_guard lock(gate.mutex);
        gate.open = true;
    }
    gate.changed.notify_all();
    blocked.join();
    EXPECT_EQ(fake::Log()[0].error, 1u);
}

TEST_F(FakeModules, ResetForgetsTheScript) {
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 5, 0, 1);
    uint32_t error = 0;
    EXPECT_EQ(Caps(0, 1, 0, &error), 5u);
    FAKE_Reset();
    EXPECT_EQ(FAKE_CallCount(), 0u);
    EXPECT_EQ(Caps(0, 1, 0, &error), kUnwritten);
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
    EXPECT_EQ(Caps(0, 1, 0, &error), 5u);

    FAKE_FailCall(0, 9);
    FAKE_Reset();
    EXPECT_EQ(Caps(0, 1, 0, &error), kUnwritten);
    EXPECT_EQ(error, 21u) << "the reset disarmed it";
}

#define FAKE_ENTRY_NAME(slot, name) #name,
constexpr const char* kDeviceEntries[] = {VMC_DEVICE_ENTRIES(FAKE_ENTRY_NAME)};
constexpr const char* kInterfaceEntries[] = {VMC_INTERFACE_ENTRIES(FAKE_ENTRY_NAME)};
#undef FAKE_ENTRY_NAME

TEST(FakeModuleFiles, ExportEveryEntryButTheSparseOnes) {
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
}

TEST(FakeModuleFiles, TextFilesDoNotLoad) {
    for (const char* name : {"DMOD005", "IMOD_1394"}) {
        struct stat info{};
        EXPECT_EQ(stat((std::string(FAKE_MODULE_DIR) + "/" + name + ".so").c_str(), &info), 0) << name;
        EXPECT_EQ(Load(name), nullptr) << name;
    }
}

}  // namespace
