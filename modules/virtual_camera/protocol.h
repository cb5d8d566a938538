// The messages between the virtual camera's device module and the camera at
// the far end of the virtual link. A request travels with INT_AccessCommand
// and its reply comes back in the same exchange; image data travels apart,
// with INT_ReadDataEx, against a ticket that a prepare request handed out,
// as bulk data does on a real link.
#pragma once

#include <cstdint>

namespace vcam::wire {

enum class Op : uint32_t {
    GetCaps = 1,
    SetCaps,
    GetList,
    SetList,
    GetMemModeCaps,
    GetMemModeList,
    GetData,
    SetData,
    DeviceName,
    HeadTypeName,
    PrepareLiveFrame,   // reply: value1 = ticket, value2 = bytes of the frame
    PrepareMemoryFrame, // the same, for memory frame `sub` of head `child`
};

// A request: this header, then payloadBytes of payload (a list or a block).
struct Request {
    Op op;
    uint32_t child;
    uint32_t code;       // setting, list or data code; head type for HeadTypeName
    uint32_t sub;        // sub-code, index or memory frame index
    uint32_t partition;  // memory-mode queries
    uint32_t value1;     // values of a write; requested depth of a frame
    uint32_t value2;
    int32_t count;       // frames of a data read; entries of a list write
    uint32_t payloadBytes;
};

// A reply: this header, then payloadBytes of payload (list entries, a name,
// data blocks: the first block's bytes, then the second's).
struct Reply {
    uint32_t error;  // 1 on success
    uint32_t value1;
    uint32_t value2;
    uint32_t count;          // list entries
    uint32_t payloadBytes;   // bytes that follow, or that would follow
    uint32_t firstBlockBytes;  // data reads: bytes of the first block within the payload
};

// What INT_AccessCommand answers when the reply buffer is too small for the
// payload: the header is still written, with payloadBytes telling the size.
inline constexpr uint32_t kReplyTooSmall = 0x7001;

}  // namespace vcam::wire
