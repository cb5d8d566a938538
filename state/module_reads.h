// What the module reads share: the checks before the module is asked, and
// the rows of state/module_reads.def as values the code can hold.
#pragma once

#include <cstdint>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {

// An availability test: error 21 while no named flag is set. frameZero
// marks the reads of a frame number, where frame 0 needs frame-zero mode.
struct ReadFlag {
    uint8_t DeviceRecord::*device = nullptr;
    uint8_t DeviceRecord::*orDevice = nullptr;
    uint8_t ChildRecord::*child = nullptr;
    bool frameZero = false;
};

// Which child numbers a read accepts, and which it hands the module.
enum class ReadTarget : uint8_t {
    Device,        // no child argument; child 0 to the module
    Head,          // a head 1.., present (4 otherwise)
    HeadOrDevice,  // a head, or 0 for the device
    Forward,       // any number, passed on unchecked
};

// Initialised (2), error word 1, a device number inside the table (5), and
// the child the target asks for (4). A read that takes no lock must see the
// device open (103) before it reaches into the module table: the lock would
// otherwise be what refuses a free slot.
bool BeginModuleRead(uint32_t deviceNo, uint32_t childNo, ReadTarget target, bool locked, uint32_t* error);

// The flag test of step 5, for the device's flags or the head's (a head
// flag is tested only with a head number). Error 21 when clear.
bool ReadAvailable(const ReadFlag& flag, uint32_t deviceNo, uint32_t childNo, uint32_t* error);

// Frame 0 exists only while the camera numbers frames from 0 (error 5).
bool FrameExists(uint32_t deviceNo, int32_t frame, uint32_t* error);

// The device lock when `locked`, else an empty guard that counts as taken.
inline ScopedLock LockIf(bool locked, uint32_t deviceNo, uint32_t* error, bool* taken) {
    if (!locked) {
        *taken = true;
        return ScopedLock();
    }
    ScopedLock lock = ScopedLock::Device(deviceNo, error);
    *taken = static_cast<bool>(lock);
    return lock;
}

// Workers of reads that the state load and the poll run too; no lock, no
// checks. The media record is zeroed first and again when the camera has no
// media (error 21), so that a refused read leaves nothing behind.
uint32_t ReadMediaInfo(uint32_t deviceNo, uint32_t slot, MediaInfo* info, uint32_t* error);
// A lens parameter of a head, code 388 sub item << 16 | parameter. Takes the
// device lock before it checks the head, and keeps it when the head is bad.
uint32_t ReadLensParam(uint32_t deviceNo, uint32_t childNo, uint32_t parameter, uint32_t item, void* out,
                       uint32_t* error);

}  // namespace vmc
