// Detection: which links may look while devices are open, the firmware
// gate, the Ethernet address list and locks, and module files that fail.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Detection : public LibraryTest {};

TEST_F(Detection, ReportsWhatTheInterfaceFound) {
    ScriptDetection("IMOD_VIRTUAL", {16, 1001, 258, 1002});
    DetectInfo info;
    memset(&info, 0xAB, sizeof info);
    EXPECT_EQ(kOk, Detect(VMC_INTERFACE_VIRTUAL, &info));
    ASSERT_EQ(2u, info.count);
    EXPECT_EQ(16u, info.entries[0].deviceCode);
    EXPECT_EQ(1001u, info.entries[0].deviceId);
    EXPECT_EQ(VMC_INTERFACE_VIRTUAL, info.entries[0].interfaceCode);
    EXPECT_EQ(258u, info.entries[1].deviceCode);
    EXPECT_EQ(1002u, info.entries[1].deviceId);
    // The virtual link takes no address list.
    EXPECT_EQ(0, Count("INT_SetTargetDevice"));

    uint32_t count = 0, codes[64] = {}, ids[64] = {}, links[64] = {}, error = 0;
    EXPECT_EQ(1u, VMC_DetectDeviceLV(VMC_INTERFACE_VIRTUAL, nullptr, 0, 0, &count, codes, ids, links, &error));
    EXPECT_EQ(2u, count);
    EXPECT_EQ(258u, codes[1]);
    EXPECT_EQ(1002u, ids[1]);
    EXPECT_EQ(VMC_INTERFACE_VIRTUAL, links[1]);
    EXPECT_EQ(1, Count("INT_Init"));  // loaded once, found again the second time
}

TEST_F(Detection, EthernetNeedsAnAddressListBeforeAnyLoad) {
    DetectInfo info;
    uint32_t error = 0;
    EXPECT_EQ(0u, VMC_DetectDevice(VMC_INTERFACE_ETHER, nullptr, 0, 0, &info, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    EXPECT_FALSE(Loaded("IMOD_ETHER"));
    EXPECT_EQ(0u, VMC_DetectDevice(VMC_INTERFACE_GIGEV, nullptr, 0, 0, &info, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

TEST_F(Detection, EthernetHandsOverTheAddressesAndHoldsEveryDeviceLock) {
    const uint32_t deviceNo = DetectAndOpen(16);
    vmc_lock_slot slot = FAKE_LockSlot("DMOD016", 7, 0);
    std::pair<vmc_lock_slot, bool> probe = {slot, false};
    FAKE_SetHook("INT_DetectDevice", 0,
                 [](const FakeCall*, void* context) {
                     auto* p = static_cast<std::pair<vmc_lock_slot, bool>*>(context);
                     p->second = HeldElsewhere(p->first);
                 },
                 &probe);
    uint32_t addresses[] = {0xC0A80001, 0xC0A80002};
    DetectInfo info;
    uint32_t error = 0;
    EXPECT_EQ(1u, VMC_DetectDevice(VMC_INTERFACE_ETHER, addresses, 2, 3, &info, &error));
    EXPECT_TRUE(probe.second);
    EXPECT_FALSE(HeldElsewhere(slot));
    const auto targets = CallRecords("INT_SetTargetDevice");
    ASSERT_EQ(1u, targets.size());
    EXPECT_EQ(2u, targets[0].value1);
    EXPECT_EQ(3u, targets[0].value2);
    EXPECT_EQ(0xC0A80001u, targets[0].value3);
    (void)deviceNo;
}

TEST_F(Detection, SomeLinksCantDetectWhileDevicesAreOpenOnThem) {
    DetectAndOpen(16);
    EXPECT_EQ(VMC_ERR_BUSY, Detect(VMC_INTERFACE_VIRTUAL));
    DetectAndOpen(258, VMC_INTERFACE_USB);
    EXPECT_EQ(kOk, Detect(VMC_INTERFACE_USB));
    DetectAndOpen(1, VMC_INTERFACE_ETHER);
    EXPECT_EQ(kOk, Detect(VMC_INTERFACE_ETHER));
}

TEST_F(Detection, OldFirmwareOnAnOpenDeviceBlocksEveryDetection) {
    Detect(VMC_INTERFACE_USB);
    ScriptCamera(26);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, VMC_CODE_VERSION, 0, 201, 0, kOk);
    const uint32_t old = Open(26, VMC_INTERFACE_USB);
    EXPECT_EQ(201u, Info(old).version);
    EXPECT_EQ(VMC_ERR_OLD_FIRMWARE, Detect(VMC_INTERFACE_OPTICAL));
    EXPECT_TRUE(Loaded("IMOD_OPTICAL"));  // the gate comes after the load
    EXPECT_EQ(VMC_ERR_OLD_FIRMWARE, Detect(VMC_INTERFACE_USB));

    uint32_t error = 0;
    VMC_CloseDevice(old, &error);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, VMC_CODE_VERSION, 0, 202, 0, kOk);
    Open(26, VMC_INTERFACE_USB);
    EXPECT_EQ(kOk, Detect(VMC_INTERFACE_OPTICAL));
}

TEST_F(Detection, ModuleFilesThatDontLoad) {
    EXPECT_EQ(VMC_ERR_MODULE_LOAD, Detect(VMC_INTERFACE_1394));  // not a shared object
    EXPECT_EQ(VMC_ERR_MODULE_LOAD, Detect(VMC_INTERFACE_PCI));   // no such file
    EXPECT_EQ(VMC_ERR_MODULE_LOAD, Detect(77));                  // no such interface
    // A failed load leaves the slot free for a later detection.
    EXPECT_EQ(kOk, Detect(VMC_INTERFACE_VIRTUAL));
}

}  // namespace
}  // namespace vmc::test
