// What one simulated camera holds: its live settings per head, the
// partitions of each head's memory with the recordings in them, the
// recording in progress, and the device-wide words. Everything here is
// guarded by the camera's one mutex (see camera.cpp).
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "camera/camera.h"

namespace vcam {

// The four trigger words: mode, after-frames, random frames, random count.
struct Trigger {
    uint32_t mode = 0;
    uint32_t afterFrames = 0;
    uint32_t randomFrames = 1;
    uint32_t randomCount = 1;
};

// The settings a head records with; a recording keeps a copy of them.
struct Settings {
    uint32_t rate = 0;
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t segmentX = 0;
    uint32_t segmentY = 0;
    uint32_t roiWidth = 0;
    uint32_t roiHeight = 0;
    uint32_t bitDepth = 12;
    uint32_t shutterFps = 0;    // the 1/s form the camera reports
    uint64_t shutterNsec = 0;   // the exposure itself
};

// A run of recorded frames: `count` frames taken every `stride` frame slots
// from `firstSlot` on. Slots count frame periods since the recording began.
struct Segment {
    uint32_t count = 0;
    int64_t firstSlot = 0;
    uint32_t stride = 1;
};

// A mark the recording keeps against one of its frames.
struct FrameMark {
    uint32_t ordinal = 0;  // position of the frame in the recording, oldest first
    uint32_t block = 1;    // 1-based block (random modes), 1 elsewhere
};

// A finished recording, as a partition holds it.
struct Recording {
    Settings settings;
    Trigger trigger;            // as the frame range needs it (see camera_recording.cpp)
    bool frameZero = false;
    uint32_t frames = 0;        // frames held, oldest first
    uint32_t blocks = 1;        // capture units the frames came in
    std::vector<Segment> segments;
    std::vector<FrameMark> events;    // event marks
    std::vector<FrameMark> triggers;  // frames at which a trigger acted
    uint32_t twoStage[2] = {0, 0};    // two-stage modes: frames of stage 1 and stage 2
    uint32_t twoStageDivider = 0;     // two-stage modes: stage 1 takes every n-th frame slot
    int64_t absoluteBase = 0;   // absolute frame number of slot 0
    RecordingTiming timing;     // side data of the frames
};

// One partition of a head's memory.
struct Partition {
    uint32_t blocks = 0;
    std::optional<Recording> recording;
};

// How one head takes part in the recording in progress.
struct Capture {
    enum class Phase { Waiting, Ringing, Post, Done };
    Phase phase = Phase::Waiting;
    uint32_t partition = 1;     // 1-based
    Settings settings;
    Trigger trigger;            // the device's words, made concrete for this head
    uint32_t maxFrames = 0;
    uint32_t unitFrames = 0;    // frames a capture unit holds
    uint32_t afterFrames = 0;   // frames from the trigger frame to the end of a unit
    uint32_t maxUnits = 1;
    bool fullUnits = false;     // random modes: a unit always holds unitFrames frames
    uint32_t divider = 0;       // two-stage modes: stage 1 frame slot divider
    int64_t ringStart = 0;      // slot the present unit began to fill at
    int64_t triggerSlot = 0;    // slot of the present unit's trigger
    int64_t stage2Slot = -1;    // two-stage: slot of the second trigger
    int64_t doneSlot = 0;
    struct Unit {
        int64_t ringStart, triggerSlot, stage2Slot;
        uint32_t afterTaken;    // frames taken from the trigger frame on
    };
    std::vector<Unit> units;
    std::vector<int64_t> eventSlots;
};

struct Session {
    double startSeconds = 0;    // camera time of the arm
    std::vector<Capture> captures;  // one per head, in head order
};

struct HeadState {
    const HeadProfile* profile = nullptr;
    uint32_t number = 1;
    Settings live;
    uint32_t transferOption = 0;
    std::map<uint32_t, uint32_t> modes;         // stored mode codes of this head
    uint32_t partitionCount = 1;
    uint32_t currentPartition = 1;
    uint32_t memoryModePartition = 1;
    std::vector<Partition> partitions;
    std::map<uint32_t, uint32_t> pendingBlocks;  // partition sizes written ahead of a count
    int64_t nextAbsolute = 0;   // absolute frame number the next recording starts from
};

struct CameraState {
    CameraProfile profile;
    uint32_t index = 0;
    WallClock clock;
    double wallStart = 0;
    std::mutex mutex;

    std::set<std::string> features;  // present
    uint32_t deviceId = 0;
    uint32_t status = 0;
    Trigger trigger;
    uint32_t partitionIncMode = 0;
    uint32_t partitionLock[2] = {0, 0};
    std::map<uint32_t, uint32_t> modes;  // stored mode codes of the device
    std::vector<HeadState> heads;
    std::optional<Session> session;

    bool Has(const std::string& feature) const { return features.count(feature) != 0; }
    bool IsRecording() const { return session.has_value(); }
};

// Status words of code 0.
inline constexpr uint32_t kStatusLive = 0;
inline constexpr uint32_t kStatusPlayback = 1;
inline constexpr uint32_t kStatusArmed = 2;
inline constexpr uint32_t kStatusEndless = 4;
inline constexpr uint32_t kStatusTriggered = 8;
inline constexpr uint32_t kStatusPlayback2 = 0x80;

inline bool IsPlayback(uint32_t status) { return status == kStatusPlayback || status == kStatusPlayback2; }

}  // namespace vcam
