// The process-wide state of the library: one instance, zero at load.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>

#include <vmc/module.h>
#include <vmc/vmc.h>

#include "core/closed_modules.h"
#include "core/fields.h"
#include "platform/mutex.h"

namespace vmc {

inline constexpr uint32_t kDeviceCount = VMC_MAX_DEVICES;
inline constexpr uint32_t kInterfaceSlots = VMC_MAX_INTERFACES;
inline constexpr uint32_t kMaxChildren = VMC_MAX_CHILDREN;
inline constexpr uint32_t kChannelCount = 4;  // channel 0 is the device lock

// What a detection found on one interface slot; the caller's DetectInfo has the same image.
using DetectResult = DetectInfo;

struct LibraryState {
    uint32_t initialised;
    // A device of the global-lock set is open. Written under tableMutex by
    // open and close, read by every call that decides on the global lock.
    std::atomic<uint32_t> globalLockRequired;
    uint32_t openDeviceCount;
    // 8-aligned, so that the 64-bit fields of every record are too and load whole.
    alignas(8) DeviceRecord deviceTable[kDeviceCount];
    DeviceModule deviceModules[kDeviceCount];
    InterfaceModule interfaceModules[kInterfaceSlots];
    DetectResult detectResults[kInterfaceSlots];
    // The child records of each device. The record's own childRecords slots
    // sit on 4-byte boundaries, where a pointer is not one atomic access, so
    // the library keeps its children here and leaves those slots null: a
    // caller's copy of the record holds no heap addresses either way.
    ChildRecord* children[kDeviceCount][kMaxChildren];
    // channelMutex[0] is deviceMutex; 1..3 are the locks of transfer channels 2..4.
    platform::MutexHandle channelMutex[kChannelCount][kDeviceCount];
    uint32_t transferActive[kChannelCount][kDeviceCount];
    platform::MutexHandle globalMutex;
    void* grayPalette;
    uint32_t cpuidResult[4];
    uint32_t instructionFeatureA;
    uint32_t instructionFeatureSSE;
    void* sparePageBuffer;
    uint32_t sparePageSize;
    void* closedModuleHandle[kClosedModuleCount];
    void* closedEntries[kClosedEntryCount];
    // Serialises detection, open and close on the module tables and the device
    // table, so that threads may open and close different devices at once.
    std::recursive_mutex tableMutex;
    // Last status of each device (core/status_map.h). All devices write it,
    // each under its own device lock only, so it has a lock of its own.
    std::map<uint32_t, uint32_t> deviceStatusMap;
    std::mutex deviceStatusMutex;
};

extern LibraryState state;

inline DeviceRecord& Record(uint32_t deviceNo) { return state.deviceTable[deviceNo]; }
inline platform::MutexHandle& DeviceMutex(uint32_t deviceNo) { return state.channelMutex[0][deviceNo]; }

// Child numbers 1..this have a slot: what the camera reported, capped at the
// twelve slots a record holds, in case a module reports more.
inline uint32_t ChildSlots(const DeviceRecord& record) {
    const uint32_t reported = LoadField(record.maxChildDeviceCount);
    return reported < kMaxChildren ? reported : kMaxChildren;
}

// Frees every child record of a device and nulls its slots. Only where no
// other thread may look: a close, or an open that fails.
void FreeChildRecords(uint32_t deviceNo);

// The child record of child c (1-based), or null when absent. The acquire
// pairs with PublishChild: a reader that sees the pointer sees the block.
inline ChildRecord* Child(uint32_t deviceNo, uint32_t childNo) {
    return __atomic_load_n(&state.children[deviceNo][childNo - 1], __ATOMIC_ACQUIRE);
}

// Makes a new, zeroed child record (or null) the one of child c.
inline void PublishChild(uint32_t deviceNo, uint32_t childNo, ChildRecord* child) {
    __atomic_store_n(&state.children[deviceNo][childNo - 1], child, __ATOMIC_RELEASE);
}

}  // namespace vmc
