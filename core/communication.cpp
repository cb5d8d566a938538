// Set and get of the communication parameters of the Ethernet links.
// Store failures are silent: a read falls back on the defaults, a failed
// write still reports success.
#include "core/communication_store.h"

#include "core/frame.h"
#include "platform/user_store.h"

namespace vmc {
namespace {

constexpr uint32_t kMinPacketSize = 1458;  // also the conservative connect mode's size
constexpr uint32_t kMaxPacketSize = 9000;
constexpr uint32_t kReplyWaitMs = 5000;
constexpr uint32_t kDefaultDsCountMax = 128;

// Clamped to 1458..9000 and rounded down to 58 plus a multiple of 8; 0 means
// "the module's own choice" and stays 0.
uint32_t NormalisePacketSize(uint32_t size) {
    if (size == 0) return 0;
    if (size < kMinPacketSize) size = kMinPacketSize;
    if (size > kMaxPacketSize) size = kMaxPacketSize;
    return size - (size - 58) % 8;
}

// What a read reports for a stored size: the conservative mode always uses 1458.
uint32_t PacketSizeAsRead(uint32_t stored, uint32_t connectMode) {
    if (connectMode == 0) return kMinPacketSize;
    if (stored > kMaxPacketSize) return 8994;
    if (stored >= 1 && stored < kMinPacketSize) return kMinPacketSize;
    return stored;
}

bool IsEthernetLink(uint32_t interfaceCode) {
    return interfaceCode == VMC_INTERFACE_ETHER || interfaceCode == VMC_INTERFACE_GIGEV;
}

void Write(platform::StoreValues values) {
    values.emplace_back(kStoreReplyWaitTimer, kReplyWaitMs);  // written with every change
    platform::UserStoreWrite(kStoreKey, values);
}

struct Parameter {
    const char* name;
    uint32_t fallback;
    uint32_t minimum;
    uint32_t maximum;
};

// Indices of VMC_Set/GetCommunicationParameter.
constexpr Parameter kParameters[] = {
    {kStoreSendPort, 0, 0, 9999},
    {kStoreReceivePort, 0, 0, 9999},
    {kStoreConnectMode, 1, 0, 1},
    {kStorePacketSize, 0, 0, kMaxPacketSize},
    {kStoreDsCountMax, kDefaultDsCountMax, 1, 128},
    {kStorePacketInterval10G, 0, 0, 19},
};
constexpr uint32_t kPacketSizeIndex = 3;

}  // namespace

uint32_t ReadCommunicationValue(const char* name, uint32_t fallback) {
    uint32_t value = 0;
    return platform::UserStoreRead(kStoreKey, name, &value) ? value : fallback;
}

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_SetInterfaceInfo(uint32_t interfaceCode, uint32_t packetSize, uint32_t sendPort,
                                         uint32_t receivePort, uint32_t connectMode, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!IsEthernetLink(interfaceCode)) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        const bool conservative = connectMode == 0;
        Write({{kStorePacketSize, conservative ? kMinPacketSize : NormalisePacketSize(packetSize)},
               {kStoreSendPort, sendPort},
               {kStoreReceivePort, receivePort},
               {kStoreConnectMode, connectMode},
               {kStoreDsCountMax, conservative ? 1u : kDefaultDsCountMax}});
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetInterfaceInfo(uint32_t interfaceCode, uint32_t* packetSize, uint32_t* sendPort,
                                         uint32_t* receivePort, uint32_t* connectMode, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!IsEthernetLink(interfaceCode)) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        if (!NotNull(packetSize, err) || !NotNull(sendPort, err) || !NotNull(receivePort, err) ||
            !NotNull(connectMode, err))
            return 0;
        *connectMode = ReadCommunicationValue(kStoreConnectMode, 1);
        *packetSize = PacketSizeAsRead(ReadCommunicationValue(kStorePacketSize, 0), *connectMode);
        *sendPort = ReadCommunicationValue(kStoreSendPort, 0);
        *receivePort = ReadCommunicationValue(kStoreReceivePort, 0);
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_SetCommunicationParameter(uint32_t interfaceCode, uint32_t index, uint32_t value,
                                                  uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (interfaceCode != VMC_INTERFACE_ETHER) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        if (!Begin(err)) return 0;
        if (index >= std::size(kParameters)) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        const Parameter& parameter = kParameters[index];
        if (value < parameter.minimum || value > parameter.maximum) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        if (index == kPacketSizeIndex) value = NormalisePacketSize(value);
        Write({{parameter.name, value}});
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetCommunicationParameter(uint32_t interfaceCode, uint32_t index, uint32_t* value,
                                                  uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (interfaceCode != VMC_INTERFACE_ETHER) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        if (index >= std::size(kParameters)) return Fail(err, VMC_ERR_NOT_SUPPORTED);
        if (!NotNull(value, err)) return 0;
        const Parameter& parameter = kParameters[index];
        *value = ReadCommunicationValue(parameter.name, parameter.fallback);
        if (index == kPacketSizeIndex)
            *value = PacketSizeAsRead(*value, ReadCommunicationValue(kStoreConnectMode, 1));
        *err = VMC_ERR_OK;
        return 1;
    });
}
