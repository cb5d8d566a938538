#include "camera/camera_recording.h"

#include <algorithm>
#include <cmath>

#include "camera/camera_codes.h"
#include "camera/camera_sensor.h"

namespace vcam {
namespace {

using Phase = Capture::Phase;

uint32_t Clamp(uint32_t value, uint32_t low, uint32_t high) { return std::min(std::max(value, low), high); }

bool IsBlockMode(uint32_t mode) {
    return mode == kTriggerRandom || mode == kTriggerRandomReset || mode == kTriggerRandomPreTrigger ||
           mode == kTriggerRandomCentre || mode == kTriggerRandomManual;
}

// The shape of each trigger mode, for a memory of M frames.
Capture MakeCapture(const Trigger& trigger, const HeadState& head) {
    Capture capture;
    capture.partition = head.currentPartition;
    capture.settings = head.live;
    capture.trigger = trigger;
    const uint32_t frames = MaxFrames(head);
    capture.maxFrames = frames;
    const uint32_t block = Clamp(trigger.randomFrames, 1, std::max(frames, 1u));
    const uint32_t blocksInMemory = frames / block;
    const uint32_t mode = trigger.mode;
    capture.unitFrames = frames;
    capture.afterFrames = frames;
    if (mode == kTriggerCentre) {
        capture.afterFrames = frames / 2;
    } else if (mode == kTriggerEnd) {
        capture.afterFrames = std::min(frames, 1u);
    } else if (mode == kTriggerManual) {
        capture.afterFrames = std::min(trigger.afterFrames, frames);
    } else if (IsBlockMode(mode)) {
        capture.unitFrames = block;
        capture.fullUnits = true;
        capture.maxUnits = blocksInMemory;
        capture.afterFrames = block;
        if (mode == kTriggerRandomPreTrigger && trigger.afterFrames != 0)
            capture.afterFrames = std::min(trigger.afterFrames, block);
        if (mode == kTriggerRandomCentre) capture.afterFrames = block - block / 2;
        if (mode == kTriggerRandomManual) capture.afterFrames = std::min(trigger.afterFrames, block);
        if (mode == kTriggerRandomCentre || mode == kTriggerRandomManual)
            capture.maxUnits = std::min(std::max(trigger.randomCount, 1u), blocksInMemory);
        capture.trigger.randomFrames = block;
    } else if (IsTwoStage(mode)) {
        capture.divider = 2u << (mode & 3u);
    } else if (mode == kTriggerRecordOnCommand) {
        const uint32_t burst = Clamp(trigger.afterFrames, 1, std::max(frames, 1u));
        capture.unitFrames = burst;
        capture.afterFrames = burst;
        capture.fullUnits = true;
        capture.maxUnits = frames / burst;
    }
    if (mode == kTriggerCentre || mode == kTriggerManual || mode == kTriggerRandomManual ||
        mode == kTriggerRandomPreTrigger || mode == kTriggerRecordOnCommand)
        capture.trigger.afterFrames = capture.afterFrames;  // as the camera takes them
    if (frames == 0) capture.maxUnits = 0;
    capture.phase = capture.maxUnits == 0 ? Phase::Done : Phase::Waiting;
    return capture;
}

int64_t SlotAt(const Session& session, const Capture& capture, double now) {
    const double slots = std::floor((now - session.startSeconds) * capture.settings.rate);
    return slots < 0 ? 0 : static_cast<int64_t>(slots);
}

// Two-stage: stage 1 frames taken before the second trigger.
uint32_t StageOneFrames(const Capture& capture, int64_t triggerSlot, int64_t stage2Slot) {
    const int64_t slots = stage2Slot - triggerSlot;
    const int64_t taken = (slots + capture.divider - 1) / capture.divider;
    return static_cast<uint32_t>(std::min<int64_t>(taken, capture.maxFrames));
}

int64_t CompletionSlot(const Capture& capture) {
    if (capture.divider == 0) return capture.triggerSlot + capture.afterFrames;
    if (capture.stage2Slot < 0) return capture.triggerSlot + static_cast<int64_t>(capture.maxFrames) * capture.divider;
    const uint32_t first = StageOneFrames(capture, capture.triggerSlot, capture.stage2Slot);
    return capture.stage2Slot + (capture.maxFrames - first);
}

void CloseUnit(Capture* capture, uint32_t taken, int64_t endSlot) {
    capture->units.push_back({capture->ringStart, capture->triggerSlot, capture->stage2Slot, taken});
    capture->stage2Slot = -1;
    capture->doneSlot = endSlot;
    if (capture->units.size() >= capture->maxUnits) {
        capture->phase = Phase::Done;
    } else if (capture->afterFrames < capture->unitFrames) {
        capture->phase = Phase::Ringing;  // the next unit's frames before its trigger are being taken
        capture->ringStart = endSlot;
    } else {
        capture->phase = Phase::Waiting;
    }
}

void AdvanceCapture(Capture* capture, int64_t slot) {
    while (capture->phase == Phase::Post && slot >= CompletionSlot(*capture)) {
        const uint32_t taken = capture->divider ? capture->maxFrames : capture->afterFrames;
        CloseUnit(capture, taken, CompletionSlot(*capture));
    }
}

struct Built {
    std::vector<Segment> segments;
    uint32_t frames = 0;
};

// The frames of one unit, and where its trigger frame lies among them.
Built UnitFrames(const Capture& capture, const Capture::Unit& unit, uint32_t* triggerOrdinal,
                 uint32_t* stageOne) {
    Built built;
    if (capture.divider) {
        const uint32_t first = unit.stage2Slot < 0 ? std::min(unit.afterTaken, capture.maxFrames)
                                                   : StageOneFrames(capture, unit.triggerSlot, unit.stage2Slot);
        const uint32_t second = unit.afterTaken - std::min(first, unit.afterTaken);
        if (first) built.segments.push_back({first, unit.triggerSlot, capture.divider});
        if (second) built.segments.push_back({second, unit.stage2Slot, 1});
        built.frames = first + second;
        *triggerOrdinal = 0;
        *stageOne = first;
        return built;
    }
    uint32_t before = capture.unitFrames - capture.afterFrames;
    if (!capture.fullUnits)
        before = static_cast<uint32_t>(std::min<int64_t>(unit.triggerSlot - unit.ringStart, before));
    built.frames = before + unit.afterTaken;
    built.segments.push_back({built.frames, unit.triggerSlot - before, 1});
    *triggerOrdinal = before;
    return built;
}

// The frame taken at a slot (or the last before it), as an ordinal.
std::optional<uint32_t> OrdinalAtSlot(const std::vector<Segment>& segments, int64_t slot) {
    uint32_t base = 0;
    std::optional<uint32_t> found;
    for (const Segment& segment : segments) {
        if (slot >= segment.firstSlot) {
            const int64_t step = (slot - segment.firstSlot) / segment.stride;
            if (step < segment.count) found = base + static_cast<uint32_t>(step);
        }
        base += segment.count;
    }
    return found;
}

}  // namespace

Session StartSession(const CameraState& camera, double now) {
    Session session;
    session.startSeconds = now;
    for (const HeadState& head : camera.heads) session.captures.push_back(MakeCapture(camera.trigger, head));
    return session;
}

void Endless(Session* session, double now) {
    for (Capture& capture : session->captures) {
        AdvanceCapture(&capture, SlotAt(*session, capture, now));
        if (capture.phase != Phase::Waiting) continue;
        capture.phase = Phase::Ringing;
        capture.ringStart = SlotAt(*session, capture, now);
    }
}

void TriggerIn(Session* session, double now) {
    for (Capture& capture : session->captures) {
        const int64_t slot = SlotAt(*session, capture, now);
        AdvanceCapture(&capture, slot);
        switch (capture.phase) {
        case Phase::Waiting:
            capture.ringStart = slot;
            [[fallthrough]];
        case Phase::Ringing:
            capture.triggerSlot = slot;
            capture.phase = Phase::Post;
            break;
        case Phase::Post:
            // A second trigger switches a two-stage recording to full rate;
            // in a single-unit recording it marks an event.
            if (capture.divider && capture.stage2Slot < 0) capture.stage2Slot = slot;
            else if (capture.maxUnits == 1) capture.eventSlots.push_back(slot);
            break;
        case Phase::Done:
            break;
        }
        AdvanceCapture(&capture, slot);
    }
}

bool Advance(Session* session, double now) {
    bool done = true;
    for (Capture& capture : session->captures) {
        AdvanceCapture(&capture, SlotAt(*session, capture, now));
        done = done && capture.phase == Phase::Done;
    }
    return done;
}

uint32_t SessionStatus(const Session& session) {
    bool ringing = false;
    for (const Capture& capture : session.captures) {
        if (capture.phase == Phase::Post) return kStatusTriggered;
        ringing = ringing || capture.phase == Phase::Ringing;
    }
    return ringing ? kStatusEndless : kStatusArmed;
}

uint32_t FramesSoFar(const Session& session, const Capture& capture, double now) {
    uint64_t frames = 0;
    for (const Capture::Unit& unit : capture.units) {
        uint32_t triggerOrdinal = 0, stageOne = 0;
        frames += UnitFrames(capture, unit, &triggerOrdinal, &stageOne).frames;
    }
    const int64_t slot = SlotAt(session, capture, now);
    if (capture.phase == Phase::Ringing)
        frames += std::min<int64_t>(slot - capture.ringStart, capture.unitFrames - capture.afterFrames);
    if (capture.phase == Phase::Post) {
        const int64_t before = capture.unitFrames - capture.afterFrames;
        frames += capture.fullUnits || capture.divider ? before
                                                       : std::min(capture.triggerSlot - capture.ringStart, before);
        const int64_t taken = capture.divider ? (slot - capture.triggerSlot) / capture.divider + 1
                                              : slot - capture.triggerSlot + 1;
        frames += std::min<int64_t>(taken, capture.afterFrames);
    }
    return static_cast<uint32_t>(std::min<uint64_t>(frames, capture.maxFrames));
}

std::optional<Recording> FinishCapture(const Session& session, const Capture& finished, double now,
                                       const CameraState& camera, const HeadState& head) {
    Capture capture = finished;
    const int64_t slot = SlotAt(session, capture, now);
    AdvanceCapture(&capture, slot);
    // A unit cut short is kept where a unit may hold fewer frames; a
    // trigger's own frame is always taken.
    if (capture.phase == Phase::Post && !capture.fullUnits) {
        const int64_t elapsed = capture.divider && capture.stage2Slot < 0
                                    ? (slot - capture.triggerSlot + capture.divider - 1) / capture.divider
                                    : slot - capture.triggerSlot;
        int64_t taken = std::max<int64_t>(elapsed, 1);
        if (capture.divider && capture.stage2Slot >= 0)
            taken = StageOneFrames(capture, capture.triggerSlot, capture.stage2Slot) + (slot - capture.stage2Slot);
        CloseUnit(&capture, static_cast<uint32_t>(std::min<int64_t>(taken, capture.afterFrames)), slot);
    }
    if (capture.units.empty()) return std::nullopt;

    Recording recording;
    recording.settings = capture.settings;
    recording.trigger = capture.trigger;
    recording.frameZero = camera.Has("frameZero");
    recording.absoluteBase = head.nextAbsolute;
    recording.blocks = static_cast<uint32_t>(capture.units.size());
    uint32_t block = 1;
    for (const Capture::Unit& unit : capture.units) {
        uint32_t triggerOrdinal = 0, stageOne = 0;
        Built built = UnitFrames(capture, unit, &triggerOrdinal, &stageOne);
        const uint32_t base = recording.frames;
        if (triggerOrdinal < built.frames) {
            recording.triggers.push_back({base + triggerOrdinal, block});
            if (IsBlockMode(capture.trigger.mode)) recording.events.push_back({base + triggerOrdinal, block});
        }
        if (capture.divider) {
            recording.twoStage[0] = stageOne;
            recording.twoStage[1] = built.frames - stageOne;
            if (unit.stage2Slot >= 0 && stageOne < built.frames) recording.triggers.push_back({base + stageOne, 1});
        }
        for (const Segment& segment : built.segments) recording.segments.push_back(segment);
        recording.frames += built.frames;
        if (capture.maxUnits == 1 && !capture.divider) recording.trigger.afterFrames = unit.afterTaken;
        ++block;
    }
    for (int64_t eventSlot : capture.eventSlots)
        if (auto ordinal = OrdinalAtSlot(recording.segments, eventSlot)) recording.events.push_back({*ordinal, 1});
    recording.twoStageDivider = capture.divider;
    if (capture.trigger.mode == kTriggerEnd) recording.trigger.afterFrames = 0;
    if (IsBlockMode(capture.trigger.mode)) recording.trigger.randomCount = recording.blocks;

    recording.timing.camera = camera.index;
    recording.timing.head = head.number;
    recording.timing.recordRate = capture.settings.rate;
    recording.timing.shutterNsec = static_cast<uint32_t>(capture.settings.shutterNsec);
    const double startMicros = static_cast<double>(kIrigEpochMicros) + session.startSeconds * 1e6 -
                               static_cast<double>(recording.absoluteBase) * 1e6 / capture.settings.rate;
    recording.timing.startMicros = startMicros > 0 ? static_cast<uint64_t>(std::llround(startMicros)) : 0;
    return recording;
}

uint32_t ReportedAfterFrames(const CameraState& camera) {
    const Trigger& trigger = camera.trigger;
    if (camera.heads.empty()) return trigger.afterFrames;
    const uint32_t frames = MaxFrames(camera.heads.front());
    if (trigger.mode == kTriggerCentre) return frames / 2;
    if (trigger.mode == kTriggerEnd) return 0;
    if (trigger.mode == kTriggerManual) return std::min(trigger.afterFrames, frames);
    return trigger.afterFrames;
}

FrameRange RangeOf(const Recording& recording) {
    const int32_t frames = static_cast<int32_t>(recording.frames);
    const int32_t after = static_cast<int32_t>(recording.trigger.afterFrames);
    const bool zero = recording.frameZero;
    FrameRange range;
    const uint32_t mode = recording.trigger.mode;
    if (mode == kTriggerCentre || mode == kTriggerManual) {
        range.start = after - frames;
        range.end = after - 1;
        if (!zero && range.end >= 0) ++range.end;
    } else if (mode == kTriggerEnd) {
        range.start = 1 - frames;
        range.end = zero ? 0 : 1;
    } else {
        range.start = zero ? 0 : 1;
        range.end = zero ? frames - 1 : frames;
    }
    return range;
}

int32_t NumberOfOrdinal(const Recording& recording, uint32_t ordinal) {
    const FrameRange range = RangeOf(recording);
    const int32_t number = range.start + static_cast<int32_t>(ordinal);
    const bool skipsZero = !recording.frameZero && range.start < 0 && number >= 0;
    return skipsZero ? number + 1 : number;
}

bool OrdinalOfIndex(const Recording& recording, uint32_t index, uint32_t* ordinal, int32_t* number) {
    const FrameRange range = RangeOf(recording);
    const int64_t start = range.start, end = range.end;
    // Indices past the last frame count the frames before 0: they name negative numbers only.
    const bool before = static_cast<int64_t>(index) > end;
    const int64_t asked = before ? index - std::llabs(start) - 1 - end : index;
    if ((before && asked >= 0) || asked < start || asked > end || (asked == 0 && !recording.frameZero)) return false;
    const int64_t position = asked - start - (!recording.frameZero && start < 0 && asked > 0 ? 1 : 0);
    if (position < 0 || position >= recording.frames) return false;
    *ordinal = static_cast<uint32_t>(position);
    *number = static_cast<int32_t>(asked);
    return true;
}

int64_t AbsoluteOfOrdinal(const Recording& recording, uint32_t ordinal) {
    uint32_t base = 0;
    for (const Segment& segment : recording.segments) {
        if (ordinal < base + segment.count)
            return recording.absoluteBase + segment.firstSlot + static_cast<int64_t>(ordinal - base) * segment.stride;
        base += segment.count;
    }
    return recording.absoluteBase;
}

uint32_t SignMagnitude(int32_t value) {
    return value < 0 ? (static_cast<uint32_t>(-static_cast<int64_t>(value)) | 0x80000000u)
                     : static_cast<uint32_t>(value);
}

// The library keeps ten events of a recording; the camera reports no more.
static constexpr size_t kMaxEvents = 10;
// and at most 1024 trigger frames.
static constexpr size_t kMaxTriggerFrames = 1024;

std::vector<uint32_t> EventFrameList(const Recording& recording) {
    // The block modes report an event relative to its block, in the form the
    // library turns back into a frame number: it adds (block - 1) x F and,
    // in the two block-endless modes, its own offset.
    const uint32_t mode = recording.trigger.mode;
    const int32_t block = static_cast<int32_t>(recording.trigger.randomFrames);
    const int32_t after = static_cast<int32_t>(recording.trigger.afterFrames);
    std::vector<uint32_t> list;
    for (const FrameMark& mark : recording.events) {
        if (list.size() == kMaxEvents) break;
        int32_t value = NumberOfOrdinal(recording, mark.ordinal);
        if (IsBlockMode(mode)) value -= (static_cast<int32_t>(mark.block) - 1) * block;
        if (mode == kTriggerRandomCentre) value -= block / 2;
        if (mode == kTriggerRandomManual) value -= block - after;
        list.push_back(SignMagnitude(value));
    }
    return list;
}

std::vector<uint32_t> EventBlockList(const Recording& recording) {
    std::vector<uint32_t> list;
    for (const FrameMark& mark : recording.events) {
        if (list.size() == kMaxEvents) break;
        list.push_back(mark.block);
    }
    return list;
}

std::vector<uint32_t> TriggerFrameList(const Recording& recording) {
    std::vector<uint32_t> list;
    for (const FrameMark& mark : recording.triggers) {
        if (list.size() == kMaxTriggerFrames) break;
        list.push_back(SignMagnitude(NumberOfOrdinal(recording, mark.ordinal)));
    }
    return list;
}

}  // namespace vcam
