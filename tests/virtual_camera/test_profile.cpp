// Profiles: the built-in cameras, profile files read key by key, the
// problems a file can have, and the choice made by VMC_VIRTUAL_CAMERAS.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "../platform/scoped_env.h"
#include "../platform/temp_dir.h"
#include "camera/features.h"
#include "camera/profile.h"

namespace vcam {
namespace {

constexpr uint64_t kGiB = 1ull << 30;

std::string ReadText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// Every field of a camera, one per line, so that a mismatch shows as a readable diff.
std::string Dump(const CameraProfile& c) {
    std::ostringstream out;
    out << "name=" << c.name << " code=" << c.deviceCode << " id=" << c.deviceId << " product=" << c.productId
        << " lot=" << c.lotId << " individual=" << c.individualId << " version=" << c.version
        << " serial=" << c.serialNumber << " maxHeads=" << c.maxHeads << "\n";
    for (const HeadProfile& h : c.heads)
        out << "head name=" << h.name << " type=" << h.typeName << " " << h.sensorWidth << "x" << h.sensorHeight
            << " depth=" << h.bitDepth << " colour=" << static_cast<uint32_t>(h.colour) << " memory=" << h.memoryBytes
            << " serial=" << h.serialNumber << " product=" << h.productId << " version=" << h.version << "\n";
    out << "rates=";
    for (uint32_t rate : c.recordRates) out << rate << ",";
    out << " pixelRate=" << c.pixelRate << " steps=" << c.widthStep << "x" << c.heightStep << " min=" << c.minWidth
        << "x" << c.minHeight << " shutter=" << c.fastestShutter << " partitions=" << c.maxPartitions << "\ntrigger=";
    for (uint32_t mode : c.triggerModes) out << std::hex << mode << std::dec << ",";
    out << "\nfeatures=";
    for (const auto& [name, present] : c.features) out << name << ":" << present << ",";
    const SideData& s = c.sideData;
    out << "\nside=" << s.irig << s.mcdl << s.adc << s.autoExposure << s.exposureTime << s.temperature
        << s.acceleration << " link=" << c.linkBytesPerSecond << " timeScale=" << c.timeScale << "\n";
    for (const Fault& f : c.faults)
        out << "fault kind=" << static_cast<uint32_t>(f.kind) << " code=" << f.code << " error=" << f.error
            << " calls=" << f.calls << " seconds=" << f.seconds << " rate=" << f.bytesPerSecond << "\n";
    return out.str();
}

// Profiles written to files of a temporary folder.
class ProfileFiles : public ::testing::Test {
protected:
    std::string Write(const std::string& json) {
        const std::string path = folder_.path() + "/profile" + std::to_string(++count_) + ".json";
        std::ofstream(path) << json;
        return path;
    }

    Profile Load(const std::string& path) {
        Profile profile;
        std::string problem;
        EXPECT_TRUE(LoadProfileFile(path, &profile, &problem)) << problem;
        return profile;
    }

private:
    TempDir folder_;
    int count_ = 0;
};

// ---- The built-in cameras ------------------------------------------------------

TEST(BuiltInProfile, AMonochromeCameraAndATwoHeadColourCamera) {
    const Profile profile = BuiltInProfile();
    ASSERT_EQ(2u, profile.cameras.size());

    const CameraProfile& mono = profile.cameras[0];
    EXPECT_EQ(258u, mono.deviceCode);
    EXPECT_EQ(1u, mono.maxHeads);
    ASSERT_EQ(1u, mono.heads.size());
    EXPECT_EQ(1024u, mono.heads[0].sensorWidth);
    EXPECT_EQ(1024u, mono.heads[0].sensorHeight);
    EXPECT_EQ(12u, mono.heads[0].bitDepth);
    EXPECT_EQ(ColourLayout::Mono, mono.heads[0].colour);
    EXPECT_EQ(16 * kGiB, mono.heads[0].memoryBytes);

    const CameraProfile& colour = profile.cameras[1];
    EXPECT_EQ(260u, colour.deviceCode);
    EXPECT_EQ(2u, colour.maxHeads);
    ASSERT_EQ(2u, colour.heads.size());
    for (const HeadProfile& head : colour.heads) {
        EXPECT_EQ(1280u, head.sensorWidth);
        EXPECT_EQ(800u, head.sensorHeight);
        EXPECT_EQ(ColourLayout::BayerRGGB, head.colour);
        EXPECT_EQ(8 * kGiB, head.memoryBytes);
    }
    EXPECT_NE(colour.heads[0].name, colour.heads[1].name);

    EXPECT_NE(mono.deviceId, colour.deviceId);
    for (const CameraProfile& camera : profile.cameras) {
        EXPECT_FALSE(camera.name.empty());
        EXPECT_NE(0u, camera.version);
        EXPECT_EQ(1000000u, camera.fastestShutter);
        EXPECT_EQ(0.2, camera.timeScale);
        EXPECT_EQ(0.0, camera.linkBytesPerSecond);
        EXPECT_TRUE(camera.faults.empty());
    }
}

TEST(BuiltInProfile, FullResolutionRunsUpToItsRatedSpeedAndNoFurther) {
    struct Case {
        uint32_t fullResolutionUpTo, fastest;
    };
    const Case cases[] = {{20000, 1000000}, {10000, 500000}};
    const Profile profile = BuiltInProfile();
    for (size_t i = 0; i < 2; ++i) {
        const CameraProfile& camera = profile.cameras[i];
        const HeadProfile& head = camera.heads[0];
        const uint64_t full = uint64_t{head.sensorWidth} * head.sensorHeight;
        const auto& rates = camera.recordRates;
        ASSERT_TRUE(std::is_sorted(rates.begin(), rates.end()));
        EXPECT_EQ(cases[i].fastest, rates.back());
        const auto rated = std::find(rates.begin(), rates.end(), cases[i].fullResolutionUpTo);
        ASSERT_NE(rates.end(), rated);
        ASSERT_NE(rates.end(), rated + 1);
        EXPECT_LE(full * *rated, camera.pixelRate) << camera.name;
        EXPECT_GT(full * rated[1], camera.pixelRate) << camera.name;
    }
}

TEST(BuiltInProfile, OffersEveryTriggerMode) {
    const std::vector<uint32_t> all = {0,         0x1000000, 0x2000000, 0x3000000, 0x4000000,
                                       0x5000000, 0x6000000, 0x7000000, 0x8000000, 0x8000001,
                                       0x8000002, 0x8000003, 0x9000000, 0x10000000, 0x11000000};
    for (const CameraProfile& camera : BuiltInProfile().cameras) EXPECT_EQ(all, camera.triggerModes);
}

TEST_F(ProfileFiles, TheBuiltInCamerasPassTheRulesOfAFile) {
    const Profile read = Load(Write(R"({"cameras": [{"base": "mono"}, {"base": "colour"}]})"));
    const Profile builtIn = BuiltInProfile();
    ASSERT_EQ(2u, read.cameras.size());
    EXPECT_EQ(Dump(builtIn.cameras[0]), Dump(read.cameras[0]));
    EXPECT_EQ(Dump(builtIn.cameras[1]), Dump(read.cameras[1]));
}

// ---- Files read key by key -------------------------------------------------------

// The documentation is read by the tests below, so that it can't go stale.
const std::string kDocumentation = std::string(VCAM_TEST_DATA) + "/../../../docs/virtual-camera.md";

// The complete example of the documentation.
std::string DocumentedExample() {
    const std::string docs = ReadText(kDocumentation);
    const size_t section = docs.find("## A complete example");
    const size_t start = docs.find("```json\n", section);
    const size_t end = docs.find("\n```", start + 1);
    if (section == std::string::npos || start == std::string::npos || end == std::string::npos) return "";
    return docs.substr(start + 8, end - start - 8);
}

TEST(ProfileDocumentation, ListsEveryFeatureWithItsDefault) {
    const std::string docs = ReadText(kDocumentation);
    for (const FeatureInfo& feature : Features()) {
        const std::string row =
            "| `" + std::string(feature.name) + "` | " + (feature.presentByDefault ? "present" : "absent") + " |";
        EXPECT_NE(std::string::npos, docs.find(row)) << "docs/virtual-camera.md has no row " << row;
    }
}

TEST_F(ProfileFiles, TheDocumentedExampleReadsAsWritten) {
    const std::string example = DocumentedExample();
    ASSERT_FALSE(example.empty()) << "no complete example in docs/virtual-camera.md";
    const Profile profile = Load(Write(example));
    ASSERT_EQ(2u, profile.cameras.size());

    CameraProfile mono;
    mono.name = "Bench mono";
    mono.deviceCode = 258;
    mono.deviceId = 11;
    mono.productId = 0x0102;
    mono.lotId = 7;
    mono.individualId = 4711;
    mono.version = 130;
    mono.serialNumber = 2580042;
    mono.maxHeads = 1;
    mono.heads = {{.name = "Bench head",
                   .typeName = "M1024 monochrome, 12 bit",
                   .sensorWidth = 1024,
                   .sensorHeight = 1024,
                   .bitDepth = 12,
                   .colour = ColourLayout::Mono,
                   .memoryBytes = 4 * kGiB,
                   .serialNumber = 2581042,
                   .productId = 0x0103,
                   .version = 111}};
    mono.recordRates = {1000, 2000, 5000, 10000, 20000, 50000};
    mono.pixelRate = 10485760000;
    mono.widthStep = 64;
    mono.heightStep = 8;
    mono.minWidth = 64;
    mono.minHeight = 8;
    mono.fastestShutter = 500000;
    mono.triggerModes = {0, 0x1000000, 0x2000000};
    mono.maxPartitions = 8;
    mono.features = {{"irig", false}};
    mono.sideData = {.irig = false, .mcdl = false, .adc = false, .autoExposure = false, .exposureTime = true,
                     .temperature = true, .acceleration = true};
    mono.linkBytesPerSecond = 125000000;
    mono.timeScale = 0.5;
    mono.faults = {{.kind = FaultKind::Unsupported, .code = 424}};
    EXPECT_EQ(Dump(mono), Dump(profile.cameras[0]));

    // The second starts from the colour camera: only the keys given change.
    CameraProfile colour = BuiltInProfile().cameras[1];
    colour.name = "Bench colour";
    colour.deviceId = 12;
    colour.heads[0].name = "Left";
    colour.heads[1].name = "Right";
    colour.heads[1].colour = ColourLayout::BayerGRBG;
    EXPECT_EQ(Dump(colour), Dump(profile.cameras[1]));
}

TEST_F(ProfileFiles, MissingKeysTakeTheirDefaults) {
    const Profile profile = Load(std::string(VCAM_TEST_DATA) + "/minimal.json");
    ASSERT_EQ(1u, profile.cameras.size());
    CameraProfile expected;
    expected.deviceCode = 26;
    expected.deviceId = 3;
    expected.heads = {HeadProfile{}};
    expected.recordRates = {1000};
    expected.pixelRate = 1000000000;
    expected.triggerModes = BuiltInProfile().cameras[0].triggerModes;  // a camera offers every mode unless told
    EXPECT_EQ(Dump(expected), Dump(profile.cameras[0]));
}

TEST_F(ProfileFiles, EveryFaultKindWithItsValues) {
    const Profile profile = Load(std::string(VCAM_TEST_DATA) + "/faults.json");
    ASSERT_EQ(1u, profile.cameras.size());
    CameraProfile expected = BuiltInProfile().cameras[0];
    expected.deviceId = 40;
    expected.faults = {
        {.kind = FaultKind::Unsupported, .code = 424},
        {.kind = FaultKind::Fail, .code = 12, .error = 5},
        {.kind = FaultKind::FailAfter, .code = kAnyCode, .error = 113, .calls = 100},
        {.kind = FaultKind::FailAfter, .code = 2, .error = 9, .calls = 7},
        {.kind = FaultKind::LinkDropAfter, .calls = 5000000000},
        {.kind = FaultKind::LinkDropAt, .seconds = 2.5},
        {.kind = FaultKind::SlowTransfers, .bytesPerSecond = 1.5e6},
    };
    EXPECT_EQ(Dump(expected), Dump(profile.cameras[0]));
}

TEST_F(ProfileFiles, SizesTakeBinaryUnits) {
    const std::pair<const char*, uint64_t> cases[] = {
        {R"("16GiB")", 16 * kGiB}, {R"("512 MiB")", 512ull << 20}, {R"("3KiB")", 3072},      {R"("1TiB")", 1ull << 40},
        {R"("100B")", 100},        {R"("0x400")", 1024},           {"2048", 2048},           {"1e3", 1000},
    };
    for (const auto& [text, bytes] : cases) {
        const Profile profile =
            Load(Write(std::string(R"({"cameras": [{"base": "mono", "heads": [{"memoryBytes": )") + text + "}]}]}"));
        ASSERT_EQ(1u, profile.cameras.size()) << text;
        EXPECT_EQ(bytes, profile.cameras[0].heads[0].memoryBytes) << text;
    }
}

TEST_F(ProfileFiles, SideDataMergesIntoTheBaseKeyByKey) {
    const Profile profile =
        Load(Write(R"({"cameras": [{"base": "mono", "sideData": {"mcdl": true, "temperature": false}}]})"));
    ASSERT_EQ(1u, profile.cameras.size());
    const SideData& side = profile.cameras[0].sideData;
    EXPECT_TRUE(side.mcdl);
    EXPECT_FALSE(side.temperature);
    EXPECT_TRUE(side.irig);  // kept from the base
    EXPECT_TRUE(side.exposureTime);
}

// ---- Problems ---------------------------------------------------------------------

// A camera that passes every rule, for the cases below to break one at a time.
std::string Camera(const std::string& keys) {
    return R"({"cameras": [{"base": "mono")" + (keys.empty() ? "" : ", " + keys) + "}]}";
}

TEST_F(ProfileFiles, ProblemsNameTheFileAndThePlace) {
    const std::pair<std::string, std::string> cases[] = {
        // The document
        {R"({"cameras": [{"deviceCode": 258, "heads": [}]})", "not valid JSON: parse error at line 1"},
        {"[]", "expected an object, found an array"},
        {"{}", R"(no "cameras" list)"},
        {R"({"camera": []})", "camera: unknown key"},
        {R"({"cameras": {}})", "cameras: expected an array, found an object"},
        {Camera(R"("name": "a", "name": "b")"), "cameras[0].name: duplicate key"},
        // Unknown keys and wrong types
        {Camera(R"("recordRatez": [1000])"), "cameras[0].recordRatez: unknown key"},
        {Camera(R"("heads": [{"colur": "mono"}])"), "cameras[0].heads[0].colur: unknown key"},
        {Camera(R"("link": {"rate": 5})"), "cameras[0].link.rate: unknown key"},
        {Camera(R"("sideData": {"gps": true})"), "cameras[0].sideData.gps: unknown key"},
        {Camera(R"("name": 5)"), "cameras[0].name: expected a string, found a number"},
        {Camera(R"("deviceId": "one")"), "cameras[0].deviceId: expected a number or a hexadecimal string"},
        {Camera(R"("triggerModes": ["4096"])"), "cameras[0].triggerModes[0]: expected a number or a hexadecimal"},
        {Camera(R"("deviceId": -1)"), "cameras[0].deviceId: must not be negative"},
        {Camera(R"("deviceId": 1.5)"), "cameras[0].deviceId: expected a whole number, found 1.5"},
        {Camera(R"("deviceId": 4294967296)"), "cameras[0].deviceId: 4294967296 is too large"},
        {Camera(R"("recordRates": 1000)"), "cameras[0].recordRates: expected an array, found a number"},
        {Camera(R"("sideData": {"irig": 1})"), "cameras[0].sideData.irig: expected true or false, found a number"},
        {Camera(R"("timeScale": -1)"), "cameras[0].timeScale: must not be negative"},
        // Names
        {R"({"cameras": [{"base": "grey"}]})", R"(cameras[0].base: unknown base "grey")"},
        {Camera(R"("features": {"irgi": true})"), R"(cameras[0].features.irgi: unknown feature "irgi")"},
        {Camera(R"("features": {"irig": "yes"})"), "cameras[0].features.irig: expected true or false"},
        {R"({"cameras": [{"base": "mono"}, {"base": "colour", "deviceId": 5, "heads": [{"colour": "bayer-xyz"}]}]})",
         R"(cameras[1].heads[0].colour: unknown colour "bayer-xyz")"},
        {Camera(R"("triggerModes": ["0x1234"])"), "cameras[0].triggerModes: unknown trigger mode 0x1234"},
        {Camera(R"("heads": [{"memoryBytes": "16GB"}])"), R"(cameras[0].heads[0].memoryBytes: expected a size like)"},
        // Sizes and counts
        {Camera(R"("heads": [{"sensorWidth": 0}])"), "cameras[0].heads[0].sensorWidth: must not be 0"},
        {Camera(R"("heads": [{"sensorHeight": 70000}])"), "cameras[0].heads[0].sensorHeight: at most 65535"},
        {Camera(R"("heads": [{"memoryBytes": 0}])"), "cameras[0].heads[0].memoryBytes: must not be 0"},
        {Camera(R"("heads": [{"bitDepth": 20}])"), "cameras[0].heads[0].bitDepth: must be 8 to 16, found 20"},
        {Camera(R"("heads": [{"sensorWidth": 64}])"), "cameras[0].heads[0]: the sensor is smaller than minWidth"},
        {Camera(R"("widthStep": 0)"), "cameras[0].widthStep: must not be 0"},
        {Camera(R"("heads": [])"), "cameras[0].heads: a camera needs at least one head"},
        {Camera(R"("heads": [{}, {}])"), "cameras[0].heads: 2 heads, but maxHeads is 1"},
        {Camera(R"("maxHeads": 13)"), "cameras[0].maxHeads: must be 1 to 12, found 13"},
        {Camera(R"("recordRates": [])"), "cameras[0].recordRates: a camera needs at least one record rate"},
        {Camera(R"("recordRates": [1000, 500])"), "cameras[0].recordRates: must rise strictly"},
        {Camera(R"("recordRates": [0, 500])"), "cameras[0].recordRates: must not hold 0"},
        {Camera(R"("pixelRate": 1000)"), "cameras[0].pixelRate: at 1000000 fps not even 128 x 16 fits"},
        // Identity
        {R"({"cameras": [{"deviceId": 1, "heads": [{}], "recordRates": [1000], "pixelRate": 1e9}]})",
         R"(cameras[0]: a camera needs a "deviceCode")"},
        {Camera(R"("deviceCode": 27)"), "cameras[0].deviceCode: no device module has the code 27"},
        {R"({"cameras": [{"base": "mono"}, {"base": "colour", "deviceId": 1}]})",
         "cameras[1].deviceId: 1 is already the id of cameras[0]"},
        // Faults
        {Camera(R"("faults": [{"code": 5}])"), R"(cameras[0].faults[0]: a fault needs a "kind")"},
        {Camera(R"("faults": [{"kind": "explode"}])"), R"(cameras[0].faults[0].kind: unknown fault kind "explode")"},
        {Camera(R"("faults": [{"kind": "link-drop-at", "calls": 3}])"),
         R"(cameras[0].faults[0].calls: not used by a "link-drop-at" fault)"},
        {Camera(R"("faults": [{"kind": "fail"}])"), R"(cameras[0].faults[0]: a "fail" fault needs a "code")"},
        {Camera(R"("faults": [{"kind": "fail", "code": 6, "error": 1}])"),
         "cameras[0].faults[0].error: error 1 means success"},
        {Camera(R"("faults": [{"kind": "slow-transfers"}])"), R"(needs a "bytesPerSecond" above 0)"},
    };
    for (const auto& [json, fragment] : cases) {
        const std::string path = Write(json);
        Profile profile = BuiltInProfile();
        std::string problem;
        EXPECT_FALSE(LoadProfileFile(path, &profile, &problem)) << json;
        EXPECT_EQ(0u, problem.rfind(path + ": ", 0)) << problem;
        EXPECT_NE(std::string::npos, problem.find(fragment)) << "expected: " << fragment << "\nfound:    " << problem;
        EXPECT_EQ(std::string::npos, problem.find('\n')) << problem;
        EXPECT_EQ(2u, profile.cameras.size()) << "a refused file must leave the profile as it was";
    }
}

TEST_F(ProfileFiles, AFileThatCannotBeRead) {
    Profile profile;
    std::string problem;
    EXPECT_FALSE(LoadProfileFile("/nonexistent/cameras.json", &profile, &problem));
    EXPECT_EQ("/nonexistent/cameras.json: cannot be read: No such file or directory", problem);
}

// ---- The profile in force ---------------------------------------------------------

// What a call wrote to standard error.
template <class Call>
std::string CapturingErrors(Call call) {
    TempDir folder;
    const std::string path = folder.path() + "/stderr";
    std::fflush(stderr);
    const int saved = dup(2);
    FILE* capture = std::fopen(path.c_str(), "w");
    dup2(fileno(capture), 2);
    call();
    std::fflush(stderr);
    dup2(saved, 2);
    close(saved);
    std::fclose(capture);
    return ReadText(path);
}

TEST_F(ProfileFiles, TheEnvironmentChoosesTheProfile) {
    const std::string builtIn = Dump(BuiltInProfile().cameras[1]);
    {
        ScopedEnv unset("VMC_VIRTUAL_CAMERAS", nullptr);
        const Profile profile = ActiveProfile();
        ASSERT_EQ(2u, profile.cameras.size());
        EXPECT_EQ(builtIn, Dump(profile.cameras[1]));
    }
    {
        ScopedEnv empty("VMC_VIRTUAL_CAMERAS", "");
        EXPECT_EQ(2u, ActiveProfile().cameras.size());
    }
    {
        ScopedEnv file("VMC_VIRTUAL_CAMERAS", std::string(VCAM_TEST_DATA) + "/minimal.json");
        const Profile profile = ActiveProfile();
        ASSERT_EQ(1u, profile.cameras.size());
        EXPECT_EQ(26u, profile.cameras[0].deviceCode);
    }
}

TEST_F(ProfileFiles, AnUnusableFileGivesNoCameraAndOneLineOfComplaint) {
    const std::string path = Write(Camera(R"("maxHeads": 0)"));
    ScopedEnv file("VMC_VIRTUAL_CAMERAS", path);
    Profile profile = BuiltInProfile();
    const std::string message = CapturingErrors([&] { profile = ActiveProfile(); });
    EXPECT_TRUE(profile.cameras.empty());
    EXPECT_EQ("vmc virtual camera: " + path + ": cameras[0].maxHeads: must be 1 to 12, found 0\n", message);
}

}  // namespace
}  // namespace vcam
