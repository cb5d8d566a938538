// Function availability: every index in both cases against a camera that
// answers what sets its flag and one that answers nothing; the storage
// table; and shading, the one function switched after open.
#include <algorithm>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

constexpr int X = -1;  // the index means nothing in this case: error 5

// One scripted answer of the camera.
struct Answer {
    const char* entry;
    uint32_t child, code, sub, value1, value2;
    std::vector<uint32_t> list;
};

Answer Caps(uint32_t code, uint32_t value1 = 1, uint32_t sub = FAKE_ANY, uint32_t child = FAKE_ANY,
            uint32_t value2 = 0) {
    return {"DEV_GetDeviceCaps", child, code, sub, value1, value2, {}};
}
Answer OfHead(uint32_t child, uint32_t code, uint32_t value1 = 1) { return Caps(code, value1, FAKE_ANY, child); }
Answer Feature(uint32_t feature, uint32_t child = FAKE_ANY) { return Caps(VMC_CODE_FEATURE, 1, feature, child); }
Answer Data(uint32_t code, uint32_t child = FAKE_ANY) { return {"DEV_GetData", child, code, FAKE_ANY, 0, 0, {}}; }
Answer List(uint32_t code, std::vector<uint32_t> values, uint32_t child = FAKE_ANY) {
    return {"DEV_GetList", child, code, 0, 0, 0, std::move(values)};
}

// What a head (child 1) and the device (child 0) report for an index when
// the camera gives the answers, and when it answers only what every camera
// must. Rows without answers read module entries, which the test module
// has, or a flag nothing sets: both opens report the same.
struct Row {
    uint32_t index;
    int withChild, withDevice;
    std::vector<Answer> answers;
};

const std::vector<Row>& Rows() {
    using A = std::vector<Answer>;
    const Answer sdCard = Caps(VMC_CODE_STORAGE_MODE, 0), ssdBox = Caps(VMC_CODE_STORAGE_MODE, 1);
    const Answer storageControl = Caps(VMC_CODE_SD_CARD_CTRL);
    static const std::vector<Row> rows = {
        {2, 1, X, A{Caps(VMC_CODE_SENSOR_GAIN_MODE)}},
        {3, 1, X, A{Caps(VMC_CODE_SENSOR_GAMMA_MODE)}},
        {4, 1, X, A{Caps(VMC_CODE_COLOR_TEMP_BASE), Caps(VMC_CODE_COLOR_TEMP_MODE), Caps(VMC_CODE_COLOR_TEMP_VALUE_1),
                    Caps(VMC_CODE_COLOR_TEMP_VALUE_2), Caps(VMC_CODE_COLOR_TEMP_VALUE_3)}},
        {5, 1, X, A{Caps(VMC_CODE_DS_SHUTTER_MODE), Caps(VMC_CODE_DS_SHUTTER_VALUE)}},
        {6, 1, X, A{Caps(VMC_CODE_LUT_MODE)}},
        {7, 1, X, A{Caps(VMC_CODE_SHADING_MODE)}},
        {8, 0, X, A{}},
        {9, 1, X, A{Caps(VMC_CODE_EDGE_ENHANCE_MODE)}},
        {10, 1, 1, A{Caps(VMC_CODE_VIDEO_OUT_MODE)}},
        {11, 1, 1, A{Caps(VMC_CODE_SHUTTER_LOCK_MODE)}},
        {12, 1, 1, A{Caps(VMC_CODE_PARTITION_INC_MODE)}},
        {13, 1, 1, A{Caps(VMC_CODE_HEAD_EXCHANGE)}},
        {14, 1, 1, A{Caps(VMC_CODE_KEY_PAD_LOCK)}},
        {15, 1, 1, A{Caps(VMC_CODE_IRIG_MODE)}},
        {16, 1, 1, A{Caps(VMC_CODE_MCDL_MODE)}},
        {17, 5, 5, A{Caps(VMC_CODE_FRAME_ZERO_MODE, 5)}},
        {18, 1, X, A{Caps(VMC_CODE_PIXEL_GAIN_MODE)}},
        {19, 1, X, A{Caps(VMC_CODE_COLOR_ENHANCE_MODE)}},
        {20, 1, X, A{Caps(VMC_CODE_AUTO_EXPOSURE)}},
        {21, 1, 1, A{Caps(VMC_CODE_DELAY_LIMIT, 1, 3)}},
        {22, 1, 1, A{Caps(VMC_CODE_DOWNLOAD_MODE)}},
        {23, 5, 5, A{Caps(VMC_CODE_VARIABLE_FUNCTION, 5)}},
        {24, 1, 1, A{Caps(VMC_CODE_LOW_LIGHT_MODE)}},
        {25, 1, 1, A{Caps(VMC_CODE_PROG_SWITCH_MODE, 1, 1)}},
        {26, 1, X, A{Caps(VMC_CODE_SHUTTER_SPEED_USEC)}},
        {27, 1, 1, A{Caps(VMC_CODE_SYNC_OUT_TIMES)}},
        {28, 1, 1, A{Caps(VMC_CODE_STORE_NUM)}},
        {29, 1, 1, A{Caps(VMC_CODE_ETHERNET_INFO)}},
        {30, 1, 1, A{Caps(VMC_CODE_IRIG_PHASE_LOCK)}},
        {31, 1, 1, A{Caps(VMC_CODE_HIGH_SPEED_MODE)}},
        {32, 1, 1, A{Caps(VMC_CODE_BURST_TRANSFER)}},
        {33, 1, X, A{Caps(VMC_CODE_STEP_SHUTTER)}},
        {34, 1, X, A{Caps(VMC_CODE_LIVE_RESOLUTION_MODE)}},
        {35, 1, X, A{Caps(VMC_CODE_BIT_DEPTH)}},
        {36, 1, 1, A{}},
        {37, 1, 1, A{}},
        {38, 1, 1, A{}},
        {39, 1, 1, A{Caps(VMC_CODE_SYNC_PRIORITY)}},
        {40, 1, X, A{Caps(VMC_CODE_RESOLUTION_ROI)}},
        {41, 1, X, A{Caps(VMC_CODE_CAMERA_COMMAND_BAUD_RATE)}},
        {42, 1, 1, A{Caps(VMC_CODE_VIDEO_OUT_SIGNAL)}},
        {43, 1, 1, A{Caps(VMC_CODE_VIDEO_OUT_HDSDI)}},
        {44, 1, 1, A{Caps(VMC_CODE_RECORDING_TYPE)}},
        {45, 1, X, A{Caps(VMC_CODE_GHOST_REDUCTION)}},
        {46, 1, X, A{Caps(VMC_CODE_SOFT_COLOR_TEMP_MODE), Caps(VMC_CODE_SOFT_COLOR_TEMP_VALUE_1),
                     Caps(VMC_CODE_SOFT_COLOR_TEMP_VALUE_2), Caps(VMC_CODE_SOFT_COLOR_TEMP_VALUE_3)}},
        {47, 1, 1, A{Caps(VMC_CODE_AUTO_PLAY)}},
        {48, 1, 1, A{Caps(VMC_CODE_FACTORY_DEFAULTS)}},
        {49, 1, 1, A{Caps(VMC_CODE_STORE_PRESET)}},
        {50, 1, X, A{Caps(VMC_CODE_SHUTTER_SPEED_NSEC)}},
        {51, 1, 1, A{Caps(VMC_CODE_INSTRUCTION_SET)}},
        {52, 1, 1, A{Caps(VMC_CODE_RESOLUTION_LOCK_MODE)}},
        {53, 1, 1, A{Caps(VMC_CODE_LED_MODE)}},
        {54, 5, 5, A{Caps(VMC_CODE_LIVE_IRIG, 5)}},
        {55, 1, 1, A{Caps(VMC_CODE_VIDEO_OSD)}},
        {56, 1, X, A{Caps(VMC_CODE_SENSOR_TEMP_MODE)}},
        {57, 1, X, A{Caps(VMC_CODE_SHADING_OFFSET_MODE)}},
        {58, 1, X, A{Caps(VMC_CODE_MEMORY_BLOCK)}},
        {59, 1, X, A{Caps(VMC_CODE_LIVE_RESOLUTION_SCALE_MODE)}},
        {60, 1, 1, A{}},
        {61, 1, 1, A{Caps(VMC_CODE_NUM_OF_DROP_FRAME)}},
        {62, 1, X, A{Caps(VMC_CODE_TEST_PATTERN)}},
        {63, 1, X, A{Caps(VMC_CODE_OFFSET_AS)}},
        {64, 1, X, A{Caps(VMC_CODE_H_BANDING)}},
        {65, 1, 1, A{Caps(VMC_CODE_KEY_PAD_COMMAND)}},
        {66, 5, X, A{Caps(VMC_CODE_POLARIZATION, 5)}},
        {67, 1, X, A{Caps(VMC_CODE_SHADING_TYPE)}},
        {68, 1, X, A{Caps(VMC_CODE_BLACK_CLIP_LEVEL)}},
        {69, 1, X, A{Caps(VMC_CODE_BIT_DEPTH_2)}},
        {70, 5, 5, A{Caps(VMC_CODE_SUB_PORT, 5)}},
        {71, 1, 1, A{Caps(VMC_CODE_SUB_INTERFACE_MODE)}},
        {72, 1, 1, A{Caps(VMC_CODE_EXPOSE_EXTENSION)}},
        {73, 1, 1, A{Caps(VMC_CODE_BATTERY_POWER_MODE)}},
        {74, 1, 1, A{Caps(VMC_CODE_SYNC_IN_SIGNAL_STATUS)}},
        {75, 1, 1, A{Caps(VMC_CODE_VFPN_DATA)}},
        {76, 1, 1, A{Caps(VMC_CODE_SENSOR_LUT_DATA)}},
        {77, 1, X, A{Caps(VMC_CODE_FPGA_TEMP_MODE)}},
        {78, 1, 1, A{Caps(VMC_CODE_DELAY_LIMIT, 1, 8)}},
        {79, 1, X, A{Caps(VMC_CODE_DELAY_LIMIT, 1, 9)}},
        {80, 1, 1, A{Caps(VMC_CODE_BINNING_SENSOR_MODE)}},
        {81, 1, 1, A{Caps(VMC_CODE_EXPOSE_OUT_TIMES_1)}},
        {82, 1, 1, A{Caps(VMC_CODE_EXPOSE_OUT_TIMES_2)}},
        {83, 1, X, A{Caps(VMC_CODE_IMAGE_TRIGGER)}},
        {84, 1, X, A{Caps(VMC_CODE_LENS_CONTROL)}},
        {85, 1, 1, A{Caps(VMC_CODE_RTC)}},
        {86, 1, X, A{Caps(VMC_CODE_MEMORY_MODE_PARTITION)}},
        {87, 1, 1, A{Caps(VMC_CODE_FIX_FRAME_RECORD_MODE)}},
        {88, 1, 1, A{Caps(VMC_CODE_G_ETHER_TRANSFER_MODE)}},
        {89, 1, 1, A{Caps(VMC_CODE_MECHA_SHUTTER_MODE)}},
        {90, 1, 1, A{Caps(VMC_CODE_EXPOSE_TIME_DATA)}},
        {91, 1, 1, A{Caps(VMC_CODE_FAN_CTRL)}},
        {92, 1, 1, A{sdCard, storageControl}},
        // Types 10 and 11 count once a delay of type 1 brings their values.
        {93, 1, 1, A{Caps(VMC_CODE_DELAY_LIMIT, 1, 1), Caps(VMC_CODE_DELAY_LIMIT, 1, 10), Caps(VMC_CODE_DELAY)}},
        {94, 1, 1, A{Caps(VMC_CODE_MECHANICAL_SHUTTER)}},
        {95, 1, 1, A{Caps(VMC_CODE_RANDOM_TRIGGER_ENABLE)}},
        {96, 1, 1, A{Caps(VMC_CODE_CAL_MAX_FRAMES)}},
        {97, 5, 5, A{Caps(VMC_CODE_ENABLE_SELF_SYNC_MODE, 5)}},
        {98, 1, 1, A{ssdBox, storageControl}},
        {99, 1, 1, A{Caps(VMC_CODE_ADC_MODE)}},
        {100, 1, X, A{Caps(VMC_CODE_EXPOSURE_POSITION)}},
        {101, 1, X, A{Caps(VMC_CODE_VSYNC_EXPOSE_DEVIATION)}},
        {102, 1, 1, A{Caps(VMC_CODE_READ_AHEAD_TRANSFER)}},
        {103, 1, 1, A{Caps(VMC_CODE_IRIG_MODE), Caps(VMC_CODE_IRIG_SAMPLE_MODE)}},
        {104, 1, 1, A{Caps(VMC_CODE_LOW_FRAME_RATE_MODE)}},
        {105, 1, 1, A{ssdBox, storageControl}},
        {106, 1, 1, A{Caps(VMC_CODE_DIRECT_RECORD_RAPID_PACK)}},
        {107, 1, 1, A{Caps(VMC_CODE_HARDWARE_NOISE_REDUCTION)}},
        {108, 1, 1, A{Caps(VMC_CODE_STORAGE_DOWNLOAD_MODE)}},
        {109, 1, 1, A{Caps(VMC_CODE_AUTO_EXPOSURE), Caps(VMC_CODE_AUTO_EXPOSURE_PROBE_294, 3)}},
        {110, 1, 1, A{OfHead(1, VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD)}},
        {111, 1, 1, A{Caps(VMC_CODE_PARTITION_INC_MODE), List(VMC_LIST_PARTITION_INC_MODE, {0, 1})}},
        {112, 1, X, A{OfHead(1, VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD)}},
        {113, 1, 0, A{OfHead(1, VMC_CODE_WARNING_TEMPERATURE)}},
        {114, 1, 1, A{Caps(VMC_CODE_MODE_329)}},
        {115, 1, 1, A{Caps(VMC_CODE_BATTERY_INFO)}},
        {116, 1, 1, A{Caps(VMC_CODE_STORAGE_MODE, 2)}},
        {117, 1, 1, A{Caps(VMC_CODE_AUTO_POWER_WHEN_SUPPLY)}},
        {118, X, X, A{}},
        {119, 1, 1, A{Caps(VMC_CODE_PARTITION_LOCK)}},
        {120, 1, 1, A{Caps(VMC_CODE_SHUTDOWN_CAMERA)}},
        {121, 1, 1, A{Caps(VMC_CODE_ACCELERATION_TRIGGER)}},
        {122, 0, 0, A{}},
        {123, 1, 1, A{Caps(VMC_CODE_FAN_REC_READY_STOP)}},
        {124, 5, 5, A{Caps(VMC_CODE_PROBE_368, 5)}},
        {125, 1, 0, A{List(VMC_LIST_TEMPERATURE_TYPE, {1}, 1)}},
        {126, 0, 1, A{OfHead(0, VMC_CODE_MEM_TEMPERATURE_TYPE, 2)}},
        {127, X, 1, A{Caps(VMC_CODE_MAC_ADDRESS)}},
        {128, 1, 1, A{Caps(VMC_CODE_PROBE_387)}},
        {129, 1, 1, A{Caps(VMC_CODE_MEASUREMENT_VOLTAGE)}},
        {130, 1, 1, A{Caps(VMC_CODE_MEASUREMENT_CURRENT)}},
        // No in port, one out port that has a mode and a span.
        {131, 1, 1, A{Caps(VMC_CODE_EXTERNAL_COUNT, 0, FAKE_ANY, FAKE_ANY, 1), Caps(VMC_CODE_EXTERNAL_OUT_MODE, 1, 1),
                      Caps(VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN, 1, 1)}},
        {132, X, 1, A{Caps(VMC_CODE_MEMORY_SHARE)}},
        {133, 1, 0, A{Data(VMC_DATA_ACCELERATION, 1)}},
        {134, 1, 0, A{OfHead(1, VMC_CODE_WARNING_CABLE_CUTTING)}},
        {135, X, 1, A{Caps(VMC_CODE_TRIGGER_NOISE_FILTER)}},
        {136, 0, 0, A{}},
        {137, X, 1, A{Caps(VMC_CODE_VDAIO_TYPE)}},
        {138, 1, 1, A{Caps(VMC_CODE_ACCELERATION_TRIGGER_TIME)}},
        {139, 1, 1, A{Caps(VMC_CODE_VIDEO_OSD_CROSSHAIR_MODE)}},
        {140, 1, 1, A{Caps(VMC_CODE_SOFT_NOISE_REDUCTION)}},
        {141, 1, 1, A{List(VMC_LIST_TEMPERATURE_TYPE, {1}), Caps(VMC_CODE_WARNING_TEMPERATURE_THRESHOLD)}},
        {142, 1, 1, A{Caps(VMC_CODE_PROBE_397)}},
        {143, 1, 1, A{Caps(VMC_CODE_PROBE_398)}},
        {144, X, 1, A{Caps(VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH), Caps(VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH_2)}},
        {145, 1, 1, A{Caps(VMC_CODE_VIDEO_OUT_SIGNAL_ENABLE)}},
        {146, 1, 1, A{Caps(VMC_CODE_FAN_STATE)}},
        {147, 0x34, X, A{Caps(VMC_CODE_PROBE_401, 0x1234)}},
        {148, 1, 1, A{ssdBox, storageControl, Caps(VMC_CODE_PROBE_404)}},
        {149, 1, 1, A{ssdBox, storageControl, Caps(VMC_CODE_PROBE_405)}},
        {150, 1, 1, A{ssdBox, storageControl, Caps(VMC_CODE_PROBE_406)}},
        {151, 1, 1, A{ssdBox, storageControl, Caps(VMC_CODE_PROBE_407)}},
        {152, 1, 1, A{Caps(VMC_CODE_ACCELERATION_SENSOR_ERROR)}},
        {153, 1, X, A{Data(VMC_DATA_ACCELERATION, 0)}},
        {154, X, 1, A{Caps(VMC_CODE_HEAD_LED_LASER)}},
        {155, 1, 1, A{Caps(VMC_CODE_REBOOT_CAMERA)}},
        {156, 1, X, A{Data(VMC_DATA_LIVE_IMAGE_IRIG)}},
        {157, 1, 1, A{Caps(VMC_CODE_LINK_SPEED)}},
        {158, 1, 1, A{Caps(VMC_CODE_PACKET_INTERVAL_MODE)}},
        {159, 1, 1, A{Caps(VMC_CODE_ETHERNET_SPEED_LIMIT, 2)}},  // 1 would consult the user's settings
        {160, X, X, A{}},
        {161, X, 1, A{Feature(VMC_FEATURE_161)}},
        {162, 1, 0, A{Feature(VMC_FEATURE_162, 1)}},
        {163, 1, 1, A{Caps(VMC_CODE_MEDIA_SAVE_AFTER_INSERT)}},
        {164, 1, 1, A{Feature(VMC_FEATURE_TELNET_COMMAND)}},
        {165, 1, 1, A{Feature(VMC_FEATURE_DEVICE_ERROR_LIST)}},
        {166, 1, 1, A{Feature(VMC_FEATURE_DEVICE_ERROR_OBSERVE)}},
        {167, X, X, A{}},
        {168, X, X, A{}},
    };
    return rows;
}

class Availability : public LibraryTest {
protected:
    // Opens a camera with one head that gives these answers besides what every camera must.
    static uint32_t OpenAnswering(const std::vector<Answer>& answers) {
        FAKE_Reset();
        ScriptCamera(16);
        for (const Answer& a : answers) {
            if (std::string(a.entry) == "DEV_GetList")
                FAKE_SetList("DMOD016", a.entry, a.child, a.code, a.sub, a.list.data(),
                             static_cast<uint32_t>(a.list.size()), kOk);
            else
                FAKE_SetAnswer("DMOD016", a.entry, a.child, a.code, a.sub, a.value1, a.value2, kOk);
        }
        return Open(16);
    }

    // What VMC_IsFunction says: the result byte, or X for error 5.
    static int Reported(uint32_t deviceNo, uint32_t childNo, uint32_t index) {
        uint8_t result = 0xEE;
        uint32_t error = 0;
        const uint32_t ok = VMC_IsFunction(deviceNo, childNo, index, &result, &error);
        if (!ok) return error == VMC_ERR_BAD_ARGUMENT ? X : -1000 - static_cast<int>(error);
        return error == kOk ? result : -2000 - static_cast<int>(error);
    }

    static void Close(uint32_t deviceNo) {
        uint32_t error = 0;
        VMC_CloseDevice(deviceNo, &error);
    }
};

// The rows must be the indices 2..168, each once, so the walk misses none.
TEST_F(Availability, EveryIndexAnswersItsFlagInBothCases) {
    const std::vector<Row>& rows = Rows();
    ASSERT_EQ(167u, rows.size());
    for (uint32_t i = 0; i < rows.size(); ++i) ASSERT_EQ(i + 2, rows[i].index);

    Detect(VMC_INTERFACE_VIRTUAL);
    for (const Row& row : rows) {
        const uint32_t deviceNo = OpenAnswering(row.answers);
        EXPECT_EQ(row.withChild, Reported(deviceNo, 1, row.index)) << "index " << row.index << " with head 1";
        EXPECT_EQ(row.withDevice, Reported(deviceNo, 0, row.index)) << "index " << row.index << " with child 0";
        Close(deviceNo);
    }

    // A camera that answers nothing optional has none of it.
    const uint32_t deviceNo = OpenAnswering({});
    for (const Row& row : rows) {
        const auto absent = [&](int expected) { return expected == X || row.answers.empty() ? expected : 0; };
        EXPECT_EQ(absent(row.withChild), Reported(deviceNo, 1, row.index)) << "index " << row.index << " with head 1";
        EXPECT_EQ(absent(row.withDevice), Reported(deviceNo, 0, row.index)) << "index " << row.index << " with child 0";
    }
}

TEST_F(Availability, RefusesWhatIsNotAnIndexOrAHead) {
    const uint32_t deviceNo = DetectAndOpen(16);
    uint8_t result = 0;
    uint32_t error = 0;
    for (uint32_t index : {0u, 1u, 169u, 0xFFFFFFFFu}) {
        EXPECT_EQ(0u, VMC_IsFunction(deviceNo, 1, index, &result, &error)) << index;
        EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error) << index;
    }
    for (uint32_t child : {2u, 13u}) {
        EXPECT_EQ(0u, VMC_IsFunction(deviceNo, child, VMC_FUNCTION_SHADING, &result, &error)) << child;
        EXPECT_EQ(VMC_ERR_BAD_CHILD, error) << child;
    }
    EXPECT_EQ(0u, VMC_IsFunction(deviceNo, 1, VMC_FUNCTION_SHADING, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

// A recording read back from storage claims what its camera model had.
TEST_F(Availability, StorageAnswersByDeviceCode) {
    const std::vector<std::pair<std::vector<int32_t>, std::vector<uint32_t>>> claims = {
        {{15, 20, 109}, {21, 24, 26, 34, 36, 37, 38, 39, 40}},
        {{99}, {26}},
        {{124}, {36, 37, 38, 39, 40}},
        {{126}, {34, 36, 37, 38, 39, 40}},
        {{133, 149, 153}, {34}},
    };
    const auto claimed = [&](uint32_t code, int32_t index) {
        for (const auto& [indices, codes] : claims)
            if (std::count(indices.begin(), indices.end(), index) && std::count(codes.begin(), codes.end(), code))
                return true;
        return false;
    };
    for (uint32_t code = 0; code <= 45; ++code) {
        for (int32_t index = -1; index <= 170; ++index) {
            uint8_t result = 0xEE;
            uint32_t error = 0;
            const uint32_t ok = VMC_StorageIsFunction(code, 0, index, &result, &error);
            if (claimed(code, index)) {
                EXPECT_TRUE(ok == 1 && error == kOk && result == 1) << "code " << code << " index " << index;
            } else {
                EXPECT_TRUE(ok == 0 && error == VMC_ERR_NOT_SUPPORTED && result == 0)
                    << "code " << code << " index " << index;
            }
        }
    }
}

class Shading : public Availability {
protected:
    void SetUp() override {
        Availability::SetUp();
        Detect(VMC_INTERFACE_VIRTUAL);
        ScriptCamera(16, 7, {1, 2}, 2);
        FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_SHADING_MODE, 0, 4, 0, kOk);
        deviceNo = Open(16);
    }

    int HeadShading(uint32_t child) const { return Reported(deviceNo, child, VMC_FUNCTION_SHADING); }

    uint32_t HeadShadingMode(uint32_t child) const {
        static ChildRecord record;
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, child, &record, &error));
        return record.shadingMode;
    }

    vmc_lock_slot DeviceLock() const { return FAKE_LockSlot("DMOD016", 7, 0); }

    uint32_t deviceNo = 0;
};

TEST_F(Shading, DisableClearsEveryHeadWithoutAsking) {
    ASSERT_EQ(1, HeadShading(1));
    ASSERT_EQ(1, HeadShading(2));
    FAKE_ClearLog();
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_DisableFunction(deviceNo, VMC_FUNCTION_EDGE_ENHANCE, &error));
    EXPECT_EQ(1, HeadShading(1)) << "only shading can be disabled";
    EXPECT_EQ(1u, VMC_DisableFunction(deviceNo, VMC_FUNCTION_SHADING, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(0, HeadShading(1));
    EXPECT_EQ(0, HeadShading(2));
    EXPECT_EQ(0u, FAKE_CallCount());
}

// Head 1 is switched on and asked; its answer stands for every head.
TEST_F(Shading, EnableAsksHeadOneForAll) {
    uint32_t error = 0;
    VMC_DisableFunction(deviceNo, VMC_FUNCTION_SHADING, &error);
    FAKE_SetAnswer("DMOD016", "DEV_SetDeviceCaps", 1, VMC_CODE_ENABLE_FUNCTION, 0, 0, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_SHADING_MODE, 0, 3, 0, kOk);
    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_EnableFunction(deviceNo, VMC_FUNCTION_SHADING, &error));
    EXPECT_EQ(kOk, error);
    const std::vector<FakeCall> sent = CallRecords("DEV_SetDeviceCaps");
    ASSERT_EQ(1u, sent.size());
    EXPECT_EQ(1u, sent[0].child);
    EXPECT_EQ(1u, sent[0].value1);
    EXPECT_EQ(1, Count("DEV_GetDeviceCaps", VMC_CODE_SHADING_MODE));
    for (uint32_t child : {1u, 2u}) {
        EXPECT_EQ(1, HeadShading(child)) << child;
        EXPECT_EQ(3u, HeadShadingMode(child)) << child;
    }
    EXPECT_FALSE(HeldElsewhere(DeviceLock()));

    // A head that then has no shading mode to report has no shading.
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_SHADING_MODE, 0, 0, 0, VMC_ERR_NOT_SUPPORTED);
    EXPECT_EQ(1u, VMC_EnableFunction(deviceNo, VMC_FUNCTION_SHADING, &error));
    EXPECT_EQ(kOk, error);
    for (uint32_t child : {1u, 2u}) {
        EXPECT_EQ(0, HeadShading(child)) << child;
        EXPECT_EQ(1u, HeadShadingMode(child)) << "the mode a head without the report has";
    }

    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_EnableFunction(deviceNo, VMC_FUNCTION_LUT, &error));
    EXPECT_EQ(0, Count("DEV_SetDeviceCaps"));
}

TEST_F(Shading, EnableFailures) {
    uint32_t error = 0;
    FAKE_SetAnswer("DMOD016", "DEV_SetDeviceCaps", 1, VMC_CODE_ENABLE_FUNCTION, 0, 0, 0, 33);
    FAKE_ClearLog();
    EXPECT_EQ(0u, VMC_EnableFunction(deviceNo, VMC_FUNCTION_SHADING, &error));
    EXPECT_EQ(33u, error);
    EXPECT_EQ(0, Count("DEV_GetDeviceCaps", VMC_CODE_SHADING_MODE)) << "not asked after the refusal";
    EXPECT_FALSE(HeldElsewhere(DeviceLock()));

    // A report that fails with anything but 21 leaves the device lock with this thread.
    FAKE_SetAnswer("DMOD016", "DEV_SetDeviceCaps", 1, VMC_CODE_ENABLE_FUNCTION, 0, 0, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 1, VMC_CODE_SHADING_MODE, 0, 0, 0, 33);
    EXPECT_EQ(0u, VMC_EnableFunction(deviceNo, VMC_FUNCTION_SHADING, &error));
    EXPECT_EQ(33u, error);
    EXPECT_TRUE(HeldElsewhere(DeviceLock()));
    EXPECT_EQ(1, HeadShading(2)) << "heads are left as they were";
    pthread_mutex_unlock(*DeviceLock());
    EXPECT_FALSE(HeldElsewhere(DeviceLock()));
}

}  // namespace
}  // namespace vmc::test
