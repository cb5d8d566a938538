// The stored communication parameters of the Ethernet links: normalisation,
// defaults, and the 10-gigabit packet interval sent at open.
#include <fstream>
#include <sstream>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Communication : public LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        char pattern[] = "/tmp/vmc-store-XXXXXX";
        folder_ = mkdtemp(pattern);
        setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
    }
    void TearDown() override {
        LibraryTest::TearDown();
        std::string command = "rm -rf '" + folder_ + "'";
        EXPECT_EQ(0, system(command.c_str()));
    }
    std::string StoreText() const {
        std::ifstream file(folder_ + "/vmc/registry/SOFTWARE/VELMORA/VWR/GETHLIB");
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    static uint32_t Get(uint32_t index) {
        uint32_t value = 12345, error = 0;
        EXPECT_EQ(1u, VMC_GetCommunicationParameter(VMC_INTERFACE_ETHER, index, &value, &error));
        return value;
    }
    std::string folder_;
};

TEST_F(Communication, DefaultsWhenNothingIsStored) {
    EXPECT_EQ(0u, Get(VMC_COMM_SEND_PORT));
    EXPECT_EQ(0u, Get(VMC_COMM_RECEIVE_PORT));
    EXPECT_EQ(1u, Get(VMC_COMM_CONNECT_MODE));
    EXPECT_EQ(0u, Get(VMC_COMM_PACKET_SIZE));
    EXPECT_EQ(128u, Get(VMC_COMM_DS_COUNT_MAX));
    EXPECT_EQ(0u, Get(VMC_COMM_PACKET_INTERVAL_10G));
}

TEST_F(Communication, InterfaceInfoNormalisesThePacketSize) {
    struct Case {
        uint32_t size, connectMode, stored, dsCountMax;
    } cases[] = {
        {1000, 1, 1458, 128}, {9001, 1, 8994, 128}, {9000, 1, 8994, 128}, {0, 1, 0, 128},
        {0, 0, 1458, 1},      {1466, 1, 1466, 128}, {1473, 1, 1466, 128}, {4000, 0, 1458, 1},
    };
    for (const Case& c : cases) {
        uint32_t error = 0;
        ASSERT_EQ(1u, VMC_SetInterfaceInfo(VMC_INTERFACE_ETHER, c.size, 10, 20, c.connectMode, &error));
        std::string text = StoreText();
        EXPECT_NE(std::string::npos, text.find("PacketSize=" + std::to_string(c.stored) + "\n")) << c.size;
        EXPECT_NE(std::string::npos, text.find("DsCountMax=" + std::to_string(c.dsCountMax) + "\n")) << c.size;
        EXPECT_NE(std::string::npos, text.find("ReplyWaitTimer=5000\n"));
        uint32_t size = 0, send = 0, receive = 0, mode = 9;
        ASSERT_EQ(1u, VMC_GetInterfaceInfo(VMC_INTERFACE_GIGEV, &size, &send, &receive, &mode, &error));
        EXPECT_EQ(c.stored, size);
        EXPECT_EQ(10u, send);
        EXPECT_EQ(20u, receive);
        EXPECT_EQ(c.connectMode, mode);
    }
    uint32_t error = 0, size = 0;
    EXPECT_EQ(0u, VMC_SetInterfaceInfo(VMC_INTERFACE_USB, 1500, 0, 0, 1, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetInterfaceInfo(VMC_INTERFACE_VIRTUAL, &size, &size, &size, &size, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST_F(Communication, ParametersOneByOne) {
    struct Case {
        uint32_t index, value, error, reads;
    } cases[] = {
        {VMC_COMM_PACKET_SIZE, 1459, kOk, 1458},
        {VMC_COMM_PACKET_SIZE, 9001, VMC_ERR_BAD_ARGUMENT, 1458},
        {VMC_COMM_PACKET_SIZE, 0, kOk, 0},
        {VMC_COMM_DS_COUNT_MAX, 0, VMC_ERR_BAD_ARGUMENT, 128},
        {VMC_COMM_DS_COUNT_MAX, 129, VMC_ERR_BAD_ARGUMENT, 128},
        {VMC_COMM_DS_COUNT_MAX, 1, kOk, 1},
        {VMC_COMM_PACKET_INTERVAL_10G, 20, VMC_ERR_BAD_ARGUMENT, 0},
        {VMC_COMM_PACKET_INTERVAL_10G, 19, kOk, 19},
        {VMC_COMM_SEND_PORT, 10000, VMC_ERR_BAD_ARGUMENT, 0},
        {VMC_COMM_RECEIVE_PORT, 9999, kOk, 9999},
        {VMC_COMM_CONNECT_MODE, 2, VMC_ERR_BAD_ARGUMENT, 1},
        {6, 0, VMC_ERR_NOT_SUPPORTED, 0},
    };
    for (const Case& c : cases) {
        uint32_t error = 0;
        EXPECT_EQ(c.error == kOk ? 1u : 0u, VMC_SetCommunicationParameter(VMC_INTERFACE_ETHER, c.index, c.value, &error));
        EXPECT_EQ(c.error, error) << c.index << " " << c.value;
        if (c.index < 6) {
            EXPECT_EQ(c.reads, Get(c.index)) << c.index << " " << c.value;
        }
    }
    uint32_t error = 0, value = 0;
    EXPECT_EQ(0u, VMC_SetCommunicationParameter(VMC_INTERFACE_GIGEV, 0, 1, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetCommunicationParameter(VMC_INTERFACE_ETHER, 6, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST_F(Communication, ASpeedLimitedLinkGetsTheStoredInterval) {
    Detect(VMC_INTERFACE_ETHER);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_ETHERNET_SPEED_LIMIT, 0, 1, 0, kOk);
    FAKE_SetAnswer("DMOD016", "DEV_SetDeviceCaps", 0, VMC_CODE_PACKET_INTERVAL_MODE, 1, 0, 0, kOk);
    uint32_t deviceNo = Open(16, VMC_INTERFACE_ETHER);
    auto sent = CallRecords("DEV_SetDeviceCaps");
    ASSERT_EQ(1u, sent.size());
    EXPECT_EQ(1u, sent[0].value1);  // nothing stored: 1
    uint32_t value = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetPacketIntervalMode(deviceNo, 1, &value, &error));
    EXPECT_EQ(1u, value);
    EXPECT_EQ(1u, VMC_GetEthernetSpeedLimit(deviceNo, &value, &error));
    EXPECT_EQ(1u, value);

    VMC_SetCommunicationParameter(VMC_INTERFACE_ETHER, VMC_COMM_PACKET_INTERVAL_10G, 7, &error);
    FAKE_ClearLog();
    deviceNo = Open(16, VMC_INTERFACE_ETHER);
    sent = CallRecords("DEV_SetDeviceCaps");
    ASSERT_EQ(1u, sent.size());
    EXPECT_EQ(7u, sent[0].value1);
    EXPECT_EQ(1u, sent[0].sub);
}

}  // namespace
}  // namespace vmc::test
