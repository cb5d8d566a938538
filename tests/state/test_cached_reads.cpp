// The cached reads: their frame walked over the whole table (initialised,
// device number, head, flag, untouched outputs, the value the record holds),
// a few rows written out by hand beside the walk, the members with behaviour
// of their own, and the frame-number arithmetic. Readers racing refreshes are
// in tests/core/test_threads.cpp.
#include <dlfcn.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <iterator>

#include "state/frame_numbers.h"
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

// What an output holds before the call: a read that must not write leaves it.
constexpr uint32_t kUntouched = 0xA5A5A5A5u;

// ---- The table, as the tests walk it ----------------------------------------

enum class Scope { Device, Child, ChildOrDevice };

// Offsets of the availability flag in the record images; -1 where none.
struct FlagAt {
    int device;
    int child;
};

using Values = std::vector<uint64_t>;

struct Row {
    const char* name;
    Scope scope;
    FlagAt flag;
    // Calls the export with every output preset to kUntouched and hands back
    // what the outputs then hold.
    uint32_t (*call)(uint32_t deviceNo, uint32_t childNo, Values& outputs, uint32_t* error);
    // The fields of the row in the record images.
    Values (*expected)(const DeviceRecord& device, const ChildRecord& child, uint32_t childNo);
};

#define NO_FLAG (FlagAt{-1, -1})
#define DEVICE_FLAG(name) (FlagAt{static_cast<int>(offsetof(DeviceRecord, name)), -1})
#define CHILD_FLAG(name) (FlagAt{-1, static_cast<int>(offsetof(ChildRecord, name))})

#define T_COUNT(...) T_COUNT_(__VA_ARGS__, 4, 3, 2, 1, 0)
#define T_COUNT_(a, b, c, d, n, ...) n
#define T_CAT(a, b) T_CAT_(a, b)
#define T_CAT_(a, b) a##b
#define T_EACH(m, ...) T_CAT(T_EACH_, T_COUNT(__VA_ARGS__))(m, __VA_ARGS__)
#define T_EACH_1(m, a) m(a)
#define T_EACH_2(m, a, b) m(a) m(b)
#define T_EACH_3(m, a, b, c) m(a) m(b) m(c)
#define T_EACH_4(m, a, b, c, d) m(a) m(b) m(c) m(d)

#define DEVICE_LOCAL(field) decltype(DeviceRecord::field) field = kUntouched;
#define CHILD_LOCAL(field) decltype(ChildRecord::field) field = kUntouched;
#define ADDRESS(field) , &field
#define OF_DEVICE(field) device.field,
#define OF_CHILD(field) child.field,

#define CACHED_READ(exportName, scope, gate, ...) CACHED_READ_##scope(exportName, gate, __VA_ARGS__)
#define CACHED_READ_DEVICE(exportName, gate, ...)                                                        \
    Row{#exportName, Scope::Device, gate,                                                                \
        [](uint32_t deviceNo, uint32_t, Values& outputs, uint32_t* error) {                              \
            T_EACH(DEVICE_LOCAL, __VA_ARGS__)                                                            \
            const uint32_t result = exportName(deviceNo T_EACH(ADDRESS, __VA_ARGS__), error);            \
            outputs = {__VA_ARGS__};                                                                     \
            return result;                                                                               \
        },                                                                                               \
        [](const DeviceRecord& device, const ChildRecord&, uint32_t) {                                   \
            return Values{T_EACH(OF_DEVICE, __VA_ARGS__)};                                               \
        }},
#define CACHED_READ_CHILD(exportName, gate, ...)                                                         \
    Row{#exportName, Scope::Child, gate,                                                                 \
        [](uint32_t deviceNo, uint32_t childNo, Values& outputs, uint32_t* error) {                      \
            T_EACH(CHILD_LOCAL, __VA_ARGS__)                                                             \
            const uint32_t result = exportName(deviceNo, childNo T_EACH(ADDRESS, __VA_ARGS__), error);   \
            outputs = {__VA_ARGS__};                                                                     \
            return result;                                                                               \
        },                                                                                               \
        [](const DeviceRecord&, const ChildRecord& child, uint32_t) {                                    \
            return Values{T_EACH(OF_CHILD, __VA_ARGS__)};                                                \
        }},
#define CACHED_READ_CHILD_OR_DEVICE(exportName, gate, field)                                             \
    Row{#exportName, Scope::ChildOrDevice, gate,                                                         \
        [](uint32_t deviceNo, uint32_t childNo, Values& outputs, uint32_t* error) {                      \
            CHILD_LOCAL(field)                                                                           \
            const uint32_t result = exportName(deviceNo, childNo, &field, error);                        \
            outputs = {field};                                                                           \
            return result;                                                                               \
        },                                                                                               \
        [](const DeviceRecord& device, const ChildRecord& child, uint32_t childNo) {                     \
            return Values{childNo == 0 ? device.field : child.field};                                    \
        }},
// Indexed and hand-written members have tests of their own below.
#define INDEXED_READ(...)
#define BY_HAND(exportName)

const Row kRows[] = {
#include "state/cached_reads.def"
};

bool FlagClear(const Row& row, const DeviceRecord& device, const ChildRecord& child) {
    const auto* d = reinterpret_cast<const uint8_t*>(&device);
    const auto* c = reinterpret_cast<const uint8_t*>(&child);
    return (row.flag.device >= 0 && !d[row.flag.device]) || (row.flag.child >= 0 && !c[row.flag.child]);
}

// Every row on one device and head: a clear flag gives 21 and untouched
// outputs; otherwise the outputs are the fields of the record images.
// Returns how many rows answered.
int WalkTable(uint32_t deviceNo, uint32_t childNo) {
    DeviceRecord device;
    ChildRecord child;
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_GetDeviceInfo(deviceNo, &device, &error));
    EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    int answered = 0;
    for (const Row& row : kRows) {
        for (uint32_t head : {childNo, 0u}) {
            if (head == 0 && row.scope != Scope::ChildOrDevice) continue;
            SCOPED_TRACE(std::string(row.name) + " child " + std::to_string(head));
            Values outputs;
            error = 0;
            const uint32_t result = row.call(deviceNo, head, outputs, &error);
            if (FlagClear(row, device, child)) {
                EXPECT_EQ(0u, result);
                EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
                EXPECT_EQ(Values(outputs.size(), kUntouched), outputs);
            } else {
                EXPECT_EQ(1u, result);
                EXPECT_EQ(kOk, error);
                EXPECT_EQ(row.expected(device, child, head), outputs);
                ++answered;
            }
        }
    }
    return answered;
}

// ---- Cameras ------------------------------------------------------------------

class CachedReads : public LibraryTest {
protected:
    static constexpr uint32_t kCode = 16;
    static constexpr const char* kModule = "DMOD016";

    // A camera that answers every code, the device with values of its own
    // and the head with others, so that the load sets every flag it can and
    // fields hold telling values. Then the codes whose answers steer the
    // load: one head, two inputs and three outputs, a memory card.
    static void ScriptFullCamera() {
        for (uint32_t code = 0; code < 450; ++code) {
            FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", FAKE_ANY, code, FAKE_ANY, 0x2000000 + code,
                           0x2800000 + code, kOk);
            FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, code, FAKE_ANY, 0x1000000 + code, 0x1800000 + code,
                           kOk);
        }
        FAKE_SetAnswer(kModule, "DEV_SetDeviceCaps", FAKE_ANY, FAKE_ANY, FAKE_ANY, 0, 0, kOk);
        ScriptCamera(kCode);
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, 1, 0, kOk);
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_CHILD_DEVICE_COUNT, 0, 1, 0, kOk);
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_MAX_CHILD_DEVICE_COUNT, 0, 1, 0, kOk);
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_EXTERNAL_COUNT, 0, 2, 3, kOk);
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_STORAGE_MODE, 0, 0, 0, kOk);
    }

    // Answers of one code that differ by sub-code: value base + sub.
    static void ScriptBySub(uint32_t code, uint32_t base, uint32_t lastSub) {
        for (uint32_t sub = 0; sub <= lastSub; ++sub)
            FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, code, sub, base + sub, base + 100 + sub, kOk);
    }

    static uint32_t OpenCamera() {
        Detect(VMC_INTERFACE_VIRTUAL);
        return Open(kCode);
    }

    static ChildRecord Head(uint32_t deviceNo, uint32_t childNo = 1) {
        ChildRecord record;
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, childNo, &record, &error));
        return record;
    }
};

// ---- The frame over the whole table ---------------------------------------

// Runs in a process of its own (ctest runs each test so): the library was
// never initialised.
TEST(CachedReadsBeforeInit, EveryReadAnswersNotInitialised) {
    uint32_t count = 0, error = 0;
    if (VMC_GetNumberOfDevice(&count, &error)) GTEST_SKIP() << "the library was initialised in this process";
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        Values outputs;
        error = 0;
        EXPECT_EQ(0u, row.call(0, 1, outputs, &error));
        EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error);
        EXPECT_EQ(Values(outputs.size(), kUntouched), outputs);
    }
    uint32_t value = kUntouched, low = kUntouched;
    int32_t values[3];
    MemFrameInfoRecord info;
    auto refused = [&](const char* name, uint32_t result) {
        EXPECT_EQ(0u, result) << name;
        EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error) << name;
        error = 0;
    };
    refused("GetDelay", VMC_GetDelay(0, 1, &value, &error));
    refused("GetDelayLimit", VMC_GetDelayLimit(0, 1, &value, &error));
    refused("GetDelayLimitEx", VMC_GetDelayLimitEx(0, 11, &value, &low, &error));
    refused("GetMemFrameInfo", VMC_GetMemFrameInfo(0, 1, &info, &error));
    refused("GetColorEnhanceValue", VMC_GetColorEnhanceValue(0, 1, 1, values, &error));
    refused("GetMemColorEnhanceValue", VMC_GetMemColorEnhanceValue(0, 1, 1, values, &error));
    refused("GetIRIGPhaseLock", VMC_GetIRIGPhaseLock(0, &value, &error));
    refused("GetIRIGPhaseLockStatus", VMC_GetIRIGPhaseLockStatus(0, &value, &error));
    refused("GetExposeOutTimes", VMC_GetExposeOutTimes(0, 13, &value, &error));
    refused("GetMemTriggerFrameList", VMC_GetMemTriggerFrameList(0, 1, nullptr, &value, &error));
    refused("GetPixelGainMaxMagnification", VMC_GetPixelGainMaxMagnification(0, 1, &value, &error));
    refused("GetLowLightModeEx", VMC_GetLowLightModeEx(0, &value, &error));
    refused("GetPacketIntervalMode", VMC_GetPacketIntervalMode(0, 0, &value, &error));
    refused("GetExternalInMode", VMC_GetExternalInMode(0, 1, &value, &error));
    refused("GetExternalOutMode", VMC_GetExternalOutMode(0, 1, &value, &error));
    refused("GetProgSwitchMode", VMC_GetProgSwitchMode(0, 1, &value, &error));
    refused("GetVDAIOType", VMC_GetVDAIOType(0, 0, &value, &error));
    refused("GetWarningTemperatureThreshold", VMC_GetWarningTemperatureThreshold(0, 0, &value, &error));
    EXPECT_EQ(kUntouched, value);
    EXPECT_EQ(kUntouched, low);
}

TEST_F(CachedReads, CameraWithoutFunctionsRefusesFlaggedReadsAndAnswersTheRest) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode);
    const uint32_t deviceNo = Open(kCode);
    // Rate, resolution, trigger mode and the rest of what needs no function.
    int unflagged = 0;
    for (const Row& row : kRows)
        if (row.flag.device < 0 && row.flag.child < 0) unflagged += row.scope == Scope::ChildOrDevice ? 2 : 1;
    EXPECT_EQ(unflagged, WalkTable(deviceNo, 1));
}

TEST_F(CachedReads, CameraWithEveryFunctionAnswersFromTheRecord) {
    ScriptFullCamera();
    const uint32_t deviceNo = OpenCamera();
    // All but the controls of a storage kind the camera has not attached.
    EXPECT_GE(WalkTable(deviceNo, 1), 150);
    uint32_t error = 0;
    // The magnification limit is the library's own, with no camera traffic.
    FAKE_ClearLog();
    uint32_t limit = 0;
    EXPECT_EQ(1u, VMC_GetPixelGainMaxMagnification(deviceNo, 1, &limit, &error));
    EXPECT_EQ(10240u, limit);
    EXPECT_EQ(0u, FAKE_CallCount());
}

// Refused before the record is read: a head that is missing or out of range,
// and a device number one past the table (device numbers are otherwise trusted).
TEST_F(CachedReads, MissingHeadsAndDeviceNumbersPastTheTableAreRefused) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode, 7, {1, 0}, 2);  // room for two heads, head 2 absent
    const uint32_t deviceNo = Open(kCode);
    for (const Row& row : kRows) {
        std::vector<std::pair<uint32_t, uint32_t>> refusals = {{VMC_MAX_DEVICES, VMC_ERR_BAD_ARGUMENT}};
        if (row.scope != Scope::Device) refusals.insert(refusals.end(), {{2, VMC_ERR_BAD_CHILD}, {13, VMC_ERR_BAD_CHILD}});
        if (row.scope == Scope::Child) refusals.push_back({0, VMC_ERR_BAD_CHILD});
        for (const auto& [childNo, expected] : refusals) {
            SCOPED_TRACE(std::string(row.name) + " child " + std::to_string(childNo));
            const uint32_t device = expected == VMC_ERR_BAD_ARGUMENT ? VMC_MAX_DEVICES : deviceNo;
            Values outputs;
            uint32_t error = 0;
            EXPECT_EQ(0u, row.call(device, expected == VMC_ERR_BAD_ARGUMENT ? 1 : childNo, outputs, &error));
            EXPECT_EQ(expected, error);
            EXPECT_EQ(Values(outputs.size(), kUntouched), outputs);
        }
    }
    uint32_t value = kUntouched, error = 0;
    int32_t values[3] = {};
    MemFrameInfoRecord info;
    EXPECT_EQ(0u, VMC_GetColorEnhanceValue(deviceNo, 2, 1, values, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_EQ(0u, VMC_GetMemFrameInfo(deviceNo, 0, &info, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_EQ(0u, VMC_GetMemTriggerFrameList(deviceNo, 13, nullptr, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_EQ(kUntouched, value);
    EXPECT_EQ(0u, VMC_GetLowLightModeEx(0xFFFFFFFFu, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

// ---- Rows written out by hand ---------------------------------------------------

// Rows stated apart from the table, so that a wrong field, flag or child rule
// in it is not mirrored here. Each is read on a camera with every function and
// on one with none: a clear flag gives 21, otherwise the fields named here.
struct HandRow {
    const char* name;
    Scope scope;
    bool (*flag)(const DeviceRecord&, const ChildRecord&);  // null: never refused
    uint32_t (*call)(uint32_t deviceNo, uint32_t childNo, Values& outputs, uint32_t* error);
    Values (*fields)(const DeviceRecord&, const ChildRecord&);
};

#define HAND_CALL(...) [](uint32_t d, [[maybe_unused]] uint32_t c, Values& out, uint32_t* e) { \
    uint32_t v[4] = {kUntouched, kUntouched, kUntouched, kUntouched};                         \
    const uint32_t result = __VA_ARGS__;                                                      \
    out.assign(v, v + 4);                                                                     \
    return result; }
using D = const DeviceRecord&;
using C = const ChildRecord&;

const HandRow kHandRows[] = {
    {"VMC_GetTriggerMode", Scope::Device, nullptr, HAND_CALL(VMC_GetTriggerMode(d, v, v + 1, v + 2, v + 3, e)),
     [](D d, C) { return Values{d.triggerMode, d.triggerAfterFrames, d.triggerRandomFrames, d.triggerRandomCount}; }},
    {"VMC_GetBitDepth2", Scope::Child, nullptr, HAND_CALL(VMC_GetBitDepth2(d, c, v, v + 1, e)),
     [](D, C c) { return Values{c.bitDepth, c.bitDepth2, kUntouched, kUntouched}; }},
    {"VMC_GetRapidPackCtrl", Scope::Device, [](D d, C) { return d.hasSSDBoxCtrl != 0; },
     HAND_CALL(VMC_GetRapidPackCtrl(d, v, e)), [](D d, C) { return Values{d.ssdBoxCtrl, kUntouched, kUntouched, kUntouched}; }},
    {"VMC_GetShutdownBatterySupply", Scope::Device, [](D d, C) { return d.hasBattery != 0; },
     HAND_CALL(VMC_GetShutdownBatterySupply(d, v, v + 1, e)),
     [](D d, C) { return Values{d.shutdownBatterySupply1, d.shutdownBatterySupply2, kUntouched, kUntouched}; }},
    // Per head, but the function is the device's.
    {"VMC_GetMemIRIG", Scope::Child, [](D d, C) { return d.hasIRIG != 0; }, HAND_CALL(VMC_GetMemIRIG(d, c, v, e)),
     [](D, C c) { return Values{c.memIrigMode, kUntouched, kUntouched, kUntouched}; }},
    {"VMC_GetPixelGainDataMode3Size", Scope::Child, [](D d, C) { return d.hasPixelGainMagnification != 0; },
     HAND_CALL(VMC_GetPixelGainDataMode3Size(d, c, v, e)),
     [](D, C c) { return Values{c.pixelGainDataMode3Size, kUntouched, kUntouched, kUntouched}; }},
    {"VMC_GetPolarizerConfig", Scope::Child, [](D, C c) { return c.polarization != 0; },
     HAND_CALL(VMC_GetPolarizerConfig(d, c, v, e)),
     [](D, C c) { return Values{c.polarizerConfig, kUntouched, kUntouched, kUntouched}; }},
};

TEST_F(CachedReads, RowsWrittenOutByHand) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode);
    const uint32_t bare = Open(kCode);
    ScriptFullCamera();
    const uint32_t full = Open(kCode);
    for (uint32_t deviceNo : {bare, full}) {
        const DeviceRecord device = Info(deviceNo);
        const ChildRecord head = Head(deviceNo);
        for (const HandRow& row : kHandRows) {
            SCOPED_TRACE(std::string(row.name) + (deviceNo == bare ? " bare" : " full"));
            const bool refused = row.flag && !row.flag(device, head);
            Values outputs;
            uint32_t error = 0;
            EXPECT_EQ(refused ? 0u : 1u, row.call(deviceNo, 1, outputs, &error));
            EXPECT_EQ(refused ? VMC_ERR_NOT_SUPPORTED : kOk, error);
            EXPECT_EQ(refused ? Values(4, kUntouched) : row.fields(device, head), outputs);
            if (row.scope == Scope::Child) {
                EXPECT_EQ(0u, row.call(deviceNo, 0, outputs, &error));
                EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
            }
        }
        // Values the camera gave at open, as it gave them.
        uint32_t mode = 0, after = 0, frames = 0, count = 0, width = 0, height = 0, error = 0;
        EXPECT_EQ(1u, VMC_GetTriggerMode(deviceNo, &mode, &after, &frames, &count, &error));
        EXPECT_EQ((Values{0x1000000, 100, 5, 6}), (Values{mode, after, frames, count}));
        EXPECT_EQ(1u, VMC_GetResolution(deviceNo, 1, &width, &height, &error));
        EXPECT_EQ((Values{1024, 512}), (Values{width, height}));
    }
    const DeviceRecord device = Info(full);
    const ChildRecord head = Head(full);
    ASSERT_TRUE(device.hasIRIG && device.hasPixelGainMagnification && head.polarization && device.hasBattery);
    // Child 0 reads the device's own copy: what the device, not the head, answered.
    uint32_t lot = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetLotID(full, 0, &lot, &error));
    EXPECT_EQ(0x1000000u + VMC_CODE_LOT_ID, lot);
    EXPECT_EQ(1u, VMC_GetLotID(full, 1, &lot, &error));
    EXPECT_EQ(0x2000000u + VMC_CODE_LOT_ID, lot);
}

// ---- Members of their own -------------------------------------------------------

TEST_F(CachedReads, DelaysByType) {
    ScriptFullCamera();
    ScriptBySub(VMC_CODE_DELAY, 7400, 12);
    ScriptBySub(VMC_CODE_DELAY_LIMIT, 7500, 12);
    const uint32_t deviceNo = OpenCamera();
    const DeviceRecord record = Info(deviceNo);
    uint32_t value = 0, low = 0, error = 0;
    for (uint32_t type : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 12u}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(1u, VMC_GetDelay(deviceNo, type, &value, &error));
        EXPECT_EQ(7400 + type, value);
        EXPECT_EQ(1u, VMC_GetDelayLimit(deviceNo, type, &value, &error));
        EXPECT_EQ(7500 + type, value);
    }
    // Types 10 and 11 have words of their own; their limits come paired.
    EXPECT_EQ(1u, VMC_GetDelay(deviceNo, 10, &value, &error));
    EXPECT_EQ(7410u, value);
    EXPECT_EQ(1u, VMC_GetDelay(deviceNo, 11, &value, &error));
    EXPECT_EQ(7411u, value);
    EXPECT_EQ(1u, VMC_GetDelayLimit(deviceNo, 11, &value, &error));
    EXPECT_EQ(record.delayLimit11, value);
    EXPECT_EQ(1u, VMC_GetDelayLimitEx(deviceNo, 11, &value, &low, &error));
    EXPECT_EQ(record.delayLimit11, value);
    EXPECT_EQ(record.delayLimit11Low, low);
    low = kUntouched;
    EXPECT_EQ(1u, VMC_GetDelayLimitEx(deviceNo, 10, &value, &low, &error));
    EXPECT_EQ(record.delayLimit10, value);
    EXPECT_EQ(kUntouched, low);
    // A type the camera has no word for succeeds and leaves the value.
    for (uint32_t type : {0u, 13u}) {
        value = low = kUntouched;
        EXPECT_EQ(1u, VMC_GetDelay(deviceNo, type, &value, &error));
        EXPECT_EQ(1u, VMC_GetDelayLimit(deviceNo, type, &value, &error));
        EXPECT_EQ(1u, VMC_GetDelayLimitEx(deviceNo, type, &value, &low, &error));
        EXPECT_EQ(kOk, error);
        EXPECT_EQ(kUntouched, value);
        EXPECT_EQ(kUntouched, low);
    }
}

TEST_F(CachedReads, IndexedReadsStayInsideTheirRange) {
    ScriptFullCamera();
    ScriptBySub(VMC_CODE_EXTERNAL_IN_MODE, 3400, 4);
    ScriptBySub(VMC_CODE_EXTERNAL_OUT_MODE, 3500, 4);
    ScriptBySub(VMC_CODE_PROG_SWITCH_MODE, 8300, 4);
    ScriptBySub(VMC_CODE_VDAIO_TYPE, 38400, 2);
    ScriptBySub(VMC_CODE_WARNING_TEMPERATURE_THRESHOLD, 39300, 8);
    const uint32_t types[] = {0, 3};  // the temperature types the camera reads
    FAKE_SetList(kModule, "DEV_GetList", 0, VMC_LIST_TEMPERATURE_TYPE, 0, types, 2, kOk);
    const uint32_t deviceNo = OpenCamera();
    struct Case {
        const char* name;
        uint32_t (*read)(uint32_t, uint32_t, uint32_t*, uint32_t*);
        uint32_t index;
        uint32_t expected;  // 0: refused with error 5
    };
    const Case cases[] = {
        {"in 0", VMC_GetExternalInMode, 0, 0},          {"in 1", VMC_GetExternalInMode, 1, 3401},
        {"in 2", VMC_GetExternalInMode, 2, 3402},       {"in 3 of 2", VMC_GetExternalInMode, 3, 0},
        {"out 3", VMC_GetExternalOutMode, 3, 3503},     {"out 4 of 3", VMC_GetExternalOutMode, 4, 0},
        {"switch 0", VMC_GetProgSwitchMode, 0, 0},      {"switch 4", VMC_GetProgSwitchMode, 4, 8304},
        {"switch 5", VMC_GetProgSwitchMode, 5, 0},      {"vdaio 0", VMC_GetVDAIOType, 0, 38400},
        {"vdaio 2", VMC_GetVDAIOType, 2, 38402},        {"vdaio 3", VMC_GetVDAIOType, 3, 0},
        {"threshold 3", VMC_GetWarningTemperatureThreshold, 3, 39303},
        {"threshold 9", VMC_GetWarningTemperatureThreshold, 9, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        uint32_t value = kUntouched, error = 0;
        EXPECT_EQ(c.expected ? 1u : 0u, c.read(deviceNo, c.index, &value, &error));
        EXPECT_EQ(c.expected ? kOk : VMC_ERR_BAD_ARGUMENT, error);
        EXPECT_EQ(c.expected ? c.expected : kUntouched, value);
    }
}

// Each group of output signals has its own flag and count.
TEST_F(CachedReads, ExposeOutTimesBySignalGroup) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_EXPOSE_OUT_TIMES_2, 0, 6, 0, kOk);
    const uint32_t second = Open(kCode);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_EXPOSE_OUT_TIMES_1, 0, 5, 0, kOk);
    const uint32_t both = Open(kCode);
    const struct {
        uint32_t deviceNo, signal, result, value;
    } cases[] = {
        {second, 14, 0, kUntouched}, {second, 88, 1, 6}, {second, 2, 1, kUntouched},
        {both, 13, 1, 5},            {both, 14, 1, 5},   {both, 82, 1, 6},
        {both, 15, 1, kUntouched},
    };
    for (const auto& c : cases) {
        uint32_t value = kUntouched, error = 0;
        EXPECT_EQ(c.result, VMC_GetExposeOutTimes(c.deviceNo, c.signal, &value, &error)) << c.signal;
        EXPECT_EQ(c.result ? kOk : VMC_ERR_NOT_SUPPORTED, error) << c.signal;
        EXPECT_EQ(c.value, value) << c.signal;
    }
}

TEST_F(CachedReads, PhaseLockIsNotReadInItsBlockingTriggerMode) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_IRIG_PHASE_LOCK, 0, 3, 0, kOk);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_IRIG_PHASE_LOCK_STATUS, 0, 4, 0, kOk);
    const uint32_t running = Open(kCode);
    uint32_t value = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetIRIGPhaseLock(running, &value, &error));
    EXPECT_EQ(3u, value);
    EXPECT_EQ(1u, VMC_GetIRIGPhaseLockStatus(running, &value, &error));
    EXPECT_EQ(4u, value);

    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_TRIGGER_MODE, 0, 0x5000000, 0, kOk);
    const uint32_t blocked = Open(kCode);
    value = kUntouched;
    EXPECT_EQ(0u, VMC_GetIRIGPhaseLock(blocked, &value, &error));
    EXPECT_EQ(VMC_ERR_TRANSFER_STATE, error);
    EXPECT_EQ(0u, VMC_GetIRIGPhaseLockStatus(blocked, &value, &error));
    EXPECT_EQ(VMC_ERR_TRANSFER_STATE, error);
    EXPECT_EQ(kUntouched, value);
}

// Only a low-light mode of exactly 1 counts as mode 1.
TEST_F(CachedReads, LowLightModeExIsOneNumber) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(kCode);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_LOW_LIGHT_MODE, 0, 1, 0, kOk);
    const uint32_t mode1 = Open(kCode);
    FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", 0, VMC_CODE_LOW_LIGHT_MODE, 0, 2, 0, kOk);
    const uint32_t other = Open(kCode);
    uint32_t value = kUntouched, error = 0;
    EXPECT_EQ(1u, VMC_GetLowLightModeEx(mode1, &value, &error));
    EXPECT_EQ(1u, value);
    EXPECT_EQ(1u, VMC_GetLowLightModeEx(other, &value, &error));
    EXPECT_EQ(0u, value);
}

TEST_F(CachedReads, ColorEnhanceValuesByPlane) {
    ScriptFullCamera();
    const uint32_t deviceNo = OpenCamera();
    const ChildRecord head = Head(deviceNo);
    for (uint32_t plane = 1; plane <= 3; ++plane) {
        int32_t values[3] = {};
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetColorEnhanceValue(deviceNo, 1, plane, values, &error));
        for (int i = 0; i < 3; ++i) EXPECT_EQ(head.colorEnhanceValue[3 * (plane - 1) + i], values[i]) << plane;
        EXPECT_EQ(1u, VMC_GetMemColorEnhanceValue(deviceNo, 1, plane, values, &error));
        for (int i = 0; i < 3; ++i) EXPECT_EQ(head.memColorEnhanceValue[3 * (plane - 1) + i], values[i]) << plane;
    }
    int32_t values[3] = {7, 7, 7};
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_GetColorEnhanceValue(deviceNo, 1, 4, values, &error));
    EXPECT_EQ(1u, VMC_GetMemColorEnhanceValue(deviceNo, 1, 0, values, &error));
    EXPECT_EQ(7, values[0]);
}

// The members of their own on a camera that answers nothing but what it must.
TEST_F(CachedReads, ParticularReadsOfACameraWithoutFunctions) {
    const uint32_t deviceNo = DetectAndOpen(kCode);
    uint32_t value = kUntouched, low = kUntouched, error = 0;
    int32_t values[3] = {7, 7, 7};
    const struct {
        const char* name;
        uint32_t expectedError;
        std::function<uint32_t(uint32_t*)> read;
    } cases[] = {
        {"delay of no type", VMC_ERR_NOT_SUPPORTED,
         [&](uint32_t* e) { return VMC_GetDelay(deviceNo, 13, &value, e); }},
        {"delay limits", VMC_ERR_NOT_SUPPORTED,
         [&](uint32_t* e) { return VMC_GetDelayLimitEx(deviceNo, 11, &value, &low, e); }},
        {"port of none", VMC_ERR_BAD_ARGUMENT,
         [&](uint32_t* e) { return VMC_GetExternalInMode(deviceNo, 1, &value, e); }},
        {"switch", VMC_ERR_NOT_SUPPORTED, [&](uint32_t* e) { return VMC_GetProgSwitchMode(deviceNo, 1, &value, e); }},
        {"phase lock", VMC_ERR_NOT_SUPPORTED, [&](uint32_t* e) { return VMC_GetIRIGPhaseLock(deviceNo, &value, e); }},
        {"expose-out", VMC_ERR_NOT_SUPPORTED,
         [&](uint32_t* e) { return VMC_GetExposeOutTimes(deviceNo, 13, &value, e); }},
        {"recorded enhance", VMC_ERR_NOT_SUPPORTED,
         [&](uint32_t* e) { return VMC_GetMemColorEnhanceValue(deviceNo, 1, 2, values, e); }},
    };
    for (const auto& c : cases) {
        uint32_t refusal = 0;
        EXPECT_EQ(0u, c.read(&refusal)) << c.name;
        EXPECT_EQ(c.expectedError, refusal) << c.name;
    }
    EXPECT_EQ(kUntouched, value);
    EXPECT_EQ(kUntouched, low);
    EXPECT_EQ(7, values[0]);
    // Colour enhance values in force need no flag; the low-light number never fails.
    EXPECT_EQ(1u, VMC_GetColorEnhanceValue(deviceNo, 1, 2, values, &error));
    EXPECT_EQ(0, values[0]);
    EXPECT_EQ(1u, VMC_GetLowLightModeEx(deviceNo, &value, &error));
    EXPECT_EQ(0u, value);
    // The magnification limit answers 0 with its refusal.
    value = kUntouched;
    EXPECT_EQ(0u, VMC_GetPixelGainMaxMagnification(deviceNo, 1, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, value);
}

TEST_F(CachedReads, MemFrameInfoIsTheHeadsFrameRangeAndNoMore) {
    ScriptFullCamera();
    const uint32_t deviceNo = OpenCamera();
    // Filled by the frame-info request where the library has it.
    using Request = uint32_t (*)(uint32_t, uint32_t, MemFrameInfoRecord*, uint32_t*);
    if (auto request = reinterpret_cast<Request>(dlsym(RTLD_DEFAULT, "VMC_ReqMemFrameInfo"))) {
        MemFrameInfoRecord asked;
        uint32_t error = 0;
        EXPECT_EQ(1u, request(deviceNo, 1, &asked, &error));
    }
    const ChildRecord head = Head(deviceNo);
    unsigned char buffer[sizeof(MemFrameInfoRecord) + 8];
    std::memset(buffer, 0xA5, sizeof buffer);
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_GetMemFrameInfo(deviceNo, 1, reinterpret_cast<MemFrameInfoRecord*>(buffer), &error));
    EXPECT_EQ(0, std::memcmp(buffer, &head.frameStart, 72));
    for (std::size_t i = 72; i < sizeof buffer; ++i) EXPECT_EQ(0xA5, buffer[i]) << i;
}

TEST_F(CachedReads, MemTriggerFrameListHandsOutTheStoredList) {
    const uint32_t deviceNo = DetectAndOpen(kCode);
    using Request = uint32_t (*)(uint32_t, uint32_t, uint32_t*, uint32_t*, uint32_t*);
    const uint32_t frames[] = {4, 90, 12};
    FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_TRIGGER_FRAME, 0, frames, 3, kOk);
    if (auto request = reinterpret_cast<Request>(dlsym(RTLD_DEFAULT, "VMC_ReqMemTriggerFrameList"))) {
        uint32_t asked[1024], count = 0, error = 0;
        request(deviceNo, 1, asked, &count, &error);
    }
    const ChildRecord head = Head(deviceNo);
    uint32_t list[1024], count = kUntouched, error = 0;
    std::fill(std::begin(list), std::end(list), kUntouched);
    EXPECT_EQ(1u, VMC_GetMemTriggerFrameList(deviceNo, 1, list, &count, &error));
    EXPECT_EQ(head.triggerFrameCount, count);
    for (uint32_t i = 0; i < count; ++i) EXPECT_EQ(head.triggerFrame[i], list[i]);
    EXPECT_EQ(kUntouched, list[count]);
    count = kUntouched;
    EXPECT_EQ(1u, VMC_GetMemTriggerFrameList(deviceNo, 1, nullptr, &count, &error)) << "count alone";
    EXPECT_EQ(head.triggerFrameCount, count);
}

// ---- Frame numbers ----------------------------------------------------------

TEST(FrameNumbers, NegativeFramesLieAfterThePositiveOnes) {
    // A recording of frames -100..99 around the trigger.
    EXPECT_EQ(199u, FrameIndex(0, -1, -100, 99));
    EXPECT_EQ(100u, FrameIndex(0, -100, -100, 99));
    EXPECT_EQ(5u, FrameIndex(0, 5, -100, 99));
    EXPECT_EQ(0u, FrameIndex(0, 0, -100, 99));
    // Numbering from the start frame counts every frame from there.
    EXPECT_EQ(0u, FrameIndex(1, -100, -100, 99));
    EXPECT_EQ(105u, FrameIndex(1, 5, -100, 99));
    // A start frame after 0 counts by its size as well.
    EXPECT_EQ(8u, FrameIndex(1, 5, 3, 200));
    // Other modes number as mode 0.
    EXPECT_EQ(199u, FrameIndex(2, -1, -100, 99));
    // 32-bit arithmetic that wraps, never traps.
    EXPECT_EQ(0x80000000u, FrameIndex(1, 0, INT32_MIN, 0));
    EXPECT_EQ(0x8000000Au, FrameIndex(0, -1, INT32_MIN, 10));
}

}  // namespace
}  // namespace vmc::test
