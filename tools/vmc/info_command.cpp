// vmc info: what the library knows about one camera, from its records.
//
// Each field goes into the JSON object always and into the text when it
// holds something: records fill in as the library and the camera grow, and
// a person reading the text wants what is there, not rows of zeros.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "commands.h"
#include "errors.h"
#include "links.h"
#include "trigger_modes.h"

namespace vmctool {
namespace {

constexpr uint64_t kNoAnswer = ~0ull;  // a serial number the camera did not give

class Report {
public:
    // A field every camera has: shown even when 0.
    void Always(const char* key, const char* label, const nlohmann::json& value, const std::string& text) {
        json_[key] = value;
        rows_.push_back({label, text});
    }
    void Always(const char* key, const char* label, uint64_t value) {
        Always(key, label, value, std::to_string(value));
    }
    // A field shown when filled.
    void Filled(const char* key, const char* label, uint64_t value, const std::string& text) {
        json_[key] = value;
        if (value) rows_.push_back({label, text});
    }
    void Filled(const char* key, const char* label, uint64_t value) {
        Filled(key, label, value, std::to_string(value));
    }
    void Size(const char* widthKey, const char* heightKey, const char* label, uint32_t width, uint32_t height) {
        json_[widthKey] = width;
        json_[heightKey] = height;
        if (width && height) rows_.push_back({label, std::to_string(width) + " x " + std::to_string(height)});
    }
    void Serial(uint64_t serial) {
        json_["serialNumber"] = serial == kNoAnswer ? nlohmann::json() : nlohmann::json(serial);
        if (serial && serial != kNoAnswer) rows_.push_back({"serial number", std::to_string(serial)});
    }
    void Json(const char* key, const nlohmann::json& value) { json_[key] = value; }

    const nlohmann::json& json() const { return json_; }
    void Print() const {
        for (const Row& row : rows_) std::printf("  %-22s %s\n", row.label.c_str(), row.text.c_str());
    }

private:
    struct Row {
        std::string label, text;
    };
    nlohmann::json json_ = nlohmann::json::object();
    std::vector<Row> rows_;
};

// A name field of a record: zero-terminated within its 256 bytes.
std::string Name(const char (&field)[VMC_NAME_SIZE]) { return std::string(field, strnlen(field, sizeof field)); }

// Names come from camera modules and need not be UTF-8: the JSON text replaces what isn't.
std::string Dump(const nlohmann::json& value) { return value.dump(2, ' ', false, nlohmann::json::error_handler_t::replace); }

std::string Hex(uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", value);
    return text;
}

Report DeviceReport(const DeviceRecord& record, uint32_t index) {
    Report report;
    report.Json("index", index);
    report.Json("name", Name(record.deviceName));
    report.Always("deviceCode", "device code", record.deviceCode);
    if (IsAddressed(record.interfaceCode))
        report.Always("deviceId", "address", record.deviceId, FormatIPv4(record.deviceId));
    else
        report.Always("deviceId", "device id", record.deviceId);
    report.Always("interface", "link", LinkName(record.interfaceCode), LinkName(record.interfaceCode));
    report.Always("productId", "product id", record.productId);
    report.Always("lotId", "lot id", record.lotId);
    report.Always("individualId", "individual id", record.individualId);
    report.Always("version", "version", record.version);
    report.Serial(record.serialNumber);
    report.Json("headCount", record.childDeviceCount);
    report.Always("maxHeads", "heads", record.maxChildDeviceCount,
                  std::to_string(record.childDeviceCount) + " of at most " +
                      std::to_string(record.maxChildDeviceCount));
    const std::string mode = TriggerModeName(record.triggerMode);
    report.Always("triggerMode", "trigger mode",
                  {{"value", record.triggerMode}, {"name", mode}, {"afterFrames", record.triggerAfterFrames}},
                  Hex(record.triggerMode) + " (" + mode + "), " + std::to_string(record.triggerAfterFrames) +
                      " frames after the trigger");
    return report;
}

Report HeadReport(const ChildRecord& child, uint32_t number) {
    Report report;
    report.Json("number", number);
    report.Json("name", Name(child.childName));
    report.Size("width", "height", "resolution", child.width, child.height);
    report.Size("maxWidth", "maxHeight", "largest resolution", child.maxWidth, child.maxHeight);
    report.Filled("recordRate", "record rate", child.recordRate, std::to_string(child.recordRate) + " fps");
    report.Filled("maxFullResolutionRate", "full resolution up to", child.maxFullResoRate,
                  std::to_string(child.maxFullResoRate) + " fps");
    report.Filled("shutterFps", "shutter", child.shutterFps, "1/" + std::to_string(child.shutterFps) + " s");
    report.Filled("shutterUsec", "shutter", child.shutterUsec, std::to_string(child.shutterUsec) + " µs");
    report.Filled("shutterNsec", "shutter", child.shutterNsec, std::to_string(child.shutterNsec) + " ns");
    report.Filled("maxFrames", "frames in memory", child.maxFrames);
    report.Filled("maxPartitions", "partitions at most", child.maxPartition);
    report.Filled("bitDepth", "bit depth", child.bitDepth);
    report.Filled("maxBitDepth", "largest bit depth", child.maxBitDepth);
    report.Filled("colorType", "colour type", child.colorType);
    report.Filled("productId", "product id", child.productId);
    report.Filled("lotId", "lot id", child.lotId);
    report.Filled("individualId", "individual id", child.individualId);
    report.Filled("version", "version", child.version);
    report.Serial(child.serialNumber);
    return report;
}

}  // namespace

int RunInfo(const LinkOptions& link, uint32_t index, bool json) {
    const Detection detection = Detect(link);
    const OpenCamera camera(detection, index);

    // The records are large; one of each is enough for a command.
    static DeviceRecord record;
    static ChildRecord child;
    uint32_t error = 0;
    if (!VMC_GetDeviceInfo(camera.deviceNo(), &record, &error))
        throw Failure("reading the record of camera " + std::to_string(index) + " failed: " + ExplainError(error));

    Report device = DeviceReport(record, index);
    std::vector<Report> heads;
    for (uint32_t number = 1; number <= record.maxChildDeviceCount && number <= VMC_MAX_CHILDREN; ++number)
        if (VMC_GetChildInfo(camera.deviceNo(), number, &child, &error)) heads.push_back(HeadReport(child, number));

    if (json) {
        nlohmann::json result = device.json();
        result["heads"] = nlohmann::json::array();
        for (const Report& head : heads) result["heads"].push_back(head.json());
        std::printf("%s\n", Dump(result).c_str());
        return 0;
    }
    std::printf("camera %u: %s\n", index, Name(record.deviceName).c_str());
    device.Print();
    for (const Report& head : heads) {
        std::printf("head %u: %s\n", head.json()["number"].get<uint32_t>(),
                    head.json()["name"].get<std::string>().c_str());
        head.Print();
    }
    return 0;
}

}  // namespace vmctool
