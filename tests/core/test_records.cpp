// The records as callers see them, the child checks, and the names.
#include <cstring>
#include <cwchar>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Records : public LibraryTest {};

TEST_F(Records, AFreeSlotCopiesAsZeros) {
    DeviceRecord record;
    memset(&record, 0xAB, sizeof record);
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_GetDeviceInfo(17, &record, &error));
    const DeviceRecord zero = {};
    EXPECT_EQ(0, memcmp(&zero, &record, sizeof record));
}

TEST_F(Records, TheCallersCopyHoldsNoPointersAndFixedOffsets) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    const uint32_t deviceNo = Open(16);
    DeviceRecord record;
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_GetDeviceInfo(deviceNo, &record, &error));
    const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
    for (size_t offset = 1028; offset < 1124; ++offset) ASSERT_EQ(0, bytes[offset]) << offset;
    uint32_t word;
    memcpy(&word, bytes + 276, 4);
    EXPECT_EQ(4016u, word);  // deviceId
    memcpy(&word, bytes + 356, 4);
    EXPECT_EQ(2u, word);  // maxChildDeviceCount
    EXPECT_STREQ("Camera 16", reinterpret_cast<const char*>(bytes + 20));
}

TEST_F(Records, ChildChecks) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1}, 2);
    const uint32_t deviceNo = Open(16);
    static ChildRecord child;
    uint32_t error = 0;
    for (uint32_t childNo : {0u, 2u, 3u, 13u, 0xFFFFFFFFu}) {
        error = 0;
        EXPECT_EQ(0u, VMC_GetChildInfo(deviceNo, childNo, &child, &error)) << childNo;
        EXPECT_EQ(VMC_ERR_BAD_CHILD, error) << childNo;
    }
    EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, 1, &child, &error));
    EXPECT_STREQ("Head", child.childName);
}

TEST_F(Records, TheMemoryViewIsTheTailOfTheChildRecord) {
    const uint32_t deviceNo = DetectAndOpen(16);
    static unsigned char buffer[5064];
    memset(buffer, 0xCD, sizeof buffer);
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_GetChildMemoryInfo(deviceNo, 1, buffer, &error));
    EXPECT_EQ(0, buffer[0]);
    EXPECT_EQ(0, buffer[4387]);
    EXPECT_EQ(0xCD, buffer[4388]);  // nothing beyond the 4388 bytes
    EXPECT_EQ(0u, VMC_GetChildMemoryInfo(deviceNo, 0, buffer, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
}

TEST_F(Records, NamesNarrowAndWide) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16, 7, {1, 2}, 2);
    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 2, 0, "Kopf \xC3\x84", kOk);  // "Kopf Ä" in UTF-8
    const uint32_t deviceNo = Open(16);
    char name[256];
    wchar_t wide[256];
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_GetDeviceNameA(deviceNo, 0, name, &error));
    EXPECT_STREQ("Camera 16", name);
    ASSERT_EQ(1u, VMC_GetDeviceNameA(deviceNo, 2, name, &error));
    EXPECT_STREQ("Kopf \xC3\x84", name);
    ASSERT_EQ(1u, VMC_GetDeviceNameW(deviceNo, 2, wide, &error));
    EXPECT_STREQ(L"Kopf \u00C4", wide);
    EXPECT_EQ(0u, VMC_GetDeviceNameA(deviceNo, 3, name, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    // Cached names: the module is not asked again.
    EXPECT_EQ(2, Count("DEV_GetDeviceName") - 1);
}

TEST_F(Records, ANameThatIsNoTextFailsTheWideForm) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetText("DMOD016", "DEV_GetDeviceName", 1, 0, "bad \xFF byte", kOk);
    const uint32_t deviceNo = Open(16);
    wchar_t wide[256];
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_GetDeviceNameW(deviceNo, 1, wide, &error));
    EXPECT_EQ(VMC_ERR_CHAR_CONVERSION, error);
}

TEST_F(Records, ExchangeableHeadsAreNamedByTheModuleEachTime) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(4096);
    const uint32_t deviceNo = Open(4096);
    FAKE_SetText("DMOD903", "DEV_GetDeviceName", 1, 0, "New head", kOk);
    char name[256];
    uint32_t error = 0;
    ASSERT_EQ(1u, VMC_GetDeviceNameA(deviceNo, 1, name, &error));
    EXPECT_STREQ("New head", name);
}

TEST_F(Records, HeadTypeNamesNeedHeadExchange) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetText("DMOD016", "DEV_GetHeadTypeName", FAKE_ANY, FAKE_ANY, "Type", kOk);
    char name[256];
    wchar_t wide[256];
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_GetHeadTypeNameA(deviceNo, 1, 3, name, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, VMC_GetHeadTypeNameW(deviceNo, 1, 3, wide, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0, Count("DEV_GetHeadTypeName"));
}

}  // namespace
}  // namespace vmc::test
