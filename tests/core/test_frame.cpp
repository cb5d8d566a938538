// The call frame: initialisation, the device lock with its link tests and
// its kept lock, the instruction-set choice, and modules lacking entries.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Frame : public LibraryTest {};

TEST_F(Frame, SecondInitFailsAndChangesNothing) {
    const uint32_t deviceNo = DetectAndOpen(16);
    uint32_t error = 0, count = 0;
    EXPECT_EQ(0u, VMC_Init(&error));
    EXPECT_EQ(VMC_ERR_ALREADY_INITIALISED, error);
    EXPECT_EQ(1u, VMC_GetNumberOfDevice(&count, &error));
    EXPECT_EQ(1u, count);
    EXPECT_EQ(16u, Info(deviceNo).deviceCode);
    // The detection of before is still loaded: open needs no new detection.
    ScriptCamera(258);
    Open(258);
}

TEST_F(Frame, DeviceLockAsksTheLinkBeforeAndAfterTheWait) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_ClearLog();
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_LAST_ERROR, 0, 11, 22, kOk);
    uint32_t a = 0, b = 0, error = 0;
    EXPECT_EQ(1u, VMC_GetLastError(deviceNo, &a, &b, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(11u, a);
    EXPECT_EQ(22u, b);
    // A module without the link query (error 21) counts as connected.
    EXPECT_EQ((std::vector<std::string>{"DEV_GetDeviceCaps 325", "DEV_GetDeviceCaps 325", "DEV_GetDeviceCaps 224"}),
              Calls());
    EXPECT_FALSE(HeldElsewhere(FAKE_LockSlot("DMOD016", 7, 0)));
}

TEST_F(Frame, LinkDownBeforeTheWaitRefusesWithoutWaiting) {
    const uint32_t deviceNo = DetectAndOpen(16);
    vmc_lock_slot slot = FAKE_LockSlot("DMOD016", 7, 0);
    ASSERT_NE(nullptr, slot);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, 0, 0, kOk);
    FAKE_ClearLog();
    // Another thread holds the device lock: a call that waited would time out, not report the link.
    std::thread holder([&] {
        pthread_mutex_lock(*slot);
        uint32_t a = 0, b = 0, error = 0;
        std::thread caller([&] { EXPECT_EQ(0u, VMC_GetLastError(deviceNo, &a, &b, &error)); });
        caller.join();
        EXPECT_EQ(VMC_ERR_DISCONNECTED, error);
        pthread_mutex_unlock(*slot);
    });
    holder.join();
    EXPECT_EQ(1, Count("DEV_GetDeviceCaps", VMC_CODE_CONNECT_STATE));
    EXPECT_EQ(0, Count("DEV_GetDeviceCaps", VMC_CODE_LAST_ERROR));
}

// The link is asked before the wait and again after it. A failure before
// the wait releases nothing it took; one after it keeps the lock with the
// caller, except a link that dropped meanwhile.
TEST_F(Frame, LinkQueryFailuresAroundTheWait) {
    const struct {
        const char* what;
        uint32_t before, beforeError, after, afterError, error;
        bool kept;
    } cases[] = {
        {"before the wait", 0, 77, 0, 77, 77, false},
        {"after the wait", 1, kOk, 0, 77, 77, true},
        {"dropped during the wait", 1, kOk, 0, kOk, VMC_ERR_DISCONNECTED, false},
    };
    const uint32_t deviceNo = DetectAndOpen(16);
    vmc_lock_slot slot = FAKE_LockSlot("DMOD016", 7, 0);
    for (const auto& c : cases) {
        FAKE_QueueAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, c.before, 0, c.beforeError);
        FAKE_QueueAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_CONNECT_STATE, 0, c.after, 0, c.afterError);
        uint32_t a = 0, b = 0, error = 0;
        EXPECT_EQ(0u, VMC_GetLastError(deviceNo, &a, &b, &error)) << c.what;
        EXPECT_EQ(c.error, error) << c.what;
        EXPECT_EQ(c.kept, HeldElsewhere(slot)) << c.what;
        if (c.kept) pthread_mutex_unlock(*slot);  // this thread owns what the call kept
        FAKE_Reset();
        ScriptCamera(16);
    }
}

TEST_F(Frame, CallsOnAClosedDeviceFindNoLock) {
    uint32_t a = 0, b = 0, error = 0;
    EXPECT_EQ(0u, VMC_GetLastError(3, &a, &b, &error));
    EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error);
    EXPECT_EQ(0u, FAKE_CallCount());
}

TEST_F(Frame, InstructionSetFollowsTheProcessorAndTheMode) {
    const uint32_t deviceNo = DetectAndOpen(16);
    FAKE_SetAnswer("DMOD016", "DEV_SetDeviceCaps", 0, VMC_CODE_INSTRUCTION_SET, 0, 0, 0, kOk);
    struct Case {
        uint32_t mode, sent;
    } cases[] = {
        {VMC_INSTRUCTION_AUTO, 2},                 // every x86-64 processor has SSE
        {VMC_INSTRUCTION_FEATURE_A, VMC_INSTRUCTION_NONE},  // feature A is never available
        {VMC_INSTRUCTION_SSE | VMC_INSTRUCTION_FEATURE_A, 2},
        {0xC0000000u, VMC_INSTRUCTION_NONE},       // not the automatic pattern
        {0, VMC_INSTRUCTION_NONE},
    };
#if !defined(__x86_64__)
    GTEST_SKIP() << "processor identification exists on x86-64 only";
#endif
    for (const Case& c : cases) {
        FAKE_ClearLog();
        uint32_t error = 0;
        EXPECT_EQ(1u, VMC_SetInstructionSet(deviceNo, c.mode, &error));
        const auto writes = CallRecords("DEV_SetDeviceCaps");
        ASSERT_EQ(1u, writes.size());
        EXPECT_EQ(c.sent, writes[0].value1) << "mode " << c.mode;
    }
}

TEST_F(Frame, InstructionSetIsCachedOnlyWhenTheCameraHasIt) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_INSTRUCTION_SET, 0, 2, 0, kOk);
    const uint32_t with = Open(16);
    ScriptCamera(258);
    const uint32_t without = Open(258);
    uint32_t value = 99, error = 0;
    EXPECT_EQ(1u, VMC_GetInstructionSet(with, &value, &error));
    EXPECT_EQ(2u, value);
    value = 99;
    EXPECT_EQ(0u, VMC_GetInstructionSet(without, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(99u, value);
}

TEST_F(Frame, AModuleWithoutAnEntryAnswersNotSupported) {
    // DMOD007 lacks DEV_GetDeviceCaps: the state load fails instead of crashing,
    // and the open is undone.
    Detect(VMC_INTERFACE_VIRTUAL);
    FAKE_SetAnswer("DMOD007", "DEV_OpenDevice", 0, 0, 0, 9, 0, kOk);
    OpenParam param = {7, 1, VMC_INTERFACE_VIRTUAL};
    uint32_t deviceNo = VMC_MAX_DEVICES, error = 0, count = 9;
    EXPECT_EQ(0u, VMC_OpenDevice(&param, &deviceNo, &error));
    EXPECT_EQ(kOk, error);  // what the clean close after the failed load left
    EXPECT_EQ(1u, VMC_GetNumberOfDevice(&count, &error));
    EXPECT_EQ(0u, count);
    EXPECT_FALSE(Loaded("DMOD007"));
}

TEST_F(Frame, NullErrorPointerIsTolerated) {
    EXPECT_EQ(0u, VMC_Init(nullptr));
    uint32_t count = 0;
    EXPECT_EQ(1u, VMC_GetNumberOfDevice(&count, nullptr));
}

}  // namespace
}  // namespace vmc::test

namespace vmc::test {
namespace {

// The checks run in a fixed order: initialised, child, availability, arguments.
TEST_F(Frame, ChecksComeInTheirOrder) {
    const uint32_t deviceNo = DetectAndOpen(16);
    uint32_t error = 0;
    // A bad child is reported before a null record.
    EXPECT_EQ(0u, VMC_GetChildInfo(deviceNo, 0, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
    EXPECT_EQ(0u, VMC_GetChildInfo(deviceNo, 1, nullptr, &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
    // An absent function is reported before a null output, and asks nothing.
    FAKE_ClearLog();
    EXPECT_EQ(0u, VMC_GetLinkSpeed(deviceNo, nullptr, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
    EXPECT_EQ(0u, FAKE_CallCount());
    // A successful call leaves 1 in the word even after a tolerated 21 inside.
    uint32_t value = 0;
    EXPECT_EQ(1u, VMC_GetConnectStatus(deviceNo, &value, &error));
    EXPECT_EQ(kOk, error);
}

}  // namespace
}  // namespace vmc::test
