// Opening and closing: module slots and use counts, unloading, the global
// lock set, and the failure paths on which the two open calls differ.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class OpenClose : public LibraryTest {};

uint32_t OpenCount() {
    uint32_t count = 0, error = 0;
    VMC_GetNumberOfDevice(&count, &error);
    return count;
}

TEST_F(OpenClose, CodesWithoutAModuleAndLinksNeverDetected) {
    Detect(VMC_INTERFACE_VIRTUAL);
    OpenParam param = {4, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 0, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_MODULE_LOAD, error);
    EXPECT_EQ(0u, VMC_OpenDevice(&(param = {5, 1, VMC_INTERFACE_VIRTUAL}), &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_MODULE_LOAD, error);  // DMOD005 is no shared object

    param = {16, 1, VMC_INTERFACE_OPTICAL};
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_INTERFACE_NOT_LOADED, error);
    EXPECT_FALSE(Loaded("DMOD016"));
}

TEST_F(OpenClose, DevicesOfOneCodeShareTheModuleUntilTheLastCloses) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    const uint32_t first = Open(16);
    const uint32_t second = Open(16);
    EXPECT_EQ(0u, first);
    EXPECT_EQ(1u, second);
    EXPECT_EQ(1, Count("DEV_Init"));
    EXPECT_EQ(2u, OpenCount());
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_CloseDevice(first, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_TRUE(Loaded("DMOD016"));
    EXPECT_EQ(1u, VMC_CloseDevice(second, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_FALSE(Loaded("DMOD016"));
    EXPECT_EQ(0u, OpenCount());
    // A new open loads it again; the freed record is the lowest free one.
    EXPECT_EQ(0u, Open(16));
    EXPECT_EQ(2, Count("DEV_Init"));
}

TEST_F(OpenClose, CodesEightAndElevenShareOneFile) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(8);
    Open(8);
    Open(11);
    EXPECT_EQ(2, Count("DEV_Init"));  // two slots, one file
    EXPECT_EQ(2u, OpenCount());
}

TEST_F(OpenClose, TheSixtyFifthDeviceNeedsAFreeRecord) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    for (uint32_t i = 0; i < VMC_MAX_DEVICES; ++i) ASSERT_EQ(i, Open(16));
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(VMC_ERR_NO_FREE_SLOT, error);
    EXPECT_EQ(64u, OpenCount());
}

TEST_F(OpenClose, CloseChecksTheNumberAndTheSlot) {
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_CloseDevice(64, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_EQ(0u, VMC_CloseDevice(5, &error));
    EXPECT_EQ(VMC_ERR_NOT_OPEN, error);
}

TEST_F(OpenClose, AModuleThatFailsToCloseStaysLoadedForGood) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetAnswer("DMOD016", "DEV_CloseDevice", 0, 0, 0, 0, 0, 31);
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_CloseDevice(deviceNo, &error));
    EXPECT_EQ(31u, error);
    EXPECT_EQ(0u, Info(deviceNo).deviceCode);  // the record is cleared all the same
    EXPECT_EQ(1u, OpenCount());                // but the counts stay raised
    EXPECT_TRUE(Loaded("DMOD016"));
}

TEST_F(OpenClose, AFailedStateLoadIsUndoneByOpen) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DEVICE_ID, 0, 0, 0, 5);
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(kOk, error);  // a clean close after the failure leaves success in the word
    EXPECT_EQ(0u, deviceNo);
    EXPECT_EQ(0u, Info(0).deviceCode);
    EXPECT_EQ(0u, OpenCount());
    EXPECT_EQ(1, Count("DEV_CloseDevice"));
    EXPECT_FALSE(Loaded("DMOD016"));
}

TEST_F(OpenClose, AFailedStateLoadIsLeftToTheCallerByOpen2) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_DEVICE_ID, 0, 0, 0, 5);
    OpenParam param = {16, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = 64, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 0, &deviceNo, &error));
    EXPECT_EQ(5u, error);
    EXPECT_EQ(0u, deviceNo);
    EXPECT_EQ(16u, Info(0).deviceCode);  // still taken, counts raised
    EXPECT_EQ(1u, OpenCount());
    EXPECT_EQ(1u, VMC_CloseDevice(deviceNo, &error));
    EXPECT_FALSE(Loaded("DMOD016"));
}

TEST_F(OpenClose, Open2FailingInTheModuleClosesTheCallersNumber) {
    // The caller's pre-set number is closed, whatever device it names,
    // except on USB.
    const uint32_t victim = DetectAndOpen(258, VMC_INTERFACE_ETHER);
    Detect(VMC_INTERFACE_USB);
    FAKE_SetAnswer("DMOD016", "DEV_OpenDevice", 0, 0, 0, 0, 0, 40);
    FAKE_SetAnswer("DMOD016", "DEV_OpenDevice2", 0, 0, 0, 0, 0, 41);
    OpenParam param = {16, 1, VMC_INTERFACE_USB};
    uint32_t deviceNo = victim, error = 0;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 0, &deviceNo, &error));
    EXPECT_EQ(40u, error);
    EXPECT_EQ(258u, Info(victim).deviceCode);

    param.interfaceCode = VMC_INTERFACE_VIRTUAL;
    Detect(VMC_INTERFACE_VIRTUAL);
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 0, &deviceNo, &error));
    EXPECT_EQ(kOk, error);  // what the close of the victim left
    EXPECT_EQ(0u, Info(victim).deviceCode);

    // DEV_OpenDevice2 failing only returns.
    const uint32_t other = DetectAndOpen(258, VMC_INTERFACE_ETHER);
    param.interfaceCode = VMC_INTERFACE_ETHER;
    deviceNo = other;
    EXPECT_EQ(0u, VMC_OpenDevice2(&param, 0, 0, &deviceNo, &error));
    EXPECT_EQ(41u, error);
    EXPECT_EQ(258u, Info(other).deviceCode);
}

TEST_F(OpenClose, Open2PassesItsParametersOnEthernetLinksOnly) {
    Detect(VMC_INTERFACE_ETHER);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_PACKET_INTERVAL_MODE, 0, 9, 0, kOk);
    OpenParam param = {16, 0xC0A80001, VMC_INTERFACE_ETHER};
    uint32_t deviceNo = 64, error = 0, mode = 0;
    ASSERT_EQ(1u, VMC_OpenDevice2(&param, 33, 0, &deviceNo, &error));
    const auto opens = CallRecords("DEV_OpenDevice2");
    ASSERT_EQ(1u, opens.size());
    EXPECT_EQ(33u, opens[0].value3);
    EXPECT_EQ(0u, opens[0].value4);
    EXPECT_EQ(0, Count("DEV_OpenDevice"));
    // The open parameter, not the camera's answer, is the packet interval mode.
    EXPECT_EQ(1u, VMC_GetPacketIntervalMode(deviceNo, 0, &mode, &error));
    EXPECT_EQ(0u, mode);
    EXPECT_EQ(0xC0A80001u, Info(deviceNo).deviceAddress);

    Detect(VMC_INTERFACE_VIRTUAL);
    param.interfaceCode = VMC_INTERFACE_VIRTUAL;
    ASSERT_EQ(1u, VMC_OpenDevice2(&param, 33, 3, &deviceNo, &error));
    EXPECT_EQ(1, Count("DEV_OpenDevice"));
    EXPECT_EQ(1u, VMC_GetPacketIntervalMode(deviceNo, 0, &mode, &error));
    EXPECT_EQ(3u, mode);
    ASSERT_EQ(1u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(1u, VMC_GetPacketIntervalMode(deviceNo, 0, &mode, &error));
    EXPECT_EQ(1u, mode);
}

// Whether the library-wide lock was held while the module opened a device.
struct GlobalLockProbe {
    std::vector<bool> heldAtOpen;
    static void Hook(const FakeCall*, void* context) {
        auto* probe = static_cast<GlobalLockProbe*>(context);
        vmc_lock_slot slot = FAKE_LockSlot(nullptr, 7, FAKE_GLOBAL_LOCK);
        probe->heldAtOpen.push_back(slot && HeldElsewhere(slot));
    }
};

TEST_F(OpenClose, DevicesOfTheGlobalSetSerialiseLaterOpens) {
    GlobalLockProbe probe;
    FAKE_SetHook("DEV_OpenDevice", 0, &GlobalLockProbe::Hook, &probe);
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    ScriptCamera(15);
    const uint32_t outside = Open(16);
    const uint32_t member = Open(15);  // the first member opens without the lock
    Open(16);                          // from now on opens take it
    uint32_t error = 0;
    VMC_CloseDevice(member, &error);
    Open(16);  // no member open any more: the close recomputed the flag
    VMC_CloseDevice(outside, &error);
    EXPECT_EQ((std::vector<bool>{false, false, true, false}), probe.heldAtOpen);
}

TEST_F(OpenClose, TheGlobalFlagSurvivesTheLastClose) {
    GlobalLockProbe probe;
    FAKE_SetHook("DEV_OpenDevice", 0, &GlobalLockProbe::Hook, &probe);
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(15);
    uint32_t error = 0;
    VMC_CloseDevice(Open(15), &error);
    ScriptCamera(16);
    Open(16);
    EXPECT_EQ((std::vector<bool>{false, true}), probe.heldAtOpen);
}

}  // namespace
}  // namespace vmc::test
