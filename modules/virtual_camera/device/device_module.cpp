// The virtual camera's device module: a driver that speaks to the camera at
// the far end of whatever link the library hands it at open. It keeps no
// camera state of its own but the locks it was handed and the frames of
// split transfers; every setting is the camera's.
#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <vector>

#include <vmc/codes.h>
#include <vmc/module.h>
#include <vmc/vmc.h>

#include "device/link_client.h"

#define VDEV_EXPORT extern "C" __attribute__((visibility("default")))

namespace vcam {
namespace {

constexpr uint32_t kChannels = 4;       // device lock and transfer channels 2..4
constexpr uint32_t kGlobalLockSlot = 4;

constexpr uint32_t kLockWaitSeconds = 20;  // as long as the library waits for its own locks

struct SplitTransfer {
    bool pending = false;
    std::vector<uint8_t> frame;
    std::thread worker;  // a read-ahead transfer still on its way
    uint32_t result = 1;
};

struct Device {
    Device(LinkClient client, uint32_t address) : link(client), deviceAddress(address) {}
    ~Device() {
        for (SplitTransfer& transfer : transfers)
            if (transfer.worker.joinable()) transfer.worker.join();
    }
    LinkClient link;
    uint32_t deviceAddress;
    // The sub-interface: a second link to the camera that the transfer
    // channels 2..4 use while it is open.
    std::mutex subMutex;
    std::unique_ptr<LinkClient> sub;
    vmc_lock_slot locks[kChannels + 1] = {};
    std::mutex transfersMutex;
    SplitTransfer transfers[kChannels];  // one open start/end pair a channel
};

// Holds one of the locks the library handed over, as the library's own calls
// do: a transfer in the background keeps other calls off its channel.
class HandedLock {
public:
    explicit HandedLock(vmc_lock_slot slot) {
        if (!slot || !*slot) return;  // nothing handed over: nothing to share
        timespec deadline{};
        clock_gettime(CLOCK_REALTIME, &deadline);
        deadline.tv_sec += kLockWaitSeconds;
        int rc = pthread_mutex_timedlock(*slot, &deadline);
        if (rc == EOWNERDEAD) rc = pthread_mutex_consistent(*slot);
        if (rc == 0) mutex_ = *slot;
        else failed_ = true;
    }
    ~HandedLock() {
        if (mutex_) pthread_mutex_unlock(mutex_);
    }
    HandedLock(const HandedLock&) = delete;
    HandedLock& operator=(const HandedLock&) = delete;
    bool Failed() const { return failed_; }

private:
    pthread_mutex_t* mutex_ = nullptr;
    bool failed_ = false;
};

// Devices by handle (1-based); a closed device leaves an empty entry.
struct Devices {
    std::mutex mutex;
    std::vector<std::unique_ptr<Device>> open;
};

Devices& Table() {
    static Devices* devices = new Devices;  // used until the process ends
    return *devices;
}

Device* Find(vmc_device_handle handle) {
    Devices& devices = Table();
    std::lock_guard lock(devices.mutex);
    if (handle == 0 || handle > devices.open.size()) return nullptr;
    return devices.open[handle - 1].get();
}

uint32_t Result(uint32_t code, uint32_t* error) {
    if (error) *error = code;
    return code == VMC_ERR_OK ? 1 : 0;
}

// Runs an entry on an open device, with nothing thrown past the module's edge.
template <class Body>
uint32_t OnDevice(vmc_device_handle handle, uint32_t* error, Body&& body) noexcept {
    try {
        Device* device = Find(handle);
        return Result(device ? body(*device) : VMC_ERR_NOT_OPEN, error);
    } catch (...) {
        return Result(VMC_ERR_NO_MEMORY, error);
    }
}

wire::Request MakeRequest(wire::Op op, uint32_t child, uint32_t code = 0, uint32_t sub = 0) {
    wire::Request request = {};
    request.op = op;
    request.child = child;
    request.code = code;
    request.sub = sub;
    return request;
}

// One exchange whose reply carries the camera's answer: the link's failure or the camera's.
uint32_t Ask(Device& device, const wire::Request& request, Answer* answer, const void* payload = nullptr) {
    const uint32_t linkError = device.link.Exchange(request, payload, answer);
    return linkError == VMC_ERR_OK ? answer->reply.error : linkError;
}

void CopyName(const Answer& answer, char* name) {
    std::memset(name, 0, VMC_NAME_SIZE);
    const size_t length = answer.payload.size() < VMC_NAME_SIZE ? answer.payload.size() : VMC_NAME_SIZE - 1;
    if (length) std::memcpy(name, answer.payload.data(), length);
    name[VMC_NAME_SIZE - 1] = '\0';
}

// A frame: the camera prepares it and names a ticket, the link carries it.
uint32_t TransferOn(const LinkClient& link, wire::Op op, uint32_t child, uint32_t frame, uint32_t depth,
                    void* buffer) {
    wire::Request request = MakeRequest(op, child, 0, frame);
    request.value1 = depth;
    Answer answer;
    const uint32_t linkError = link.Exchange(request, nullptr, &answer);
    const uint32_t error = linkError == VMC_ERR_OK ? answer.reply.error : linkError;
    if (error != VMC_ERR_OK) return error;
    return link.ReadFrame(answer.reply.value1, buffer, answer.reply.value2);
}

uint32_t Transfer(Device& device, wire::Op op, uint32_t child, uint32_t frame, uint32_t depth, void* buffer) {
    return TransferOn(device.link, op, child, frame, depth, buffer);
}

// Channels 2..4 travel over the sub-interface while it is open.
uint32_t TransferOnChannel(Device& device, uint32_t channel, uint32_t child, uint32_t frame, uint32_t depth,
                           void* buffer) {
    std::unique_lock lock(device.subMutex);
    if (channel >= 2 && channel <= 4 && device.sub)
        return TransferOn(*device.sub, wire::Op::PrepareMemoryFrame, child, frame, depth, buffer);
    lock.unlock();
    return Transfer(device, wire::Op::PrepareMemoryFrame, child, frame, depth, buffer);
}

// The camera offers a sub-interface when it answers its interface mode.
uint32_t SubInterfaceMode(Device& device, uint32_t* mode) {
    Answer answer;
    const uint32_t error = Ask(device, MakeRequest(wire::Op::GetCaps, 0, VMC_CODE_SUB_INTERFACE_MODE), &answer);
    if (error == VMC_ERR_OK && mode) *mode = answer.reply.value1;
    return error;
}

uint32_t OpenSubInterface(Device& device) {
    uint32_t mode = 0;
    const uint32_t offered = SubInterfaceMode(device, &mode);
    if (offered != VMC_ERR_OK) return offered;
    std::lock_guard lock(device.subMutex);
    if (device.sub) return VMC_ERR_BUSY;
    InterfaceModule* module = device.link.Module();
    if (!module->INT_Open) return VMC_ERR_NOT_SUPPORTED;
    uint32_t link = 0, error = VMC_ERR_OK;
    if (!module->INT_Open(device.deviceAddress, &link, &error)) return error;
    device.sub = std::make_unique<LinkClient>(module, link);
    return VMC_ERR_OK;
}

uint32_t CloseSubInterface(Device& device) {
    std::lock_guard lock(device.subMutex);
    if (!device.sub) return VMC_ERR_NOT_OPEN;
    device.sub->Close();
    device.sub.reset();
    return VMC_ERR_OK;
}

// Whether the camera reads ahead: then the start half of a split transfer
// returns at once and the frame travels in the background.
bool ReadsAhead(Device& device) {
    Answer answer;
    return Ask(device, MakeRequest(wire::Op::GetCaps, 0, VMC_CODE_READ_AHEAD_TRANSFER), &answer) == VMC_ERR_OK &&
           answer.reply.value1 != 0;
}

// The start half of a split transfer reads the frame into the module's own
// buffer, now or in the background; the end half hands it over.
uint32_t StartTransfer(Device& device, uint32_t channel, uint32_t child, uint32_t frame, uint32_t depth) {
    const bool readAhead = ReadsAhead(device);
    wire::Request request = MakeRequest(wire::Op::PrepareMemoryFrame, child, 0, frame);
    request.value1 = depth;
    Answer answer;
    const uint32_t error = Ask(device, request, &answer);
    if (error != VMC_ERR_OK) return error;
    const uint32_t ticket = answer.reply.value1;

    std::lock_guard lock(device.transfersMutex);
    SplitTransfer& transfer = device.transfers[channel];
    if (transfer.pending) return VMC_ERR_TRANSFER_STATE;
    transfer.frame.resize(answer.reply.value2);
    transfer.pending = true;
    if (!readAhead) {
        transfer.result = device.link.ReadFrame(ticket, transfer.frame.data(), transfer.frame.size());
        transfer.pending = transfer.result == VMC_ERR_OK;
        return transfer.result;
    }
    // The library holds no lock between the two halves when the camera reads
    // ahead; the worker holds the channel's lock while the frame travels.
    transfer.worker = std::thread([&device, &transfer, channel, ticket] {
        HandedLock channelLock(device.locks[channel]);
        transfer.result = channelLock.Failed()
                              ? static_cast<uint32_t>(VMC_ERR_LOCK_TIMEOUT)
                              : device.link.ReadFrame(ticket, transfer.frame.data(), transfer.frame.size());
    });
    return VMC_ERR_OK;
}

uint32_t EndTransfer(Device& device, uint32_t channel, void* buffer) {
    std::lock_guard lock(device.transfersMutex);
    SplitTransfer& transfer = device.transfers[channel];
    if (!transfer.pending) return VMC_ERR_TRANSFER_STATE;
    if (transfer.worker.joinable()) transfer.worker.join();
    transfer.pending = false;
    if (transfer.result != VMC_ERR_OK) return transfer.result;
    if (!buffer) return VMC_ERR_BAD_ARGUMENT;
    std::memcpy(buffer, transfer.frame.data(), transfer.frame.size());
    return VMC_ERR_OK;
}

// The library numbers channels 2..4; anything else is the device's own channel.
uint32_t ChannelIndex(uint32_t channel) { return channel >= 2 && channel <= 4 ? channel - 1 : 0; }

}  // namespace
}  // namespace vcam

using namespace vcam;

VDEV_EXPORT uint32_t DEV_Init(uint32_t* error) { return Result(VMC_ERR_OK, error); }
VDEV_EXPORT uint32_t DEV_Exit(uint32_t* error) { return Result(VMC_ERR_OK, error); }

VDEV_EXPORT uint32_t DEV_OpenDevice(uint32_t, InterfaceModule* interfaceModule, uint32_t deviceAddress,
                                    vmc_device_handle* handleOut, uint32_t* error) {
    try {
        if (!interfaceModule || !handleOut) return Result(VMC_ERR_BAD_ARGUMENT, error);
        if (!interfaceModule->INT_Open) return Result(VMC_ERR_NOT_SUPPORTED, error);
        uint32_t link = 0, linkError = VMC_ERR_OK;
        if (!interfaceModule->INT_Open(deviceAddress, &link, &linkError)) return Result(linkError, error);
        Devices& devices = Table();
        std::lock_guard lock(devices.mutex);
        devices.open.push_back(std::make_unique<Device>(LinkClient(interfaceModule, link), deviceAddress));
        *handleOut = static_cast<vmc_device_handle>(devices.open.size());
        return Result(VMC_ERR_OK, error);
    } catch (...) {
        return Result(VMC_ERR_NO_MEMORY, error);
    }
}

// The extra parameters tune an Ethernet link; the virtual link has no use for them.
VDEV_EXPORT uint32_t DEV_OpenDevice2(uint32_t interfaceCode, InterfaceModule* interfaceModule, uint32_t deviceAddress,
                                     uint32_t, uint32_t, vmc_device_handle* handleOut, uint32_t* error) {
    return DEV_OpenDevice(interfaceCode, interfaceModule, deviceAddress, handleOut, error);
}

VDEV_EXPORT uint32_t DEV_CloseDevice(vmc_device_handle handle, uint32_t* error) {
    try {
        std::unique_ptr<Device> device;
        {
            Devices& devices = Table();
            std::lock_guard lock(devices.mutex);
            if (handle == 0 || handle > devices.open.size() || !devices.open[handle - 1])
                return Result(VMC_ERR_NOT_OPEN, error);
            device = std::move(devices.open[handle - 1]);
        }
        if (device->sub) device->sub->Close();
        device->link.Close();  // a link that is already down closes all the same
        return Result(VMC_ERR_OK, error);
    } catch (...) {
        return Result(VMC_ERR_NO_MEMORY, error);
    }
}

VDEV_EXPORT uint32_t DEV_GetDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                       uint32_t* value1, uint32_t* value2, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        Answer answer;
        const uint32_t result = Ask(device, MakeRequest(wire::Op::GetCaps, child, code, sub), &answer);
        // The link state is the one question a dead link still answers: down.
        if (code == VMC_CODE_CONNECT_STATE && result == VMC_ERR_DISCONNECTED) {
            if (value1) *value1 = 0;
            return static_cast<uint32_t>(VMC_ERR_OK);
        }
        if (result != VMC_ERR_OK) return result;
        if (value1) *value1 = answer.reply.value1;
        if (value2) *value2 = answer.reply.value2;
        return result;
    });
}

VDEV_EXPORT uint32_t DEV_SetDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                       uint32_t value1, uint32_t value2, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        wire::Request request = MakeRequest(wire::Op::SetCaps, child, code, sub);
        request.value1 = value1;
        request.value2 = value2;
        Answer answer;
        return Ask(device, request, &answer);
    });
}

VDEV_EXPORT uint32_t DEV_GetMemModeDeviceCaps(vmc_device_handle handle, uint32_t child, uint32_t partition,
                                              uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2,
                                              uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        wire::Request request = MakeRequest(wire::Op::GetMemModeCaps, child, code, sub);
        request.partition = partition;
        Answer answer;
        const uint32_t result = Ask(device, request, &answer);
        if (result != VMC_ERR_OK) return result;
        if (value1) *value1 = answer.reply.value1;
        if (value2) *value2 = answer.reply.value2;
        return result;
    });
}

namespace {

uint32_t ReadList(Device& device, const wire::Request& request, void* listOut, uint32_t* countOut) {
    Answer answer;
    const uint32_t result = Ask(device, request, &answer);
    if (result != VMC_ERR_OK) return result;
    if (countOut) *countOut = answer.reply.count;
    if (listOut && !answer.payload.empty()) std::memcpy(listOut, answer.payload.data(), answer.payload.size());
    return result;
}

}  // namespace

VDEV_EXPORT uint32_t DEV_GetList(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, void* listOut,
                                 uint32_t* countOut, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        return ReadList(device, MakeRequest(wire::Op::GetList, child, code, sub), listOut, countOut);
    });
}

VDEV_EXPORT uint32_t DEV_GetMemModeList(vmc_device_handle handle, uint32_t child, uint32_t partition, uint32_t code,
                                        uint32_t sub, void* listOut, uint32_t* countOut, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        wire::Request request = MakeRequest(wire::Op::GetMemModeList, child, code, sub);
        request.partition = partition;
        return ReadList(device, request, listOut, countOut);
    });
}

VDEV_EXPORT uint32_t DEV_SetList(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub, void* list,
                                 uint32_t count, uint32_t*, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        wire::Request request = MakeRequest(wire::Op::SetList, child, code, sub);
        request.count = static_cast<int32_t>(count);
        request.payloadBytes = list ? count * static_cast<uint32_t>(sizeof(uint32_t)) : 0;
        Answer answer;
        return Ask(device, request, &answer, list);
    });
}

VDEV_EXPORT uint32_t DEV_SetData(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                 uint32_t value, void* data, void*, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        // The library shares its locks: the module keeps the slots for as long as the device is open.
        if (code == VMC_DATA_DEVICE_MUTEX && sub < kChannels) {
            device.locks[sub] = static_cast<vmc_lock_slot>(data);
            return static_cast<uint32_t>(VMC_ERR_OK);
        }
        if (code == VMC_DATA_GLOBAL_MUTEX) {
            device.locks[kGlobalLockSlot] = static_cast<vmc_lock_slot>(data);
            return static_cast<uint32_t>(VMC_ERR_OK);
        }
        wire::Request request = MakeRequest(wire::Op::SetData, child, code, sub);
        request.value1 = value;
        Answer answer;
        return Ask(device, request, &answer);
    });
}

VDEV_EXPORT uint32_t DEV_GetData(vmc_device_handle handle, uint32_t child, uint32_t code, uint32_t sub,
                                 uint32_t value, void* data, void* extra, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        wire::Request request = MakeRequest(wire::Op::GetData, child, code, sub);
        request.count = static_cast<int32_t>(value);
        Answer answer;
        const uint32_t result = Ask(device, request, &answer);
        if (result != VMC_ERR_OK) return result;
        // A caller may ask without blocks, to learn whether the camera has the data at all.
        const size_t first = answer.reply.firstBlockBytes;
        if (data && first) std::memcpy(data, answer.payload.data(), first);
        if (extra && answer.payload.size() > first)
            std::memcpy(extra, answer.payload.data() + first, answer.payload.size() - first);
        return result;
    });
}

VDEV_EXPORT uint32_t DEV_GetDeviceName(vmc_device_handle handle, uint32_t child, char* nameOut, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        Answer answer;
        const uint32_t result = Ask(device, MakeRequest(wire::Op::DeviceName, child), &answer);
        if (result == VMC_ERR_OK && nameOut) CopyName(answer, nameOut);
        return result;
    });
}

VDEV_EXPORT uint32_t DEV_GetHeadTypeName(vmc_device_handle handle, uint32_t child, uint32_t type, char* nameOut,
                                         uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        Answer answer;
        const uint32_t result = Ask(device, MakeRequest(wire::Op::HeadTypeName, child, type), &answer);
        if (result == VMC_ERR_OK && nameOut) CopyName(answer, nameOut);
        return result;
    });
}

VDEV_EXPORT uint32_t DEV_TransferLiveImage(vmc_device_handle handle, uint32_t child, uint32_t depth, void* buffer,
                                           uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        return Transfer(device, wire::Op::PrepareLiveFrame, child, 0, depth, buffer);
    });
}

// The last live frame: the camera renders the current one again.
VDEV_EXPORT uint32_t DEV_TransferLiveImageCache(vmc_device_handle handle, uint32_t child, void* buffer,
                                                uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        return Transfer(device, wire::Op::PrepareLiveFrame, child, 0, 16, buffer);
    });
}

VDEV_EXPORT uint32_t DEV_TransferMemImage(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                                          void* buffer, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) {
        return Transfer(device, wire::Op::PrepareMemoryFrame, child, frame, depth, buffer);
    });
}

VDEV_EXPORT uint32_t DEV_TransferMemImage2(vmc_device_handle handle, uint32_t child, uint32_t frame, uint32_t depth,
                                           uint32_t channel, void* buffer, uint32_t* error) {
    return OnDevice(handle, error,
                    [&](Device& device) { return TransferOnChannel(device, channel, child, frame, depth, buffer); });
}

VDEV_EXPORT uint32_t DEV_GetSubInterface(vmc_device_handle handle, uint32_t* modeOut, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return SubInterfaceMode(device, modeOut); });
}

// The mode and the link parameters choose among kinds of second link on
// other interfaces; the virtual link has one kind.
VDEV_EXPORT uint32_t DEV_OpenSubInterface(vmc_device_handle handle, uint32_t, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return OpenSubInterface(device); });
}

VDEV_EXPORT uint32_t DEV_OpenSubInterface2(vmc_device_handle handle, uint32_t, uint32_t, uint32_t, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return OpenSubInterface(device); });
}

VDEV_EXPORT uint32_t DEV_CloseSubInterface(vmc_device_handle handle, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return CloseSubInterface(device); });
}

VDEV_EXPORT uint32_t DEV_TransferMemImageStart(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                               uint32_t depth, uint64_t, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return StartTransfer(device, 0, child, frame, depth); });
}

VDEV_EXPORT uint32_t DEV_TransferMemImageEnd(vmc_device_handle handle, uint32_t, uint32_t, void* buffer,
                                             uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return EndTransfer(device, 0, buffer); });
}

VDEV_EXPORT uint32_t DEV_TransferMemImageStart2(vmc_device_handle handle, uint32_t child, uint32_t frame,
                                                uint32_t depth, uint32_t channel, uint64_t, uint32_t* error) {
    return OnDevice(handle, error,
                    [&](Device& device) { return StartTransfer(device, ChannelIndex(channel), child, frame, depth); });
}

VDEV_EXPORT uint32_t DEV_TransferMemImageEnd2(vmc_device_handle handle, uint32_t, uint32_t, uint32_t channel,
                                              void* buffer, uint32_t* error) {
    return OnDevice(handle, error, [&](Device& device) { return EndTransfer(device, ChannelIndex(channel), buffer); });
}

// Every entry has the type the contract gives it.
#define VDEV_CHECK(name) static_assert(std::is_same_v<decltype(&name), name##Fn>, #name);
VDEV_CHECK(DEV_Init) VDEV_CHECK(DEV_Exit) VDEV_CHECK(DEV_OpenDevice) VDEV_CHECK(DEV_OpenDevice2)
VDEV_CHECK(DEV_CloseDevice) VDEV_CHECK(DEV_GetDeviceCaps) VDEV_CHECK(DEV_SetDeviceCaps)
VDEV_CHECK(DEV_GetMemModeDeviceCaps) VDEV_CHECK(DEV_GetList) VDEV_CHECK(DEV_GetMemModeList) VDEV_CHECK(DEV_SetList)
VDEV_CHECK(DEV_SetData) VDEV_CHECK(DEV_GetData) VDEV_CHECK(DEV_GetDeviceName) VDEV_CHECK(DEV_GetHeadTypeName)
VDEV_CHECK(DEV_TransferLiveImage) VDEV_CHECK(DEV_TransferLiveImageCache) VDEV_CHECK(DEV_TransferMemImage)
VDEV_CHECK(DEV_TransferMemImage2) VDEV_CHECK(DEV_TransferMemImageStart) VDEV_CHECK(DEV_TransferMemImageEnd)
VDEV_CHECK(DEV_TransferMemImageStart2) VDEV_CHECK(DEV_TransferMemImageEnd2) VDEV_CHECK(DEV_GetSubInterface)
VDEV_CHECK(DEV_OpenSubInterface) VDEV_CHECK(DEV_OpenSubInterface2) VDEV_CHECK(DEV_CloseSubInterface)
#undef VDEV_CHECK
