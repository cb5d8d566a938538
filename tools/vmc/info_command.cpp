// vmc info: the whole model the library keeps of one camera and its heads:
// the settings of the records, the ranges the camera offers now, and what
// it can and cannot do.
//
// The JSON holds every field, list and function always, under stable keys;
// the text shows what is there: a field when the camera has its function
// (or, for fields without one, when it holds something), a list the camera
// answered. A head's text lists only the functions that are its own or that
// differ from the camera's; the JSON has them all.
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "camera_records.h"
#include "commands.h"
#include "functions.h"
#include "links.h"
#include "ranges.h"
#include "record_fields.h"
#include "text_report.h"

namespace vmctool {
namespace {

constexpr char kRanges[] = "ranges";

struct Model {
    std::vector<ListAnswer> lists;
    std::vector<FunctionAnswer> functions;
};

// Names come from camera modules and need not be UTF-8: the JSON text replaces what isn't.
std::string Dump(const nlohmann::ordered_json& value) {
    return value.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

nlohmann::ordered_json ListJson(const ListAnswer& list) {
    if (!list.answered) return nullptr;
    nlohmann::ordered_json values = nlohmann::ordered_json::array();
    for (uint32_t value : list.values) {
        if (list.format == Format::kSize)
            values.push_back({{"width", value >> 16}, {"height", value & 0xFFFF}});
        else
            values.push_back(value);
    }
    return values;
}

nlohmann::ordered_json ModelJson(std::span<const FieldRow> fields, const void* record, const Model& model) {
    nlohmann::ordered_json result = nlohmann::ordered_json::object();
    nlohmann::ordered_json ranges = nlohmann::ordered_json::object();
    for (const FieldRow& row : fields) {
        nlohmann::ordered_json& target = std::string(row.group) == kRanges ? ranges : result;
        target[row.first.key] = Json(row, row.first, record);
        if (row.second.key) target[row.second.key] = Json(row, row.second, record);
    }
    for (const ListAnswer& list : model.lists) ranges[list.key] = ListJson(list);
    nlohmann::ordered_json functions = nlohmann::ordered_json::object();
    for (const FunctionAnswer& function : model.functions) functions[function.key] = function.present;
    result[kRanges] = ranges;
    result["functions"] = functions;
    return result;
}

// `shared`: the camera's own answers, to leave out of a head's text what the head merely repeats.
void AddModelText(TextReport* report, std::span<const FieldRow> fields, const void* record, const Model& model,
                  const std::vector<FunctionAnswer>* shared) {
    for (const FieldRow& row : fields)  // the name heads the text, not a row of it
        if (row.format != Format::kName && IsShown(row, record)) report->Add(row.group, row.label, Text(row, record));
    for (const ListAnswer& list : model.lists) {
        if (!list.answered || list.values.empty()) continue;
        std::vector<std::string> items;
        for (uint32_t value : list.values) items.push_back(FormatValue(list.format, value));
        report->Add(kRanges, list.label, JoinList(items));
    }
    std::vector<std::string> can, cannot;
    for (const FunctionAnswer& function : model.functions) {
        bool repeated = false;
        if (shared)
            for (const FunctionAnswer& camera : *shared)
                repeated |= camera.index == function.index && camera.present == function.present;
        if (!repeated) (function.present ? can : cannot).push_back(function.label);
    }
    if (!can.empty()) report->Add("functions", "can", JoinAll(can));
    if (!cannot.empty()) report->Add("functions", "cannot", JoinAll(cannot));
}

}  // namespace

int RunInfo(const LinkOptions& link, uint32_t index, bool json) {
    const Detection detection = Detect(link);
    const OpenCamera camera(detection, index);
    const CameraRecords records = ReadRecords(camera.deviceNo(), index);

    const Model device{AskDeviceLists(camera.deviceNo(), records.device), AskFunctions(camera.deviceNo(), 0)};
    std::vector<Model> heads;
    for (const HeadRecord& head : records.heads)
        heads.push_back({AskHeadLists(camera.deviceNo(), head.number, head.record),
                         AskFunctions(camera.deviceNo(), head.number)});

    if (json) {
        nlohmann::ordered_json result = {{"index", index}, {"interface", LinkName(records.device.interfaceCode)}};
        result.update(ModelJson(DeviceFields(), &records.device, device));
        result["heads"] = nlohmann::ordered_json::array();
        for (size_t i = 0; i < heads.size(); ++i) {
            nlohmann::ordered_json head = {{"number", records.heads[i].number}};
            head.update(ModelJson(ChildFields(), &records.heads[i].record, heads[i]));
            result["heads"].push_back(head);
        }
        std::printf("%s\n", Dump(result).c_str());
        return 0;
    }

    TextReport deviceText;
    AddModelText(&deviceText, DeviceFields(), &records.device, device, nullptr);
    deviceText.Print("camera " + std::to_string(index) + ": " + RecordName(records.device.deviceName));
    for (size_t i = 0; i < heads.size(); ++i) {
        const HeadRecord& head = records.heads[i];
        TextReport headText;
        AddModelText(&headText, ChildFields(), &head.record, heads[i], &device.functions);
        headText.Print("head " + std::to_string(head.number) + ": " + RecordName(head.record.childName));
    }
    return 0;
}

}  // namespace vmctool
