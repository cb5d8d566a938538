// The sub-interface: a second link to the camera, opened through the library,
// that carries the transfer channels while it is open.
#include "virtual_test.h"

namespace vcam::test {
namespace {

TEST(VirtualSubInterface, AbsentOnTheDefaultCameras) {
    uint32_t error = 0, mode = 0;
    DetectInfo info = DetectVirtual(&error);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    EXPECT_EQ(0u, VMC_GetSubInterface(deviceNo, &mode, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_OpenSubInterface(deviceNo, &mode, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST(VirtualSubInterface, OpensASecondLinkOnce) {
    UseProfile(R"({"cameras": [{"base": "mono", "features": {"subInterface": true}}]})");
    uint32_t error = 0, mode = 9;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    ASSERT_EQ(1u, VMC_GetSubInterface(deviceNo, &mode, &error)) << error;
    ASSERT_EQ(1u, VMC_OpenSubInterface(deviceNo, &mode, &error)) << error;
    EXPECT_EQ(0u, VMC_OpenSubInterface2(deviceNo, 1, 2, &mode, &error));
    EXPECT_EQ(VMC_ERR_BUSY, error);
    EXPECT_EQ(1u, VMC_CloseSubInterface(deviceNo, &error));
    EXPECT_EQ(0u, VMC_CloseSubInterface(deviceNo, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
    EXPECT_EQ(1u, VMC_CloseDevice(deviceNo, &error));
}

}  // namespace
}  // namespace vcam::test
