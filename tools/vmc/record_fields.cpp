#include "record_fields.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <type_traits>

#include <vmc/vmc.h>

#include "links.h"
#include "trigger_modes.h"

namespace vmctool {
namespace {

template <typename Field>
constexpr Member MemberOf(const char* key, size_t offset) {
    using Element = std::remove_all_extents_t<Field>;
    constexpr size_t count = std::extent_v<Field> ? std::extent_v<Field> : 1;
    return {key, static_cast<uint32_t>(offset), sizeof(Element), std::is_signed_v<Element>,
            static_cast<uint16_t>(count)};
}

#define MEMBER(field) MemberOf<decltype(RECORD::field)>(#field, offsetof(RECORD, field))
#define ALWAYS Shown::kAlways, 0
#define FILLED Shown::kFilled, 0
#define IF(flag) Shown::kFlag, offsetof(RECORD, flag)
#define FIELD(group, label, field, format, shown) {group, label, Format::k##format, shown, MEMBER(field), {}},
#define PAIR(group, label, first, second, format, shown) \
    {group, label, Format::k##format, shown, MEMBER(first), MEMBER(second)},

#define RECORD DeviceRecord
constexpr FieldRow kDeviceFields[] = {
#include "device_fields.def"
};
#undef RECORD

#define RECORD ChildRecord
constexpr FieldRow kChildFields[] = {
#include "child_fields.def"
};
#undef RECORD

#undef PAIR
#undef FIELD
#undef IF
#undef FILLED
#undef ALWAYS
#undef MEMBER

constexpr uint64_t kNoSerial = ~0ull;  // what a record holds when the camera gave no serial number

const uint8_t* Bytes(const void* record, const Member& member) {
    return static_cast<const uint8_t*>(record) + member.offset;
}

// Element i of a member, widened; a signed element is sign-extended.
uint64_t Element(const Member& member, const void* record, uint32_t i) {
    const uint8_t* at = Bytes(record, member) + i * member.width;
    switch (member.width) {
        case 1: {
            uint8_t value;
            std::memcpy(&value, at, 1);
            return member.isSigned ? static_cast<uint64_t>(static_cast<int8_t>(value)) : value;
        }
        case 4: {
            uint32_t value;
            std::memcpy(&value, at, 4);
            return member.isSigned ? static_cast<uint64_t>(static_cast<int32_t>(value)) : value;
        }
        default: {
            uint64_t value;
            std::memcpy(&value, at, 8);
            return value;
        }
    }
}

std::string Name(const Member& member, const void* record) {
    const char* text = reinterpret_cast<const char*>(Bytes(record, member));
    return std::string(text, strnlen(text, member.count));
}

bool IsEmpty(const FieldRow& row, const Member& member, const void* record) {
    if (row.format == Format::kSerial) return Element(member, record, 0) == kNoSerial || Element(member, record, 0) == 0;
    for (uint32_t i = 0; i < member.count; ++i)
        if (Element(member, record, i) != 0) return false;
    return true;
}

std::string Decimal(uint64_t value, bool isSigned) {
    return isSigned ? std::to_string(static_cast<int64_t>(value)) : std::to_string(value);
}

std::string Hex(uint64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%08llX", static_cast<unsigned long long>(value));
    return text;
}

std::string MemberText(const FieldRow& row, const Member& member, const void* record) {
    if (row.format == Format::kName) return Name(member, record);
    if (row.format == Format::kAddress) {
        // The address word is an IPv4 address on the addressed links and the detected id elsewhere.
        const uint32_t link = static_cast<const DeviceRecord*>(record)->interfaceCode;
        const uint64_t word = Element(member, record, 0);
        return IsAddressed(link) ? FormatIPv4(static_cast<uint32_t>(word)) : std::to_string(word);
    }
    // A pair is "first x second": the unit, if any, would say nothing more.
    const Format format = row.format == Format::kSize ? Format::kNumber : row.format;
    std::string text;
    for (uint32_t i = 0; i < member.count; ++i) {
        if (i) text += ", ";
        text += FormatValue(format, Element(member, record, i), member.isSigned);
    }
    return text;
}

}  // namespace

std::span<const FieldRow> DeviceFields() { return kDeviceFields; }
std::span<const FieldRow> ChildFields() { return kChildFields; }

bool IsShown(const FieldRow& row, const void* record) {
    switch (row.shown) {
        case Shown::kAlways: return true;
        case Shown::kFlag: return static_cast<const uint8_t*>(record)[row.flagOffset] != 0;
        case Shown::kFilled: break;
    }
    return !IsEmpty(row, row.first, record) || (row.second.key && !IsEmpty(row, row.second, record));
}

std::string Text(const FieldRow& row, const void* record) {
    std::string text = MemberText(row, row.first, record);
    if (row.second.key) text += " x " + MemberText(row, row.second, record);
    return text;
}

nlohmann::ordered_json Json(const FieldRow& row, const Member& member, const void* record) {
    if (row.format == Format::kName) return Name(member, record);
    if (row.format == Format::kSerial && Element(member, record, 0) == kNoSerial) return nullptr;
    const auto value = [&](uint32_t i) -> nlohmann::ordered_json {
        const uint64_t element = Element(member, record, i);
        if (member.isSigned) return static_cast<int64_t>(element);
        return element;
    };
    if (member.count == 1) return value(0);
    nlohmann::ordered_json values = nlohmann::ordered_json::array();
    for (uint32_t i = 0; i < member.count; ++i) values.push_back(value(i));
    return values;
}

bool Differs(const Member& member, const void* before, const void* after) {
    return std::memcmp(Bytes(before, member), Bytes(after, member), size_t{member.width} * member.count) != 0;
}

std::string FormatValue(Format format, uint64_t value, bool isSigned) {
    switch (format) {
        case Format::kHex: return Hex(value);
        case Format::kLink: return LinkName(static_cast<uint32_t>(value));
        case Format::kTriggerMode: return Hex(value) + " (" + TriggerModeName(static_cast<uint32_t>(value)) + ")";
        case Format::kSerial: return value == kNoSerial ? "none" : std::to_string(value);
        case Format::kFps: return Decimal(value, isSigned) + " fps";
        case Format::kShutter: return "1/" + Decimal(value, isSigned) + " s";
        case Format::kUsec: return Decimal(value, isSigned) + " µs";
        case Format::kNsec: return Decimal(value, isSigned) + " ns";
        case Format::kBits: return Decimal(value, isSigned) + " bit";
        case Format::kSize: return std::to_string(value >> 16 & 0xFFFF) + " x " + std::to_string(value & 0xFFFF);
        case Format::kNumber:
        case Format::kName:
        case Format::kAddress: break;
    }
    return Decimal(value, isSigned);
}

}  // namespace vmctool
