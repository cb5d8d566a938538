// What the module reads share: the checks before the module is asked, and
// the rows of state/module_reads.def as values the code can hold.
#pragma once

#include <cstdint>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/locks.h"
#include "core/module_calls.h"

namespace vmc {

// Initialised (2), error word 1, a device number inside the table (5), and
// the child the rule asks for (4). A read that takes no lock must see the
// device open (103) before it reaches into the module table: the lock would
// otherwise be what refuses a free slot.
bool BeginModuleRead(uint32_t deviceNo, uint32_t childNo, ChildRule target, bool locked, uint32_t* error);

// Frame 0 exists only while the camera numbers frames from 0 (error 5).
bool FrameExists(uint32_t deviceNo, int32_t frame, uint32_t* error);

// Workers of reads that the state load and the poll run too; no lock, no
// checks. The media record is zeroed first and again when the camera has no
// media (error 21), so that a refused read leaves nothing behind.
uint32_t ReadMediaInfo(uint32_t deviceNo, uint32_t slot, MediaInfo* info, uint32_t* error);
// A lens parameter of a head, code 388 sub item << 16 | parameter. Takes the
// device lock before it checks the head, and keeps it when the head is bad.
uint32_t ReadLensParam(uint32_t deviceNo, uint32_t childNo, uint32_t parameter, uint32_t item, void* out,
                       uint32_t* error);

}  // namespace vmc
