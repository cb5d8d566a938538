// Before VMC_Init every call answers error 2, but for the few that check
// the device number first.
#include <gtest/gtest.h>

#include <vmc/vmc.h>

namespace {

TEST(BeforeInit, CallsAnswerNotInitialised) {
    uint32_t error = 0, value = 0, a = 0, b = 0;
    DetectInfo info;
    OpenParam param = {16, 1, 1};
    DeviceRecord record;
    char name[256];
    EXPECT_EQ(0u, VMC_GetNumberOfDevice(&value, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_DetectDevice(1, nullptr, 0, 0, &info, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &value, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_GetDeviceInfo(0, &record, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_GetDeviceNameA(0, 0, name, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_GetLastError(0, &a, &b, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_GetConnectStatus(0, &value, &error));
    EXPECT_EQ(2u, error);
    EXPECT_EQ(0u, VMC_SetCommunicationParameter(2, 0, 1, &error));
    EXPECT_EQ(2u, error);
}

TEST(BeforeInit, RangeChecksComeFirstWhereTheyExist) {
    uint32_t error = 0, value = 0;
    EXPECT_EQ(0u, VMC_CloseDevice(64, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(0u, VMC_GetSubInterface(64, &value, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(0u, VMC_OpenSubInterface(70, &value, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(0u, VMC_CloseSubInterface(64, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(0u, VMC_PingDevice(64, &error));
    EXPECT_EQ(5u, error);
    // In range, these need no initialised library either: the slot is free.
    EXPECT_EQ(0u, VMC_CloseDevice(3, &error));
    EXPECT_EQ(103u, error);
    EXPECT_EQ(0u, VMC_GetSubInterface(3, &value, &error));
    EXPECT_EQ(103u, error);
}

}  // namespace
