// The cached model of a virtual camera: the flags its profile implies, the
// getters behind them, and a poll that finds nothing changed.
#include <cstring>

#include "virtual_test.h"

namespace vcam::test {
namespace {

struct Model {
    DeviceRecord device;
    ChildRecord heads[2];
};

Model Snapshot(uint32_t deviceNo, uint32_t heads) {
    static Model model;  // too large for the stack of a test
    std::memset(&model, 0, sizeof model);
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_GetDeviceInfo(deviceNo, &model.device, &error));
    for (uint32_t head = 1; head <= heads; ++head)
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, head, &model.heads[head - 1], &error));
    return model;
}

uint8_t Function(uint32_t deviceNo, uint32_t childNo, uint32_t index) {
    uint8_t result = 0xEE;
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_IsFunction(deviceNo, childNo, index, &result, &error)) << "index " << index;
    return result;
}

TEST(VirtualModel, AProfileWithoutAFeatureShowsItsFlagClear) {
    UseProfile(R"({"cameras": [{"base": "mono", "features": {"irig": false, "sensorGain": false, "lut": true}}]})");
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);

    EXPECT_EQ(0, Function(deviceNo, 0, VMC_FUNCTION_IRIG));
    uint32_t value = 0xABCD;
    EXPECT_EQ(0u, VMC_GetIRIG(deviceNo, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0xABCDu, value);

    EXPECT_EQ(0, Function(deviceNo, 1, VMC_FUNCTION_SENSOR_GAIN));
    EXPECT_EQ(0u, VMC_GetSensorGainMode(deviceNo, 1, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);

    EXPECT_EQ(1, Function(deviceNo, 1, VMC_FUNCTION_LUT));
    EXPECT_EQ(1u, VMC_GetLUTMode(deviceNo, 1, &value, &error));
    VMC_CloseDevice(deviceNo, &error);
}

TEST(VirtualModel, APollRightAfterOpenChangesNothing) {
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(2u, info.count);
    for (uint32_t entry = 0; entry < 2; ++entry) {
        const uint32_t deviceNo = OpenEntry(info, entry, &error);
        const uint32_t heads = entry + 1;
        const Model before = Snapshot(deviceNo, heads);
        ASSERT_EQ(1u, VMC_DeviceStatusUpdate(deviceNo, &error)) << "error " << error;
        const Model after = Snapshot(deviceNo, heads);
        EXPECT_EQ(0, std::memcmp(&before.device, &after.device, sizeof before.device)) << "camera " << entry;
        for (uint32_t head = 0; head < heads; ++head)
            EXPECT_EQ(0, std::memcmp(&before.heads[head], &after.heads[head], sizeof(ChildRecord)))
                << "camera " << entry << " head " << head + 1;
        VMC_CloseDevice(deviceNo, &error);
    }
}

}  // namespace
}  // namespace vcam::test
