// The vmc tool as a user runs it: a separate program, its output and its exit
// code, against cameras scripted into the test modules.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "../platform/temp_dir.h"

namespace {

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

std::string ReadText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string Quote(const std::string& text) { return "'" + text + "'"; }

class VmcTool : public ::testing::Test {
protected:
    // Runs the tool on the cameras of `script` (default: the demo set-up).
    Outcome Vmc(const std::string& arguments, const std::string& script = VMC_DEMO_SCRIPT) {
        return Run("env VMC_MODULE_PATH=" + Quote(VMC_TEST_MODULE_DIR) + " VMC_FAKE_SCRIPT=" + Quote(script) + " " +
                   Quote(VMC_TOOL) + " " + arguments);
    }

    // Runs the tool on the virtual cameras: the default ones, or those of a profile file.
    Outcome VirtualVmc(const std::string& arguments, const std::string& profile = "") {
        const std::string cameras = profile.empty() ? "-u VMC_VIRTUAL_CAMERAS" : "VMC_VIRTUAL_CAMERAS=" + Quote(profile);
        return Run("env " + cameras + " VMC_MODULE_PATH=" + Quote(VMC_MODULE_DIR) + " " + Quote(VMC_TOOL) + " " +
                   arguments);
    }

    Outcome Run(const std::string& commandLine) {
        const std::string errPath = folder_.path() + "/stderr";
        const std::string command = commandLine + " 2>" + Quote(errPath);
        Outcome run;
        FILE* pipe = popen(command.c_str(), "r");
        if (!pipe) return run;
        char buffer[4096];
        for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) run.out.append(buffer, n);
        const int status = pclose(pipe);
        run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        run.err = ReadText(errPath);
        return run;
    }

    std::string Script(const std::string& lines) { return File("cameras.fake", lines); }

    // The demo set-up with what an open asks of every head: rate, resolution,
    // shutter, maximum frames and maximum resolution.
    std::string DemoWithHeads() {
        return Script(ReadText(VMC_DEMO_SCRIPT) +
                      "answer * DEV_GetDeviceCaps * 2 0    1000 0         1\n"
                      "answer * DEV_GetDeviceCaps * 3 0    0x04000200 0   1\n"
                      "answer * DEV_GetDeviceCaps * 4 0    2000 0         1\n"
                      "answer * DEV_GetDeviceCaps * 33 0   5000 2         1\n"
                      "answer * DEV_GetDeviceCaps * 47 0   0x04000400 0   1\n");
    }

    std::string File(const std::string& name, const std::string& text) {
        const std::string path = folder_.path() + "/" + name;
        std::ofstream(path) << text;
        return path;
    }

private:
    TempDir folder_;
};

// A problem is one line on standard error and nothing on standard output.
void ExpectOneLineProblem(const Outcome& run, const std::string& fragment) {
    EXPECT_NE(0, run.exitCode);
    EXPECT_EQ("", run.out);
    EXPECT_EQ(0u, run.err.rfind("vmc: ", 0)) << run.err;
    EXPECT_EQ(1, std::count(run.err.begin(), run.err.end(), '\n')) << run.err;
    EXPECT_NE(std::string::npos, run.err.find(fragment)) << "expected: " << fragment << "\nfound:    " << run.err;
}

// ---- detect ------------------------------------------------------------------

TEST_F(VmcTool, DetectListsTheCamerasOfTheLink) {
    const Outcome run = Vmc("detect");
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_EQ("0  code 16  id 1001  virtual\n1  code 258  id 1002  virtual\n", run.out);
    EXPECT_EQ("", run.err);
}

TEST_F(VmcTool, DetectAsJson) {
    const Outcome run = Vmc("detect --json");
    ASSERT_EQ(0, run.exitCode) << run.err;
    const nlohmann::json result = nlohmann::json::parse(run.out);
    EXPECT_EQ("virtual", result["interface"]);
    ASSERT_EQ(2u, result["cameras"].size());
    const nlohmann::json& second = result["cameras"][1];
    EXPECT_EQ(1, second["index"]);
    EXPECT_EQ(258, second["deviceCode"]);
    EXPECT_EQ(1002, second["deviceId"]);
    EXPECT_EQ("virtual", second["interface"]);
}

TEST_F(VmcTool, DetectOnAnAddressedLinkShowsAddresses) {
    const std::string script = Script("list IMOD_ETHER INT_DetectDevice 0 0 0 1   26 0xC0A8000A\n");
    const Outcome run = Vmc("detect --interface ether --address 192.168.0.10", script);
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_EQ("0  code 26  address 192.168.0.10  ether\n", run.out);
}

TEST_F(VmcTool, NoCameraIsNotAFailure) {
    const Outcome run = Vmc("detect", Script("list IMOD_VIRTUAL INT_DetectDevice 0 0 0 1\n"));
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_EQ("no camera found on the virtual link\n", run.out);
}

// ---- info --------------------------------------------------------------------

TEST_F(VmcTool, InfoDescribesTheCameraAndItsHeads) {
    const Outcome first = Vmc("info", DemoWithHeads());
    EXPECT_EQ(0, first.exitCode) << first.err;
    EXPECT_EQ(0u, first.out.rfind("camera 0: Monochrome 1024\n", 0)) << first.out;
    EXPECT_NE(std::string::npos, first.out.find("head 1: Head 1\n")) << first.out;

    const Outcome second = Vmc("info --device 1", DemoWithHeads());
    EXPECT_EQ(0, second.exitCode) << second.err;
    for (const char* line : {"camera 1: Colour two-head\n", "  identity\n", "device code", " 258\n", " 1002\n",
                             " 0x01000000 (centre)\n", "head 1: Left head\n", "head 2: Right head\n",
                             "1000 fps\n", " 1024 x 512\n", "  ranges\n", " 1024 x 1024\n", "  functions\n"})
        EXPECT_NE(std::string::npos, second.out.find(line)) << "missing: " << line << "\n" << second.out;
    // Rows of nothing stay out of the text: the scripted camera has no IRIG, and no serial number.
    for (const char* absent : {"IRIG mode", "serial number", "memory record rate"})
        EXPECT_EQ(std::string::npos, second.out.find(absent)) << absent << "\n" << second.out;
}

TEST_F(VmcTool, InfoAsJsonHasEveryFieldUnderStableKeys) {
    const Outcome run = Vmc("info --device 1 --json", DemoWithHeads());
    ASSERT_EQ(0, run.exitCode) << run.err;
    const nlohmann::json camera = nlohmann::json::parse(run.out);
    EXPECT_EQ(1, camera["index"]);
    EXPECT_EQ("virtual", camera["interface"]);
    EXPECT_EQ("Colour two-head", camera["deviceName"]);
    EXPECT_EQ(258, camera["deviceCode"]);
    EXPECT_EQ(1002, camera["deviceId"]);
    EXPECT_EQ(2, camera["childDeviceCount"]);
    EXPECT_EQ(2, camera["maxChildDeviceCount"]);
    EXPECT_EQ(0x1000000, camera["triggerMode"]);
    EXPECT_EQ(100, camera["triggerAfterFrames"]);
    // Every field is there, filled or not: an absent serial number is null, an array is an array.
    EXPECT_TRUE(camera["serialNumber"].is_null());
    EXPECT_EQ(4u, camera["externalInMode"].size());
    EXPECT_EQ(0, camera["irigMode"]);
    // A list the camera does not keep is null; a function it lacks is false.
    EXPECT_TRUE(camera["ranges"]["triggerModes"].is_null());
    EXPECT_EQ(false, camera["functions"]["irig"]);
    EXPECT_FALSE(camera["functions"].contains("sensorGain")) << "a head's function has no device case";

    ASSERT_EQ(2u, camera["heads"].size());
    const nlohmann::json& head = camera["heads"][1];
    EXPECT_EQ(2, head["number"]);
    EXPECT_EQ("Right head", head["childName"]);
    EXPECT_EQ(1000, head["recordRate"]);
    EXPECT_EQ(1024, head["width"]);
    EXPECT_EQ(512, head["height"]);
    EXPECT_EQ(2000, head["shutterFps"]);
    EXPECT_EQ(1024, head["ranges"]["maxWidth"]);
    EXPECT_EQ(1024, head["ranges"]["maxHeight"]);
    EXPECT_EQ(5000, head["ranges"]["maxFrames"]);
    EXPECT_EQ(false, head["functions"]["sensorGain"]);
    EXPECT_FALSE(head.contains("maxWidth")) << "ranges live under \"ranges\"";
}

// ---- status ------------------------------------------------------------------

TEST_F(VmcTool, AFailedPollNamesTheErrorAndWatchingGoesOn) {
    // The scripted heads do not answer their colour type (code 11): the open
    // passes over it, the poll may not.
    const Outcome once = Vmc("status --device 1", DemoWithHeads());
    EXPECT_EQ(1, once.exitCode);
    EXPECT_EQ("vmc: polling camera 1 failed: error 21 (VMC_ERR_NOT_SUPPORTED): the camera or its module has not got "
              "this function\n",
              once.err);

    const Outcome watched = Vmc("status --device 1 --watch --count 2 --interval 10 --json", DemoWithHeads());
    EXPECT_EQ(1, watched.exitCode);
    EXPECT_EQ(2, std::count(watched.err.begin(), watched.err.end(), '\n')) << watched.err;
    std::istringstream lines(watched.out);
    int polls = 0;
    for (std::string line; std::getline(lines, line); ++polls) {
        const nlohmann::json poll = nlohmann::json::parse(line);
        EXPECT_EQ(polls + 1, poll["poll"]);
        EXPECT_EQ(false, poll["ok"]);
        EXPECT_EQ(21, poll["error"]["code"]);
        EXPECT_EQ("VMC_ERR_NOT_SUPPORTED", poll["error"]["name"]);
    }
    EXPECT_EQ(2, polls) << watched.out;
}

// ---- problems ----------------------------------------------------------------

TEST_F(VmcTool, ABadCommandLineIsOneLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "subcommand"},
        {"detect --bogus", "--bogus"},
        {"explode", "no command \"explode\": the commands are detect, info and status"},
        {"status --count 3", "--watch"},
        {"status --watch --interval 0", "--interval"},
        {"detect --interface pcix", "pcix"},
        {"info --device minus", "--device"},
        {"detect --interface ether", "--address"},
        {"detect --interface ether --address 1.2.3", "1.2.3 is not an IPv4 address"},
        {"detect --address 10.0.0.1", "--address is only for the ether and gigev links"},
    };
    for (const auto& [arguments, fragment] : cases) {
        SCOPED_TRACE(arguments);
        const Outcome run = Vmc(arguments);
        EXPECT_EQ(2, run.exitCode);
        ExpectOneLineProblem(run, fragment);
    }
}

TEST_F(VmcTool, AMissingInterfaceModuleIsNamedWithWhatToDo) {
    for (const char* command : {"detect", "info"}) {
        const Outcome run = Vmc(std::string(command) + " --interface pci");
        EXPECT_EQ(1, run.exitCode);
        ExpectOneLineProblem(run, "detecting on the pci link failed: error 100 (VMC_ERR_MODULE_LOAD): the interface "
                                  "module IMOD_PCI of the pci link was not found or could not be loaded; set "
                                  "VMC_MODULE_PATH to the folder of the modules");
    }
}

TEST_F(VmcTool, AMissingDeviceModuleIsNamedWithWhatToDo) {
    const Outcome run = Vmc("info", Script("list IMOD_VIRTUAL INT_DetectDevice 0 0 0 1   2 5\n"));
    EXPECT_EQ(1, run.exitCode);
    ExpectOneLineProblem(run, "opening camera 0 failed: error 100 (VMC_ERR_MODULE_LOAD): the device module DMOD002 "
                              "for code 2 was not found or could not be loaded; set VMC_MODULE_PATH");
}

TEST_F(VmcTool, AnOpenUndoneByTheLibraryIsExplained) {
    // The camera opens, then fails a question of the state load with error 5; the
    // library closes it again and leaves the close's error word, 1.
    const std::string script = Script(
        "list   IMOD_VIRTUAL INT_DetectDevice 0 0 0 1   16 1001\n"
        "answer * DEV_OpenDevice 0 0 0   1 0   1\n"
        "answer DMOD016 DEV_GetDeviceCaps 0 12 0   0 0   5\n");
    const Outcome run = Vmc("info", script);
    EXPECT_EQ(1, run.exitCode);
    ExpectOneLineProblem(run, "opening camera 0 failed: the camera did not answer what the library reads at open");
}

TEST_F(VmcTool, ACameraNumberBeyondTheDetection) {
    for (const char* command : {"info", "status"}) {
        const Outcome run = Vmc(std::string(command) + " --device 5");
        EXPECT_EQ(1, run.exitCode);
        ExpectOneLineProblem(run, "there is no camera 5: the virtual link has 2 cameras, numbers 0 to 1");
    }
}

// ---- the default virtual cameras ---------------------------------------------

// The model vmc info gives agrees with the profiles of docs/virtual-camera.md.
TEST_F(VmcTool, InfoOfTheDefaultVirtualCamerasAgreesWithTheirProfiles) {
    struct Expected {
        const char* device;
        uint32_t code;
        const char* name;
        uint32_t serial;
        std::vector<std::string> heads;
        uint32_t width, height, fullResolutionRate;
        size_t rates;
    };
    const Expected cameras[] = {
        {"0", 258, "VC-M1024 Mono", 2580001, {"M1024 head"}, 1024, 1024, 20000, 15},
        {"1", 260, "VC-C1280 Colour Twin", 2600001, {"C1280 head 1", "C1280 head 2"}, 1280, 800, 10000, 14},
    };
    for (const Expected& expected : cameras) {
        SCOPED_TRACE(expected.name);
        const Outcome run = VirtualVmc(std::string("info --json --device ") + expected.device);
        ASSERT_EQ(0, run.exitCode) << run.err;
        const nlohmann::json camera = nlohmann::json::parse(run.out);
        EXPECT_EQ(expected.code, camera["deviceCode"]);
        EXPECT_EQ(expected.name, camera["deviceName"]);
        EXPECT_EQ(expected.serial, camera["serialNumber"]);
        EXPECT_EQ(expected.heads.size(), camera["childDeviceCount"]);
        EXPECT_EQ(15u, camera["ranges"]["triggerModes"].size());
        // Present by default: IRIG, partitions, burst and read-ahead transfer; absent: MCDL, low light.
        for (const char* key : {"irig", "partitionIncMode", "burstTransfer", "readAheadTransfer"})
            EXPECT_EQ(true, camera["functions"][key]) << key;
        for (const char* key : {"mcdl", "lowLightMode", "adc", "headExchange"})
            EXPECT_EQ(false, camera["functions"][key]) << key;

        ASSERT_EQ(expected.heads.size(), camera["heads"].size());
        for (size_t i = 0; i < expected.heads.size(); ++i) {
            const nlohmann::json& head = camera["heads"][i];
            const nlohmann::json& ranges = head["ranges"];
            EXPECT_EQ(expected.heads[i], head["childName"]);
            EXPECT_EQ(expected.width, ranges["maxWidth"]);
            EXPECT_EQ(expected.height, ranges["maxHeight"]);
            EXPECT_EQ(expected.fullResolutionRate, ranges["maxFullResoRate"]);
            EXPECT_EQ(12, ranges["maxBitDepth"]);
            EXPECT_EQ(expected.rates, ranges["recordRates"].size());
            EXPECT_EQ(50, ranges["recordRates"][0]);
            // The resolutions offered at the current rate start with the whole sensor.
            ASSERT_FALSE(ranges["resolutions"].empty());
            EXPECT_EQ(expected.width, ranges["resolutions"][0]["width"]);
            EXPECT_EQ(expected.height, ranges["resolutions"][0]["height"]);
            EXPECT_FALSE(ranges["shutterSpeedsFps"].empty());
            EXPECT_GT(ranges["maxFrames"].get<uint64_t>(), 0u);
            for (const char* key : {"sensorGain", "shading"}) EXPECT_EQ(true, head["functions"][key]) << key;
            for (const char* key : {"lut", "edgeEnhance", "pixelGain", "colorTemp", "autoExposure"})
                EXPECT_EQ(false, head["functions"][key]) << key;
            EXPECT_FALSE(ranges["sensorGainModes"].empty());
            EXPECT_TRUE(ranges["lutModes"].is_null()) << "not asked of a head without look-up tables";
        }
    }
}

TEST_F(VmcTool, AFeatureTheProfileTakesAwayIsAFunctionTheCameraCannot) {
    const std::string profile = File("cameras.json", R"({"cameras": [{"base": "mono", "deviceId": 9,
        "features": {"irig": false, "lut": true}}]})");
    const Outcome run = VirtualVmc("info --json", profile);
    ASSERT_EQ(0, run.exitCode) << run.err;
    const nlohmann::json camera = nlohmann::json::parse(run.out);
    EXPECT_EQ(false, camera["functions"]["irig"]);
    EXPECT_EQ(false, camera["functions"]["irigSampleMode"]);
    EXPECT_EQ(true, camera["heads"][0]["functions"]["lut"]);
    EXPECT_EQ(4u, camera["heads"][0]["ranges"]["lutModes"].size());

    const Outcome text = VirtualVmc("info", profile);
    ASSERT_EQ(0, text.exitCode) << text.err;
    const size_t can = text.out.find("    can ");
    const size_t cannot = text.out.find("    cannot ");
    ASSERT_NE(std::string::npos, can) << text.out;
    ASSERT_NE(std::string::npos, cannot) << text.out;
    EXPECT_NE(std::string::npos, text.out.find("IRIG time input", cannot)) << text.out;
    EXPECT_NE(std::string::npos, text.out.find("look-up tables", text.out.find("head 1:"))) << text.out;
    EXPECT_NE(std::string::npos, text.out.find("look-up table ")) << "the head's mode is shown\n" << text.out;
}

TEST_F(VmcTool, StatusRightAfterOpenChangesNothing) {
    const Outcome once = VirtualVmc("status --device 1");
    EXPECT_EQ(0, once.exitCode) << once.err;
    EXPECT_EQ("no change\n", once.out);
    EXPECT_EQ("", once.err);

    const Outcome watched = VirtualVmc("status --watch --count 2 --interval 10");
    EXPECT_EQ(0, watched.exitCode) << watched.err;
    std::istringstream lines(watched.out);
    int polls = 0;
    for (std::string line; std::getline(lines, line); ++polls)
        EXPECT_TRUE(std::regex_match(line, std::regex(R"(\d\d:\d\d:\d\d\.\d{3}  no change)"))) << line;
    EXPECT_EQ(2, polls) << watched.out;

    const Outcome json = VirtualVmc("status --json");
    ASSERT_EQ(0, json.exitCode) << json.err;
    const nlohmann::json poll = nlohmann::json::parse(json.out);
    EXPECT_EQ(true, poll["ok"]);
    EXPECT_EQ(nlohmann::json::array(), poll["changes"]);
    EXPECT_FALSE(poll.contains("error"));
}

TEST_F(VmcTool, AnInterruptedWatchClosesTheCameraAndEndsCleanly) {
    // Interrupt once the first poll is out (the handler is in place by then); a
    // watch that ignored the signal would be killed after 20 s and fail.
    const std::string out = File("watch.out", "");
    const std::string script =
        "env -u VMC_VIRTUAL_CAMERAS VMC_MODULE_PATH=" + Quote(VMC_MODULE_DIR) + " " + Quote(VMC_TOOL) +
        " status --watch --interval 20 >" + Quote(out) + " & pid=$!; i=0; "
        "while [ ! -s " + Quote(out) + " ] && [ $i -lt 400 ]; do sleep 0.05; i=$((i+1)); done; "
        "kill -INT $pid; (sleep 20; kill -KILL $pid) >/dev/null 2>&1 & killer=$!; "
        "wait $pid; code=$?; kill $killer 2>/dev/null; exit $code";
    const Outcome run = Run("{ " + script + "; }");
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_NE(std::string::npos, ReadText(out).find("no change\n"));
    EXPECT_EQ("", run.err);
}

}  // namespace
