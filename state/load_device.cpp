// The device half of the state load, as an ordered list of steps. The order
// is the order of the calls and modules rely on it: later steps read fields
// that earlier ones filled.
//
// Failure rules of a step: tolerant (error 21 clears flag and field and the
// load goes on, any other error ends it), fatal (any failure ends it),
// ignored (the result does not matter).
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <vmc/codes.h>

#include "core/communication_store.h"
#include "core/frame.h"
#include "core/module_calls.h"
#include "state/load.h"
#include "state/requests.h"

namespace vmc {
namespace {

struct DeviceLoad {
    uint32_t deviceNo;
    uint32_t packetMode;
    uint32_t* error;
    DeviceRecord& record;
    uint32_t children[kDeviceCount];  // the existing-children list as the module wrote it
};

// A step returns false to end the load with result 0.
using Step = bool (*)(DeviceLoad&);

bool Tolerated(const DeviceLoad& load) { return *load.error == VMC_ERR_NOT_SUPPORTED; }

// Tolerant query of one code into a field, with its availability flag.
bool QueryTolerant(DeviceLoad& load, uint32_t code, uint32_t* field, uint8_t* flag) {
    uint32_t value = 0;
    const bool answered = GetCaps(load.deviceNo, 0, code, 0, &value, nullptr, load.error);
    if (!answered && !Tolerated(load)) return false;
    *field = answered ? value : 0;
    if (flag) *flag = answered;
    return true;
}

// The module shares the library's locks: it may block on the same lock as
// a caller, so the slots it is handed must stay put while the device is open.
bool HandOverGlobalLock(DeviceLoad& load) {
    SetData(load.deviceNo, 0, VMC_DATA_GLOBAL_MUTEX, 0, 0, &state.globalMutex, load.error);
    return true;
}

bool CreateDeviceLocks(DeviceLoad& load) {
    for (uint32_t channel = 0; channel < kChannelCount; ++channel) {
        platform::MutexHandle& slot = state.channelMutex[channel][load.deviceNo];
        if (slot) {
            // A lock left from an earlier life of this record: refuse, without an error code.
            platform::CloseMutex(slot);
            slot = nullptr;
            return false;
        }
        slot = platform::CreateMutex();
        SetData(load.deviceNo, 0, VMC_DATA_DEVICE_MUTEX, channel, 0, &slot, load.error);
    }
    return true;
}

bool ReadDeviceId(DeviceLoad& load) {
    uint32_t value = 0;
    return RefreshDeviceId(load.deviceNo, &value, load.error);
}

// Product, lot, individual id and firmware version of the device.
bool ReadIdentity(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    return QueryTolerant(load, VMC_CODE_PRODUCT_ID, &record.productId, nullptr) &&
           QueryTolerant(load, VMC_CODE_LOT_ID, &record.lotId, nullptr) &&
           QueryTolerant(load, VMC_CODE_INDIVIDUAL_ID, &record.individualId, nullptr) &&
           QueryTolerant(load, VMC_CODE_VERSION, &record.version, nullptr);
}

bool ReadInstructionSet(DeviceLoad& load) {
    uint32_t value = 0;
    const bool answered = RefreshInstructionSet(load.deviceNo, &value, load.error);
    if (!answered && !Tolerated(load)) return false;
    load.record.hasInstructionSet = answered;
    return true;
}

// Both counts default to 1 when the camera can't say.
bool ReadChildCounts(DeviceLoad& load) {
    uint32_t count = 0, maxCount = 0;
    if (!RefreshChildDeviceCount(load.deviceNo, &count, load.error) && !Tolerated(load)) return false;
    if (!RefreshMaxChildDeviceCount(load.deviceNo, &maxCount, load.error) && !Tolerated(load)) return false;
    return true;
}

bool CheckInitialised(DeviceLoad& load) {
    if (!state.initialised) {
        *load.error = VMC_ERR_NOT_INITIALISED;
        return false;
    }
    if (load.deviceNo >= kDeviceCount) *load.error = VMC_ERR_BAD_DEVICE_NO;  // noted, and the load goes on
    return true;
}

bool ReadExistingChildren(DeviceLoad& load) {
    uint32_t count = 0;
    return GetList(load.deviceNo, 0, VMC_LIST_EXIST_CHILD_DEVICE, 0, load.children, &count, load.error) ||
           Tolerated(load);
}

bool LoadChildren(DeviceLoad& load) {
    for (uint32_t i = 0; i < ChildSlots(load.record); ++i) {
        const uint32_t childNo = load.children[i];
        if (childNo == 0) continue;
        bool loaded = false;
        if (childNo > ChildSlots(load.record)) {
            *load.error = VMC_ERR_BAD_CHILD;  // a head number the record has no slot for
        } else if (void* block = std::calloc(1, sizeof(ChildRecord))) {
            std::free(load.record.childRecords[childNo - 1]);  // a list naming a head twice
            load.record.childRecords[childNo - 1] = static_cast<ChildRecord*>(block);
            loaded = LoadChildState(load.deviceNo, childNo, load.error);
        } else {
            *load.error = VMC_ERR_NO_MEMORY;
        }
        if (!loaded) {
            FreeChildRecords(load.record);
            return false;
        }
    }
    return true;
}

// Every module must answer the trigger mode.
bool ReadTriggerMode(DeviceLoad& load) {
    if (RefreshTriggerMode(load.deviceNo, load.error)) return true;
    if (Tolerated(load)) FreeChildRecords(load.record);
    return false;
}

bool ReadDeviceName(DeviceLoad& load) {
    // A module that says its failure is fatal stops the open; any other failure gets a stand-in name.
    return ReadName(load.deviceNo, 0, load.record.deviceName, "Unknown Device", load.error) ||
           *load.error != VMC_ERR_MODULE_FATAL;
}

bool ReadLinkSettings(DeviceLoad& load) {
    DeviceRecord& record = load.record;
    if (!QueryTolerant(load, VMC_CODE_ETHERNET_SPEED_LIMIT, &record.ethernetSpeedLimit, &record.hasEthernetSpeedLimit))
        return false;
    uint32_t linkSpeed = 0;
    const bool answered = RefreshLinkSpeed(load.deviceNo, &linkSpeed, load.error);
    if (!answered && !Tolerated(load)) return false;
    record.hasLinkSpeed = answered;
    return true;
}

// The packet-interval mode kept is the open parameter, not the camera's answer.
bool ReadPacketIntervalMode(DeviceLoad& load) {
    uint32_t value = 0;
    if (GetCaps(load.deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, 0, &value, nullptr, load.error)) {
        load.record.hasPacketIntervalMode = 1;
        load.record.packetIntervalMode = load.packetMode;
    } else {
        if (!Tolerated(load)) return false;
        load.record.hasPacketIntervalMode = 0;
        load.record.packetIntervalMode = 1;
    }
    return true;
}

// On a speed-limited link the stored 10-gigabit packet interval goes to the camera.
bool SendPacketInterval10G(DeviceLoad& load) {
    if (load.record.ethernetSpeedLimit != 1) return true;
    const uint32_t interval = ReadCommunicationValue(kStorePacketInterval10G, 1);
    if (SetCaps(load.deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, 1, interval, 0, load.error)) {
        load.record.hasPacketIntervalMode = 1;
        load.record.packetInterval10G = interval;
        return true;
    }
    if (!Tolerated(load)) return false;
    load.record.hasPacketIntervalMode = 0;
    return true;
}

constexpr Step kSteps[] = {
    HandOverGlobalLock,
    CreateDeviceLocks,
    ReadDeviceId,
    ReadIdentity,
    ReadInstructionSet,
    ReadChildCounts,
    CheckInitialised,
    ReadExistingChildren,
    LoadChildren,
    ReadTriggerMode,
    ReadDeviceName,
    ReadLinkSettings,
    ReadPacketIntervalMode,
    SendPacketInterval10G,
};

}  // namespace

uint32_t LoadDeviceState(uint32_t deviceNo, uint32_t packetMode, uint32_t* error) {
    DeviceLoad load = {deviceNo, packetMode, error, Record(deviceNo), {}};
    for (Step step : kSteps)
        if (!step(load)) return 0;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace vmc
