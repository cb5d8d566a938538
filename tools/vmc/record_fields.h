// The fields of the device and head records as the tool shows them, from
// the tables device_fields.def and child_fields.def: when a row is worth
// showing, its value in words and in JSON, and whether it changed between
// two reads of a record. vmc info and vmc status share them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <nlohmann/json.hpp>

namespace vmctool {

// How the text shows a value; JSON always carries the plain number.
enum class Format : uint8_t {
    kNumber,       // 1234, or -5 for a signed field
    kHex,          // 0x000004D2
    kName,         // a zero-terminated name
    kLink,         // an interface code, by the tool's link name
    kAddress,      // an IPv4 address on the addressed links, else a number
    kTriggerMode,  // 0x01000000 (centre)
    kSerial,       // a number; all ones means the camera gave none
    kFps,          // 1000 fps
    kShutter,      // 1/1000 s
    kUsec,         // 20 µs
    kNsec,         // 20000 ns
    kBits,         // 12 bit
    kSize,         // 1280 x 800: a pair, or a packed list entry
};

enum class Shown : uint8_t {
    kAlways,  // a field every camera has
    kFilled,  // shown when not 0
    kFlag,    // shown when the camera has the function of flagOffset
};

// One field of a record, by place: a number, an array of them, or a name.
struct Member {
    const char* key;  // the field's name in the record and in the JSON
    uint32_t offset;
    uint8_t width;    // bytes of one element: 1, 4 or 8
    bool isSigned;
    uint16_t count;   // elements: 1 for a plain field
};

struct FieldRow {
    const char* group;
    const char* label;
    Format format;
    Shown shown;
    uint32_t flagOffset;
    Member first;
    Member second;  // key null unless the row shows a pair
};

std::span<const FieldRow> DeviceFields();
std::span<const FieldRow> ChildFields();

// `record` is a DeviceRecord for the device rows and a ChildRecord for the
// head rows.
bool IsShown(const FieldRow& row, const void* record);
std::string Text(const FieldRow& row, const void* record);
nlohmann::ordered_json Json(const FieldRow& row, const Member& member, const void* record);
bool Differs(const Member& member, const void* before, const void* after);

// One value as the text shows it.
std::string FormatValue(Format format, uint64_t value, bool isSigned = false);

}  // namespace vmctool
