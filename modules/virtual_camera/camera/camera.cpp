// The camera's front: each call takes the clock, then the lock, brings the
// recording up to date, and hands the code to the entry of the tables that
// answers it (camera_*_codes.cpp).
#include "camera/camera.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "camera/camera_codes.h"
#include "camera/camera_recording.h"
#include "camera/camera_sensor.h"
#include "camera/features.h"
#include "vmc/vmc.h"

namespace vcam {

struct Camera::State : CameraState {};

namespace {

// The shortest time scale honoured: a smaller one would overflow the frame slots.
constexpr double kMinTimeScale = 1e-6;

template <class Entry>
const Entry* Find(std::initializer_list<std::span<const Entry>> tables, uint32_t code) {
    for (std::span<const Entry> table : tables)
        for (const Entry& entry : table)
            if (entry.code == code) return &entry;
    return nullptr;
}

const CodeEntry* FindCode(uint32_t code) {
    return Find<CodeEntry>({IdentityCodes(), SettingCodes(), RecordingCodes(), PartitionCodes(), ModeCodes(),
                            SideDataSettingCodes()},
                           code);
}

const ListEntry* FindList(uint32_t list) {
    for (std::span<const ListEntry> table :
         {IdentityLists(), SettingLists(), RecordingLists(), PartitionLists(), ModeLists(), SideDataLists()})
        for (const ListEntry& entry : table)
            if (entry.list == list) return &entry;
    return nullptr;
}

double CameraSeconds(const CameraState& camera, double wall) {
    return (wall - camera.wallStart) / std::max(camera.profile.timeScale, kMinTimeScale);
}

// The head a child addresses: child 0 stands for head 1.
HeadState* HeadOf(CameraState& camera, uint32_t child) {
    if (camera.heads.empty()) return nullptr;
    return &camera.heads[child == 0 ? 0 : child - 1];
}

const Recording* RecordingIn(const HeadState& head, uint32_t partition) {
    const Partition& held = head.partitions[partition - 1];
    return held.recording ? &*held.recording : nullptr;
}

// A recording's own settings stand for the head's while it is shown.
View ViewOf(const HeadState* head, uint32_t partition, bool showsRecording) {
    View view;
    if (!head) return view;
    view.partition = partition;
    view.recording = RecordingIn(*head, partition);
    view.settings = &head->live;
    if (showsRecording && view.recording) {
        view.settings = &view.recording->settings;
        view.trigger = &view.recording->trigger;
    }
    return view;
}

View LiveView(const CameraState& camera, const HeadState* head) {
    return ViewOf(head, head ? head->memoryModePartition : 1, IsPlayback(camera.status) && !camera.session);
}

// The first check of every call: a child the camera has.
bool ChildExists(const CameraState& camera, uint32_t child) { return child <= camera.heads.size(); }

template <class Entry>
uint32_t Admit(const CameraState& camera, const Entry* entry, uint32_t child) {
    if (!entry || !Open(camera, entry->gate)) return VMC_ERR_NOT_SUPPORTED;
    if (!ChildExists(camera, child)) return VMC_ERR_BAD_CHILD;
    if (entry->scope == Scope::Head && camera.heads.empty()) return VMC_ERR_BAD_CHILD;
    return VMC_ERR_OK;
}

bool PartitionExists(const CameraState& camera, uint32_t child, uint32_t partition) {
    const HeadState* head = camera.heads.empty() ? nullptr : &camera.heads[child == 0 ? 0 : child - 1];
    return head && partition >= 1 && partition <= head->partitionCount;
}

uint32_t ReadCode(CameraState& camera, double now, uint32_t child, uint32_t code, uint32_t sub, const View* asked,
                  uint32_t* value1, uint32_t* value2) {
    const CodeEntry* entry = FindCode(code);
    if (const uint32_t refused = Admit(camera, entry, child); refused != VMC_ERR_OK) return refused;
    if (!entry->get) return VMC_ERR_NOT_SUPPORTED;
    HeadState* head = HeadOf(camera, child);
    const Access access{camera, code, child, head, asked ? *asked : LiveView(camera, head), now};
    uint32_t scratch = 0;
    return entry->get(access, sub, value1, value2 ? value2 : &scratch);
}

uint32_t ReadList(CameraState& camera, double now, uint32_t child, uint32_t code, uint32_t sub, const View* asked,
                  std::vector<uint32_t>* list) {
    const ListEntry* entry = FindList(code);
    if (const uint32_t refused = Admit(camera, entry, child); refused != VMC_ERR_OK) return refused;
    HeadState* head = HeadOf(camera, child);
    const Access access{camera, code, child, head, asked ? *asked : LiveView(camera, head), now};
    return entry->get(access, sub, list);
}

}  // namespace

bool Open(const CameraState& camera, const Gate& gate) {
    if (gate.feature && !camera.Has(gate.feature)) return false;
    return !gate.side || camera.profile.sideData.*gate.side;
}

uint32_t Answer(uint32_t* value1, uint32_t* value2, uint32_t first, uint32_t second) {
    *value1 = first;
    if (value2) *value2 = second;
    return VMC_ERR_OK;
}

const Settings& SettingsOf(const Access& access) {
    return access.view.settings ? *access.view.settings : access.head->live;
}

const Trigger& TriggerOf(const Access& access) {
    return access.view.trigger ? *access.view.trigger : access.camera.trigger;
}

WallClock SteadyClock() {
    return [] {
        using namespace std::chrono;
        return duration<double>(steady_clock::now().time_since_epoch()).count();
    };
}

Camera::Camera(const CameraProfile& profile, uint32_t index, WallClock clock) : state_(std::make_unique<State>()) {
    State& camera = *state_;
    camera.profile = profile;
    camera.index = index;
    camera.clock = clock ? std::move(clock) : SteadyClock();
    camera.wallStart = camera.clock();
    for (const FeatureInfo& feature : Features()) {
        auto named = profile.features.find(feature.name);
        if (named != profile.features.end() ? named->second : feature.presentByDefault)
            camera.features.insert(feature.name);
    }
    camera.deviceId = profile.deviceId;
    for (size_t i = 0; i < camera.profile.heads.size(); ++i) {
        HeadState head;
        head.profile = &camera.profile.heads[i];
        head.number = static_cast<uint32_t>(i + 1);
        head.live = InitialSettings(camera.profile, *head.profile);
        head.partitions = LayOutPartitions(*head.profile, 1, {});
        camera.heads.push_back(std::move(head));
    }
    InitialModes(&camera);
}

Camera::~Camera() = default;

const CameraProfile& Camera::Profile() const { return state_->profile; }
uint32_t Camera::Index() const { return state_->index; }

// Every entry below: the clock first (it may block), then the lock, then
// the recording brought up to date.
#define VCAM_ENTER()                                  \
    State& camera = *state_;                          \
    const double wall = camera.clock();               \
    std::lock_guard<std::mutex> lock(camera.mutex);   \
    const double now = CameraSeconds(camera, wall);   \
    Refresh(&camera, now)

uint32_t Camera::GetCaps(uint32_t child, uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2) {
    if (!value1) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    return ReadCode(camera, now, child, code, sub, nullptr, value1, value2);
}

uint32_t Camera::SetCaps(uint32_t child, uint32_t code, uint32_t sub, uint32_t value1, uint32_t value2) {
    VCAM_ENTER();
    const CodeEntry* entry = FindCode(code);
    if (const uint32_t refused = Admit(camera, entry, child); refused != VMC_ERR_OK) return refused;
    if (!entry->set) return VMC_ERR_NOT_SUPPORTED;
    if (entry->shapesRecording && camera.IsRecording()) return VMC_ERR_BUSY;
    // A head setting written to the device goes to every head.
    const bool everyHead = entry->scope == Scope::Head && child == 0;
    const size_t first = everyHead || child == 0 ? 0 : child - 1;
    const size_t last = everyHead ? camera.heads.size() : first + 1;
    for (size_t i = first; i < std::max(last, first + 1); ++i) {
        HeadState* head = camera.heads.empty() ? nullptr : &camera.heads[i];
        Access access{camera, code, child, head, LiveView(camera, head), now};
        if (const uint32_t error = entry->set(access, sub, value1, value2); error != VMC_ERR_OK) return error;
    }
    return VMC_ERR_OK;
}

uint32_t Camera::GetList(uint32_t child, uint32_t code, uint32_t sub, std::vector<uint32_t>* list) {
    if (!list) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    return ReadList(camera, now, child, code, sub, nullptr, list);
}

// No list of this camera is written.
uint32_t Camera::SetList(uint32_t child, uint32_t, uint32_t, const uint32_t*, uint32_t) {
    VCAM_ENTER();
    return ChildExists(camera, child) ? VMC_ERR_NOT_SUPPORTED : VMC_ERR_BAD_CHILD;
}

uint32_t Camera::GetMemModeCaps(uint32_t child, uint32_t partition, uint32_t code, uint32_t sub, uint32_t* value1,
                                uint32_t* value2) {
    if (!value1) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!ChildExists(camera, child)) return VMC_ERR_BAD_CHILD;
    if (!PartitionExists(camera, child, partition)) return VMC_ERR_BAD_ARGUMENT;
    const View view = ViewOf(HeadOf(camera, child), partition, true);
    return ReadCode(camera, now, child, code, sub, &view, value1, value2);
}

uint32_t Camera::GetMemModeList(uint32_t child, uint32_t partition, uint32_t code, uint32_t sub,
                                std::vector<uint32_t>* list) {
    if (!list) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!ChildExists(camera, child)) return VMC_ERR_BAD_CHILD;
    if (!PartitionExists(camera, child, partition)) return VMC_ERR_BAD_ARGUMENT;
    const View view = ViewOf(HeadOf(camera, child), partition, true);
    return ReadList(camera, now, child, code, sub, &view, list);
}

uint32_t Camera::GetData(uint32_t child, uint32_t code, uint32_t index, int32_t count, std::vector<uint8_t>* data,
                         std::vector<uint8_t>* extra) {
    if (!data || !extra) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    const DataEntry* entry = Find<DataEntry>({SideDataCodes()}, code);
    if (!entry || !Open(camera, entry->gate)) return VMC_ERR_NOT_SUPPORTED;
    if (!ChildExists(camera, child) || camera.heads.empty()) return VMC_ERR_BAD_CHILD;
    HeadState* head = HeadOf(camera, child);
    const Access access{camera, code, child, head, LiveView(camera, head), now};
    extra->clear();
    return entry->get(access, index, count, data, extra);
}

// Nothing is written as a block; the lock handles of the library stay with the module.
uint32_t Camera::SetData(uint32_t child, uint32_t, uint32_t, uint32_t, const void*) {
    VCAM_ENTER();
    return ChildExists(camera, child) ? VMC_ERR_NOT_SUPPORTED : VMC_ERR_BAD_CHILD;
}

uint32_t Camera::DeviceName(uint32_t child, std::string* name) {
    if (!name) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!ChildExists(camera, child)) return VMC_ERR_BAD_CHILD;
    *name = child == 0 ? camera.profile.name : camera.heads[child - 1].profile->name;
    return VMC_ERR_OK;
}

// Head types are numbered from 1 in the order the camera's heads first name
// them; type 0 is the head's own.
uint32_t Camera::HeadTypeName(uint32_t child, uint32_t type, std::string* name) {
    if (!name) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!camera.Has("headExchange")) return VMC_ERR_NOT_SUPPORTED;
    if (!ChildExists(camera, child) || camera.heads.empty()) return VMC_ERR_BAD_CHILD;
    std::vector<std::string> types;
    for (const HeadState& head : camera.heads)
        if (std::find(types.begin(), types.end(), head.profile->typeName) == types.end())
            types.push_back(head.profile->typeName);
    if (type == 0) {
        *name = HeadOf(camera, child)->profile->typeName;
        return VMC_ERR_OK;
    }
    if (type > types.size()) return VMC_ERR_BAD_ARGUMENT;
    *name = types[type - 1];
    return VMC_ERR_OK;
}

namespace {

FrameFormat FormatOf(const CameraState& camera, const HeadState& head, const Settings& settings, uint32_t depth) {
    FrameFormat format;
    format.width = settings.width;
    format.height = settings.height;
    format.bitDepth = settings.bitDepth;
    format.colour = head.profile->colour;
    constexpr uint32_t kRawMosaicBit = 1u << 8;
    format.rawMosaic = format.colour != ColourLayout::Mono && camera.Has("rawMosaic") &&
                       (head.transferOption & kRawMosaicBit) != 0;
    format.depth = depth;
    return format;
}

// Depths a frame can be asked in: up to 16 bits a sample.
bool DepthOk(uint32_t depth) { return depth >= 8 && depth <= 16; }

}  // namespace

uint32_t Camera::LiveFrame(uint32_t child, uint32_t depth, FrameJob* job) {
    if (!job || !DepthOk(depth)) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!ChildExists(camera, child) || camera.heads.empty()) return VMC_ERR_BAD_CHILD;
    const HeadState& head = *HeadOf(camera, child);
    job->format = FormatOf(camera, head, head.live, depth);
    job->id.camera = camera.index;
    job->id.head = head.number;
    job->id.absolute = static_cast<int64_t>(std::floor(now * head.live.rate));
    job->id.number = 0;
    return VMC_ERR_OK;
}

// A frame of the shown partition; an index that names no frame of its
// recording (or a partition with none) is a bad argument.
uint32_t Camera::MemoryFrame(uint32_t child, uint32_t index, uint32_t depth, FrameJob* job) {
    if (!job || !DepthOk(depth)) return VMC_ERR_BAD_ARGUMENT;
    VCAM_ENTER();
    if (!ChildExists(camera, child) || camera.heads.empty()) return VMC_ERR_BAD_CHILD;
    const HeadState& head = *HeadOf(camera, child);
    const Recording* recording = RecordingIn(head, head.memoryModePartition);
    uint32_t ordinal = 0;
    int32_t number = 0;
    if (!recording || !OrdinalOfIndex(*recording, index, &ordinal, &number)) return VMC_ERR_BAD_ARGUMENT;
    job->format = FormatOf(camera, head, recording->settings, depth);
    job->id.camera = camera.index;
    job->id.head = head.number;
    job->id.absolute = AbsoluteOfOrdinal(*recording, ordinal);
    job->id.number = number;
    return VMC_ERR_OK;
}

}  // namespace vcam
