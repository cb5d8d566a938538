// The recording settings of a head and the choices the sensor leaves for
// them: rate, resolution, segment position, ROI, shutter, bit depth and the
// transfer option. A write that changes what others may be clamps them.
#include <algorithm>

#include "camera/camera_codes.h"
#include "camera/camera_sensor.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

bool Contains(const std::vector<uint32_t>& list, uint32_t value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

const CameraProfile& Device(const Access& access) { return access.camera.profile; }
const HeadProfile& Head(const Access& access) { return *access.head->profile; }
Settings& Live(Access& access) { return access.head->live; }

uint32_t GetRate(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, SettingsOf(access).rate);
}

uint32_t SetRate(Access& access, uint32_t, uint32_t rate, uint32_t) {
    if (!Contains(RateChoices(Device(access), Head(access)), rate)) return VMC_ERR_BAD_ARGUMENT;
    Live(access).rate = rate;
    SettingsChanged(access.camera, access.head);
    return VMC_ERR_OK;
}

uint32_t GetResolution(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Pack(SettingsOf(access).width, SettingsOf(access).height));
}

uint32_t SetResolution(Access& access, uint32_t, uint32_t packed, uint32_t) {
    Settings& live = Live(access);
    if (!Contains(ResolutionChoices(Device(access), Head(access), live.rate), packed)) return VMC_ERR_BAD_ARGUMENT;
    live.width = High(packed);
    live.height = Low(packed);
    live.roiWidth = live.width;
    live.roiHeight = live.height;
    CentreSegment(Head(access), &live);
    SettingsChanged(access.camera, access.head);
    return VMC_ERR_OK;
}

uint32_t GetSegment(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Pack(SettingsOf(access).segmentX, SettingsOf(access).segmentY));
}

// The recorded window may sit anywhere on the sensor.
uint32_t SetSegment(Access& access, uint32_t, uint32_t packed, uint32_t) {
    Settings& live = Live(access);
    if (High(packed) + live.width > Head(access).sensorWidth || Low(packed) + live.height > Head(access).sensorHeight)
        return VMC_ERR_BAD_ARGUMENT;
    live.segmentX = High(packed);
    live.segmentY = Low(packed);
    return VMC_ERR_OK;
}

uint32_t GetRoi(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, Pack(SettingsOf(access).roiWidth, SettingsOf(access).roiHeight));
}

// A region within the recorded window, on the resolution steps.
uint32_t SetRoi(Access& access, uint32_t, uint32_t packed, uint32_t) {
    Settings& live = Live(access);
    const CameraProfile& camera = Device(access);
    const uint32_t width = High(packed), height = Low(packed);
    const bool onSteps = (camera.widthStep == 0 || width % camera.widthStep == 0) &&
                         (camera.heightStep == 0 || height % camera.heightStep == 0);
    if (!onSteps || width < camera.minWidth || height < camera.minHeight || width == 0 || height == 0 ||
        width > live.width || height > live.height)
        return VMC_ERR_BAD_ARGUMENT;
    live.roiWidth = width;
    live.roiHeight = height;
    return VMC_ERR_OK;
}

uint32_t GetShutterFps(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, SettingsOf(access).shutterFps);
}

uint32_t GetShutterUsec(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, static_cast<uint32_t>((SettingsOf(access).shutterNsec + 500) / 1000));
}

uint32_t GetShutterNsec(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, static_cast<uint32_t>(SettingsOf(access).shutterNsec));
}

// Both forms of the write (sub 0 and the M form, sub 1) take a listed speed.
uint32_t SetShutterFps(Access& access, uint32_t, uint32_t fps, uint32_t) {
    Settings& live = Live(access);
    if (!Contains(ShutterChoices(Device(access), live.rate), fps)) return VMC_ERR_BAD_ARGUMENT;
    live.shutterFps = fps;
    live.shutterNsec = ShutterNsec(fps);
    return VMC_ERR_OK;
}

// A free exposure time, from the shortest exposure to the frame period.
uint32_t SetExposureNsec(Access& access, uint32_t, uint32_t nsec, uint32_t) {
    Settings& live = Live(access);
    if (nsec < ShortestExposureNsec(Device(access)) || nsec > FramePeriodNsec(live.rate)) return VMC_ERR_BAD_ARGUMENT;
    live.shutterNsec = nsec;
    live.shutterFps = static_cast<uint32_t>(ShutterNsec(nsec));  // 1e9 / nsec, rounded
    return VMC_ERR_OK;
}

uint32_t GetBitDepth(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, SettingsOf(access).bitDepth);
}

uint32_t SetBitDepth(Access& access, uint32_t, uint32_t depth, uint32_t) {
    const uint32_t bits = depth & 0xFFu;
    if (!Contains(BitDepthChoices(Head(access)), bits)) return VMC_ERR_BAD_ARGUMENT;
    Live(access).bitDepth = bits;
    return VMC_ERR_OK;
}

uint32_t GetTransferOption(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.head->transferOption);
}

// Three bytes; bit 8 asks a colour head for its raw mosaic.
uint32_t SetTransferOption(Access& access, uint32_t, uint32_t option, uint32_t) {
    access.head->transferOption = option & 0xFFFFFFu;
    return VMC_ERR_OK;
}

const CodeEntry kCodes[] = {
    {VMC_CODE_RECORD_RATE, Scope::Head, {}, GetRate, SetRate, true},
    {VMC_CODE_RECORD_RATE_CACHE, Scope::Head, {}, GetRate, nullptr, false},
    {VMC_CODE_RESOLUTION, Scope::Head, {}, GetResolution, SetResolution, true},
    {VMC_CODE_RESOLUTION_CACHE, Scope::Head, {}, GetResolution, nullptr, false},
    {VMC_CODE_SEGMENT_POSITION, Scope::Head, {}, GetSegment, SetSegment, true},
    {VMC_CODE_SEGMENT_POSITION_CACHE, Scope::Head, {}, GetSegment, nullptr, false},
    {VMC_CODE_RESOLUTION_ROI, Scope::Head, {}, GetRoi, SetRoi, true},
    {VMC_CODE_SHUTTER_SPEED_FPS, Scope::Head, {}, GetShutterFps, SetShutterFps, true},
    {VMC_CODE_SHUTTER_SPEED_USEC, Scope::Head, {}, GetShutterUsec, nullptr, false},
    {VMC_CODE_SHUTTER_SPEED_NSEC, Scope::Head, {}, GetShutterNsec, nullptr, false},
    {VMC_CODE_EXPOSURE_TIME_NSEC, Scope::Head, {}, nullptr, SetExposureNsec, true},
    {VMC_CODE_BIT_DEPTH, Scope::Head, {}, GetBitDepth, SetBitDepth, true},
    {VMC_CODE_TRANSFER_OPTION, Scope::Head, {}, GetTransferOption, SetTransferOption, false},
};

uint32_t ListRates(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    *list = RateChoices(Device(access), Head(access));
    return VMC_ERR_OK;
}

uint32_t ListResolutions(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    *list = ResolutionChoices(Device(access), Head(access), access.head->live.rate);
    return VMC_ERR_OK;
}

uint32_t ListShutterFps(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    *list = ShutterChoices(Device(access), access.head->live.rate);
    return VMC_ERR_OK;
}

// The same exposures in microseconds and nanoseconds, longest first as in the 1/s list.
template <uint64_t Divisor>
uint32_t ListShutterTimes(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    list->clear();
    for (uint32_t fps : ShutterChoices(Device(access), access.head->live.rate)) {
        const uint32_t time = static_cast<uint32_t>((ShutterNsec(fps) + Divisor / 2) / Divisor);
        if (time != 0 && (list->empty() || list->back() != time)) list->push_back(time);
    }
    return VMC_ERR_OK;
}

const ListEntry kLists[] = {
    {VMC_LIST_RECORD_RATE, Scope::Head, {}, ListRates},
    {VMC_LIST_RESOLUTION, Scope::Head, {}, ListResolutions},
    {VMC_LIST_SHUTTER_SPEED_FPS, Scope::Head, {}, ListShutterFps},
    {VMC_LIST_SHUTTER_SPEED_USEC, Scope::Head, {}, ListShutterTimes<1000>},
    {VMC_LIST_SHUTTER_SPEED_NSEC, Scope::Head, {}, ListShutterTimes<1>},
};

}  // namespace

std::span<const CodeEntry> SettingCodes() { return kCodes; }
std::span<const ListEntry> SettingLists() { return kLists; }

void SettingsChanged(const CameraState& camera, HeadState* head) {
    Settings& live = head->live;
    const HeadProfile& sensor = *head->profile;
    const std::vector<uint32_t> offered = ResolutionChoices(camera.profile, sensor, live.rate);
    if (!Contains(offered, Pack(live.width, live.height))) {
        const uint32_t fitted = FitResolution(camera.profile, sensor, live.rate, live.width, live.height);
        live.width = High(fitted);
        live.height = Low(fitted);
        CentreSegment(sensor, &live);
    }
    if (live.roiWidth > live.width || live.roiHeight > live.height || live.roiWidth == 0) {
        live.roiWidth = live.width;
        live.roiHeight = live.height;
    }
    if (live.segmentX + live.width > sensor.sensorWidth || live.segmentY + live.height > sensor.sensorHeight)
        CentreSegment(sensor, &live);
    FitShutter(camera.profile, &live);
}

}  // namespace vcam
