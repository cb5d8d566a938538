// Link queries, the sub-interface, Ethernet information and link settings.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Links : public LibraryTest {};

TEST_F(Links, ConnectStatusAsksWithoutTheLock) {
    const uint32_t deviceNo = DetectAndOpen(16);
    uint32_t value = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetConnectStatus(deviceNo, &value, &error));
    EXPECT_EQ(1u, value);  // a module without the query counts as connected
    EXPECT_EQ(kOk, error);

    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, 0, 0, kOk);
    vmc_lock_slot slot = FAKE_LockSlot("DMOD016", 7, 0);
    std::thread([&] {
        pthread_mutex_lock(*slot);  // held elsewhere: the status still answers
        uint32_t v = 9, e = 0;
        std::thread([&] { EXPECT_EQ(1u, VMC_GetConnectStatus(deviceNo, &v, &e)); }).join();
        EXPECT_EQ(0u, v);
        pthread_mutex_unlock(*slot);
    }).join();

    EXPECT_EQ(0u, VMC_GetConnectStatus(64, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(0u, VMC_GetConnectStatus(9, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
}

TEST_F(Links, SubInterfaceForwardsAndOpenersAskTheModeFirst) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetSubInterface", 0, 0, 0, 3, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_OpenSubInterface2", 0, 0, 0, 0, 0, kOk);
    uint32_t value = 0, error = 0;
    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_OpenSubInterface2(deviceNo, 11, 12, &value, &error));
    EXPECT_EQ(3u, value);
    const auto opens = CallRecords("DEV_OpenSubInterface2");
    ASSERT_EQ(1u, opens.size());
    EXPECT_EQ(3u, opens[0].value1);
    EXPECT_EQ(11u, opens[0].value2);
    EXPECT_EQ(12u, opens[0].value3);
    EXPECT_EQ((std::vector<std::string>{"DEV_GetSubInterface", "DEV_OpenSubInterface2"}), Calls());

    // The module's own answer passes through.
    EXPECT_EQ(0u, VMC_OpenSubInterface(deviceNo, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetSubInterface(5, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
}

TEST_F(Links, SubInterfaceOfAModuleWithoutItIsNotOpen) {
    Detect(VMC_INTERFACE_VIRTUAL);
    // DMOD007 has no sub-interface entries and no capability query at all.
    FAKE_SetAnswer("DMOD007", "DEV_OpenDevice", 0, 0, 0, 9, 0, kOk);
    OpenParam param = {7, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0, value = 0;
    VMC_OpenDevice2(&param, 0, 1, &deviceNo, &error);  // the load fails; the record stays
    ASSERT_EQ(0u, deviceNo);
    EXPECT_EQ(0u, VMC_GetSubInterface(deviceNo, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
    EXPECT_EQ(0u, VMC_OpenSubInterface(deviceNo, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
    EXPECT_EQ(0u, VMC_CloseSubInterface(deviceNo, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
    EXPECT_EQ(0u, VMC_GetHeadTypeNameA(deviceNo, 1, 0, nullptr, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST_F(Links, EthernetOnlyQueries) {
    const uint32_t onVirtual = DetectAndOpen(16);
    const uint32_t onEther = DetectAndOpen(258, VMC_INTERFACE_ETHER);
    FAKE_SetAnswer("IMOD_ETHER", "INT_GetPacketSize", 0, 0, 0, 8994, 0, kOk);
    FAKE_SetAnswer("IMOD_ETHER", "INT_PingDevice", 0, 0, 0, 0, 0, kOk);
    FAKE_SetAnswer("IMOD_ETHER", "INT_GetTimeOutInfo", 0, 0, 0, 4, 5, kOk);
    uint32_t value = 0, a = 0, b = 0, error = 0;
    EXPECT_EQ(0u, VMC_GetPacketSize(onVirtual, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_PingDevice(onVirtual, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetTimeOutInfo(onVirtual, &a, &b, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);

    EXPECT_EQ(1u, VMC_GetPacketSize(onEther, &value, &error));
    EXPECT_EQ(8994u, value);
    EXPECT_EQ(7u, CallRecords("INT_GetPacketSize")[0].handle);  // the device's module handle
    EXPECT_EQ(1u, VMC_PingDevice(onEther, &error));
    EXPECT_EQ(4258u, CallRecords("INT_PingDevice")[0].value1);  // the address it was opened with
    EXPECT_EQ(1000u, CallRecords("INT_PingDevice")[0].value2);
    EXPECT_EQ(1u, VMC_GetTimeOutInfo(onEther, &a, &b, &error));
    EXPECT_EQ(onEther, CallRecords("INT_GetTimeOutInfo")[0].handle);
    EXPECT_EQ(5u, b);
}

TEST_F(Links, EthernetInformationAndThePortInUse) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_ETHERNET_INFO, 1, 0xC0A80002, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_ETHERNET_INFO_2, 1, 0xC0A90002, 0, kOk);
    uint32_t value = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetEthernetInfo(deviceNo, 1, &value, &error));
    EXPECT_EQ(0xC0A80002u, value);
    // Index 4 may be missing: it then reads 0.
    value = 9;
    EXPECT_EQ(1u, VMC_GetEthernetInfo(deviceNo, 4, &value, &error));
    EXPECT_EQ(0u, value);
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(0u, VMC_GetEthernetInfo(deviceNo, 3, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);

    EXPECT_EQ(1u, VMC_GetConnectedEthernetInfo(deviceNo, 1, &value, &error));
    EXPECT_EQ(0xC0A80002u, value);  // one port: the camera can't tell, the first is used
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECTED_ETHERNET_INFO, 1, 1, 0, kOk);
    EXPECT_EQ(1u, VMC_GetConnectedEthernetInfo(deviceNo, 1, &value, &error));
    EXPECT_EQ(0xC0A90002u, value);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECTED_ETHERNET_INFO, 1, 1, 0, 44);
    EXPECT_EQ(0u, VMC_GetConnectedEthernetInfo(deviceNo, 1, &value, &error));
    EXPECT_EQ(44u, error);
}

TEST_F(Links, LinkSpeedAndPacketIntervalAreGatedByWhatTheCameraHas) {
    Detect(VMC_INTERFACE_ETHER);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LINK_SPEED, 0, 10000, 0, kOk);
    const uint32_t with = Open(16, VMC_INTERFACE_ETHER);
    ScriptCamera(258);
    const uint32_t without = Open(258, VMC_INTERFACE_ETHER);
    uint32_t value = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetLinkSpeed(with, &value, &error));
    EXPECT_EQ(10000u, value);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LINK_SPEED, 0, 1000, 0, kOk);
    EXPECT_EQ(1u, VMC_ReqLinkSpeed(with, &value, &error));
    EXPECT_EQ(1000u, value);
    EXPECT_EQ(1u, VMC_GetLinkSpeed(with, &value, &error));
    EXPECT_EQ(1000u, value);

    FAKE_ClearLog();
    EXPECT_EQ(0u, VMC_GetLinkSpeed(without, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_ReqLinkSpeed(without, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_ReqPacketIntervalMode(without, 0, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetPacketIntervalMode(without, 0, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, FAKE_CallCount());  // the gates ask nothing
}

TEST_F(Links, PacketIntervalRequestDefaultsToOne) {
    Detect(VMC_INTERFACE_ETHER);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_PACKET_INTERVAL_MODE, 0, 4, 0, kOk);
    const uint32_t deviceNo = Open(16, VMC_INTERFACE_ETHER);
    uint32_t value = 0, error = 0;
    EXPECT_EQ(0u, VMC_ReqPacketIntervalMode(deviceNo, 1, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(1u, value);
    EXPECT_EQ(1u, VMC_GetPacketIntervalMode(deviceNo, 1, &value, &error));
    EXPECT_EQ(1u, value);
    EXPECT_EQ(1u, VMC_ReqPacketIntervalMode(deviceNo, 0, &value, &error));
    EXPECT_EQ(4u, value);
    EXPECT_EQ(0u, VMC_GetPacketIntervalMode(deviceNo, 2, &value, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

}  // namespace
}  // namespace vmc::test
