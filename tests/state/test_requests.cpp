// The request family: every row of its table stores what the camera said
// and its default on error 21, heads are checked before anything is asked,
// and the members with a rule of their own keep it.
#include <functional>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

constexpr const char* kModule = "DMOD016";

enum class Kind { Value, Flag, Pair, Packed, Query };
enum class Target { Device, Head, HeadOrDevice };

using Call = uint32_t (*)(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2, uint32_t* error);
using Read = uint32_t (*)(const DeviceRecord& device, const ChildRecord& child, uint32_t childNo);

// One regular row of the family's table, as the test drives it.
struct Row {
    const char* name;
    Kind kind;
    Target target;
    uint32_t code;
    uint32_t fallback;
    Call call;
    Read first, second;
};

#define DEVICE_READ(field) [](const DeviceRecord& d, const ChildRecord&, uint32_t) -> uint32_t { return d.field; }
#define CHILD_READ(field) [](const DeviceRecord&, const ChildRecord& c, uint32_t) -> uint32_t { return c.field; }
#define CALL_DEVICE_1(e) [](uint32_t d, uint32_t, uint32_t* v, uint32_t*, uint32_t* err) { return e(d, v, err); }
#define CALL_DEVICE_2(e) [](uint32_t d, uint32_t, uint32_t* v, uint32_t* w, uint32_t* err) { return e(d, v, w, err); }
#define CALL_HEAD_1(e) [](uint32_t d, uint32_t c, uint32_t* v, uint32_t*, uint32_t* err) { return e(d, c, v, err); }
#define CALL_HEAD_2(e) \
    [](uint32_t d, uint32_t c, uint32_t* v, uint32_t* w, uint32_t* err) { return e(d, c, v, w, err); }
#define ROW(e, kind, target, code, fallback, call, first, second) \
    {#e, Kind::kind, Target::target, code, fallback, call, first, second},

const Row kRows[] = {
#define DEVICE_VALUE(e, w, code, field, fallback) \
    ROW(e, Value, Device, code, fallback, CALL_DEVICE_1(e), DEVICE_READ(field), nullptr)
#define DEVICE_FLAG(e, w, code, flag) ROW(e, Flag, Device, code, 0, CALL_DEVICE_1(e), DEVICE_READ(flag), nullptr)
#define DEVICE_PAIR(e, w, code, first, second) \
    ROW(e, Pair, Device, code, 0, CALL_DEVICE_2(e), DEVICE_READ(first), DEVICE_READ(second))
#define DEVICE_QUERY(e, w, code, fallback) ROW(e, Query, Device, code, fallback, CALL_DEVICE_1(e), nullptr, nullptr)
#define CHILD_OR_DEVICE_VALUE(e, w, code, field, fallback)                                       \
    ROW(e, Value, HeadOrDevice, code, fallback, CALL_HEAD_1(e),                                  \
        [](const DeviceRecord& d, const ChildRecord& c, uint32_t childNo) -> uint32_t {         \
            return childNo ? c.field : d.field;                                                 \
        },                                                                                      \
        nullptr)
#define CHILD_VALUE(e, w, code, field, fallback) \
    ROW(e, Value, Head, code, fallback, CALL_HEAD_1(e), CHILD_READ(field), nullptr)
#define CHILD_FLAG(e, w, code, flag) ROW(e, Flag, Head, code, 0, CALL_HEAD_1(e), CHILD_READ(flag), nullptr)
#define CHILD_PAIR(e, w, code, first, second) \
    ROW(e, Pair, Head, code, 0, CALL_HEAD_2(e), CHILD_READ(first), CHILD_READ(second))
#define CHILD_PACKED(e, w, code, high, low) \
    ROW(e, Packed, Head, code, 0, CALL_HEAD_2(e), CHILD_READ(high), CHILD_READ(low))
#define CHILD_QUERY(e, w, code, fallback) ROW(e, Query, Head, code, fallback, CALL_HEAD_1(e), nullptr, nullptr)
#include "state/requests.def"
};

class Requests : public LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        Detect(VMC_INTERFACE_VIRTUAL);
        ScriptCamera(16);
        deviceNo = Open(16);
        FAKE_ClearLog();
    }

    void Answer(uint32_t child, uint32_t code, uint32_t value1, uint32_t value2 = 0, uint32_t error = kOk,
                uint32_t sub = 0) {
        FAKE_SetAnswer(kModule, "DEV_GetDeviceCaps", child, code, sub, value1, value2, error);
    }

    ChildRecord Head(uint32_t childNo = 1) {
        ChildRecord child{};
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, childNo, &child, &error));
        return child;
    }

    // The child numbers a row is asked with: heads are child 1.
    static std::vector<uint32_t> Children(const Row& row) {
        switch (row.target) {
        case Target::Device: return {0};
        case Target::Head: return {1};
        case Target::HeadOrDevice: return {0, 1};
        }
        return {};
    }

    uint32_t deviceNo = VMC_MAX_DEVICES;
};

// Each row once with an answer and once refused with 21. The fake writes
// its outputs also when it refuses: the default must replace them.
TEST_F(Requests, EveryRowStoresTheAnswerOrItsDefault) {
    uint32_t seed = 2;
    for (const Row& row : kRows) {
        for (uint32_t childNo : Children(row)) {
            SCOPED_TRACE(std::string(row.name) + " child " + std::to_string(childNo));
            const uint32_t first = ++seed, second = seed + 1000;
            uint32_t expected1 = first, answer1 = first;
            if (row.kind == Kind::Packed) {
                answer1 = (first << 16) | second;
            } else if (row.kind == Kind::Flag) {
                expected1 = answer1 = first & 0x7F;
            }
            for (bool refused : {false, true}) {
                Answer(childNo, row.code, refused ? 0x00770077 : answer1, refused ? 0x00880088 : second,
                       refused ? VMC_ERR_NOT_SUPPORTED : kOk);
                const uint32_t want1 = refused ? row.fallback : expected1, want2 = refused ? 0 : second;
                uint32_t value1 = 0, value2 = 0, error = 0;
                EXPECT_EQ(refused ? 0u : 1u, row.call(deviceNo, childNo, &value1, &value2, &error));
                EXPECT_EQ(refused ? VMC_ERR_NOT_SUPPORTED : kOk, error);
                EXPECT_EQ(want1, value1);
                const DeviceRecord device = Info(deviceNo);
                const ChildRecord child = Head();
                if (row.first) {
                    EXPECT_EQ(want1, row.first(device, child, childNo));
                }
                if (row.second) {
                    EXPECT_EQ(want2, value2);
                    EXPECT_EQ(want2, row.second(device, child, childNo));
                }
            }
        }
    }
}

// Rows written out apart from the table, so that a wrong code, field, child
// rule or default in it is not mirrored here: what the module is asked, what
// the caller gets and the record keeps, and what a refusal (21) leaves.
struct HandRow {
    const char* name;
    std::function<uint32_t(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error)> call;
    uint32_t child, code, answer1, answer2;
    std::vector<uint32_t> returned, onRefusal;
    // The fields the request stores; null for a query, which keeps nothing.
    std::vector<uint32_t> (*stored)(const DeviceRecord&, const ChildRecord&);
};

using Words = std::vector<uint32_t>;
const HandRow kHandRows[] = {
    {"VMC_ReqVideoOutMode", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqVideoOutMode(d, v, e); },
     0, VMC_CODE_VIDEO_OUT_MODE, 5, 0, {5}, {2},
     [](const DeviceRecord& d, const ChildRecord&) { return Words{d.videoOutMode}; }},
    {"VMC_ReqChildDeviceCount",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqChildDeviceCount(d, v, e); }, 0,
     VMC_CODE_CHILD_DEVICE_COUNT, 3, 0, {3}, {1},
     [](const DeviceRecord& d, const ChildRecord&) { return Words{d.childDeviceCount}; }},
    {"VMC_ReqProductID of the device",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqProductID(d, 0, v, e); }, 0,
     VMC_CODE_PRODUCT_ID, 77, 0, {77}, {0},
     [](const DeviceRecord& d, const ChildRecord&) { return Words{d.productId}; }},
    {"VMC_ReqRecordRateCache",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqRecordRateCache(d, 1, v, e); }, 1,
     VMC_CODE_RECORD_RATE_CACHE, 4000, 0, {4000}, {0},
     [](const DeviceRecord&, const ChildRecord& c) { return Words{c.recordRate}; }},
    {"VMC_ReqSensorGainMode",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqSensorGainMode(d, 1, v, e); }, 1,
     VMC_CODE_SENSOR_GAIN_MODE, 3, 0, {3}, {1},
     [](const DeviceRecord&, const ChildRecord& c) { return Words{c.sensorGainMode}; }},
    {"VMC_ReqMemIRIG", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqMemIRIG(d, 1, v, e); }, 1,
     VMC_CODE_IRIG_MODE, 6, 0, {6}, {0},
     [](const DeviceRecord&, const ChildRecord& c) { return Words{c.memIrigMode}; }},
    // The gamma name of the memory view asks and keeps the gain mode.
    {"VMC_ReqMemSensorGammaMode",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqMemSensorGammaMode(d, 1, v, e); }, 1,
     VMC_CODE_SENSOR_GAIN_MODE, 4, 0, {4}, {1},
     [](const DeviceRecord&, const ChildRecord& c) { return Words{c.memSensorGainMode}; }},
    {"VMC_ReqMemResolution",
     [](uint32_t d, uint32_t* v, uint32_t* w, uint32_t* e) { return VMC_ReqMemResolution(d, 1, v, w, e); }, 1,
     VMC_CODE_RESOLUTION, 640u << 16 | 480, 0, {640, 480}, {0, 0},
     [](const DeviceRecord&, const ChildRecord& c) { return Words{c.memWidth, c.memHeight}; }},
    {"VMC_ReqFanCtrl", [](uint32_t d, uint32_t* v, uint32_t* w, uint32_t* e) { return VMC_ReqFanCtrl(d, v, w, e); },
     0, VMC_CODE_FAN_CTRL, 2, 30, {2, 30}, {0, 0},
     [](const DeviceRecord& d, const ChildRecord&) { return Words{d.fanCtrlMode, d.fanCtrlValue}; }},
    {"VMC_ReqSubPort", [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqSubPort(d, v, e); }, 0,
     VMC_CODE_SUB_PORT, 1, 0, {1}, {0}, [](const DeviceRecord& d, const ChildRecord&) { return Words{d.hasSubPort}; }},
    {"VMC_ReqMechanicalShutter",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqMechanicalShutter(d, v, e); }, 0,
     VMC_CODE_MECHANICAL_SHUTTER, 1, 0, {1}, {2}, nullptr},
    {"VMC_ReqPixelGainMagnification",
     [](uint32_t d, uint32_t* v, uint32_t*, uint32_t* e) { return VMC_ReqPixelGainMagnification(d, 1, v, e); }, 1,
     VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD, 2048, 0, {2048}, {1024}, nullptr},
};

TEST_F(Requests, RowsWrittenOutByHand) {
    for (const HandRow& row : kHandRows) {
        SCOPED_TRACE(row.name);
        for (bool refused : {false, true}) {
            Answer(row.child, row.code, row.answer1, row.answer2, refused ? VMC_ERR_NOT_SUPPORTED : kOk);
            FAKE_ClearLog();
            uint32_t value[2] = {}, error = 0;
            EXPECT_EQ(refused ? 0u : 1u, row.call(deviceNo, &value[0], &value[1], &error));
            EXPECT_EQ(refused ? VMC_ERR_NOT_SUPPORTED : kOk, error);
            const Words& want = refused ? row.onRefusal : row.returned;
            EXPECT_EQ(want, Words(value, value + want.size()));
            const std::vector<FakeCall> asked = CallRecords("DEV_GetDeviceCaps");
            ASSERT_EQ(3u, asked.size()) << "the link twice, then the setting";
            EXPECT_EQ(row.code, asked[2].code);
            EXPECT_EQ(row.child, asked[2].child);
            if (row.stored) {
                EXPECT_EQ(want, row.stored(Info(deviceNo), Head()));
            }
        }
    }
}

// Per-head requests written by hand, called with any head number.
using HeadCall = std::function<uint32_t(uint32_t deviceNo, uint32_t childNo, uint32_t* error)>;
#define HEAD_1(e) {#e, [](uint32_t d, uint32_t c, uint32_t* err) { uint32_t v = 0; return e(d, c, &v, err); }}
#define HEAD_2(e) {#e, [](uint32_t d, uint32_t c, uint32_t* err) { uint32_t v[2] = {}; return e(d, c, v, v + 1, err); }}
#define HEAD_4(e)                                                   \
    {#e, [](uint32_t d, uint32_t c, uint32_t* err) {                \
         uint32_t v[4] = {};                                        \
         return e(d, c, v, v + 1, v + 2, v + 3, err);               \
     }}
#define HEAD_LIST(e, Entry)                                         \
    {#e, [](uint32_t d, uint32_t c, uint32_t* err) {                \
         Entry list[16] = {};                                       \
         uint32_t count = 0;                                        \
         return e(d, c, list, &count, err);                         \
     }}
#define HEAD_INDEXED(e, Value)                                      \
    {#e, [](uint32_t d, uint32_t c, uint32_t* err) {                \
         Value v[3] = {};                                           \
         return e(d, c, 1, v, err);                                 \
     }}

const std::vector<std::pair<const char*, HeadCall>> kHeadParticulars = {
    HEAD_1(VMC_ReqColorType),
    HEAD_2(VMC_ReqResolution),
    HEAD_2(VMC_ReqResolutionCache),
    HEAD_2(VMC_ReqResolutionROI),
    HEAD_2(VMC_ReqMaxPartition),
    HEAD_1(VMC_ReqCurrentPartition),
    HEAD_4(VMC_ReqColorTempMode),
    HEAD_2(VMC_ReqMaxFrames),
    HEAD_2(VMC_ReqMaxFramesCache),
    HEAD_4(VMC_ReqMemTriggerMode),
    HEAD_4(VMC_ReqMemColorTempMode),
    HEAD_1(VMC_ReqMemSensorGammaMode),
    HEAD_LIST(VMC_ReqMemEventFrame, int32_t),
    HEAD_LIST(VMC_ReqMemEventRCount, uint32_t),
    HEAD_2(VMC_ReqMemTwoStageTriggerFrame),
    HEAD_INDEXED(VMC_ReqColorEnhanceValue, int32_t),
    HEAD_INDEXED(VMC_ReqMemColorEnhanceValue, int32_t),
    HEAD_1(VMC_ReqMaxBitDepth),
    HEAD_2(VMC_ReqColorTempBase),
    HEAD_1(VMC_ReqMemColorType),
    HEAD_1(VMC_ReqBitDepth),
    HEAD_2(VMC_ReqBitDepth2),
    HEAD_1(VMC_ReqMemBitDepth),
    HEAD_2(VMC_ReqMemBitDepth2),
    HEAD_4(VMC_ReqSoftColorTempMode),
    HEAD_INDEXED(VMC_ReqMemRecordedFramesPerTrigger, uint32_t),
    HEAD_LIST(VMC_ReqMemTriggerFrameList, uint32_t),
    {"VMC_ReqMemFrameInfo",
     [](uint32_t d, uint32_t c, uint32_t* err) {
         MemFrameInfoRecord record{};
         return VMC_ReqMemFrameInfo(d, c, &record, err);
     }},
    {"VMC_ReqMemModeResolution",
     [](uint32_t d, uint32_t c, uint32_t* err) {
         uint32_t v[2] = {};
         return VMC_ReqMemModeResolution(d, c, 0, v, v + 1, err);
     }},
    {"VMC_ReqMemModeFrameInfo",
     [](uint32_t d, uint32_t c, uint32_t* err) {
         MemFrameInfoRecord record{};
         return VMC_ReqMemModeFrameInfo(d, c, 0, 0, &record, err);
     }},
    // The device itself (child 0) is a target of the calibration frame count.
    HEAD_2(VMC_ReqCalMaxFrames),
};

TEST_F(Requests, HeadRequestsRefuseAMissingHeadBeforeAskingAnything) {
    for (uint32_t childNo : {0u, 2u, 13u}) {
        for (const Row& row : kRows) {
            if (row.target == Target::Device || (row.target == Target::HeadOrDevice && childNo == 0)) continue;
            uint32_t value1 = 0, value2 = 0, error = 0;
            EXPECT_EQ(0u, row.call(deviceNo, childNo, &value1, &value2, &error)) << row.name << " " << childNo;
            EXPECT_EQ(VMC_ERR_BAD_CHILD, error) << row.name << " " << childNo;
        }
        for (const auto& [name, call] : kHeadParticulars) {
            if (childNo == 0 && std::string(name) == "VMC_ReqCalMaxFrames") continue;
            uint32_t error = 0;
            EXPECT_EQ(0u, call(deviceNo, childNo, &error)) << name << " " << childNo;
            EXPECT_EQ(VMC_ERR_BAD_CHILD, error) << name << " " << childNo;
        }
    }
    EXPECT_EQ(0u, FAKE_CallCount());
}

TEST_F(Requests, OutputChecksComeBeforeTheLock) {
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_ReqRecordRate(deviceNo, 1, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(0u, VMC_ReqIRIG(deviceNo, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(0u, FAKE_CallCount());
}

TEST_F(Requests, ResolutionUnpacksAndTheRegionOfInterestFollows) {
    uint32_t width = 0, height = 0, error = 0;
    Answer(1, VMC_CODE_RESOLUTION, (640u << 16) | 480u);
    EXPECT_EQ(1u, VMC_ReqResolution(deviceNo, 1, &width, &height, &error));
    EXPECT_EQ(640u, width);
    EXPECT_EQ(480u, height);
    ChildRecord child = Head();
    EXPECT_EQ(640u, child.roiWidth);
    EXPECT_EQ(480u, child.roiHeight);

    // A head without a region of interest records the whole picture.
    Answer(1, VMC_CODE_RESOLUTION_ROI, (1u << 16) | 1u, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqResolutionROI(deviceNo, 1, &width, &height, &error));
    EXPECT_EQ(640u, width);
    EXPECT_EQ(480u, height);
    Answer(1, VMC_CODE_RESOLUTION_ROI, (320u << 16) | 240u);
    EXPECT_EQ(1u, VMC_ReqResolutionROI(deviceNo, 1, &width, &height, &error));
    child = Head();
    EXPECT_EQ(320u, child.roiWidth);
    EXPECT_EQ(240u, child.roiHeight);

    // The cache form leaves the region of interest alone.
    Answer(1, VMC_CODE_RESOLUTION_CACHE, (800u << 16) | 600u);
    EXPECT_EQ(1u, VMC_ReqResolutionCache(deviceNo, 1, &width, &height, &error));
    child = Head();
    EXPECT_EQ(800u, child.width);
    EXPECT_EQ(600u, child.height);
    EXPECT_EQ(320u, child.roiWidth);

    // A link error zeroes all four.
    Answer(1, VMC_CODE_RESOLUTION, (640u << 16) | 480u, 0, 113);
    EXPECT_EQ(0u, VMC_ReqResolution(deviceNo, 1, &width, &height, &error));
    EXPECT_EQ(113u, error);
    child = Head();
    EXPECT_EQ(0u, child.width);
    EXPECT_EQ(0u, child.height);
    EXPECT_EQ(0u, child.roiWidth);
    EXPECT_EQ(0u, child.roiHeight);
}

TEST_F(Requests, TriggerModeIsReadAsOneAndAFailureZeroesOnlyTheMode) {
    uint32_t mode = 0, after = 0, frames = 0, count = 0, error = 0;
    Answer(0, VMC_CODE_TRIGGER_MODE, 0x2000000, 50);
    Answer(0, VMC_CODE_TRIGGER_RANDOM, 3, 4);
    EXPECT_EQ(1u, VMC_ReqTriggerMode(deviceNo, &mode, &after, &frames, &count, &error));
    EXPECT_EQ(0x2000000u, mode);
    EXPECT_EQ(50u, after);
    EXPECT_EQ(3u, frames);
    EXPECT_EQ(4u, count);

    Answer(0, VMC_CODE_TRIGGER_MODE, 0x1000000, 70);
    Answer(0, VMC_CODE_TRIGGER_RANDOM, 8, 9, 5);
    EXPECT_EQ(0u, VMC_ReqTriggerMode(deviceNo, &mode, &after, &frames, &count, &error));
    EXPECT_EQ(5u, error);
    const DeviceRecord device = Info(deviceNo);
    EXPECT_EQ(0u, device.triggerMode);
    EXPECT_EQ(50u, device.triggerAfterFrames);
    EXPECT_EQ(3u, device.triggerRandomFrames);
    EXPECT_EQ(0u, mode);

    // The memory view of a head follows the same rule.
    Answer(1, VMC_CODE_TRIGGER_MODE, 0x6000000, 20);
    Answer(1, VMC_CODE_TRIGGER_RANDOM, 100, 4);
    EXPECT_EQ(1u, VMC_ReqMemTriggerMode(deviceNo, 1, &mode, &after, &frames, &count, &error));
    Answer(1, VMC_CODE_TRIGGER_MODE, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqMemTriggerMode(deviceNo, 1, &mode, &after, &frames, &count, &error));
    const ChildRecord child = Head();
    EXPECT_EQ(0u, child.memTriggerMode);
    EXPECT_EQ(20u, child.memTriggerAfterFrames);
    EXPECT_EQ(4u, child.memTriggerRandomCount);
}

TEST_F(Requests, ColourValuesAreSignAndMagnitude) {
    int32_t values[3] = {};
    uint32_t error = 0;
    Answer(1, VMC_CODE_COLOR_ENHANCE_VALUE_3, (0x8005u << 16) | 0x0003u, 0x8007);
    EXPECT_EQ(1u, VMC_ReqColorEnhanceValue(deviceNo, 1, 3, values, &error));
    EXPECT_EQ(-5, values[0]);
    EXPECT_EQ(3, values[1]);
    EXPECT_EQ(-7, values[2]);
    ChildRecord child = Head();
    EXPECT_EQ(-5, child.colorEnhanceValue[6]);
    EXPECT_EQ(-7, child.colorEnhanceValue[8]);
    EXPECT_EQ(0, child.colorEnhanceValue[0]);

    Answer(1, VMC_CODE_COLOR_ENHANCE_VALUE_3, 0x00010001, 1, 5);
    EXPECT_EQ(0u, VMC_ReqMemColorEnhanceValue(deviceNo, 1, 3, values, &error));
    EXPECT_EQ(0, Head().memColorEnhanceValue[6]);

    FAKE_ClearLog();
    EXPECT_EQ(0u, VMC_ReqColorEnhanceValue(deviceNo, 1, 4, values, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(0, Count("DEV_GetDeviceCaps", FAKE_ANY) - Count("DEV_GetDeviceCaps", VMC_CODE_CONNECT_STATE));
}

TEST_F(Requests, ColourTemperatureIsOneSetOfFour) {
    uint32_t mode = 0, v1 = 0, v2 = 0, v3 = 0, error = 0;
    Answer(1, VMC_CODE_COLOR_TEMP_MODE, 3);
    Answer(1, VMC_CODE_COLOR_TEMP_VALUE_1, 5000);
    Answer(1, VMC_CODE_COLOR_TEMP_VALUE_2, 600);
    Answer(1, VMC_CODE_COLOR_TEMP_VALUE_3, 700);
    EXPECT_EQ(1u, VMC_ReqColorTempMode(deviceNo, 1, &mode, &v1, &v2, &v3, &error));
    ChildRecord child = Head();
    EXPECT_EQ(3u, child.colorTempMode);
    EXPECT_EQ(700u, child.colorTempValue3);

    // A refusal resets the set to neutral; a read after it still fills its value.
    Answer(1, VMC_CODE_COLOR_TEMP_VALUE_2, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqColorTempMode(deviceNo, 1, &mode, &v1, &v2, &v3, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    child = Head();
    EXPECT_EQ(1u, child.colorTempMode);
    EXPECT_EQ(0u, child.colorTempValue1);
    EXPECT_EQ(0u, child.colorTempValue2);
    EXPECT_EQ(700u, child.colorTempValue3);

    // A head that can't give its base has the full range.
    uint32_t base1 = 0, base2 = 0;
    EXPECT_EQ(0u, VMC_ReqColorTempBase(deviceNo, 1, &base1, &base2, &error));
    EXPECT_EQ(16u, Head().colorTempBase1);
    EXPECT_EQ(4095u, Head().colorTempBase2);
}

TEST_F(Requests, BitDepthsFallBackOnWhatTheHeadCan) {
    uint32_t depth = 0, depth2 = 0, error = 0;
    EXPECT_EQ(0u, VMC_ReqMaxBitDepth(deviceNo, 1, &depth, &error));
    EXPECT_EQ(8u, Head().maxBitDepth);
    Answer(1, VMC_CODE_MAX_BIT_DEPTH, 12);
    EXPECT_EQ(1u, VMC_ReqMaxBitDepth(deviceNo, 1, &depth, &error));

    EXPECT_EQ(0u, VMC_ReqBitDepth(deviceNo, 1, &depth, &error));
    EXPECT_EQ(12u, depth);  // refused: the maximum
    Answer(1, VMC_CODE_BIT_DEPTH, 0x30A);
    EXPECT_EQ(1u, VMC_ReqBitDepth(deviceNo, 1, &depth, &error));
    EXPECT_EQ(10u, depth);  // the low byte
    EXPECT_EQ(10u, Head().bitDepth);

    // Without code 158 the pair comes from code 113; the word the fallback
    // leaves is its own.
    EXPECT_EQ(0u, VMC_ReqBitDepth2(deviceNo, 1, &depth, &depth2, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(10u, depth);
    EXPECT_EQ(0u, depth2);
    Answer(1, VMC_CODE_BIT_DEPTH, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqBitDepth2(deviceNo, 1, &depth, &depth2, &error));
    EXPECT_EQ(12u, depth);
    Answer(1, VMC_CODE_BIT_DEPTH_2, 12, 8);
    EXPECT_EQ(1u, VMC_ReqBitDepth2(deviceNo, 1, &depth, &depth2, &error));
    EXPECT_EQ(12u, Head().bitDepth);
    EXPECT_EQ(8u, Head().bitDepth2);

    // The memory view falls back on the live depth.
    Answer(1, VMC_CODE_BIT_DEPTH_2, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqMemBitDepth(deviceNo, 1, &depth, &error));
    EXPECT_EQ(12u, Head().memBitDepth);
}

TEST_F(Requests, CurrentPartitionDrivesPlaybackUnlessPartitionsIncrement) {
    uint32_t value = 0, error = 0;
    Answer(0, VMC_CODE_PARTITION_INC_MODE, 0);
    EXPECT_EQ(1u, VMC_ReqPartitionIncMode(deviceNo, &value, &error));
    Answer(1, VMC_CODE_CURRENT_PARTITION, 2);
    EXPECT_EQ(1u, VMC_ReqCurrentPartition(deviceNo, 1, &value, &error));
    EXPECT_EQ(2u, Head().memoryModePartition);

    Answer(0, VMC_CODE_PARTITION_INC_MODE, 2);
    EXPECT_EQ(1u, VMC_ReqPartitionIncMode(deviceNo, &value, &error));
    Answer(1, VMC_CODE_CURRENT_PARTITION, 3);
    EXPECT_EQ(1u, VMC_ReqCurrentPartition(deviceNo, 1, &value, &error));
    ChildRecord child = Head();
    EXPECT_EQ(3u, child.currentPartition);
    EXPECT_EQ(2u, child.memoryModePartition);

    Answer(1, VMC_CODE_CURRENT_PARTITION, 9, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqCurrentPartition(deviceNo, 1, &value, &error));
    EXPECT_EQ(1u, Head().currentPartition);

    // No partitions: one, of no blocks.
    uint32_t blocks = 0;
    EXPECT_EQ(0u, VMC_ReqMaxPartition(deviceNo, 1, &value, &blocks, &error));
    EXPECT_EQ(1u, Head().maxPartition);
    EXPECT_EQ(0u, Head().maxPartitionBlocks);
}

TEST_F(Requests, FrameCapacityIsKeptOnlyWhenTheCameraGivesIt) {
    uint32_t frames = 0, blocks = 0, error = 0;
    Answer(1, VMC_CODE_MAX_FRAMES, 800, 3);
    EXPECT_EQ(1u, VMC_ReqMaxFrames(deviceNo, 1, &frames, &blocks, &error));
    Answer(1, VMC_CODE_MAX_FRAMES_CACHE, 900, 4, 5);
    EXPECT_EQ(0u, VMC_ReqMaxFramesCache(deviceNo, 1, &frames, &blocks, &error));
    EXPECT_EQ(800u, Head().maxFrames);
    EXPECT_EQ(3u, Head().maxFrameBlocks);
}

TEST_F(Requests, StorageControlsNeedTheirKindOfStorage) {
    uint32_t value = 9, error = 0;
    Answer(0, VMC_CODE_SD_CARD_CTRL, 6);
    for (uint32_t storage : {0u, 1u, 2u}) {
        SCOPED_TRACE(storage);
        Answer(0, VMC_CODE_STORAGE_MODE, storage);
        FAKE_ClearLog();
        EXPECT_EQ(storage == 0 ? 1u : 0u, VMC_ReqSdCardCtrl(deviceNo, &value, &error));
        EXPECT_EQ(storage == 0 ? kOk : VMC_ERR_NOT_SUPPORTED, error);
        EXPECT_EQ(storage == 0 ? 6u : 0u, value);
        EXPECT_EQ(storage == 1 ? 1u : 0u, VMC_ReqSSDBoxCtrl(deviceNo, &value, &error));
        EXPECT_EQ(storage == 1 ? 6u : 0u, value);
        EXPECT_EQ(storage < 2 ? 1 : 0, Count("DEV_GetDeviceCaps", VMC_CODE_SD_CARD_CTRL));
        const DeviceRecord device = Info(deviceNo);
        EXPECT_EQ(storage == 0 ? 6u : 0u, device.sdCardCtrl);
        EXPECT_EQ(storage == 1 ? 6u : 0u, device.ssdBoxCtrl);
    }
}

TEST_F(Requests, EventFramesCarryTheirSignInTheTopBit) {
    const uint32_t listed[] = {5, 0x80000010u, 7};
    FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_EVENT_FRAME, 0, listed, 3, kOk);
    int32_t frames[16] = {};
    uint32_t count = 0, error = 0;
    EXPECT_EQ(1u, VMC_ReqMemEventFrame(deviceNo, 1, frames, &count, &error));
    ASSERT_EQ(3u, count);
    EXPECT_EQ(5, frames[0]);
    EXPECT_EQ(-16, frames[1]);
    EXPECT_EQ(7, frames[2]);
    EXPECT_EQ(3u, Head().eventFrameCount);

    // Trigger frames have no sign.
    FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_TRIGGER_FRAME, 0, listed, 3, kOk);
    uint32_t triggers[16] = {};
    EXPECT_EQ(1u, VMC_ReqMemTriggerFrameList(deviceNo, 1, triggers, &count, &error));
    EXPECT_EQ(0x80000010u, triggers[1]);

    FAKE_SetList(kModule, "DEV_GetList", 1, VMC_LIST_MEM_EVENT_FRAME, 0, listed, 3, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(0u, VMC_ReqMemEventFrame(deviceNo, 1, frames, &count, &error));
    EXPECT_EQ(0u, count);
    EXPECT_EQ(0u, Head().eventFrameCount);
}

TEST_F(Requests, IndexedDeviceRequestsKeepTheirSlot) {
    uint32_t value = 0, error = 0;
    Answer(0, VMC_CODE_EXTERNAL_IN_MODE, 7, 0, kOk, 2);
    EXPECT_EQ(1u, VMC_ReqExternalInMode(deviceNo, 2, &value, &error));
    EXPECT_EQ(7u, Info(deviceNo).externalInMode[1]);
    Answer(0, VMC_CODE_PROG_SWITCH_MODE, 4, 0, kOk, 4);
    EXPECT_EQ(1u, VMC_ReqProgSwitchMode(deviceNo, 4, &value, &error));
    EXPECT_EQ(4u, Info(deviceNo).progSwitchMode[3]);

    // Delay type 12 is the second of the arrays; types 10 and 11 have fields of their own.
    Answer(0, VMC_CODE_DELAY, 120, 0, kOk, 12);
    Answer(0, VMC_CODE_DELAY_LIMIT, 1000, 0, kOk, 11);
    EXPECT_EQ(1u, VMC_ReqDelay(deviceNo, 12, &value, &error));
    EXPECT_EQ(1u, VMC_ReqDelayLimit(deviceNo, 11, &value, &error));
    DeviceRecord device = Info(deviceNo);
    EXPECT_EQ(120u, device.delayValue[1]);
    EXPECT_EQ(1000u, device.delayLimit11);
    // A failed delay query keeps what was cached.
    Answer(0, VMC_CODE_DELAY, 0, 0, VMC_ERR_NOT_SUPPORTED, 12);
    EXPECT_EQ(0u, VMC_ReqDelay(deviceNo, 12, &value, &error));
    EXPECT_EQ(120u, Info(deviceNo).delayValue[1]);

    // Exposure outputs by signal; other signals have none.
    Answer(0, VMC_CODE_EXPOSE_OUT_TIMES_1, 13);
    Answer(0, VMC_CODE_EXPOSE_OUT_TIMES_2, 88);
    EXPECT_EQ(1u, VMC_ReqExposeOutTimes(deviceNo, 14, &value, &error));
    EXPECT_EQ(1u, VMC_ReqExposeOutTimes(deviceNo, 82, &value, &error));
    device = Info(deviceNo);
    EXPECT_EQ(13u, device.exposeOutTimes1);
    EXPECT_EQ(88u, device.exposeOutTimes2);

    // One bit of the span word per output.
    Answer(0, VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, 1, 0, kOk, 3);
    EXPECT_EQ(1u, VMC_ReqExternalOutSignalSpan(deviceNo, 3, &value, &error));
    Answer(0, VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, 1, 0, kOk, 1);
    EXPECT_EQ(1u, VMC_ReqExternalOutSignalSpan(deviceNo, 1, &value, &error));
    Answer(0, VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, 0, 0, kOk, 3);
    EXPECT_EQ(1u, VMC_ReqExternalOutSignalSpan(deviceNo, 3, &value, &error));
    EXPECT_EQ(0x2u, Info(deviceNo).externalOutSignalSpan);

    FAKE_ClearLog();
    for (uint32_t port : {0u, 5u}) {
        EXPECT_EQ(0u, VMC_ReqExternalOutMode(deviceNo, port, &value, &error));
        EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    }
    EXPECT_EQ(0u, VMC_ReqDelay(deviceNo, 13, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(1u, VMC_ReqExposeOutTimes(deviceNo, 1, &value, &error));
    EXPECT_EQ(0, Count("DEV_GetDeviceCaps", FAKE_ANY) - Count("DEV_GetDeviceCaps", VMC_CODE_CONNECT_STATE));
}

TEST_F(Requests, AnswersKeptInFlagBytes) {
    uint32_t value = 0, error = 0;
    // Frame 0 exists when the camera says so; its silence counts as a done query.
    EXPECT_EQ(1u, VMC_ReqFrameZero(deviceNo, &value, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(0u, Info(deviceNo).frameZeroMode);
    Answer(0, VMC_CODE_FRAME_ZERO_MODE, 1);
    EXPECT_EQ(1u, VMC_ReqFrameZero(deviceNo, &value, &error));
    EXPECT_EQ(1u, Info(deviceNo).frameZeroMode);
    Answer(0, VMC_CODE_VARIABLE_FUNCTION, 1, 0, 5);
    EXPECT_EQ(1u, VMC_ReqVariableFunction(deviceNo, &value, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(0u, Info(deviceNo).variableFunction);

    Answer(0, VMC_CODE_STORE_NUM, 4);
    EXPECT_EQ(1u, VMC_ReqStoreNum(deviceNo, &value, &error));
    EXPECT_EQ(1u, Info(deviceNo).hasStoreNum);
    EXPECT_EQ(4u, Info(deviceNo).storeNum);

    // The fan stop delay is a signed byte.
    Answer(0, VMC_CODE_FAN_REC_READY_STOP, 0x1FE);
    EXPECT_EQ(1u, VMC_ReqFanRecReadyStop(deviceNo, &value, &error));
    EXPECT_EQ(static_cast<uint32_t>(-2), Info(deviceNo).fanRecReadyStop);
}

TEST_F(Requests, StoredPartitionsAreAskedOnlyWithinTheConfiguredCount) {
    uint32_t width = 0, height = 0, error = 0;
    EXPECT_EQ(0u, VMC_ReqMemModeResolution(deviceNo, 1, 1, &width, &height, &error));
    EXPECT_EQ(kOk, error);
    MemFrameInfoRecord record{};
    EXPECT_EQ(0u, VMC_ReqMemModeFrameInfo(deviceNo, 1, 1, 0, &record, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(0u, FAKE_CallCount());

    FAKE_SetAnswer(kModule, "DEV_GetMemModeDeviceCaps", 1, VMC_CODE_RESOLUTION, 0, (256u << 16) | 128u, 0, kOk);
    EXPECT_EQ(1u, VMC_ReqMemModeResolution(deviceNo, 1, 0, &width, &height, &error));
    EXPECT_EQ(256u, width);
    EXPECT_EQ(128u, height);
    const std::vector<FakeCall> calls = CallRecords("DEV_GetMemModeDeviceCaps");
    ASSERT_EQ(1u, calls.size());
    EXPECT_EQ(0u, calls[0].value1);  // the partition
}

}  // namespace
}  // namespace vmc::test
