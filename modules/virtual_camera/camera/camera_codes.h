// The camera's vocabulary as tables: each setting, list and data code with
// the functions that answer it, grouped by subject in camera_*_codes.cpp.
// camera.cpp finds the entry, checks the child and the feature, and calls it
// with the camera's lock held.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "camera/camera_state.h"

namespace vcam {

// What an answer describes: the live settings, or those of a recording
// (the shown one in memory playback, a given partition in memory-mode queries).
struct View {
    const Settings* settings = nullptr;
    const Trigger* trigger = nullptr;      // null: the device's live words
    const Recording* recording = nullptr;  // the recording the memory codes describe; may be null
    uint32_t partition = 1;
};

// One call, under the lock.
struct Access {
    CameraState& camera;
    uint32_t code;        // the setting, list or data code asked
    uint32_t child;       // as asked: 0 is the device
    HeadState* head;      // the head addressed; child 0 gives head 1; null on a camera without heads
    View view;
    double now;           // camera seconds
};

// Device codes answer for any child; head codes need a head, and a write
// to child 0 goes to every head.
enum class Scope { Device, Head };

// A code exists when its feature is present (none: always) and, for side
// data, when the profile records that kind.
struct Gate {
    const char* feature = nullptr;
    bool SideData::*side = nullptr;
};
bool Open(const CameraState& camera, const Gate& gate);

using CodeGet = uint32_t (*)(const Access& access, uint32_t sub, uint32_t* value1, uint32_t* value2);
using CodeSet = uint32_t (*)(Access& access, uint32_t sub, uint32_t value1, uint32_t value2);
using ListGet = uint32_t (*)(const Access& access, uint32_t sub, std::vector<uint32_t>* list);
using DataGet = uint32_t (*)(const Access& access, uint32_t index, int32_t count, std::vector<uint8_t>* data,
                             std::vector<uint8_t>* extra);

struct CodeEntry {
    uint32_t code;
    Scope scope;
    Gate gate;
    CodeGet get;             // null: not readable
    CodeSet set;             // null: not writable
    bool shapesRecording;    // a write is refused while a recording runs
};

struct ListEntry {
    uint32_t list;
    Scope scope;
    Gate gate;
    ListGet get;
};

struct DataEntry {
    uint32_t code;
    Gate gate;
    DataGet get;
};

std::span<const CodeEntry> IdentityCodes();
std::span<const CodeEntry> SettingCodes();
std::span<const CodeEntry> RecordingCodes();
std::span<const CodeEntry> PartitionCodes();
std::span<const CodeEntry> ModeCodes();
std::span<const ListEntry> IdentityLists();
std::span<const ListEntry> SettingLists();
std::span<const ListEntry> RecordingLists();
std::span<const ListEntry> PartitionLists();
std::span<const ListEntry> ModeLists();
std::span<const DataEntry> SideDataCodes();
std::span<const CodeEntry> SideDataSettingCodes();
std::span<const ListEntry> SideDataLists();

// Shared helpers of the tables.
uint32_t Answer(uint32_t* value1, uint32_t* value2, uint32_t first, uint32_t second = 0);
const Settings& SettingsOf(const Access& access);
const Trigger& TriggerOf(const Access& access);
// Frames the head's current partition holds at its live settings.
uint32_t MaxFrames(const HeadState& head);
// Stored modes at their initial values.
void InitialModes(CameraState* camera);
// A change of the live settings: clamps what depends on them.
void SettingsChanged(const CameraState& camera, HeadState* head);

}  // namespace vcam
