// The default virtual cameras found, opened and described by the library.
#include "virtual_test.h"

namespace vcam::test {
namespace {

TEST(VirtualDefault, DetectionFindsBothCameras) {
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(VMC_ERR_OK, error);
    ASSERT_EQ(2u, info.count);
    EXPECT_EQ(258u, info.entries[0].deviceCode);
    EXPECT_EQ(260u, info.entries[1].deviceCode);
    EXPECT_NE(info.entries[0].deviceId, info.entries[1].deviceId);
    EXPECT_EQ(VMC_INTERFACE_VIRTUAL, info.entries[1].interfaceCode);
}

TEST(VirtualDefault, BothCamerasOpenWithTheirHeads) {
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(2u, info.count);
    const uint32_t mono = OpenEntry(info, 0, &error);
    const uint32_t colour = OpenEntry(info, 1, &error);
    static DeviceRecord record;
    static ChildRecord child;

    ASSERT_EQ(1u, VMC_GetDeviceInfo(mono, &record, &error));
    EXPECT_EQ(258u, record.deviceCode);
    EXPECT_EQ(info.entries[0].deviceId, record.deviceId);
    EXPECT_EQ(1u, record.childDeviceCount);
    EXPECT_EQ(1u, record.maxChildDeviceCount);
    EXPECT_STRNE("Unknown Device", record.deviceName);
    EXPECT_NE(0u, record.version);
    ASSERT_EQ(1u, VMC_GetChildInfo(mono, 1, &child, &error));
    EXPECT_STRNE("Unknown Child Device", child.childName);

    ASSERT_EQ(1u, VMC_GetDeviceInfo(colour, &record, &error));
    EXPECT_EQ(260u, record.deviceCode);
    EXPECT_EQ(2u, record.childDeviceCount);
    EXPECT_EQ(2u, record.maxChildDeviceCount);
    ASSERT_EQ(1u, VMC_GetChildInfo(colour, 2, &child, &error));
    char name1[256], name2[256];
    ASSERT_EQ(1u, VMC_GetDeviceNameA(colour, 1, name1, &error));
    ASSERT_EQ(1u, VMC_GetDeviceNameA(colour, 2, name2, &error));
    EXPECT_STRNE(name1, name2);

    uint32_t connected = 0;
    EXPECT_EQ(1u, VMC_GetConnectStatus(mono, &connected, &error));
    EXPECT_EQ(1u, connected);
    EXPECT_EQ(1u, VMC_CloseDevice(mono, &error));
    EXPECT_EQ(1u, VMC_CloseDevice(colour, &error));
}

TEST(VirtualDefault, TheLinkCountsExchanges) {
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(2u, info.count);
    const uint32_t id = info.entries[0].deviceId;
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    const uint64_t afterOpen = Exchanges(id);
    EXPECT_GT(afterOpen, 5u);
    uint32_t a = 0, b = 0;
    VMC_GetLastError(deviceNo, &a, &b, &error);  // two link queries and the question itself
    EXPECT_EQ(afterOpen + 3, Exchanges(id));
    VMC_CloseDevice(deviceNo, &error);
}

}  // namespace
}  // namespace vcam::test
