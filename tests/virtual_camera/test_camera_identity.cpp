// Who a camera says it is, and what it answers for what it lacks.
#include <gtest/gtest.h>

#include "camera_test_support.h"

namespace vcam::test {
namespace {

TEST(CameraIdentity, AnswersTheProfileForDeviceAndHeads) {
    FakeClock clock;
    const CameraProfile profile = Colour();
    Camera camera(profile, 1, clock.Clock());
    const HeadProfile& head2 = profile.heads.at(1);
    struct Row {
        uint32_t child, code, first, second;
    } rows[] = {
        {0, VMC_CODE_CHILD_DEVICE_COUNT, 2, 0},
        {0, VMC_CODE_MAX_CHILD_DEVICE_COUNT, 2, 0},
        {0, VMC_CODE_DEVICE_ID, profile.deviceId, 0},
        {0, VMC_CODE_PRODUCT_ID, profile.productId, 0},
        {0, VMC_CODE_LOT_ID, profile.lotId, 0},
        {0, VMC_CODE_INDIVIDUAL_ID, profile.individualId, 0},
        {0, VMC_CODE_VERSION, profile.version, 0},
        {0, VMC_CODE_SERIAL_NUMBER, static_cast<uint32_t>(profile.serialNumber), 0},
        {2, VMC_CODE_PRODUCT_ID, head2.productId, 0},
        {2, VMC_CODE_VERSION, head2.version, 0},
        {2, VMC_CODE_SERIAL_NUMBER, static_cast<uint32_t>(head2.serialNumber), 0},
        {2, VMC_CODE_COLOR_TYPE, static_cast<uint32_t>(ColourLayout::BayerRGGB), 0},
        {2, VMC_CODE_MAX_BIT_DEPTH, 12, 0},
        {2, VMC_CODE_MAX_RESOLUTION, Packed(1280, 800), 0},
        {0, VMC_CODE_CONNECT_STATE, 1, 0},
        {0, VMC_CODE_FRAME_INDEX_MODE, 0, 0},
        {0, VMC_CODE_FRAME_ZERO_MODE, 0, 0},
        {0, VMC_CODE_STATUS, 0, 0},
    };
    for (const Row& row : rows) {
        const Values values = Get(camera, row.child, row.code);
        EXPECT_EQ(values.error, VMC_ERR_OK) << "code " << row.code;
        EXPECT_EQ(values.first, row.first) << "code " << row.code << " child " << row.child;
        EXPECT_EQ(values.second, row.second) << "code " << row.code << " child " << row.child;
    }
    EXPECT_EQ(List(camera, 0, VMC_LIST_EXIST_CHILD_DEVICE), (std::vector<uint32_t>{1, 2}));

    std::string name;
    ASSERT_EQ(camera.DeviceName(0, &name), VMC_ERR_OK);
    EXPECT_EQ(name, profile.name);
    ASSERT_EQ(camera.DeviceName(2, &name), VMC_ERR_OK);
    EXPECT_EQ(name, head2.name);
    EXPECT_EQ(camera.DeviceName(3, &name), VMC_ERR_BAD_CHILD);
    EXPECT_EQ(Get(camera, 3, VMC_CODE_RECORD_RATE).error, VMC_ERR_BAD_CHILD);

    ASSERT_EQ(camera.SetCaps(0, VMC_CODE_DEVICE_ID, 0, 77, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 0, VMC_CODE_DEVICE_ID), 77u);
}

// A camera with fewer heads than places lists the empty places as 0, so
// that a caller walking all places finds no stale entry.
TEST(CameraIdentity, ListsEmptyHeadPlaces) {
    FakeClock clock;
    CameraProfile profile = Colour();
    profile.maxHeads = 4;
    Camera camera(profile, 0, clock.Clock());
    EXPECT_EQ(Value(camera, 0, VMC_CODE_MAX_CHILD_DEVICE_COUNT), 4u);
    EXPECT_EQ(List(camera, 0, VMC_LIST_EXIST_CHILD_DEVICE), (std::vector<uint32_t>{1, 2, 0, 0}));
}

TEST(CameraIdentity, AbsentFeaturesAnswerNotSupportedAndNothingElse) {
    FakeClock clock;
    CameraProfile profile = Mono();
    profile.features = {{"partitions", false}, {"irig", false}, {"shading", false}};
    profile.sideData = SideData{};
    profile.sideData.irig = false;
    Camera camera(profile, 0, clock.Clock());
    const uint32_t codes[] = {VMC_CODE_MCDL_MODE,        VMC_CODE_ADC_MODE,          VMC_CODE_AUTO_EXPOSURE,
                              VMC_CODE_HEAD_EXCHANGE,    VMC_CODE_LOW_LIGHT_MODE,    VMC_CODE_EDGE_ENHANCE_MODE,
                              VMC_CODE_LUT_MODE,         VMC_CODE_PIXEL_GAIN_MODE,   VMC_CODE_IRIG_MODE,
                              VMC_CODE_SHADING_MODE,     VMC_CODE_MAX_PARTITION,     VMC_CODE_PARTITION_COUNT,
                              VMC_CODE_CURRENT_PARTITION, VMC_CODE_MEMORY_MODE_PARTITION, VMC_CODE_LIVE_IRIG,
                              VMC_CODE_COLOR_TEMP_BASE,  VMC_CODE_VARIABLE_FUNCTION, VMC_CODE_FEATURE, 999};
    for (uint32_t code : codes) {
        for (uint32_t child : {0u, 1u}) {
            EXPECT_EQ(Get(camera, child, code).error, VMC_ERR_NOT_SUPPORTED) << "code " << code;
            EXPECT_EQ(camera.SetCaps(child, code, 0, 1, 0), VMC_ERR_NOT_SUPPORTED) << "code " << code;
        }
    }
    // Read-only codes refuse a write the same way.
    EXPECT_EQ(camera.SetCaps(1, VMC_CODE_MAX_FRAMES, 0, 1, 0), VMC_ERR_NOT_SUPPORTED);
    std::vector<uint32_t> list;
    for (uint32_t code : {VMC_LIST_PARTITION_INC_MODE, VMC_LIST_LUT_MODE, VMC_LIST_ADC_RANGE, 999u})
        EXPECT_EQ(camera.GetList(1, code, 0, &list), VMC_ERR_NOT_SUPPORTED) << "list " << code;
    std::vector<uint8_t> data, extra;
    for (uint32_t code : {VMC_DATA_MEM_IRIG, VMC_DATA_MEM_MCDL, VMC_DATA_MEM_ADC_BYTE, VMC_DATA_ACCELERATION,
                          VMC_DATA_MEM_AUTO_EXPOSURE_NSEC, VMC_DATA_LIVE_IMAGE_IRIG, VMC_DATA_PIXEL_GAIN})
        EXPECT_EQ(camera.GetData(1, code, 0, 1, &data, &extra), VMC_ERR_NOT_SUPPORTED) << "data " << code;
    std::string name;
    EXPECT_EQ(camera.HeadTypeName(1, 1, &name), VMC_ERR_NOT_SUPPORTED);
}

TEST(CameraIdentity, FeaturesNamedByTheProfileOpenTheirCodes) {
    FakeClock clock;
    CameraProfile profile = Colour();
    profile.features = {{"headExchange", true}, {"mcdl", true}, {"frameZero", true}};
    Camera camera(profile, 0, clock.Clock());
    EXPECT_EQ(Value(camera, 0, VMC_CODE_FRAME_ZERO_MODE), 1u);
    EXPECT_EQ(camera.SetCaps(0, VMC_CODE_MCDL_MODE, 0, 1, 0), VMC_ERR_OK);
    EXPECT_EQ(Value(camera, 0, VMC_CODE_MCDL_MODE), 1u);
    EXPECT_EQ(camera.SetCaps(0, VMC_CODE_MCDL_MODE, 0, 7, 0), VMC_ERR_BAD_ARGUMENT);
    std::string name;
    ASSERT_EQ(camera.HeadTypeName(2, 1, &name), VMC_ERR_OK);
    EXPECT_EQ(name, profile.heads[1].typeName);
    EXPECT_EQ(camera.HeadTypeName(2, 9, &name), VMC_ERR_BAD_ARGUMENT);
}

}  // namespace
}  // namespace vcam::test
