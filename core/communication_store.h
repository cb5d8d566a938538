// The Ethernet communication parameters: the one piece of library state
// that outlives the process. The Ethernet interface module reads them at
// its own open; the library reads back only the 10-gigabit packet interval.
#pragma once

#include <cstdint>

namespace vmc {

inline constexpr const char* kStoreKey = "SOFTWARE\\VELMORA\\VWR\\GETHLIB";

inline constexpr const char* kStorePacketSize = "PacketSize";
inline constexpr const char* kStoreSendPort = "SendPort";
inline constexpr const char* kStoreReceivePort = "ReceivePort";
inline constexpr const char* kStoreConnectMode = "ConnectMode";
inline constexpr const char* kStoreReplyWaitTimer = "ReplyWaitTimer";
inline constexpr const char* kStoreDsCountMax = "DsCountMax";
inline constexpr const char* kStorePacketInterval10G = "PacketInterval_10G";

// The stored value, or fallback when the store or the value is missing.
uint32_t ReadCommunicationValue(const char* name, uint32_t fallback);

}  // namespace vmc
