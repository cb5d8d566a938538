// A recording on the camera's clock. Arming opens a session with one
// capture per head; endless and trigger commands move the captures on;
// time alone completes them. Nothing runs in the background: a session is
// brought up to date whenever the camera is asked something.
//
// Every trigger mode is one shape: frames are taken in capture units of
// unitFrames frames, each ending afterFrames frames from (and including)
// the frame its trigger fell on; frames before the trigger come from a ring
// that runs while the camera waits. See MakeCapture for the shape of each mode.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "camera/camera_state.h"

namespace vcam {

// Trigger modes; the mode is the top byte, the two-stage modes carry a variant in the low bits.
inline constexpr uint32_t kTriggerStart = 0x0000000;          // trigger starts, memory fills
inline constexpr uint32_t kTriggerCentre = 0x1000000;         // trigger in the middle of the memory
inline constexpr uint32_t kTriggerEnd = 0x2000000;            // trigger ends the recording
inline constexpr uint32_t kTriggerRandom = 0x3000000;         // each trigger takes a block
inline constexpr uint32_t kTriggerManual = 0x4000000;         // after-frames chosen by the caller
inline constexpr uint32_t kTriggerRandomReset = 0x5000000;    // random, exposure restarted by the trigger
inline constexpr uint32_t kTriggerRandomCentre = 0x6000000;   // blocks with the trigger in their middle
inline constexpr uint32_t kTriggerRandomManual = 0x7000000;   // blocks with after-frames
inline constexpr uint32_t kTriggerTwoStage = 0x8000000;       // .. 0x8000003: slow stage, then full rate
inline constexpr uint32_t kTriggerStartAlternate = 0x9000000; // as start
inline constexpr uint32_t kTriggerRecordOnCommand = 0x10000000; // each trigger takes a burst of after-frames
inline constexpr uint32_t kTriggerRandomPreTrigger = 0x11000000; // blocks ending after-frames past the trigger

inline bool IsTwoStage(uint32_t mode) { return (mode & ~3u) == kTriggerTwoStage; }

// IRIG time of camera time 0: noon of day 100 of the year, in microseconds.
inline constexpr uint64_t kIrigEpochMicros = (100ull * 86400 + 12 * 3600) * 1000000;

// The session's life on the camera: arm, bring up to date, and end it
// (when done, or cut short by a status write), storing each head's recording.
void Arm(CameraState* camera, double now);
void Refresh(CameraState* camera, double now);
void Conclude(CameraState* camera, double now);

Session StartSession(const CameraState& camera, double now);
void Endless(Session* session, double now);
void TriggerIn(Session* session, double now);
// Brings the captures up to now; true when every head is done.
bool Advance(Session* session, double now);
// What code 0 reads while the session runs.
uint32_t SessionStatus(const Session& session);
// Frames a head holds so far.
uint32_t FramesSoFar(const Session& session, const Capture& capture, double now);
// Ends a head's capture at now: the recording it holds, or nothing when it took no frame.
std::optional<Recording> FinishCapture(const Session& session, const Capture& capture, double now,
                                       const CameraState& camera, const HeadState& head);

// The after-frames code 6 reports for the present settings of head 1.
uint32_t ReportedAfterFrames(const CameraState& camera);

// Frame numbers of a recording, as the library derives them from the
// trigger words and code 42: first and last number, frame 0 skipped when the
// camera has none.
struct FrameRange {
    int32_t start = 1;
    int32_t end = 0;
};
FrameRange RangeOf(const Recording& recording);
int32_t NumberOfOrdinal(const Recording& recording, uint32_t ordinal);
// A module frame index (frames 0.. first, then those before 0) to the
// position in the recording; false when no frame has that index.
bool OrdinalOfIndex(const Recording& recording, uint32_t index, uint32_t* ordinal, int32_t* number);
int64_t AbsoluteOfOrdinal(const Recording& recording, uint32_t ordinal);

// The values of lists 23, 30 and 49.
std::vector<uint32_t> EventFrameList(const Recording& recording);
std::vector<uint32_t> EventBlockList(const Recording& recording);
std::vector<uint32_t> TriggerFrameList(const Recording& recording);

// Sign-magnitude word of a frame number: bit 31 set for negatives.
uint32_t SignMagnitude(int32_t value);

}  // namespace vcam
