#include "ranges.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "errors.h"

namespace vmctool {
namespace {

using DeviceListCall = uint32_t (*)(uint32_t deviceNo, uint32_t* count, uint32_t* list, uint32_t* error);
using HeadListCall = uint32_t (*)(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* list,
                                  uint32_t* error);

constexpr uint32_t kAlwaysAsked = ~0u;  // flag offset of a list every camera is asked

struct List {
    const char* key;
    const char* label;
    DeviceListCall deviceCall;  // one of the two
    HeadListCall headCall;
    Format format;
    uint32_t flagOffset;  // kAlwaysAsked, or the availability flag in the record
};

#define ALWAYS kAlwaysAsked
#define IF(flag) offsetof(RECORD, flag)
#define NO_LIST(key, label, call, format, asked)

#define RECORD DeviceRecord
#define DEVICE_LIST(key, label, call, format, asked) {#key, label, call, nullptr, Format::k##format, asked},
#define HEAD_LIST NO_LIST
constexpr List kDeviceLists[] = {
#include "ranges.def"
};
#undef HEAD_LIST
#undef DEVICE_LIST
#undef RECORD

#define RECORD ChildRecord
#define DEVICE_LIST NO_LIST
#define HEAD_LIST(key, label, call, format, asked) {#key, label, nullptr, call, Format::k##format, asked},
constexpr List kHeadLists[] = {
#include "ranges.def"
};
#undef HEAD_LIST
#undef DEVICE_LIST
#undef RECORD

#undef NO_LIST
#undef IF
#undef ALWAYS

std::vector<ListAnswer> Ask(std::span<const List> lists, uint32_t deviceNo, uint32_t childNo, const void* record) {
    std::vector<ListAnswer> answers;
    for (const List& list : lists) {
        ListAnswer& answer = answers.emplace_back(ListAnswer{list.key, list.label, list.format, false, {}});
        if (list.flagOffset != kAlwaysAsked && static_cast<const uint8_t*>(record)[list.flagOffset] == 0) continue;
        // The library passes the module no size: give room for the most any camera reports.
        answer.values.assign(VMC_MAX_LIST_ENTRIES, 0);
        uint32_t count = 0, error = 0;
        const bool ok = list.headCall ? list.headCall(deviceNo, childNo, &count, answer.values.data(), &error)
                                      : list.deviceCall(deviceNo, &count, answer.values.data(), &error);
        if (ok) {
            answer.answered = true;
            answer.values.resize(std::min(count, VMC_MAX_LIST_ENTRIES));
            continue;
        }
        answer.values.clear();
        if (error == VMC_ERR_NOT_SUPPORTED) continue;  // the camera keeps no such list
        const std::string whose = childNo ? "head " + std::to_string(childNo) : "the camera";
        throw Failure("reading the " + std::string(list.label) + " of " + whose + " failed: " + ExplainError(error));
    }
    return answers;
}

}  // namespace

std::vector<ListAnswer> AskDeviceLists(uint32_t deviceNo, const DeviceRecord& record) {
    return Ask(kDeviceLists, deviceNo, 0, &record);
}

std::vector<ListAnswer> AskHeadLists(uint32_t deviceNo, uint32_t childNo, const ChildRecord& record) {
    return Ask(kHeadLists, deviceNo, childNo, &record);
}

}  // namespace vmctool
