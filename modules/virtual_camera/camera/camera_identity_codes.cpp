// Who the camera is: ids, versions, serial numbers, its heads and what
// each head's sensor is.
#include <algorithm>

#include "camera/camera_codes.h"
#include "camera/camera_sensor.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

const CameraProfile& Device(const Access& access) { return access.camera.profile; }
const HeadProfile& Head(const Access& access) { return *access.head->profile; }
bool AsksHead(const Access& access) { return access.child != 0 && access.head; }

uint32_t GetChildCount(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, static_cast<uint32_t>(access.camera.heads.size()));
}

uint32_t GetMaxChildCount(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const uint32_t present = static_cast<uint32_t>(access.camera.heads.size());
    return Answer(value1, value2, std::max(Device(access).maxHeads, present));
}

uint32_t GetDeviceId(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.camera.deviceId);
}

uint32_t SetDeviceId(Access& access, uint32_t, uint32_t value1, uint32_t) {
    access.camera.deviceId = value1;
    return VMC_ERR_OK;
}

uint32_t GetProductId(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, AsksHead(access) ? Head(access).productId : Device(access).productId);
}

uint32_t GetLotId(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Device(access).lotId);  // heads are built in the device's lot
}

uint32_t GetIndividualId(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const uint32_t head = static_cast<uint32_t>(AsksHead(access) ? Head(access).serialNumber : 0);
    return Answer(value1, value2, AsksHead(access) ? head : Device(access).individualId);
}

uint32_t GetVersion(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, AsksHead(access) ? Head(access).version : Device(access).version);
}

uint32_t GetSerialNumber(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const uint64_t serial = AsksHead(access) ? Head(access).serialNumber : Device(access).serialNumber;
    return Answer(value1, value2, static_cast<uint32_t>(serial), static_cast<uint32_t>(serial >> 32));
}

uint32_t GetFrameZero(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.camera.Has("frameZero") ? 1 : 0);
}

// Frame numbers reach the camera as module indices, never counted from the start frame.
uint32_t GetFrameIndexMode(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, 0);
}

// The link layer answers for drops; the camera itself is always there.
uint32_t GetConnected(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, 1);
}

uint32_t GetColourType(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, static_cast<uint32_t>(Head(access).colour));
}

uint32_t GetMaxBitDepth(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Head(access).bitDepth);
}

uint32_t GetMaxResolution(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Pack(Head(access).sensorWidth, Head(access).sensorHeight));
}

uint32_t GetFullResolutionRate(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, FullResolutionRate(Device(access), Head(access)));
}

// One recording mode: the camera has no variable channels.
uint32_t GetCamMode(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, 0, 0);
}

const CodeEntry kCodes[] = {
    {VMC_CODE_CHILD_DEVICE_COUNT, Scope::Device, {}, GetChildCount, nullptr, false},
    {VMC_CODE_MAX_CHILD_DEVICE_COUNT, Scope::Device, {}, GetMaxChildCount, nullptr, false},
    {VMC_CODE_DEVICE_ID, Scope::Device, {}, GetDeviceId, SetDeviceId, false},
    {VMC_CODE_PRODUCT_ID, Scope::Device, {}, GetProductId, nullptr, false},
    {VMC_CODE_LOT_ID, Scope::Device, {}, GetLotId, nullptr, false},
    {VMC_CODE_INDIVIDUAL_ID, Scope::Device, {}, GetIndividualId, nullptr, false},
    {VMC_CODE_VERSION, Scope::Device, {}, GetVersion, nullptr, false},
    {VMC_CODE_SERIAL_NUMBER, Scope::Device, {}, GetSerialNumber, nullptr, false},
    {VMC_CODE_FRAME_ZERO_MODE, Scope::Device, {}, GetFrameZero, nullptr, false},
    {VMC_CODE_FRAME_INDEX_MODE, Scope::Device, {}, GetFrameIndexMode, nullptr, false},
    {VMC_CODE_CONNECT_STATE, Scope::Device, {}, GetConnected, nullptr, false},
    {VMC_CODE_COLOR_TYPE, Scope::Head, {}, GetColourType, nullptr, false},
    {VMC_CODE_MAX_BIT_DEPTH, Scope::Head, {}, GetMaxBitDepth, nullptr, false},
    {VMC_CODE_MAX_RESOLUTION, Scope::Head, {}, GetMaxResolution, nullptr, false},
    {VMC_CODE_MAX_FULL_RESO_RATE, Scope::Head, {}, GetFullResolutionRate, nullptr, false},
    {VMC_CODE_CAM_MODE, Scope::Head, {}, GetCamMode, nullptr, false},
    {VMC_CODE_CAM_MODE_CACHE, Scope::Head, {}, GetCamMode, nullptr, false},
};

// Head numbers present, one entry per possible head: 0 marks an empty place.
uint32_t ListChildren(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    const uint32_t places = std::max(Device(access).maxHeads, static_cast<uint32_t>(access.camera.heads.size()));
    list->assign(places, 0);
    for (const HeadState& head : access.camera.heads) (*list)[head.number - 1] = head.number;
    return VMC_ERR_OK;
}

const ListEntry kLists[] = {
    {VMC_LIST_EXIST_CHILD_DEVICE, Scope::Device, {}, ListChildren},
};

}  // namespace

std::span<const CodeEntry> IdentityCodes() { return kCodes; }
std::span<const ListEntry> IdentityLists() { return kLists; }

}  // namespace vcam
