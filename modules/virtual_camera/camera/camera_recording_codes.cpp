// Status, trigger words and what the memory holds: the codes and lists from
// which the library derives a recording's frame range.
#include <algorithm>

#include "camera/camera_codes.h"
#include "camera/camera_recording.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

bool Contains(const std::vector<uint32_t>& list, uint32_t value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

uint32_t GetStatus(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const CameraState& camera = access.camera;
    return Answer(value1, value2, camera.session ? SessionStatus(*camera.session) : camera.status);
}

// Live or playback ends a recording that runs, keeping what it took. Arm
// and endless start one; a trigger outside a recording does nothing.
uint32_t SetStatus(Access& access, uint32_t, uint32_t status, uint32_t) {
    CameraState& camera = access.camera;
    switch (status) {
    case kStatusLive:
    case kStatusPlayback:
    case kStatusPlayback2:
        Conclude(&camera, access.now);
        camera.status = status;
        return VMC_ERR_OK;
    case kStatusArmed:
        if (!camera.session) Arm(&camera, access.now);
        return VMC_ERR_OK;
    case kStatusEndless:
        if (!camera.session) Arm(&camera, access.now);
        Endless(&*camera.session, access.now);
        return VMC_ERR_OK;
    case kStatusTriggered:
        if (camera.session) TriggerIn(&*camera.session, access.now);
        Refresh(&camera, access.now);
        return VMC_ERR_OK;
    default:
        return VMC_ERR_BAD_ARGUMENT;
    }
}

// The live words report the after-frames the camera will take: half the
// memory in centre mode, none past the trigger frame in end mode.
uint32_t GetTriggerMode(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    if (access.view.trigger) return Answer(value1, value2, access.view.trigger->mode, access.view.trigger->afterFrames);
    return Answer(value1, value2, access.camera.trigger.mode, ReportedAfterFrames(access.camera));
}

uint32_t SetTriggerMode(Access& access, uint32_t, uint32_t mode, uint32_t afterFrames) {
    if (!Contains(access.camera.profile.triggerModes, mode)) return VMC_ERR_BAD_ARGUMENT;
    access.camera.trigger.mode = mode;
    access.camera.trigger.afterFrames = afterFrames;
    return VMC_ERR_OK;
}

uint32_t GetTriggerRandom(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const Trigger& trigger = TriggerOf(access);
    return Answer(value1, value2, trigger.randomFrames, trigger.randomCount);
}

// Stored as written: a recording takes at least one frame a block and one block.
uint32_t SetTriggerRandom(Access& access, uint32_t, uint32_t frames, uint32_t count) {
    access.camera.trigger.randomFrames = frames;
    access.camera.trigger.randomCount = count;
    return VMC_ERR_OK;
}

// Frames held, and the blocks they came in.
uint32_t GetRecordedFrames(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const Recording* recording = access.view.recording;
    return recording ? Answer(value1, value2, recording->frames, recording->blocks) : Answer(value1, value2, 0, 0);
}

// Two-stage recordings: frames of the slow stage and of the full-rate stage.
uint32_t GetTwoStageFrames(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const Recording* recording = access.view.recording;
    return recording ? Answer(value1, value2, recording->twoStage[0], recording->twoStage[1])
                     : Answer(value1, value2, 0, 0);
}

// Two-stage recordings: the slow stage takes one frame in this many.
uint32_t GetTwoStageTiming(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const Recording* recording = access.view.recording;
    return Answer(value1, value2, recording ? recording->twoStageDivider : 0);
}

// While recording: frames the head holds so far; else those of the shown recording.
uint32_t GetFramesSoFar(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const CameraState& camera = access.camera;
    if (camera.session) {
        const size_t head = static_cast<size_t>(access.head - camera.heads.data());
        return Answer(value1, value2, FramesSoFar(*camera.session, camera.session->captures[head], access.now));
    }
    return Answer(value1, value2, access.view.recording ? access.view.recording->frames : 0);
}

const CodeEntry kCodes[] = {
    {VMC_CODE_STATUS, Scope::Device, {}, GetStatus, SetStatus, false},
    {VMC_CODE_TRIGGER_MODE, Scope::Device, {}, GetTriggerMode, SetTriggerMode, true},
    {VMC_CODE_TRIGGER_RANDOM, Scope::Device, {}, GetTriggerRandom, SetTriggerRandom, true},
    {VMC_CODE_RECORDED_FRAMES, Scope::Head, {}, GetRecordedFrames, nullptr, false},
    {VMC_CODE_RECORDED_FRAMES_CACHE, Scope::Head, {}, GetRecordedFrames, nullptr, false},
    {VMC_CODE_TWO_STAGE_TRIGGER_FRAME, Scope::Head, {}, GetTwoStageFrames, nullptr, false},
    {VMC_CODE_TWO_STAGE_TRIGGER_TIMING, Scope::Head, {}, GetTwoStageTiming, nullptr, false},
    {VMC_CODE_CURRENT_FRAMES_RECORDED, Scope::Head, {}, GetFramesSoFar, nullptr, false},
};

uint32_t ListTriggerModes(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    *list = access.camera.profile.triggerModes;
    return VMC_ERR_OK;
}

template <std::vector<uint32_t> (*Make)(const Recording&)>
uint32_t ListOfRecording(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    list->clear();
    if (access.view.recording) *list = Make(*access.view.recording);
    return VMC_ERR_OK;
}

const ListEntry kLists[] = {
    {VMC_LIST_TRIGGER_MODE, Scope::Device, {}, ListTriggerModes},
    {VMC_LIST_MEM_EVENT_FRAME, Scope::Head, {}, ListOfRecording<EventFrameList>},
    {VMC_LIST_MEM_EVENT_R_COUNT, Scope::Head, {}, ListOfRecording<EventBlockList>},
    {VMC_LIST_MEM_TRIGGER_FRAME, Scope::Head, {}, ListOfRecording<TriggerFrameList>},
};

}  // namespace

std::span<const CodeEntry> RecordingCodes() { return kCodes; }
std::span<const ListEntry> RecordingLists() { return kLists; }

}  // namespace vcam
