// Reading a profile file. The reader is strict: an unknown key, a value of
// the wrong type or a value no camera could have is refused with the place
// it was found, because a typo that passed silently would leave a test
// running against a camera nobody asked for.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>

#include <vmc/module_files.h>

#include "camera/features.h"
#include "camera/profile.h"
#include "camera/profile_json_reader.h"

namespace vcam {
namespace {

using namespace profile_json;

ColourLayout Colour(const Node& node) {
    static const std::pair<std::string_view, ColourLayout> kColours[] = {
        {"mono", ColourLayout::Mono},
        {"bayer-rggb", ColourLayout::BayerRGGB},
        {"bayer-grbg", ColourLayout::BayerGRBG},
        {"bayer-gbrg", ColourLayout::BayerGBRG},
        {"bayer-bggr", ColourLayout::BayerBGGR}};
    const std::string name = String(node);
    for (const auto& [text, colour] : kColours)
        if (name == text) return colour;
    node.Fail("unknown colour " + Quoted(name));
}

FaultKind Kind(const Node& node) {
    static const std::pair<std::string_view, FaultKind> kKinds[] = {
        {"unsupported", FaultKind::Unsupported},       {"fail", FaultKind::Fail},
        {"fail-after", FaultKind::FailAfter},          {"link-drop-after", FaultKind::LinkDropAfter},
        {"link-drop-at", FaultKind::LinkDropAt},       {"slow-transfers", FaultKind::SlowTransfers}};
    const std::string name = String(node);
    for (const auto& [text, kind] : kKinds)
        if (name == text) return kind;
    node.Fail("unknown fault kind " + Quoted(name));
}

// The library's own table of module files, so that the two can't disagree.
bool HasDeviceModule(uint32_t code) { return vmc_device_module_file(code) != nullptr; }

// ---- Schema -----------------------------------------------------------------

HeadProfile ReadHead(const Node& node, HeadProfile head) {
    ExpectObject(node, {"name", "typeName", "sensorWidth", "sensorHeight", "bitDepth", "colour", "memoryBytes",
                        "serialNumber", "productId", "version"});
    if (auto n = Member(node, "name")) head.name = String(*n);
    if (auto n = Member(node, "typeName")) head.typeName = String(*n);
    if (auto n = Member(node, "sensorWidth")) head.sensorWidth = Positive(*n);
    if (auto n = Member(node, "sensorHeight")) head.sensorHeight = Positive(*n);
    if (auto n = Member(node, "bitDepth")) head.bitDepth = U32(*n);
    if (auto n = Member(node, "colour")) head.colour = Colour(*n);
    if (auto n = Member(node, "memoryBytes")) head.memoryBytes = Size(*n);
    if (auto n = Member(node, "serialNumber")) head.serialNumber = Unsigned(*n, ~0ull);
    if (auto n = Member(node, "productId")) head.productId = U32(*n);
    if (auto n = Member(node, "version")) head.version = U32(*n);

    // A resolution travels as two 16-bit halves of one word.
    if (head.sensorWidth > 0xFFFF) At(node, "sensorWidth").Fail("at most 65535 pixels");
    if (head.sensorHeight > 0xFFFF) At(node, "sensorHeight").Fail("at most 65535 pixels");
    if (head.bitDepth < 8 || head.bitDepth > 16)
        At(node, "bitDepth").Fail("must be 8 to 16, found " + std::to_string(head.bitDepth));
    if (head.memoryBytes == 0) At(node, "memoryBytes").Fail("must not be 0");
    return head;
}

Fault ReadFault(const Node& node) {
    ExpectObject(node, {"kind", "code", "error", "calls", "seconds", "bytesPerSecond"});
    auto kind = Member(node, "kind");
    if (!kind) node.Fail("a fault needs a \"kind\"");
    Fault fault;
    fault.kind = Kind(*kind);

    // Each kind takes only its own keys: a stray one means the fault is not what its writer thinks.
    std::set<std::string_view> uses;
    switch (fault.kind) {
    case FaultKind::Unsupported: uses = {"code"}; break;
    case FaultKind::Fail: uses = {"code", "error"}; break;
    case FaultKind::FailAfter: uses = {"code", "error", "calls"}; break;
    case FaultKind::LinkDropAfter: uses = {"calls"}; break;
    case FaultKind::LinkDropAt: uses = {"seconds"}; break;
    case FaultKind::SlowTransfers: uses = {"bytesPerSecond"}; break;
    }
    for (const auto& [key, value] : node.value.items())
        if (key != "kind" && !uses.count(key)) node.Key(key).Fail("not used by a " + kind->value.dump() + " fault");

    if (auto n = Member(node, "code")) fault.code = U32(*n);
    if (auto n = Member(node, "error")) fault.error = U32(*n);
    if (auto n = Member(node, "calls")) fault.calls = Unsigned(*n, ~0ull);
    if (auto n = Member(node, "seconds")) fault.seconds = Real(*n);
    if (auto n = Member(node, "bytesPerSecond")) fault.bytesPerSecond = Real(*n);

    const bool namesOneCode = fault.kind == FaultKind::Unsupported || fault.kind == FaultKind::Fail;
    if (namesOneCode && !Member(node, "code")) node.Fail("a " + kind->value.dump() + " fault needs a \"code\"");
    if (fault.error == 1) node.Key("error").Fail("error 1 means success");
    if (fault.kind == FaultKind::SlowTransfers && fault.bytesPerSecond <= 0)
        node.Fail("a \"slow-transfers\" fault needs a \"bytesPerSecond\" above 0");
    return fault;
}

void ReadFeatures(const Node& node, std::map<std::string, bool>* features) {
    if (!node.value.is_object()) node.Fail("expected an object, found " + TypeOf(node.value));
    for (const auto& [name, value] : node.value.items()) {
        const Node feature = node.Key(name);
        if (!IsFeatureName(name)) feature.Fail("unknown feature " + Quoted(name));
        (*features)[name] = Bool(feature);
    }
}

void ReadSideData(const Node& node, SideData* side) {
    ExpectObject(node, {"irig", "mcdl", "adc", "autoExposure", "exposureTime", "temperature", "acceleration"});
    if (auto n = Member(node, "irig")) side->irig = Bool(*n);
    if (auto n = Member(node, "mcdl")) side->mcdl = Bool(*n);
    if (auto n = Member(node, "adc")) side->adc = Bool(*n);
    if (auto n = Member(node, "autoExposure")) side->autoExposure = Bool(*n);
    if (auto n = Member(node, "exposureTime")) side->exposureTime = Bool(*n);
    if (auto n = Member(node, "temperature")) side->temperature = Bool(*n);
    if (auto n = Member(node, "acceleration")) side->acceleration = Bool(*n);
}

CameraProfile BaseCamera(const Node& node) {
    const std::string name = String(node);
    const Profile builtIn = BuiltInProfile();
    if (name == "mono") return builtIn.cameras.at(0);
    if (name == "colour") return builtIn.cameras.at(1);
    node.Fail("unknown base " + Quoted(name) + " (\"mono\" or \"colour\")");
}

// The rules that tie the fields of a camera together.
void CheckCamera(const Node& node, const CameraProfile& camera) {
    if (!HasDeviceModule(camera.deviceCode))
        At(node, "deviceCode").Fail("no device module has the code " + std::to_string(camera.deviceCode));
    if (camera.maxHeads == 0 || camera.maxHeads > 12)
        At(node, "maxHeads").Fail("must be 1 to 12, found " + std::to_string(camera.maxHeads));
    if (camera.heads.empty()) At(node, "heads").Fail("a camera needs at least one head");
    if (camera.heads.size() > camera.maxHeads)
        At(node, "heads").Fail(std::to_string(camera.heads.size()) + " heads, but maxHeads is " +
                               std::to_string(camera.maxHeads));
    if (camera.recordRates.empty()) At(node, "recordRates").Fail("a camera needs at least one record rate");
    if (!std::is_sorted(camera.recordRates.begin(), camera.recordRates.end(), std::less_equal<>()))
        At(node, "recordRates").Fail("must rise strictly");
    if (camera.recordRates.front() == 0) At(node, "recordRates").Fail("must not hold 0");
    if (camera.pixelRate == 0) At(node, "pixelRate").Fail("a camera needs a pixel rate above 0");
    // Some resolution must fit at every rate, else that rate offers nothing.
    const uint64_t fastest = camera.recordRates.back();
    if (uint64_t{camera.minWidth} * camera.minHeight * fastest > camera.pixelRate)
        At(node, "pixelRate").Fail("at " + std::to_string(fastest) + " fps not even " +
                                   std::to_string(camera.minWidth) + " x " + std::to_string(camera.minHeight) +
                                   " fits");
    const auto heads = Member(node, "heads");
    for (size_t i = 0; i < camera.heads.size(); ++i) {
        const HeadProfile& head = camera.heads[i];
        if (head.sensorWidth < camera.minWidth || head.sensorHeight < camera.minHeight)
            (heads ? heads->Item(i) : node).Fail("the sensor is smaller than minWidth x minHeight");
    }
    const std::vector<uint32_t> known = BuiltInProfile().cameras.at(0).triggerModes;  // every known mode
    for (uint32_t mode : camera.triggerModes)
        if (std::find(known.begin(), known.end(), mode) == known.end()) {
            char hex[16];
            std::snprintf(hex, sizeof hex, "0x%X", mode);
            At(node, "triggerModes").Fail("unknown trigger mode " + std::string(hex));
        }
}

CameraProfile ReadCamera(const Node& node) {
    ExpectObject(node, {"base", "name", "deviceCode", "deviceId", "productId", "lotId", "individualId", "version",
                        "serialNumber", "maxHeads", "heads", "recordRates", "pixelRate", "widthStep", "heightStep",
                        "minWidth", "minHeight", "fastestShutter", "triggerModes", "maxPartitions", "features",
                        "sideData", "link", "timeScale", "faults"});
    CameraProfile camera;
    if (auto n = Member(node, "base")) {
        camera = BaseCamera(*n);
    } else {
        if (!Member(node, "deviceCode")) node.Fail("a camera needs a \"deviceCode\"");
        camera.triggerModes = BuiltInProfile().cameras.at(0).triggerModes;  // a camera offers every mode unless told
    }
    if (auto n = Member(node, "name")) camera.name = String(*n);
    if (auto n = Member(node, "deviceCode")) camera.deviceCode = U32(*n);
    if (auto n = Member(node, "deviceId")) camera.deviceId = U32(*n);
    if (auto n = Member(node, "productId")) camera.productId = U32(*n);
    if (auto n = Member(node, "lotId")) camera.lotId = U32(*n);
    if (auto n = Member(node, "individualId")) camera.individualId = U32(*n);
    if (auto n = Member(node, "version")) camera.version = U32(*n);
    if (auto n = Member(node, "serialNumber")) camera.serialNumber = Unsigned(*n, ~0ull);
    if (auto n = Member(node, "maxHeads")) camera.maxHeads = U32(*n);
    if (auto n = Member(node, "heads")) {
        // Head i starts from head i of the base camera, so a base can be adjusted head by head.
        size_t index = 0;
        camera.heads = ArrayOf(*n, [&](const Node& item) {
            const HeadProfile start = index < camera.heads.size() ? camera.heads[index] : HeadProfile{};
            ++index;
            return ReadHead(item, start);
        });
    }
    if (auto n = Member(node, "recordRates")) camera.recordRates = ArrayOf(*n, U32);
    if (auto n = Member(node, "pixelRate")) camera.pixelRate = Unsigned(*n, ~0ull);
    if (auto n = Member(node, "widthStep")) camera.widthStep = Positive(*n);
    if (auto n = Member(node, "heightStep")) camera.heightStep = Positive(*n);
    if (auto n = Member(node, "minWidth")) camera.minWidth = Positive(*n);
    if (auto n = Member(node, "minHeight")) camera.minHeight = Positive(*n);
    if (auto n = Member(node, "fastestShutter")) camera.fastestShutter = Positive(*n);
    if (auto n = Member(node, "triggerModes")) camera.triggerModes = ArrayOf(*n, U32);
    if (auto n = Member(node, "maxPartitions")) camera.maxPartitions = Positive(*n);
    if (auto n = Member(node, "features")) ReadFeatures(*n, &camera.features);
    if (auto n = Member(node, "sideData")) ReadSideData(*n, &camera.sideData);
    if (auto n = Member(node, "link")) {
        ExpectObject(*n, {"bytesPerSecond"});
        if (auto rate = Member(*n, "bytesPerSecond")) camera.linkBytesPerSecond = Real(*rate);
    }
    if (auto n = Member(node, "timeScale")) camera.timeScale = Real(*n);
    if (auto n = Member(node, "faults")) camera.faults = ArrayOf(*n, ReadFault);
    CheckCamera(node, camera);
    return camera;
}

Profile ReadProfile(const json& document) {
    const Node root{document, ""};
    ExpectObject(root, {"cameras"});
    auto cameras = Member(root, "cameras");
    if (!cameras) throw Problem{"", "no \"cameras\" list"};
    Profile profile;
    profile.cameras = ArrayOf(*cameras, ReadCamera);
    for (size_t i = 0; i < profile.cameras.size(); ++i)
        for (size_t j = 0; j < i; ++j)
            if (profile.cameras[i].deviceId == profile.cameras[j].deviceId)
                cameras->Item(i).Key("deviceId").Fail(std::to_string(profile.cameras[i].deviceId) +
                                                      " is already the id of cameras[" + std::to_string(j) + "]");
    return profile;
}

std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

bool LoadProfileFile(const std::string& path, Profile* profile, std::string* problem) {
    auto fail = [&](const std::string& what) {
        if (problem) *problem = OneLine(path + ": " + what);
        return false;
    };
    try {
        if (!profile) return fail("nowhere to put the profile");
        std::ifstream file(path);
        if (!file) return fail(std::string("cannot be read: ") + std::strerror(errno));
        std::stringstream text;
        text << file.rdbuf();
        *profile = ReadProfile(Parse(text.str()));
        return true;
    } catch (const Problem& found) {
        return fail(found.where.empty() ? found.what : found.where + ": " + found.what);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}

}  // namespace vcam
