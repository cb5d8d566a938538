// Value lists: the table-made family walked row by row, then the members
// with behaviour of their own.
#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

// One row of the family table, with a call that fits every signature:
// the second argument is the child for per-head lists, the port where the
// caller gives the sub-code, and unused for device lists.
using ListCall = uint32_t (*)(uint32_t deviceNo, uint32_t childOrPort, uint32_t* count, uint32_t* list,
                              uint32_t* error);

struct ListRow {
    const char* name;
    uint32_t list;
    bool perHead, locked, portIsSub;
    ListCall call;
};

#define LOCKED true
#define UNLOCKED false
#define CALL_CHILD_0(exportName) \
    [](uint32_t d, uint32_t c, uint32_t* n, uint32_t* l, uint32_t* e) { return exportName(d, c, n, l, e); }
#define CALL_DEVICE_CALLER(exportName) CALL_CHILD_0(exportName)
#define CALL_DEVICE_0(exportName) \
    [](uint32_t d, uint32_t, uint32_t* n, uint32_t* l, uint32_t* e) { return exportName(d, n, l, e); }
#define IS_CHILD_CHILD true
#define IS_CHILD_DEVICE false
#define IS_CALLER_0 false
#define IS_CALLER_CALLER true
#define VALUE_LIST(exportName, list, child, lock, sub) \
    {#exportName, list, IS_CHILD_##child, lock, IS_CALLER_##sub, CALL_##child##_##sub(exportName)},
const ListRow kRows[] = {
#include "state/value_lists.def"
};

struct HookSeen {
    vmc_lock_slot lock;
    bool called = false, lockHeld = false;
};

void SeeLock(const FakeCall*, void* context) {
    auto* seen = static_cast<HookSeen*>(context);
    seen->called = true;
    seen->lockHeld = HeldElsewhere(seen->lock);
}

class ValueLists : public LibraryTest {
protected:
    // A camera with heads 1 and 2.
    uint32_t OpenTwoHeads() {
        Detect(VMC_INTERFACE_VIRTUAL);
        ScriptCamera(16, 7, {1, 2}, 2);
        return Open(16);
    }

    vmc_lock_slot DeviceLock() const { return FAKE_LockSlot("DMOD016", 7, 0); }

    uint32_t count = 0, list[VMC_MAX_LIST_ENTRIES] = {}, error = 0;
};

TEST_F(ValueLists, EveryRowPassesTheModulesListThrough) {
    const uint32_t deviceNo = OpenTwoHeads();
    const uint32_t values[] = {11, 22, 33};
    for (const ListRow& row : kRows) {
        // Head 2 and port 3 show that the caller's argument reaches the module.
        const uint32_t argument = row.perHead ? 2 : row.portIsSub ? 3 : 0;
        const uint32_t child = row.perHead ? 2 : 0, sub = row.portIsSub ? 3 : 0;
        FAKE_ClearLog();
        FAKE_SetList("DMOD016", "DEV_GetList", child, row.list, sub, values, 3, kOk);
        HookSeen seen{DeviceLock()};
        FAKE_SetHook("DEV_GetList", row.list, SeeLock, &seen);
        count = 0;
        EXPECT_EQ(1u, row.call(deviceNo, argument, &count, list, &error)) << row.name;
        EXPECT_EQ(kOk, error) << row.name;
        EXPECT_EQ(3u, count) << row.name;
        EXPECT_EQ(std::vector<uint32_t>(values, values + 3), std::vector<uint32_t>(list, list + 3)) << row.name;
        const std::vector<FakeCall> calls = CallRecords("DEV_GetList");
        ASSERT_EQ(1u, calls.size()) << row.name;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(list), calls[0].pointer) << row.name;
        EXPECT_TRUE(seen.called) << row.name;
        EXPECT_EQ(row.locked, seen.lockHeld) << row.name;
        EXPECT_FALSE(HeldElsewhere(DeviceLock())) << row.name;
        FAKE_SetHook("DEV_GetList", row.list, nullptr, nullptr);

        // A refusal reaches the caller as the module left it.
        FAKE_SetList("DMOD016", "DEV_GetList", child, row.list, sub, values, 1, 33);
        EXPECT_EQ(0u, row.call(deviceNo, argument, &count, list, &error)) << row.name;
        EXPECT_EQ(33u, error) << row.name;
        EXPECT_EQ(1u, count) << row.name;
        EXPECT_FALSE(HeldElsewhere(DeviceLock())) << row.name;

        // Per-head lists want a head that exists; device lists an open device.
        FAKE_ClearLog();
        if (row.perHead) {
            for (uint32_t head : {0u, 3u}) {
                EXPECT_EQ(0u, row.call(deviceNo, head, &count, list, &error)) << row.name << " head " << head;
                EXPECT_EQ(VMC_ERR_BAD_CHILD, error) << row.name;
            }
        } else {
            EXPECT_EQ(0u, row.call(deviceNo + 1, argument, &count, list, &error)) << row.name;
            EXPECT_EQ(VMC_ERR_NOT_OPEN, error) << row.name;
        }
        EXPECT_EQ(0, Count("DEV_GetList")) << row.name;
        EXPECT_EQ(0u, row.call(deviceNo, argument, nullptr, list, &error)) << row.name;
        EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error) << row.name;
    }
}

// Rows stated apart from the table, so that a wrong list code, child rule,
// lock or sub-code in it is not mirrored here: head 2, port 3.
struct HandRow {
    const char* name;
    uint32_t (*call)(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
    uint32_t list, child, sub;  // what the module is asked
    bool locked;
};

const HandRow kHandRows[] = {
    {"VMC_GetRecordRateList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetRecordRateList(d, 2, n, l, e); }, VMC_LIST_RECORD_RATE, 2, 0, true},
    {"VMC_GetSensorGainModeList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetSensorGainModeList(d, 2, n, l, e); }, VMC_LIST_SENSOR_GAIN_MODE, 2, 0, false},
    {"VMC_GetAEShutterNsecList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetAEShutterNsecList(d, 2, n, l, e); }, VMC_LIST_AE_SHUTTER_NSEC, 2, 0, true},
    {"VMC_GetPixelDefectList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetPixelDefectList(d, 2, n, l, e); }, VMC_LIST_PIXEL_DEFECT, 2, 0, true},
    {"VMC_GetTriggerModeList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetTriggerModeList(d, n, l, e); }, VMC_LIST_TRIGGER_MODE, 0, 0, false},
    {"VMC_GetExternalOutModeList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetExternalOutModeList(d, 3, n, l, e); }, VMC_LIST_EXTERNAL_OUT_MODE, 0, 3, false},
    {"VMC_GetADCRangeList", [](uint32_t d, uint32_t* n, uint32_t* l, uint32_t* e) {
         return VMC_GetADCRangeList(d, n, l, e); }, VMC_LIST_ADC_RANGE, 0, 0, false},
};

TEST_F(ValueLists, RowsWrittenOutByHand) {
    const uint32_t deviceNo = OpenTwoHeads();
    const uint32_t values[] = {7, 8};
    for (const HandRow& row : kHandRows) {
        SCOPED_TRACE(row.name);
        FAKE_ClearLog();
        FAKE_SetList("DMOD016", "DEV_GetList", row.child, row.list, row.sub, values, 2, kOk);
        HookSeen seen{DeviceLock()};
        FAKE_SetHook("DEV_GetList", row.list, SeeLock, &seen);
        EXPECT_EQ(1u, row.call(deviceNo, &count, list, &error));
        EXPECT_EQ((std::vector<uint32_t>{7, 8}), std::vector<uint32_t>(list, list + count));
        EXPECT_EQ(row.locked, seen.lockHeld);
        FAKE_SetHook("DEV_GetList", row.list, nullptr, nullptr);
        const std::vector<FakeCall> calls = CallRecords("DEV_GetList");
        ASSERT_EQ(1u, calls.size());
        EXPECT_EQ(row.list, calls[0].code);
        EXPECT_EQ(row.child, calls[0].child);
        EXPECT_EQ(row.sub, calls[0].sub);
    }
}

TEST_F(ValueLists, PartitionIncrementModes) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    const uint32_t without = Open(16);
    FAKE_ClearLog();
    list[0] = 9;
    EXPECT_EQ(1u, VMC_GetPartitionIncModeList(without, &count, list, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ(1u, count);
    EXPECT_EQ(0u, list[0]);
    EXPECT_EQ(0, Count("DEV_GetList")) << "a camera without the setting is not asked";

    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_PARTITION_INC_MODE, 0, 0, 0, kOk);
    const uint32_t with = Open(16);
    EXPECT_EQ(1u, VMC_GetPartitionIncModeList(with, &count, list, &error)) << "a camera that cannot list";
    EXPECT_EQ(kOk, error);
    EXPECT_EQ((std::vector<uint32_t>{0, 1}), std::vector<uint32_t>(list, list + count));

    const uint32_t modes[] = {0, 2};
    FAKE_SetList("DMOD016", "DEV_GetList", 0, VMC_LIST_PARTITION_INC_MODE, 0, modes, 2, kOk);
    EXPECT_EQ(1u, VMC_GetPartitionIncModeList(with, &count, list, &error));
    EXPECT_EQ((std::vector<uint32_t>{0, 2}), std::vector<uint32_t>(list, list + count));
    FAKE_SetList("DMOD016", "DEV_GetList", 0, VMC_LIST_PARTITION_INC_MODE, 0, modes, 0, 5);
    EXPECT_EQ(0u, VMC_GetPartitionIncModeList(with, &count, list, &error));
    EXPECT_EQ(5u, error);
}

TEST_F(ValueLists, DelayTypesOfACameraThatCannotListThem) {
    const uint32_t deviceNo = DetectAndOpen(16);
    EXPECT_EQ(1u, VMC_GetDelayTypeList(deviceNo, &count, list, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ((std::vector<uint32_t>{1, 2, 3, 4, 5, 6, 7}), std::vector<uint32_t>(list, list + count));

    const uint32_t types[] = {1, 12};
    FAKE_SetList("DMOD016", "DEV_GetList", 0, VMC_LIST_DELAY_TYPE, 0, types, 2, kOk);
    EXPECT_EQ(1u, VMC_GetDelayTypeList(deviceNo, &count, list, &error));
    EXPECT_EQ((std::vector<uint32_t>{1, 12}), std::vector<uint32_t>(list, list + count));
    FAKE_SetList("DMOD016", "DEV_GetList", 0, VMC_LIST_DELAY_TYPE, 0, types, 0, 9);
    EXPECT_EQ(0u, VMC_GetDelayTypeList(deviceNo, &count, list, &error));
    EXPECT_EQ(9u, error);
}

// Lists chosen by an argument, and lists that take child 0 or any child.
TEST_F(ValueLists, ListsChosenByArgument) {
    const uint32_t deviceNo = OpenTwoHeads();
    const uint32_t values[] = {5};
    FAKE_SetList("DMOD016", "DEV_GetList", FAKE_ANY, FAKE_ANY, FAKE_ANY, values, 1, kOk);
    FAKE_ClearLog();
    for (uint32_t signal : {88u, 82u, 13u, 0u}) VMC_GetExposeOutTimesList(deviceNo, signal, &count, list, &error);
    VMC_GetTemperatureTypeList(deviceNo, 0, &count, list, &error);
    VMC_GetTemperatureTypeMList(deviceNo, 7, &count, list, &error);
    EXPECT_EQ(kOk, error) << "no head check: the module judges head 7";
    const std::vector<std::string> expected = {"DEV_GetList 48", "DEV_GetList 48", "DEV_GetList 47",
                                               "DEV_GetList 47", "DEV_GetList 53", "DEV_GetList 54"};
    EXPECT_EQ(expected, Calls("DMOD016"));
    const std::vector<FakeCall> calls = CallRecords("DEV_GetList");
    EXPECT_EQ(0u, calls[4].child);
    EXPECT_EQ(7u, calls[5].child);
}

TEST_F(ValueLists, DeviceErrorsNeedTheFunction) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    const uint32_t without = Open(16);
    EXPECT_EQ(0u, VMC_GetDeviceErrorList(without, 0, &count, list, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);

    FAKE_SetAnswer("DMOD016", "DEV_GetDeviceCaps", 0, VMC_CODE_FEATURE, VMC_FEATURE_DEVICE_ERROR_LIST, 1, 0, kOk);
    const uint32_t with = Open(16);
    const uint32_t errors[] = {700, 701};
    FAKE_SetList("DMOD016", "DEV_GetList", FAKE_ANY, VMC_LIST_DEVICE_ERROR, 0, errors, 2, kOk);
    HookSeen seen{FAKE_LockSlot("DMOD016", 7, 0)};
    FAKE_SetHook("DEV_GetList", VMC_LIST_DEVICE_ERROR, SeeLock, &seen);
    FAKE_ClearLog();
    for (uint32_t child : {0u, 1u}) {
        EXPECT_EQ(1u, VMC_GetDeviceErrorList(with, child, &count, list, &error)) << child;
        EXPECT_EQ(kOk, error);
        EXPECT_EQ((std::vector<uint32_t>{700, 701}), std::vector<uint32_t>(list, list + count));
    }
    EXPECT_FALSE(seen.lockHeld);
    const std::vector<FakeCall> calls = CallRecords("DEV_GetList");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ(0u, calls[0].child);
    EXPECT_EQ(1u, calls[1].child);
    EXPECT_EQ(0u, VMC_GetDeviceErrorList(with, 2, &count, list, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
}

TEST_F(ValueLists, ExistingHeadsRefuseADeviceNumberBeyondTheTable) {
    const uint32_t deviceNo = OpenTwoHeads();
    EXPECT_EQ(1u, VMC_GetExistChildDeviceList(deviceNo, &count, list, &error));
    EXPECT_EQ((std::vector<uint32_t>{1, 2}), std::vector<uint32_t>(list, list + count));
    FAKE_ClearLog();
    EXPECT_EQ(0u, VMC_GetExistChildDeviceList(VMC_MAX_DEVICES, &count, list, &error));
    EXPECT_EQ(VMC_ERR_BAD_DEVICE_NO, error);
    EXPECT_EQ(0u, FAKE_CallCount());
}

// Both look-up table lists pick their list by plane, under the lock; a
// wrong plane keeps the lock.
TEST_F(ValueLists, LookUpTablesByPlane) {
    const uint32_t deviceNo = OpenTwoHeads();
    using Get = uint32_t (*)(uint32_t, uint32_t, uint32_t, uint32_t*, uint32_t*, uint32_t*);
    const struct {
        Get get;
        uint32_t lists[3];
    } families[] = {
        {VMC_GetLUTValueList, {VMC_LIST_LUT_VALUE_1, VMC_LIST_LUT_VALUE_2, VMC_LIST_LUT_VALUE_3}},
        {VMC_GetLUTOrgValueList, {VMC_LIST_LUT_ORG_VALUE_1, VMC_LIST_LUT_ORG_VALUE_2, VMC_LIST_LUT_ORG_VALUE_3}},
    };
    const uint32_t values[] = {0, 512, 1023};
    for (const auto& family : families) {
        for (uint32_t plane = 1; plane <= 3; ++plane) {
            const uint32_t code = family.lists[plane - 1];
            FAKE_SetList("DMOD016", "DEV_GetList", 2, code, 0, values, 3, kOk);
            HookSeen seen{DeviceLock()};
            FAKE_SetHook("DEV_GetList", code, SeeLock, &seen);
            EXPECT_EQ(1u, family.get(deviceNo, 2, plane, &count, list, &error)) << code;
            EXPECT_EQ(3u, count) << code;
            EXPECT_EQ(1023u, list[2]) << code;
            EXPECT_TRUE(seen.called && seen.lockHeld) << code;
            EXPECT_FALSE(HeldElsewhere(DeviceLock())) << code;
        }
        EXPECT_EQ(0u, family.get(deviceNo, 0, 1, &count, list, &error));
        EXPECT_EQ(VMC_ERR_BAD_CHILD, error);

        EXPECT_EQ(0u, family.get(deviceNo, 1, 4, &count, list, &error));
        EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
        EXPECT_TRUE(HeldElsewhere(DeviceLock())) << "kept by this thread";
        pthread_mutex_unlock(*DeviceLock());
    }
}

// The module's own entry; whatever it answers, the call succeeds.
TEST_F(ValueLists, DropFramesUnderTheLock) {
    const uint32_t deviceNo = OpenTwoHeads();
    const uint32_t frames[] = {17, 40};
    FAKE_SetList("DMOD016", "DEV_GetDropFrameList", FAKE_ANY, 0, 0, frames, 2, 33);
    HookSeen seen{DeviceLock()};
    FAKE_SetHook("DEV_GetDropFrameList", 0, SeeLock, &seen);
    FAKE_ClearLog();
    for (uint32_t child : {0u, 2u}) {
        count = 64;
        EXPECT_EQ(1u, VMC_GetDropFrameList(deviceNo, child, &count, list, &error)) << child;
        EXPECT_EQ(kOk, error);
        EXPECT_EQ((std::vector<uint32_t>{17, 40}), std::vector<uint32_t>(list, list + count));
    }
    EXPECT_TRUE(seen.lockHeld);
    EXPECT_FALSE(HeldElsewhere(DeviceLock()));
    const std::vector<FakeCall> calls = CallRecords("DEV_GetDropFrameList");
    ASSERT_EQ(2u, calls.size());
    EXPECT_EQ(2u, calls[1].child);
    EXPECT_EQ(64u, calls[1].value1) << "the caller's count reaches the module";
    EXPECT_EQ(0u, VMC_GetDropFrameList(deviceNo, 3, &count, list, &error));
    EXPECT_EQ(VMC_ERR_BAD_CHILD, error);
}

TEST_F(ValueLists, OpenedDevices) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    for (uint32_t expected = 0; expected < 4; ++expected) ASSERT_EQ(expected, Open(16));
    VMC_CloseDevice(1, &error);
    VMC_CloseDevice(2, &error);
    FAKE_ClearLog();
    EXPECT_EQ(1u, VMC_GetOpenedDeviceList(&count, list, &error));
    EXPECT_EQ(kOk, error);
    EXPECT_EQ((std::vector<uint32_t>{0, 3}), std::vector<uint32_t>(list, list + count));
    EXPECT_EQ(0u, FAKE_CallCount());
}

TEST(ValueListsBeforeInit, RefuseWithError2) {
    uint32_t count = 0, list[4] = {}, error = 0;
    EXPECT_EQ(0u, VMC_GetOpenedDeviceList(&count, list, &error));
    EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error);
    EXPECT_EQ(0u, VMC_GetRecordRateList(0, 1, &count, list, &error));
    EXPECT_EQ(VMC_ERR_NOT_INITIALISED, error);
}

}  // namespace
}  // namespace vmc::test
