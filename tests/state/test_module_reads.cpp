// Module reads: the single-code rows walked from the family table, the block
// reads from a table of their calls, then the members that do more than pass
// one answer through.
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

// ---- The single-code rows, from the family table ------------------------------

enum class Target { Device, Head, HeadOrDevice, Forward };
enum class Sub { Zero, Index, Packed16, Pga };
struct On21 {
    enum Kind { Pass, Zero, Default } kind;
    uint32_t value;
};

// Every row called through one signature: the child and the indices a, b, c
// go to the rows that take them.
using CodeCall = uint32_t (*)(uint32_t deviceNo, uint32_t child, uint32_t a, uint32_t b, uint32_t c, uint32_t* value1,
                              uint32_t* value2, uint32_t* error);

struct CodeRow {
    const char* name;
    bool locked, flagged;
    Target target;
    Sub sub;
    uint32_t values;
    On21 on21;
    uint32_t code;
    CodeCall call;
};

#define LOCKED true
#define UNLOCKED false
#define NO_FLAG false
#define DEVICE_FLAG(f) true
#define CHILD_FLAG(f) true
#define EITHER_FLAG(f, g) true
#define PASS (On21{On21::Pass, 0})
#define ZERO (On21{On21::Zero, 0})
#define DEFAULT_TO(v) (On21{On21::Default, v})
#define TARGET_DEVICE Target::Device
#define TARGET_CHILD Target::Head
#define TARGET_CHILD_OR_DEVICE Target::HeadOrDevice
#define TARGET_FORWARD Target::Forward
#define ARGS_TARGET_DEVICE
#define ARGS_TARGET_CHILD , child
#define ARGS_TARGET_CHILD_OR_DEVICE , child
#define ARGS_TARGET_FORWARD , child
#define SUB_SUB0 Sub::Zero
#define SUB_INDEX Sub::Index
#define SUB_PACKED16 Sub::Packed16
#define SUB_PGA Sub::Pga
#define ARGS_SUB_SUB0
#define ARGS_SUB_INDEX , a
#define ARGS_SUB_PACKED16 , a, b
#define ARGS_SUB_PGA , a, b, c
#define COUNT_NONE 0u
#define COUNT_ONE 1u
#define COUNT_TWO 2u
#define ARGS_VALUES_NONE
#define ARGS_VALUES_ONE , value1
#define ARGS_VALUES_TWO , value1, value2
#define CODE_READ(exportName, lock, flag, target, sub, values, on21, code)                                      \
    {#exportName, lock, flag, TARGET_##target, SUB_##sub, COUNT_##values, on21, code,                          \
     [](uint32_t d, [[maybe_unused]] uint32_t child, [[maybe_unused]] uint32_t a, [[maybe_unused]] uint32_t b, \
        [[maybe_unused]] uint32_t c, [[maybe_unused]] uint32_t* value1, [[maybe_unused]] uint32_t* value2,     \
        uint32_t* e) { return exportName(d ARGS_TARGET_##target ARGS_SUB_##sub ARGS_VALUES_##values, e); }},
const CodeRow kCodeRows[] = {
#include "state/module_reads.def"
};

constexpr uint32_t kA = 5, kB = 6, kC = 7;

uint32_t SubOf(Sub sub) {
    switch (sub) {
    case Sub::Zero: return 0;
    case Sub::Index: return kA;
    case Sub::Packed16: return kA << 16 | kB;
    case Sub::Pga: return kB << 24 | kA << 16 | kC;
    }
    return 0;
}

struct HookSeen {
    vmc_lock_slot lock;
    bool called = false, lockHeld = false;
};

void SeeLock(const FakeCall*, void* context) {
    auto* seen = static_cast<HookSeen*>(context);
    seen->called = true;
    seen->lockHeld = HeldElsewhere(seen->lock);
}

// The module's calls of one entry and code, leaving out the link queries of the lock.
std::vector<FakeCall> CallsOf(const char* entry, uint32_t code) {
    std::vector<FakeCall> calls;
    for (const FakeCall& call : CallRecords(entry))
        if (call.code == code) calls.push_back(call);
    return calls;
}

class ModuleReads : public LibraryTest {
protected:
    // A camera with heads 1 and 2 that has every function a flag of this
    // family stands for (DMOD016), and one with none of them (DMOD015) but
    // which numbers its frames from 0.
    void OpenBoth() {
        Detect(VMC_INTERFACE_VIRTUAL);
        ScriptCamera(16, 7, {1, 2}, 2);
        const char* m = "DMOD016";
        for (uint32_t code : {VMC_CODE_SHADING_MODE, VMC_CODE_TEST_PATTERN, VMC_CODE_DS_SHUTTER_MODE,
                              VMC_CODE_DS_SHUTTER_VALUE, VMC_CODE_SYNC_IN_SIGNAL_STATUS, VMC_CODE_SD_CARD_CTRL,
                              VMC_CODE_MEASUREMENT_VOLTAGE, VMC_CODE_MEASUREMENT_CURRENT,
                              VMC_CODE_ACCELERATION_SENSOR_ERROR})
            FAKE_SetAnswer(m, "DEV_GetDeviceCaps", FAKE_ANY, code, FAKE_ANY, 1, 1, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_STORAGE_MODE, 0, 0, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_FEATURE, VMC_FEATURE_TELNET_COMMAND, 1, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_FEATURE, VMC_FEATURE_DEVICE_ERROR_OBSERVE, 1, 0, kOk);
        FAKE_SetAnswer(m, "DEV_GetData", FAKE_ANY, VMC_DATA_LIVE_IMAGE_IRIG, 0, 0, 0, kOk);
        full = Open(16);

        ScriptCamera(15, 8, {1, 2}, 2);
        FAKE_SetAnswer("DMOD015", "DEV_GetDeviceCaps", 0, VMC_CODE_FRAME_ZERO_MODE, 0, 1, 0, kOk);
        bare = Open(15);

        // The state load has set the flags the walks rely on.
        const DeviceRecord record = Info(full);
        ASSERT_TRUE(record.hasSdCardCtrl && record.hasSyncInSignalStatus && record.hasMeasurementVoltage &&
                    record.hasMeasurementCurrent && record.hasAccelerationSensorError && record.hasTelnetCommand &&
                    record.hasDeviceErrorObserve);
        ASSERT_EQ(1u, VMC_GetChildInfo(full, 2, &head, &error));
        ASSERT_TRUE(head.hasShading && head.hasTestPattern && head.hasDSShutter && head.hasLiveImageIRIG);
        ASSERT_TRUE(Info(bare).frameZeroMode);
        ASSERT_FALSE(Info(full).frameZeroMode);
        FAKE_ClearLog();
    }

    static vmc_lock_slot FullLock() { return FAKE_LockSlot("DMOD016", 7, 0); }

    uint32_t full = 0, bare = 0, error = 0;
    ChildRecord head{};
};

TEST_F(ModuleReads, EveryCodeRowAsksItsCodeAndPassesTheAnswer) {
    OpenBoth();
    const uint32_t closed = 9;  // a device number that is not open
    for (const CodeRow& row : kCodeRows) {
        SCOPED_TRACE(row.name);
        const uint32_t child = row.target == Target::Device ? 0 : 2, sub = SubOf(row.sub);
        FAKE_ClearLog();
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", child, row.code, sub, 111, 222, kOk);
        HookSeen seen{FullLock()};
        FAKE_SetHook("DEV_GetDeviceCaps", row.code, SeeLock, &seen);
        uint32_t value1 = 0, value2 = 0;
        EXPECT_EQ(1u, row.call(full, 2, kA, kB, kC, &value1, &value2, &error));
        EXPECT_EQ(kOk, error);
        EXPECT_EQ(row.values >= 1 ? 111u : 0u, value1);
        EXPECT_EQ(row.values == 2 ? 222u : 0u, value2);
        const std::vector<FakeCall> calls = CallsOf("DEV_GetDeviceCaps", row.code);
        ASSERT_EQ(1u, calls.size());
        EXPECT_EQ(child, calls[0].child);
        EXPECT_EQ(sub, calls[0].sub);
        EXPECT_EQ(row.values == 2, calls[0].pointer != 0) << "a second value is asked only of a pair";
        EXPECT_TRUE(seen.called);
        EXPECT_EQ(row.locked, seen.lockHeld);
        FAKE_SetHook("DEV_GetDeviceCaps", row.code, nullptr, nullptr);

        // A failure passes through; error 21 becomes what the row says.
        FAKE_QueueAnswer("DMOD016", "DEV_GetDeviceCaps", child, row.code, sub, 0, 0, 33);
        EXPECT_EQ(0u, row.call(full, 2, kA, kB, kC, &value1, &value2, &error));
        EXPECT_EQ(33u, error);
        FAKE_QueueAnswer("DMOD016", "DEV_GetDeviceCaps", child, row.code, sub, 77, 77, VMC_ERR_NOT_SUPPORTED);
        const uint32_t result = row.call(full, 2, kA, kB, kC, &value1, &value2, &error);
        switch (row.on21.kind) {
        case On21::Pass:
            EXPECT_EQ(0u, result);
            EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
            break;
        case On21::Zero:
            EXPECT_EQ(0u, result);
            EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
            EXPECT_EQ(0u, value1);
            if (row.values == 2) {
                EXPECT_EQ(0u, value2);
            }
            break;
        case On21::Default:
            EXPECT_EQ(1u, result);
            EXPECT_EQ(kOk, error);
            EXPECT_EQ(row.on21.value, value1);
            break;
        }
        EXPECT_FALSE(HeldElsewhere(FullLock()));

        // Refusals before the module: the flag, the head, the out-argument.
        FAKE_ClearLog();
        if (row.flagged) {
            EXPECT_EQ(0u, row.call(bare, 2, kA, kB, kC, &value1, &value2, &error));
            EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
        }
        if (row.target == Target::Head) {
            for (uint32_t bad : {0u, 3u}) {
                EXPECT_EQ(0u, row.call(full, bad, kA, kB, kC, &value1, &value2, &error)) << "head " << bad;
                EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
            }
        }
        if (row.target == Target::HeadOrDevice) {
            EXPECT_EQ(0u, row.call(full, 3, kA, kB, kC, &value1, &value2, &error));
            EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
        }
        if (row.values >= 1) {
            EXPECT_EQ(0u, row.call(full, 2, kA, kB, kC, nullptr, &value2, &error));
            EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
        }
        if (row.target == Target::Device && !row.flagged) {
            EXPECT_EQ(0u, row.call(closed, 0, kA, kB, kC, &value1, &value2, &error));
            EXPECT_EQ(row.locked ? VMC_ERR_NOT_INITIALISED : VMC_ERR_NOT_OPEN, error);
        }
        EXPECT_EQ(0u, CallsOf("DEV_GetDeviceCaps", row.code).size());

        // Child 0 asks the device where the row allows it; a forwarded child
        // reaches the module as it is.
        if (row.target == Target::HeadOrDevice || row.target == Target::Forward) {
            const uint32_t given = row.target == Target::Forward ? 9 : 0;
            FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", given, row.code, sub, 5, 5, kOk);
            EXPECT_EQ(1u, row.call(full, given, kA, kB, kC, &value1, &value2, &error));
            const std::vector<FakeCall> asked = CallsOf("DEV_GetDeviceCaps", row.code);
            ASSERT_EQ(1u, asked.size());
            EXPECT_EQ(given, asked[0].child);
        }
    }
}

// Rows stated apart from the table, so that a wrong code, sub-code, child
// rule, lock, flag or rule for error 21 in it is not mirrored here. Heads are
// child 2, the caller's indices 5, 6 and 7.
struct HandCodeRow {
    const char* name;
    uint32_t (*call)(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error);
    uint32_t code, child, sub;  // what the module is asked
    bool locked, flagged, pair;
    uint32_t resultOn21, valueOn21;  // the fake writes 77 as it refuses
};

const HandCodeRow kHandCodeRows[] = {
    {"VMC_GetShadingAvailable", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) {
         return VMC_GetShadingAvailable(d, 2, v, e); }, VMC_CODE_SHADING_AVAILABLE, 2, 0, true, true, false, 1, 0},
    {"VMC_GetFPGAStatus", [](uint32_t d, uint32_t* v, uint32_t* w, uint32_t* e) {
         return VMC_GetFPGAStatus(d, v, w, e); }, VMC_CODE_FPGA_STATUS, 0, 0, false, false, true, 0, 0},
    {"VMC_GetSdCardDownloadSlot", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) {
         return VMC_GetSdCardDownloadSlot(d, v, e); }, VMC_CODE_SD_CARD_DOWNLOAD_SLOT, 0, 0, true, true, false, 0, 77},
    {"VMC_GetSensorPGARegister2", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) {
         return VMC_GetSensorPGARegister2(d, 2, 5, 6, 7, v, e); }, VMC_CODE_SENSOR_PGA_REGISTER, 2, 6u << 24 | 5u << 16 | 7,
     true, false, false, 0, 77},
    {"VMC_GetShutterSpeedPrecision", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) {
         return VMC_GetShutterSpeedPrecision(d, 2, v, e); }, VMC_CODE_SHUTTER_SPEED_PRECISION, 2, 0, false, false, false, 1, 2},
    // The child goes to the module unchecked.
    {"VMC_GetRapidPackShutterSpeedPrecision", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) {
         return VMC_GetRapidPackShutterSpeedPrecision(d, 9, 5, v, e); }, VMC_CODE_RAPID_PACK_SHUTTER_SPEED_PRECISION, 9, 5,
     false, false, false, 0, 77},
    {"VMC_GetAccelerationSensorError", [](uint32_t d, uint32_t* v, uint32_t* w, uint32_t* e) {
         return VMC_GetAccelerationSensorError(d, 0, v, w, e); }, VMC_CODE_ACCELERATION_SENSOR_ERROR, 0, 0, false, true,
     true, 0, 77},
    {"VMC_GetQRXPLLData", [](uint32_t d, uint32_t* v, uint32_t* w, uint32_t* e) {
         return VMC_GetQRXPLLData(d, 5, 6, v, w, e); }, VMC_CODE_QRX_PLL_DATA, 0, 5u << 16 | 6, true, false, true, 0, 77},
};

TEST_F(ModuleReads, CodeRowsWrittenOutByHand) {
    OpenBoth();
    for (const HandCodeRow& row : kHandCodeRows) {
        SCOPED_TRACE(row.name);
        FAKE_ClearLog();
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", row.child, row.code, row.sub, 111, 222, kOk);
        HookSeen seen{FullLock()};
        FAKE_SetHook("DEV_GetDeviceCaps", row.code, SeeLock, &seen);
        uint32_t value1 = 0, value2 = 0;
        EXPECT_EQ(1u, row.call(full, &value1, &value2, &error));
        EXPECT_EQ(111u, value1);
        EXPECT_EQ(row.pair ? 222u : 0u, value2);
        EXPECT_EQ(row.locked, seen.lockHeld);
        FAKE_SetHook("DEV_GetDeviceCaps", row.code, nullptr, nullptr);
        const std::vector<FakeCall> asked = CallsOf("DEV_GetDeviceCaps", row.code);
        ASSERT_EQ(1u, asked.size());
        EXPECT_EQ(row.child, asked[0].child);
        EXPECT_EQ(row.sub, asked[0].sub);

        FAKE_QueueAnswer("DMOD016", "DEV_GetDeviceCaps", row.child, row.code, row.sub, 77, 77, VMC_ERR_NOT_SUPPORTED);
        EXPECT_EQ(row.resultOn21, row.call(full, &value1, &value2, &error));
        EXPECT_EQ(row.resultOn21 ? kOk : VMC_ERR_NOT_SUPPORTED, error);
        EXPECT_EQ(row.valueOn21, value1);
        if (row.flagged) {
            EXPECT_EQ(0u, row.call(bare, &value1, &value2, &error));
            EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
            EXPECT_EQ(2u, CallsOf("DEV_GetDeviceCaps", row.code).size()) << "the bare camera is not asked";
        }
    }
}

// ---- The block reads -------------------------------------------------------------

// One block read with its arguments fixed, called with the device, a frame
// (for the rows that take one) and the block.
struct BlockRow {
    const char* name;
    uint32_t code;
    bool locked, flagged, frameZero;
    std::function<uint32_t(uint32_t deviceNo, int32_t frame, void* out, uint32_t* error)> call;
    // What the module is to see for frame -3 of a head whose range is 0..0:
    // the frame converted lies one before the ring's end, at -2.
    uint32_t child, sub, value;
    bool secondBlock;  // the module gets a second block (or scratch word), not null
};

uint32_t gLength = 0;
uint32_t gExtra[4] = {};
constexpr uint32_t kConverted = static_cast<uint32_t>(-2);

const std::vector<BlockRow>& BlockRows() {
    static const std::vector<BlockRow> rows = {
        {"VMC_GetSSDBoxDataName", VMC_DATA_SSD_BOX_DATA_NAME, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetSSDBoxDataName(d, 3, 4, o, e); }, 0, 4, 3, true},
        {"VMC_GetRapidPackDataName", VMC_DATA_SSD_BOX_DATA_NAME, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackDataName(d, 4, o, e); }, 0, 4, 0, true},
        {"VMC_GetRapidPackDataName2", VMC_DATA_SSD_BOX_DATA_NAME, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackDataName2(d, 3, 4, o, e); }, 0, 4, 3,
         true},
        {"VMC_GetMemADCByteData", VMC_DATA_MEM_ADC_BYTE, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMemADCByteData(d, 2, f, 9, o, e); }, 2,
         kConverted, 9, true},
        {"VMC_GetRapidPackADCByteData", VMC_DATA_RAPID_PACK_ADC_BYTE, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackADCByteData(d, 1, 2, 3, 4, o, e); },
         1u << 24 | 2, 3, 4, true},
        {"VMC_GetRapidPackMemBufUseByteData", VMC_DATA_RAPID_PACK_MEM_BUF_USE_BYTE, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackMemBufUseByteData(d, 1, 2, 3, 4, o, e); },
         1u << 24 | 2, 3, 4, true},
        {"VMC_GetMemAutoExposureDataFps", VMC_DATA_MEM_AUTO_EXPOSURE_FPS, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMemAutoExposureDataFps(d, 2, f, o, e); }, 2,
         kConverted, 1, true},
        {"VMC_GetMemAutoExposureDataNsec", VMC_DATA_MEM_AUTO_EXPOSURE_NSEC, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMemAutoExposureDataNsec(d, 2, f, 9, o, e); },
         2, kConverted, 9, true},
        {"VMC_GetRapidPackRecordInfo", VMC_DATA_RAPID_PACK_RECORD_INFO, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackRecordInfo(d, 3, 4, o, e); }, 0, 3, 4,
         true},
        // The drive's own recordings: the frame goes as it is.
        {"VMC_GetRapidPackIRIG", VMC_DATA_RAPID_PACK_IRIG, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetRapidPackIRIG(d, 1, 2, f, o, e); },
         0, 1u << 16 | 2, static_cast<uint32_t>(-3), true},
        {"VMC_GetRapidPackAutoExposure", VMC_DATA_RAPID_PACK_AUTO_EXPOSURE, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetRapidPackAutoExposure(d, 1, 2, f, o, e); },
         0, 1u << 16 | 2, static_cast<uint32_t>(-3), true},
        {"VMC_GetRapidPackTemperature", VMC_DATA_RAPID_PACK_TEMPERATURE, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetRapidPackTemperature(d, 1, 2, f, o, e); },
         0, 1u << 16 | 2, static_cast<uint32_t>(-3), true},
        {"VMC_GetRapidPackSMART", VMC_DATA_RAPID_PACK_SMART, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetRapidPackSMART(d, 3, 4, o, gExtra, e); }, 0, 3,
         4, true},
        {"VMC_GetRapidPackAcceleration", VMC_DATA_RAPID_PACK_ACCELERATION, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetRapidPackAcceleration(d, 1, 2, f, o, e); },
         0, 1u << 16 | 2, static_cast<uint32_t>(-3), true},
        // The medium's recording runs -100..99 (code 378 below): frame -3 lies at 197.
        {"VMC_GetMediaAcceleration", VMC_DATA_MEDIA_ACCELERATION, true, false, true,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMediaAcceleration(d, 1, 2, f, o, e); }, 0,
         1u << 16 | 2, 197, false},
        {"VMC_GetMediaRecordInfo", VMC_DATA_MEDIA_RECORD_INFO, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetMediaRecordInfo(d, 3, 4, o, e); }, 0, 3, 4,
         true},
        {"VMC_GetMemTemperatureData", VMC_DATA_MEM_TEMPERATURE, true, false, false,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMemTemperatureData(d, 2, o, f, 9, e); }, 2,
         kConverted, 9, false},
        // Child 0 is the camera's own sensor, numbered by the first head's range.
        {"VMC_GetMemAccelerationData", VMC_DATA_ACCELERATION, true, false, false,
         [](uint32_t d, int32_t f, void* o, uint32_t* e) { return VMC_GetMemAccelerationData(d, 0, o, f, 9, e); }, 0,
         kConverted, 9, false},
        {"VMC_GetAdjustmentData", VMC_DATA_ADJUSTMENT, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetAdjustmentData(d, 9, 4, o, e); }, 9, 4, 0,
         true},
        {"VMC_GetInherentInfo", VMC_DATA_INHERENT_INFO, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetInherentInfo(d, 2, 4, o, &gLength, e); }, 2, 4,
         0, true},
        {"VMC_GetLiveImageIRIGData", VMC_DATA_LIVE_IMAGE_IRIG, true, true, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetLiveImageIRIGData(d, 2, o, e); }, 2, 0, 0,
         false},
        {"VMC_GetManufactureVersionInfomation", VMC_DATA_MANUFACTURE_VERSION_INFO, true, false, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetManufactureVersionInfomation(d, 4, o, e); }, 0,
         4, 0, true},
        {"VMC_GetShadingData", VMC_DATA_SHADING, true, true, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetShadingData(d, 2, o, e); }, 2, 0, 0, true},
        {"VMC_GetTelnetCommand", VMC_DATA_TELNET_COMMAND, false, true, false,
         [](uint32_t d, int32_t, void* o, uint32_t* e) { return VMC_GetTelnetCommand(d, 4, o, e); }, 0, 4, 0, true},
    };
    return rows;
}

TEST_F(ModuleReads, EveryBlockReadFillsTheCallersBlock) {
    OpenBoth();
    const uint32_t range[] = {static_cast<uint32_t>(-100), 99};
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_MEDIA_FRAME_RANGE, 2, range[0], range[1], kOk);
    const uint32_t words[] = {0x11, 0x22};
    uint32_t block[VMC_RECORD_INFO_SIZE / 4];
    ASSERT_EQ(BlockRows().size(), 24u) << "every DATA_READ and block alias row";
    for (const BlockRow& row : BlockRows()) {
        SCOPED_TRACE(row.name);
        FAKE_ClearLog();
        FAKE_SetList("DMOD016", "DEV_GetData", row.child, row.code, row.sub, words, 2, kOk);
        HookSeen seen{FullLock()};
        FAKE_SetHook("DEV_GetData", row.code, SeeLock, &seen);
        std::memset(block, 0xAB, sizeof block);
        EXPECT_EQ(1u, row.call(full, -3, block, &error));
        EXPECT_EQ(kOk, error);
        EXPECT_EQ(0x11u, block[0]);
        EXPECT_EQ(0x22u, block[1]);
        const std::vector<FakeCall> calls = CallsOf("DEV_GetData", row.code);
        ASSERT_EQ(1u, calls.size());
        EXPECT_EQ(row.child, calls[0].child);
        EXPECT_EQ(row.sub, calls[0].sub);
        EXPECT_EQ(row.value, calls[0].value1);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block), calls[0].pointer);
        EXPECT_EQ(row.secondBlock, calls[0].pointer2 != 0);
        EXPECT_TRUE(seen.called);
        EXPECT_EQ(row.locked, seen.lockHeld);
        FAKE_SetHook("DEV_GetData", row.code, nullptr, nullptr);

        FAKE_QueueAnswer("DMOD016", "DEV_GetData", row.child, row.code, row.sub, 0, 0, 33);
        EXPECT_EQ(0u, row.call(full, -3, block, &error));
        EXPECT_EQ(33u, error);
        EXPECT_FALSE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));

        // A camera without the function is not asked; frame 0 is refused
        // unless the camera numbers from 0.
        FAKE_ClearLog();
        if (row.flagged) {
            EXPECT_EQ(0u, row.call(bare, -3, block, &error));
            EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
        }
        if (row.frameZero) {
            EXPECT_EQ(0u, row.call(full, 0, block, &error));
            EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
        }
        EXPECT_EQ(0u, CallsOf("DEV_GetData", row.code).size());
        if (row.frameZero) {
            FAKE_SetAnswer("DMOD015", "DEV_GetDeviceCaps", 0, VMC_CODE_MEDIA_FRAME_RANGE, 2, 0, 0, kOk);
            FAKE_SetAnswer("DMOD015", "DEV_GetData", FAKE_ANY, row.code, FAKE_ANY, 0, 0, kOk);
            EXPECT_EQ(1u, row.call(bare, 0, block, &error)) << "frame 0 of a camera that has it";
        } else {
            FAKE_SetAnswer("DMOD016", "DEV_GetData", FAKE_ANY, row.code, FAKE_ANY, 0, 0, kOk);
            EXPECT_EQ(1u, row.call(full, 0, block, &error)) << "no frame-zero test";
        }
        EXPECT_EQ(1u, CallsOf("DEV_GetData", row.code).size());
    }
}

TEST_F(ModuleReads, RecordsOfRecordingsAreZeroedBeforeTheModuleFillsThem) {
    OpenBoth();
    const uint32_t words[] = {0x11};
    FAKE_SetList("DMOD016", "DEV_GetData", 0, FAKE_ANY, FAKE_ANY, words, 1, kOk);
    uint8_t record[VMC_RECORD_INFO_SIZE + 4];
    for (auto read : {VMC_GetRapidPackRecordInfo, VMC_GetMediaRecordInfo}) {
        std::memset(record, 0xAB, sizeof record);
        EXPECT_EQ(1u, read(full, 0, 1, record, &error));
        EXPECT_EQ(0x11, record[0]);
        EXPECT_EQ(std::vector<uint8_t>(VMC_RECORD_INFO_SIZE - 4, 0),
                  std::vector<uint8_t>(record + 4, record + VMC_RECORD_INFO_SIZE));
        EXPECT_EQ(0xAB, record[VMC_RECORD_INFO_SIZE]) << "no byte past the record";
    }
    EXPECT_EQ(0u, VMC_GetMediaRecordInfo(full, 0, 1, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

// ---- Members with behaviour of their own ------------------------------------------

TEST_F(ModuleReads, AnswersThatMayGoStaleAreAskedAnew) {
    // A camera with exchangeable heads (code 4096): colour type and partitions anew.
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(4096);
    const uint32_t exchangeable = Open(4096);
    FAKE_SetAnswer("DMOD903", "DEV_GetDeviceCaps", 1, VMC_CODE_COLOR_TYPE, 0, 0x1FF, 0, kOk);
    FAKE_SetAnswer("DMOD903", "DEV_GetDeviceCaps", 1, VMC_CODE_MAX_PARTITION, 0, 8, 3, kOk);
    HookSeen seen{FAKE_LockSlot("DMOD903", 7, 0)};
    FAKE_SetHook("DEV_GetDeviceCaps", VMC_CODE_COLOR_TYPE, SeeLock, &seen);
    uint32_t value = 0, second = 0;
    EXPECT_EQ(1u, VMC_GetColorType(exchangeable, 1, &value, &error));
    EXPECT_EQ(0xFFFFFFFFu, value) << "the low byte, sign-extended";
    EXPECT_TRUE(seen.called);
    EXPECT_FALSE(seen.lockHeld);
    static ChildRecord child;
    ASSERT_EQ(1u, VMC_GetChildInfo(exchangeable, 1, &child, &error));
    EXPECT_EQ(0xFFFFFFFFu, child.colorType);
    EXPECT_EQ(1u, VMC_GetMaxPartition(exchangeable, 1, &value, &second, &error));
    EXPECT_EQ(8u, value);
    EXPECT_EQ(3u, second);

    // Others answer from what the open read: the low byte, no module call.
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_COLOR_TYPE, 0, 0x1FE, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_MAX_PARTITION, 0, 4, 2, kOk);
    const uint32_t fixed = Open(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_COLOR_TYPE, 0, 3, 0, kOk);
    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_GetColorType(fixed, 1, &value, &error));
    EXPECT_EQ(0xFEu, value);
    EXPECT_EQ(1u, VMC_GetMaxPartition(fixed, 1, &value, &second, &error));
    EXPECT_EQ(4u, value);
    EXPECT_EQ(2u, second);
    EXPECT_EQ(1u, VMC_GetMaxFrames(fixed, 1, &value, &second, &error));
    EXPECT_EQ(5000u, value);
    EXPECT_EQ(2u, second);
    EXPECT_TRUE(Calls("DMOD016").empty());
}

TEST_F(ModuleReads, MaxFramesFollowTheRapidPackWhileRecordingToIt) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DIRECT_RECORD_RAPID_PACK, 0, 1, 0, kOk);
    const uint32_t deviceNo = Open(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_MAX_FRAMES_CACHE, 0, 777, 3, kOk);
    uint32_t frames = 0, blocks = 0;
    EXPECT_EQ(1u, VMC_GetMaxFrames(deviceNo, 1, &frames, &blocks, &error));
    EXPECT_EQ(777u, frames);
    EXPECT_EQ(3u, blocks);
    static ChildRecord child;
    ASSERT_EQ(1u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    EXPECT_EQ(777u, child.maxFrames);
    EXPECT_EQ(3u, child.maxFrameBlocks);

    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_MAX_FRAMES_CACHE, 0, 1, 1, 33);
    EXPECT_EQ(0u, VMC_GetMaxFrames(deviceNo, 1, &frames, &blocks, &error));
    EXPECT_EQ(33u, error);
    ASSERT_EQ(1u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    EXPECT_EQ(777u, child.maxFrames) << "a failed query keeps the cache";
}

TEST_F(ModuleReads, PackedWordsAreSplitAsTheirWritesPackThem) {
    const uint32_t deviceNo = DetectAndOpen(16);
    const char* m = "DMOD016";
    uint32_t a = 0, b = 0, c = 0;

    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 1, VMC_CODE_TRANSFER_OPTION, 0, 0x00AB07CD, 0, kOk);
    EXPECT_EQ(1u, VMC_GetTransferOption(deviceNo, 1, &a, &b, &c, &error));
    EXPECT_EQ((std::vector<uint32_t>{0xCD, 1, 0xAB}), (std::vector<uint32_t>{a, b, c})) << "bit 8 alone is the flag";

    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_SD_CARD_STATE, 1, 9, 0x00020003, kOk);
    EXPECT_EQ(1u, VMC_GetSdCardState(deviceNo, 1, 9, &a, &b, &error));
    EXPECT_EQ(2u, a);
    EXPECT_EQ(3u, b);
    EXPECT_EQ(1u, VMC_GetRapidPackState(deviceNo, 1, 9, &a, &error));
    EXPECT_EQ(0x00020003u, a);
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_SD_CARD_INFO, 1, 0x00040005, 6, kOk);
    EXPECT_EQ(1u, VMC_GetSdCardInfo(deviceNo, 1, &a, &b, &c, &error));
    EXPECT_EQ((std::vector<uint32_t>{4, 5, 6}), (std::vector<uint32_t>{a, b, c}));

    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_CAM_CODER_MODEL, 0, 1, 0x00020003, kOk);
    EXPECT_EQ(1u, VMC_GetCamCoderModel(deviceNo, &a, &b, &c, &error));
    EXPECT_EQ((std::vector<uint32_t>{1, 2, 3}), (std::vector<uint32_t>{a, b, c}));
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_LIVE_RESET_MODE, 0, 0x00010000, 7, kOk);
    EXPECT_EQ(1u, VMC_GetLiveResetMode(deviceNo, &a, &b, &c, &error));
    EXPECT_EQ((std::vector<uint32_t>{0, 1, 7}), (std::vector<uint32_t>{a, b, c})) << "b is the high half";

    // The variable-channel restrictions come in the camera's order of sub-codes.
    for (uint32_t sub = 0; sub < 4; ++sub)
        FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_RESTRICTION, sub, 10 * sub + 1, 10 * sub + 2, kOk);
    uint32_t r[7] = {};
    EXPECT_EQ(1u, VMC_GetVariableRestriction(deviceNo, &r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &error));
    EXPECT_EQ((std::vector<uint32_t>{11, 12, 1, 2, 21, 22, 31}), std::vector<uint32_t>(r, r + 7));
}

TEST_F(ModuleReads, TheLiveTimeCodeIsUnpackedAndNeverFails) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LIVE_IRIG, 0, 1, 0, kOk);
    const uint32_t deviceNo = Open(16);
    ASSERT_TRUE(Info(deviceNo).hasLiveIRIG);
    IrigRecord record{};
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LIVE_IRIG, 0, 1234, 1u << 26, kOk);
    EXPECT_EQ(1u, VMC_GetLiveIRIGData(deviceNo, &record, &error));
    EXPECT_EQ(1234u, record.subSeconds);
    EXPECT_EQ(1, record.signalFlag);
    EXPECT_EQ(0u, record.days + record.hours + record.minutes + record.seconds);
    const uint32_t word = 0x1FFu << 17 | 23u << 12 | 59u << 6 | 58u;
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LIVE_IRIG, 0, 5, word, kOk);
    EXPECT_EQ(1u, VMC_GetLiveIRIGData(deviceNo, &record, &error));
    EXPECT_EQ((std::vector<uint32_t>{511, 23, 59, 58, 0}),
              (std::vector<uint32_t>{record.days, record.hours, record.minutes, record.seconds, record.signalFlag}));
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LIVE_IRIG, 0, 0, 0, 33);
    EXPECT_EQ(1u, VMC_GetLiveIRIGData(deviceNo, &record, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(511u, record.days) << "a refused read leaves the record";
}

TEST_F(ModuleReads, CamerasThatCannotSay) {
    const uint32_t deviceNo = DetectAndOpen(16);
    const char* m = "DMOD016";
    // Media: an all-zero record, with the module's refusal.
    MediaInfo info;
    std::memset(&info, 0xAB, sizeof info);
    EXPECT_EQ(0u, VMC_GetMediaInfo(deviceNo, 1, &info, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(std::vector<uint32_t>(5, 0), std::vector<uint32_t>(info.value, info.value + 5));
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_MEDIA_INFO, 1, 7, 8, kOk);
    EXPECT_EQ(1u, VMC_GetMediaInfo(deviceNo, 1, &info, &error));
    EXPECT_EQ((std::vector<uint32_t>{7, 8, 0, 0, 0}), std::vector<uint32_t>(info.value, info.value + 5));

    // A variable channel without its further words: they read 0, the call succeeds.
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_RATE, 3, 500, 0, kOk);
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_RESOLUTION, 3, 640u << 16 | 480, 0, kOk);
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_POSITION, 3, 16u << 16 | 8, 0, kOk);
    uint32_t v[7] = {9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(1u, VMC_GetVariableChannelInfo3(deviceNo, 3, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ((std::vector<uint32_t>{500, 640, 480, 16, 8, 0, 0}), std::vector<uint32_t>(v, v + 7));
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_POSITION, 3, 0, 0, 33);
    EXPECT_EQ(0u, VMC_GetVariableChannelInfo2(deviceNo, 3, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &error));
    EXPECT_EQ(33u, error) << "the three channel words must answer";

    // The limit queries write the scratch channel before they read.
    FAKE_SetAnswer(m, "DEV_SetDeviceCaps", 0, FAKE_ANY, 0, 0, 0, kOk);
    FAKE_SetAnswer(m, "DEV_GetDeviceCaps", 0, VMC_CODE_VARIABLE_MAX_HEIGHT, 0, 400, 0, kOk);
    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_GetVariableMaxHeight(deviceNo, 2000, 640, &v[0], &error));
    EXPECT_EQ(400u, v[0]);
    const std::vector<FakeCall> writes = CallRecords("DEV_SetDeviceCaps");
    ASSERT_EQ(2u, writes.size());
    EXPECT_EQ(VMC_CODE_VARIABLE_RATE, writes[0].code);
    EXPECT_EQ(2000u, writes[0].value1);
    EXPECT_EQ(VMC_CODE_VARIABLE_RESOLUTION, writes[1].code);
    EXPECT_EQ(640u << 16, writes[1].value1);
}

TEST_F(ModuleReads, TemperaturesOfTheDeviceAndOfEachHead) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    const uint32_t types[] = {3};
    FAKE_SetList("DMOD016", "DEV_GetList", 1, VMC_LIST_TEMPERATURE_TYPE, 0, types, 1, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_MEM_TEMPERATURE_TYPE, 0, 4, 0, kOk);
    const uint32_t deviceNo = Open(16);
    ASSERT_TRUE(Info(deviceNo).hasTemperature);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_TEMPERATURE, 3, 250000, 0, kOk);
    FAKE_ClearLog();
    uint32_t value = 0;
    EXPECT_EQ(1u, VMC_GetTemperature(deviceNo, 0, 3, &value, &error)) << "child 0: the device's flag";
    EXPECT_EQ(1u, VMC_GetTemperature(deviceNo, 1, 3, &value, &error)) << "head 1 lists types";
    EXPECT_EQ(250000u, value);
    EXPECT_EQ(0u, VMC_GetTemperature(deviceNo, 2, 3, &value, &error)) << "head 2 lists none";
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    const std::vector<FakeCall> asked = CallsOf("DEV_GetDeviceCaps", VMC_CODE_TEMPERATURE);
    ASSERT_EQ(2u, asked.size());
    EXPECT_EQ(0u, asked[0].child);
    EXPECT_EQ(1u, asked[1].child);
    EXPECT_EQ(3u, asked[1].sub);
    EXPECT_EQ(6, Count("DEV_GetDeviceCaps", VMC_CODE_CONNECT_STATE)) << "the head's flag is tested under the lock";
    EXPECT_FALSE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));

    // The warning is one byte: set while the camera answers non-zero.
    uint8_t warning = 9;
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 2, VMC_CODE_WARNING_TEMPERATURE, 0, 0x100, 0, kOk);
    EXPECT_EQ(1u, VMC_GetWarningTemperature(deviceNo, 2, &warning, &error));
    EXPECT_EQ(1, warning);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_WARNING_TEMPERATURE, 0, 0, 0, kOk);
    EXPECT_EQ(1u, VMC_GetWarningTemperature(deviceNo, 0, &warning, &error));
    EXPECT_EQ(0, warning);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 2, VMC_CODE_WARNING_TEMPERATURE, 0, 5, 0, 33);
    warning = 9;
    EXPECT_EQ(0u, VMC_GetWarningTemperature(deviceNo, 2, &warning, &error));
    EXPECT_EQ(0, warning);
    EXPECT_EQ(33u, error);

    // The temperature type of the recording: the device's flag for child 0.
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_MEM_TEMPERATURE_TYPE, 0, 2, 0, kOk);
    EXPECT_EQ(1u, VMC_GetMemTemperatureType(deviceNo, 0, &value, &error));
    EXPECT_EQ(2u, value);
    EXPECT_EQ(0u, VMC_GetMemTemperatureType(deviceNo, 1, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST_F(ModuleReads, StatusShadingAndLens) {
    const uint32_t deviceNo = DetectAndOpen(16);
    uint32_t value = 0;
    HookSeen seen{FAKE_LockSlot("DMOD016", 7, 0)};
    FAKE_SetHook("DEV_GetDeviceCaps", VMC_CODE_STATUS, SeeLock, &seen);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_STATUS, 0, 4, 0, kOk);
    EXPECT_EQ(1u, VMC_GetStatus(deviceNo, &value, &error));
    EXPECT_EQ(4u, value);
    EXPECT_TRUE(seen.lockHeld);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_STATUS, 0, 1, 0, 33);
    EXPECT_EQ(0u, VMC_GetStatus(deviceNo, &value, &error));
    EXPECT_EQ(33u, error);

    // A lens parameter of a bad head is refused with the lock still taken,
    // as callers of the lens protocol expect.
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_LENS_PARAM, 9u << 16 | 3, 120, 0, kOk);
    EXPECT_EQ(1u, VMC_GetLensParam(deviceNo, 1, 3, 9, &value, &error));
    EXPECT_EQ(120u, value);
    EXPECT_FALSE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));
    EXPECT_EQ(0u, VMC_GetLensParam(deviceNo, 5, 3, 9, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_TRUE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));
    pthread_mutex_unlock(*FAKE_LockSlot("DMOD016", 7, 0));
}

TEST_F(ModuleReads, MechanicalShutterErrorHasACodeOfItsOwnOnSomeCameras) {
    // A copy of a test module under the file name of device code 28.
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("vmc_modreads_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(std::filesystem::path(VMC_TEST_MODULE_DIR) / "DMOD016.so", folder / "DMOD028.so",
                               std::filesystem::copy_options::overwrite_existing);
    const std::string path = folder.string() + ":" + VMC_TEST_MODULE_DIR;
    setenv("VMC_MODULE_PATH", path.c_str(), 1);

    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(28);
    ScriptCamera(16);
    const uint32_t own = Open(28), other = Open(16);
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", 0, VMC_CODE_MECHANICAL_SHUTTER_ERROR, 0, 5, 0, kOk);
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", 0, VMC_CODE_MECHANICAL_SHUTTER, 0, 6, 0, kOk);
    uint32_t value = 0;
    EXPECT_EQ(1u, VMC_GetMechanicalShutterError(own, &value, &error));
    EXPECT_EQ(5u, value);
    EXPECT_EQ(1u, VMC_GetMechanicalShutterError(other, &value, &error));
    EXPECT_EQ(6u, value);
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", 0, VMC_CODE_MECHANICAL_SHUTTER, 0, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_GetMechanicalShutterError(other, &value, &error));
    EXPECT_EQ(2u, value) << "the shutter state's default";
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace vmc::test
