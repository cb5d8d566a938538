// Per-frame side data of the shown recording, the live IRIG time and the
// temperature readings: present when the profile says the camera records
// that kind of data.
#include <algorithm>
#include <cmath>

#include "camera/camera_codes.h"
#include "camera/camera_recording.h"
#include "camera/side_data.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

struct SideRow {
    uint32_t code;
    SideKind kind;
    bool SideData::*flag;
};

const SideRow kRows[] = {
    {VMC_DATA_MEM_IRIG, SideKind::Irig, &SideData::irig},
    {VMC_DATA_MEM_MCDL, SideKind::Mcdl, &SideData::mcdl},
    {VMC_DATA_MEM_IRIG_AND_MCDL, SideKind::IrigMcdl, &SideData::mcdl},
    {VMC_DATA_MEM_MCDL_BYTE, SideKind::McdlBytes, &SideData::mcdl},
    {VMC_DATA_MEM_ADC_BYTE, SideKind::AdcBytes, &SideData::adc},
    {VMC_DATA_MEM_AUTO_EXPOSURE_FPS, SideKind::AutoExposureFps, &SideData::autoExposure},
    {VMC_DATA_MEM_AUTO_EXPOSURE_NSEC, SideKind::AutoExposureNsec, &SideData::autoExposure},
    {VMC_DATA_MEM_TEMPERATURE, SideKind::Temperature, &SideData::temperature},
    {VMC_DATA_ACCELERATION, SideKind::Acceleration, &SideData::acceleration},
};

SideKind KindOf(uint32_t code) {
    return std::find_if(std::begin(kRows), std::end(kRows), [&](const SideRow& row) { return row.code == code; })
        ->kind;
}

// The live image: absolute frame numbers count frame periods of camera time.
RecordingTiming LiveTiming(const Access& access) {
    RecordingTiming timing;
    timing.camera = access.camera.index;
    timing.head = access.head->number;
    timing.recordRate = access.head->live.rate;
    timing.shutterNsec = static_cast<uint32_t>(access.head->live.shutterNsec);
    timing.startMicros = kIrigEpochMicros;
    return timing;
}

int64_t LiveAbsolute(const Access& access) {
    return static_cast<int64_t>(std::floor(access.now * access.head->live.rate));
}

// Records of count frames from a module frame index on; the frames follow
// the index order (frames 0.. first, then those before 0).
uint32_t GetFrameRecords(const Access& access, uint32_t index, int32_t count, std::vector<uint8_t>* data,
                         std::vector<uint8_t>*) {
    data->clear();
    if (count <= 0) return VMC_ERR_OK;
    const Recording* recording = access.view.recording;
    if (!recording) return VMC_ERR_BAD_ARGUMENT;
    const SideKind kind = KindOf(access.code);
    const size_t size = SideRecordBytes(kind);
    data->resize(size * static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i) {
        uint32_t ordinal = 0;
        int32_t number = 0;
        if (!OrdinalOfIndex(*recording, index + static_cast<uint32_t>(i), &ordinal, &number)) {
            data->clear();
            return VMC_ERR_BAD_ARGUMENT;
        }
        WriteSideData(kind, recording->timing, AbsoluteOfOrdinal(*recording, ordinal), 1, data->data() + i * size);
    }
    return VMC_ERR_OK;
}

uint32_t GetExposureTime(const Access& access, uint32_t, int32_t, std::vector<uint8_t>* data,
                         std::vector<uint8_t>* extra) {
    data->resize(SideRecordBytes(SideKind::ExposureTime));
    extra->clear();
    WriteSideData(SideKind::ExposureTime, LiveTiming(access), LiveAbsolute(access), 1, data->data());
    return VMC_ERR_OK;
}

uint32_t GetLiveIrigRecord(const Access& access, uint32_t, int32_t, std::vector<uint8_t>* data,
                           std::vector<uint8_t>* extra) {
    data->resize(SideRecordBytes(SideKind::Irig));
    extra->clear();
    WriteSideData(SideKind::Irig, LiveTiming(access), LiveAbsolute(access), 1, data->data());
    return VMC_ERR_OK;
}

std::vector<DataEntry> BuildData() {
    std::vector<DataEntry> entries;
    for (const SideRow& row : kRows) entries.push_back({row.code, {nullptr, row.flag}, GetFrameRecords});
    entries.push_back({VMC_DATA_EXPOSE_TIME, {nullptr, &SideData::exposureTime}, GetExposureTime});
    entries.push_back({VMC_DATA_LIVE_IMAGE_IRIG, {nullptr, &SideData::irig}, GetLiveIrigRecord});
    return entries;
}

uint32_t GetLiveIrig(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    uint32_t subSeconds = 0, packed = 0;
    LiveIrig(kIrigEpochMicros + static_cast<uint64_t>(access.now * 1e6), &subSeconds, &packed);
    return Answer(value1, value2, subSeconds, packed);
}

uint32_t GetPresent(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, 1);
}

// One temperature type: the sensor's.
constexpr uint32_t kSensorTemperature = 1;
constexpr uint32_t kSensorCelsius = 38;

uint32_t GetTemperature(const Access&, uint32_t sub, uint32_t* value1, uint32_t* value2) {
    if (sub != kSensorTemperature) return VMC_ERR_BAD_ARGUMENT;
    return Answer(value1, value2, kSensorCelsius);
}

uint32_t GetRecordedTemperatureType(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, kSensorTemperature, 0);
}

const Gate kIrig = {nullptr, &SideData::irig};
const Gate kTemperature = {nullptr, &SideData::temperature};

const CodeEntry kCodes[] = {
    {VMC_CODE_LIVE_IRIG, Scope::Device, kIrig, GetLiveIrig, nullptr, false},
    {VMC_CODE_EXPOSE_TIME_DATA, Scope::Device, {nullptr, &SideData::exposureTime}, GetPresent, nullptr, false},
    {VMC_CODE_TEMPERATURE, Scope::Head, kTemperature, GetTemperature, nullptr, false},
    {VMC_CODE_MEM_TEMPERATURE_TYPE, Scope::Device, kTemperature, GetRecordedTemperatureType, nullptr, false},
};

uint32_t ListTemperatureTypes(const Access&, uint32_t, std::vector<uint32_t>* list) {
    *list = {kSensorTemperature};
    return VMC_ERR_OK;
}

const ListEntry kLists[] = {
    {VMC_LIST_TEMPERATURE_TYPE, Scope::Device, kTemperature, ListTemperatureTypes},
};

}  // namespace

std::span<const DataEntry> SideDataCodes() {
    static const std::vector<DataEntry> entries = BuildData();
    return entries;
}

std::span<const CodeEntry> SideDataSettingCodes() { return kCodes; }
std::span<const ListEntry> SideDataLists() { return kLists; }

}  // namespace vcam
