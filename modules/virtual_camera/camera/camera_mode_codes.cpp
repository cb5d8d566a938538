// Modes the camera only keeps: each is a value from a fixed set (or any
// value), with the list that offers the set. The camera has them when the
// profile gives it their feature.
#include <algorithm>
#include <vector>

#include "camera/camera_codes.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

constexpr uint32_t kNoList = 0xFFFFFFFFu;

struct ModeRule {
    uint32_t code;
    Scope scope;
    const char* feature;
    uint32_t list;                    // the list offering the choices, or kNoList
    uint32_t initial;
    std::vector<uint32_t> choices;    // empty: any value
    bool writable;
};

const std::vector<ModeRule>& Rules() {
    static const std::vector<ModeRule> rules = {
        {VMC_CODE_SENSOR_GAIN_MODE, Scope::Head, "sensorGain", VMC_LIST_SENSOR_GAIN_MODE, 1, {1, 2, 4}, true},
        {VMC_CODE_EDGE_ENHANCE_MODE, Scope::Head, "edgeEnhance", VMC_LIST_EDGE_ENHANCE_MODE, 1, {1, 2, 3}, true},
        {VMC_CODE_SHADING_MODE, Scope::Head, "shading", VMC_LIST_SHADING_MODE, 1, {1, 2}, true},
        {VMC_CODE_LUT_MODE, Scope::Head, "lut", VMC_LIST_LUT_MODE, 1, {1, 2, 3, 4}, true},
        {VMC_CODE_PIXEL_GAIN_MODE, Scope::Head, "pixelGain", VMC_LIST_PIXEL_GAIN_MODE, 0, {0, 1}, true},
        {VMC_CODE_AUTO_EXPOSURE, Scope::Head, "autoExposure", kNoList, 0, {0, 1}, true},
        {VMC_CODE_COLOR_TEMP_MODE, Scope::Head, "colourTemperature", VMC_LIST_COLOR_TEMP_MODE, 1, {1, 2, 3}, true},
        {VMC_CODE_COLOR_TEMP_VALUE_1, Scope::Head, "colourTemperature", kNoList, 5600, {}, true},
        {VMC_CODE_COLOR_TEMP_VALUE_2, Scope::Head, "colourTemperature", kNoList, 1024, {}, true},
        {VMC_CODE_COLOR_TEMP_VALUE_3, Scope::Head, "colourTemperature", kNoList, 1024, {}, true},
        {VMC_CODE_IRIG_MODE, Scope::Device, "irig", kNoList, 0, {0, 1}, true},
        {VMC_CODE_IRIG_OFFSET, Scope::Device, "irig", kNoList, 0, {}, true},
        {VMC_CODE_MCDL_MODE, Scope::Device, "mcdl", kNoList, 0, {0, 1}, true},
        {VMC_CODE_ADC_MODE, Scope::Device, "adc", kNoList, 0, {0, 1}, true},
        {VMC_CODE_LOW_LIGHT_MODE, Scope::Device, "lowLight", kNoList, 0, {0, 1}, true},
        {VMC_CODE_BURST_TRANSFER, Scope::Device, "burstTransfer", kNoList, 0, {0, 1}, true},
        {VMC_CODE_READ_AHEAD_TRANSFER, Scope::Device, "readAhead", kNoList, 0, {0, 1}, true},
        {VMC_CODE_SUB_PORT, Scope::Device, "subInterface", kNoList, 1, {1}, false},
        {VMC_CODE_SUB_INTERFACE_MODE, Scope::Device, "subInterface", kNoList, 0, {0, 1}, true},
        {VMC_CODE_HEAD_EXCHANGE, Scope::Device, "headExchange", VMC_LIST_HEAD_EXCHANGE, 1, {1}, true},
    };
    return rules;
}

const ModeRule& RuleOf(uint32_t code) {
    const auto& rules = Rules();
    return *std::find_if(rules.begin(), rules.end(), [&](const ModeRule& rule) { return rule.code == code; });
}

const ModeRule& RuleOfList(uint32_t list) {
    const auto& rules = Rules();
    return *std::find_if(rules.begin(), rules.end(), [&](const ModeRule& rule) { return rule.list == list; });
}

std::map<uint32_t, uint32_t>& Store(const Access& access, Scope scope) {
    return scope == Scope::Head ? access.head->modes : access.camera.modes;
}

uint32_t GetMode(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const ModeRule& rule = RuleOf(access.code);
    return Answer(value1, value2, Store(access, rule.scope)[rule.code]);
}

uint32_t SetMode(Access& access, uint32_t, uint32_t value, uint32_t) {
    const ModeRule& rule = RuleOf(access.code);
    if (!rule.choices.empty() && std::find(rule.choices.begin(), rule.choices.end(), value) == rule.choices.end())
        return VMC_ERR_BAD_ARGUMENT;
    Store(access, rule.scope)[rule.code] = value;
    return VMC_ERR_OK;
}

uint32_t ListMode(const Access& access, uint32_t, std::vector<uint32_t>* list) {
    *list = RuleOfList(access.code).choices;
    return VMC_ERR_OK;
}

// What a present feature opens is what the rules say; the entries are built once from them.
std::vector<CodeEntry> BuildCodes() {
    std::vector<CodeEntry> entries;
    for (const ModeRule& rule : Rules())
        entries.push_back({rule.code, rule.scope, {rule.feature, nullptr}, GetMode, rule.writable ? SetMode : nullptr,
                           false});
    return entries;
}

std::vector<ListEntry> BuildLists() {
    std::vector<ListEntry> entries;
    for (const ModeRule& rule : Rules())
        if (rule.list != kNoList) entries.push_back({rule.list, rule.scope, {rule.feature, nullptr}, ListMode});
    return entries;
}

// Colour temperature base: the range the values move in.
uint32_t GetColourTemperatureBase(const Access&, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, 2000, 12000);
}

std::vector<CodeEntry> AllCodes() {
    std::vector<CodeEntry> entries = BuildCodes();
    entries.push_back({VMC_CODE_COLOR_TEMP_BASE, Scope::Head, {"colourTemperature", nullptr},
                       GetColourTemperatureBase, nullptr, false});
    return entries;
}

}  // namespace

std::span<const CodeEntry> ModeCodes() {
    static const std::vector<CodeEntry> entries = AllCodes();
    return entries;
}

std::span<const ListEntry> ModeLists() {
    static const std::vector<ListEntry> entries = BuildLists();
    return entries;
}

void InitialModes(CameraState* camera) {
    for (const ModeRule& rule : Rules()) {
        if (rule.scope == Scope::Device) camera->modes[rule.code] = rule.initial;
        else
            for (HeadState& head : camera->heads) head.modes[rule.code] = rule.initial;
    }
}

}  // namespace vcam
