// The request family written once: the regular rows of requests.def and of
// field_workers.def expand here into their workers and exports. Rows marked
// PARTICULAR are written by hand in the request_*.cpp files beside this one.
#include "state/requests.h"

#include "state/request_frame.h"

namespace vmc {
namespace {

using DeviceField = uint32_t DeviceRecord::*;
using DeviceFlag = uint8_t DeviceRecord::*;
using ChildField = uint32_t ChildRecord::*;
using ChildFlag = uint8_t ChildRecord::*;

// Every worker stores the value whatever the outcome: the default after
// error 21, the caller's initial value after any other failure.
uint32_t DeviceValue(uint32_t deviceNo, uint32_t code, DeviceField field, uint32_t fallback, uint32_t* value,
                     uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, code, 0, fallback, value, error);
    StoreField(Record(deviceNo).*field, *value);
    return result;
}

uint32_t DeviceFlagValue(uint32_t deviceNo, uint32_t code, DeviceFlag flag, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, code, 0, 0, value, error);
    StoreField(Record(deviceNo).*flag, static_cast<uint8_t>(*value));
    return result;
}

uint32_t DevicePair(uint32_t deviceNo, uint32_t code, DeviceField first, DeviceField second, uint32_t* value1,
                    uint32_t* value2, uint32_t* error) {
    const uint32_t result = AskPair(deviceNo, 0, code, 0, value1, value2, error);
    DeviceRecord& record = Record(deviceNo);
    StoreField(record.*first, *value1);
    StoreField(record.*second, *value2);
    return result;
}

uint32_t ChildOrDeviceValue(uint32_t deviceNo, uint32_t childNo, uint32_t code, DeviceField deviceField,
                           ChildField childField, uint32_t fallback, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, code, 0, fallback, value, error);
    if (childNo == 0)
        StoreField(Record(deviceNo).*deviceField, *value);
    else
        StoreField(Child(deviceNo, childNo)->*childField, *value);
    return result;
}

uint32_t ChildValue(uint32_t deviceNo, uint32_t childNo, uint32_t code, ChildField field, uint32_t fallback,
                    uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, code, 0, fallback, value, error);
    StoreField(Child(deviceNo, childNo)->*field, *value);
    return result;
}

uint32_t ChildFlagValue(uint32_t deviceNo, uint32_t childNo, uint32_t code, ChildFlag flag, uint32_t* value,
                        uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, childNo, code, 0, 0, value, error);
    StoreField(Child(deviceNo, childNo)->*flag, static_cast<uint8_t>(*value));
    return result;
}

uint32_t ChildPair(uint32_t deviceNo, uint32_t childNo, uint32_t code, ChildField first, ChildField second,
                   uint32_t* value1, uint32_t* value2, uint32_t* error) {
    const uint32_t result = AskPair(deviceNo, childNo, code, 0, value1, value2, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.*first, *value1);
    StoreField(child.*second, *value2);
    return result;
}

uint32_t ChildPacked(uint32_t deviceNo, uint32_t childNo, uint32_t code, ChildField high, ChildField low,
                     uint32_t* value1, uint32_t* value2, uint32_t* error) {
    const uint32_t result = AskHalves(deviceNo, childNo, code, value1, value2, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.*high, *value1);
    StoreField(child.*low, *value2);
    return result;
}

}  // namespace

// ---- The workers of the regular rows ---------------------------------------

#define DEVICE_VALUE(exportName, worker, code, field, fallback)                                                  \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                       \
        return DeviceValue(deviceNo, code, &DeviceRecord::field, fallback, value, error);                        \
    }
#define DEVICE_FLAG(exportName, worker, code, flag)                                                              \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                       \
        return DeviceFlagValue(deviceNo, code, &DeviceRecord::flag, value, error);                               \
    }
#define DEVICE_PAIR(exportName, worker, code, first, second)                                                     \
    uint32_t worker(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {                    \
        return DevicePair(deviceNo, code, &DeviceRecord::first, &DeviceRecord::second, value1, value2, error);   \
    }
#define DEVICE_QUERY(exportName, worker, code, fallback)                                                         \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                       \
        return AskValue(deviceNo, 0, code, 0, fallback, value, error);                                           \
    }
#define CHILD_OR_DEVICE_VALUE(exportName, worker, code, field, fallback)                                         \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {                     \
        return ChildOrDeviceValue(deviceNo, childNo, code, &DeviceRecord::field, &ChildRecord::field, fallback,  \
                                  value, error);                                                                 \
    }
#define CHILD_VALUE(exportName, worker, code, field, fallback)                                                   \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {                     \
        return ChildValue(deviceNo, childNo, code, &ChildRecord::field, fallback, value, error);                 \
    }
#define CHILD_FLAG(exportName, worker, code, flag)                                                               \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {                     \
        return ChildFlagValue(deviceNo, childNo, code, &ChildRecord::flag, value, error);                        \
    }
#define CHILD_PAIR(exportName, worker, code, first, second)                                                      \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {  \
        return ChildPair(deviceNo, childNo, code, &ChildRecord::first, &ChildRecord::second, value1, value2,     \
                         error);                                                                                 \
    }
#define CHILD_PACKED(exportName, worker, code, high, low)                                                        \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {  \
        return ChildPacked(deviceNo, childNo, code, &ChildRecord::high, &ChildRecord::low, value1, value2,       \
                           error);                                                                               \
    }
#define CHILD_QUERY(exportName, worker, code, fallback)                                                          \
    uint32_t worker(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {                     \
        return AskValue(deviceNo, childNo, code, 0, fallback, value, error);                                     \
    }
#include "state/requests.def"

// ---- Fields that only the state load and the poll fill ---------------------

#define DEVICE_WORKER(worker, code, field, fallback)                                                             \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                       \
        return DeviceValue(deviceNo, code, &DeviceRecord::field, fallback, value, error);                        \
    }
#define DEVICE_FLAG_WORKER(worker, code, flag)                                                                   \
    uint32_t worker(uint32_t deviceNo, uint32_t* value, uint32_t* error) {                                       \
        return DeviceFlagValue(deviceNo, code, &DeviceRecord::flag, value, error);                               \
    }
#define DEVICE_PAIR_WORKER(worker, code, first, second)                                                          \
    uint32_t worker(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {                    \
        return DevicePair(deviceNo, code, &DeviceRecord::first, &DeviceRecord::second, value1, value2, error);   \
    }
#include "state/field_workers.def"

// ---- The link rows: asked only of a camera that has the link functions -----

uint32_t RefreshLinkSpeed(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return DeviceValue(deviceNo, VMC_CODE_LINK_SPEED, &DeviceRecord::linkSpeed, 0, value, error);
}

uint32_t RefreshPacketIntervalMode(uint32_t deviceNo, uint32_t kind, uint32_t* value, uint32_t* error) {
    const uint32_t result = AskValue(deviceNo, 0, VMC_CODE_PACKET_INTERVAL_MODE, kind, 1, value, error);
    DeviceRecord& record = Record(deviceNo);
    StoreField(kind == 0 ? record.packetIntervalMode : record.packetInterval10G, *value);
    return result;
}

}  // namespace vmc

using namespace vmc;

// ---- The exports of the regular rows: each shape's export half ------------

#define DEVICE_VALUE(exportName, worker, code, field, fallback) REQUEST_EXPORT_DEVICE_1(exportName, worker)
#define DEVICE_FLAG(exportName, worker, code, flag) REQUEST_EXPORT_DEVICE_1(exportName, worker)
#define DEVICE_PAIR(exportName, worker, code, first, second) REQUEST_EXPORT_DEVICE_2(exportName, worker)
#define DEVICE_QUERY(exportName, worker, code, fallback) REQUEST_EXPORT_DEVICE_1(exportName, worker)
#define CHILD_OR_DEVICE_VALUE(exportName, worker, code, field, fallback) \
    REQUEST_EXPORT_CHILD_OR_DEVICE_1(exportName, worker)
#define CHILD_VALUE(exportName, worker, code, field, fallback) REQUEST_EXPORT_CHILD_1(exportName, worker)
#define CHILD_FLAG(exportName, worker, code, flag) REQUEST_EXPORT_CHILD_1(exportName, worker)
#define CHILD_PAIR(exportName, worker, code, first, second) REQUEST_EXPORT_CHILD_2(exportName, worker)
#define CHILD_PACKED(exportName, worker, code, high, low) REQUEST_EXPORT_CHILD_2(exportName, worker)
#define CHILD_QUERY(exportName, worker, code, fallback) REQUEST_EXPORT_CHILD_1(exportName, worker)
#define CHILD_ALIAS(exportName, worker) REQUEST_EXPORT_CHILD_1(exportName, worker)
#include "state/requests.def"

// ---- The link rows: asked only of a camera that has the link functions -----

VMC_EXPORT uint32_t VMC_ReqLinkSpeed(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return RequestFrame(deviceNo, 0, ChildRule::Device, FlagRule{&DeviceRecord::hasLinkSpeed}, value, error,
                        [&](uint32_t* err) { return RefreshLinkSpeed(deviceNo, value, err); });
}

// The index is the packet-interval kind: 0 the mode, 1 the 10G interval.
VMC_EXPORT uint32_t VMC_ReqPacketIntervalMode(uint32_t deviceNo, uint32_t index, uint32_t* value,
                                              uint32_t* error) {
    return RequestFrame(deviceNo, 0, ChildRule::Device, FlagRule{&DeviceRecord::hasPacketIntervalMode},
                        index <= 1 && value, error,
                        [&](uint32_t* err) { return RefreshPacketIntervalMode(deviceNo, index, value, err); });
}
