// The vmc tool as a user runs it: a separate program, its output and its exit
// code, against cameras scripted into the test modules.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

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

    // Runs the tool on the default virtual cameras.
    Outcome VirtualVmc(const std::string& arguments) {
        return Run("env -u VMC_VIRTUAL_CAMERAS VMC_MODULE_PATH=" + Quote(VMC_MODULE_DIR) + " " + Quote(VMC_TOOL) + " " +
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

    std::string Script(const std::string& lines) {
        const std::string path = folder_.path() + "/cameras.fake";
        std::ofstream(path) << lines;
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
    const Outcome first = Vmc("info");
    EXPECT_EQ(0, first.exitCode) << first.err;
    EXPECT_EQ(0u, first.out.rfind("camera 0: Monochrome 1024\n", 0)) << first.out;
    EXPECT_NE(std::string::npos, first.out.find("head 1: Head 1\n")) << first.out;

    const Outcome second = Vmc("info --device 1");
    EXPECT_EQ(0, second.exitCode) << second.err;
    for (const char* line : {"camera 1: Colour two-head\n", "device code", " 258\n", " 1002\n", " 2 of at most 2\n",
                             " 0x01000000 (centre), 100 frames after the trigger\n", "head 1: Left head\n",
                             "head 2: Right head\n"})
        EXPECT_NE(std::string::npos, second.out.find(line)) << "missing: " << line << "\n" << second.out;
}

TEST_F(VmcTool, InfoAsJson) {
    const Outcome run = Vmc("info --device 1 --json");
    ASSERT_EQ(0, run.exitCode) << run.err;
    const nlohmann::json camera = nlohmann::json::parse(run.out);
    EXPECT_EQ("Colour two-head", camera["name"]);
    EXPECT_EQ(258, camera["deviceCode"]);
    EXPECT_EQ(1002, camera["deviceId"]);
    EXPECT_EQ("virtual", camera["interface"]);
    EXPECT_EQ(2, camera["headCount"]);
    EXPECT_EQ(2, camera["maxHeads"]);
    EXPECT_EQ(0x1000000, camera["triggerMode"]["value"]);
    EXPECT_EQ("centre", camera["triggerMode"]["name"]);
    EXPECT_EQ(100, camera["triggerMode"]["afterFrames"]);
    for (const char* key : {"productId", "lotId", "individualId", "version", "serialNumber"})
        EXPECT_TRUE(camera.contains(key)) << key;
    ASSERT_EQ(2u, camera["heads"].size());
    EXPECT_EQ(1, camera["heads"][0]["number"]);
    EXPECT_EQ("Left head", camera["heads"][0]["name"]);
    EXPECT_EQ("Right head", camera["heads"][1]["name"]);
    for (const char* key : {"width", "height", "recordRate", "shutterFps", "maxFrames", "bitDepth", "colorType"})
        EXPECT_TRUE(camera["heads"][1].contains(key)) << key;
}

// ---- problems ----------------------------------------------------------------

TEST_F(VmcTool, ABadCommandLineIsOneLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "subcommand"},
        {"detect --bogus", "--bogus"},
        {"explode", "no command \"explode\": the commands are detect and info"},
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
    const Outcome run = Vmc("info --device 5");
    EXPECT_EQ(1, run.exitCode);
    ExpectOneLineProblem(run, "there is no camera 5: the virtual link has 2 cameras, numbers 0 to 1");
}

// ---- the default virtual cameras ---------------------------------------------

TEST_F(VmcTool, TheDefaultVirtualCameras) {
    const Outcome detect = VirtualVmc("detect");
    EXPECT_EQ(0, detect.exitCode) << detect.err;
    EXPECT_NE(std::string::npos, detect.out.find("code 258")) << detect.out;
    EXPECT_NE(std::string::npos, detect.out.find("code 260")) << detect.out;

    const Outcome info = VirtualVmc("info --device 1 --json");
    ASSERT_EQ(0, info.exitCode) << info.err;
    const auto json = nlohmann::json::parse(info.out);
    EXPECT_EQ(260, json["deviceCode"]);
    EXPECT_EQ(2u, json["heads"].size());
}

}  // namespace
