// Profiles that break: a file that can't be used, and the faults a profile
// injects into a camera to drive the library's failure paths.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "camera/image.h"
#include "contract.h"
#include "virtual_test.h"

namespace vcam::test {
namespace {

// One monochrome camera, with the faults given (a JSON array).
std::string OneCamera(const std::string& faults, double timeScale = 0.2) {
    std::ostringstream json;
    json << R"({"cameras": [{"name": "Faulty", "deviceCode": 258, "deviceId": 77,
        "heads": [{"name": "Head", "sensorWidth": 512, "sensorHeight": 512, "bitDepth": 12,
                   "colour": "mono", "memoryBytes": "1GiB"}],
        "recordRates": [1000, 2000], "pixelRate": 1000000000, "timeScale": )"
         << timeScale << R"(, "faults": )" << faults << "}]}";
    return json.str();
}

// What detection wrote to standard error.
std::string DetectCapturingErrors(DetectInfo* info, uint32_t* error) {
    char path[] = "/tmp/vcam-stderr-XXXXXX";
    const int capture = mkstemp(path);
    const int saved = dup(2);
    dup2(capture, 2);
    *info = DetectVirtual(error);
    fflush(stderr);
    dup2(saved, 2);
    close(saved);
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    close(capture);
    unlink(path);
    return text.str();
}

TEST(VirtualFaults, AMalformedProfileIsReportedAndFindsNoCamera) {
    const std::string path = UseProfile(R"({"cameras": [{"deviceCode": 258, "heads": [}]})");
    DetectInfo info;
    uint32_t error = 0;
    const std::string message = DetectCapturingErrors(&info, &error);
    EXPECT_EQ(VMC_ERR_OK, error);
    EXPECT_EQ(0u, info.count);
    EXPECT_NE(std::string::npos, message.find(path)) << message;
    EXPECT_EQ(1, std::count(message.begin(), message.end(), '\n')) << message;
}

TEST(VirtualFaults, AFailingRequiredCodeFailsTheOpen) {
    UseProfile(OneCamera(R"([{"kind": "fail", "code": 12, "error": 5}])"));
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    uint32_t deviceNo = VMC_MAX_DEVICES;
    EXPECT_EQ(0u, VMC_OpenDevice2(&info.entries[0], 0, 1, &deviceNo, &error));
    EXPECT_EQ(5u, error);
    VMC_CloseDevice(deviceNo, &error);
}

TEST(VirtualFaults, AnAbsentFeatureClearsItsFlag) {
    UseProfile(OneCamera(R"([{"kind": "unsupported", "code": 424}])"));
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    uint32_t value = 0;
    EXPECT_EQ(0u, VMC_GetLinkSpeed(deviceNo, &value, &error));
    EXPECT_EQ(VMC_ERR_NOT_SUPPORTED, error);
}

TEST(VirtualFaults, FailuresAfterSomeExchanges) {
    UseProfile(OneCamera(R"([{"kind": "fail-after", "calls": 4, "error": 77}])"));
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    uint32_t deviceNo = VMC_MAX_DEVICES;
    EXPECT_EQ(0u, VMC_OpenDevice2(&info.entries[0], 0, 1, &deviceNo, &error));
    EXPECT_EQ(77u, error);
    VMC_CloseDevice(deviceNo, &error);
}

TEST(VirtualFaults, ALinkThatDropsIsSeenByTheLibrary) {
    // Two camera seconds at a time scale of 0.05: the link drops 100 ms after the open.
    UseProfile(OneCamera(R"([{"kind": "link-drop-at", "seconds": 2}])", 0.05));
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    uint32_t connected = 1;
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (connected && std::chrono::steady_clock::now() < giveUp) {
        ASSERT_EQ(1u, VMC_GetConnectStatus(deviceNo, &connected, &error));
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(0u, connected);
    uint32_t a = 0, b = 0;
    EXPECT_EQ(0u, VMC_GetLastError(deviceNo, &a, &b, &error));
    EXPECT_EQ(VMC_ERR_DISCONNECTED, error);
    EXPECT_EQ(1u, VMC_CloseDevice(deviceNo, &error));  // closing a dead link still frees the device
}

TEST(VirtualFaults, ALinkThatDropsAfterSomeExchanges) {
    // Late enough for the open's own exchanges to pass.
    UseProfile(OneCamera(R"([{"kind": "link-drop-after", "calls": 1000}])"));
    uint32_t error = 0;
    DetectInfo info = DetectVirtual(&error);
    ASSERT_EQ(1u, info.count);
    const uint32_t deviceNo = OpenEntry(info, 0, &error);
    uint32_t connected = 1;
    int calls = 0;
    for (; calls < 1000 && connected; ++calls) ASSERT_EQ(1u, VMC_GetConnectStatus(deviceNo, &connected, &error));
    EXPECT_EQ(0u, connected);
    EXPECT_LT(calls, 1000);
    uint32_t a = 0, b = 0;
    EXPECT_EQ(0u, VMC_GetLastError(deviceNo, &a, &b, &error));
    EXPECT_EQ(VMC_ERR_DISCONNECTED, error);
}

TEST(VirtualFaults, SlowTransfersStillDeliverWholeFrames) {
    // 512 x 512 at two bytes a sample is 512 KiB: at 5 MB/s no faster than 100 ms.
    UseProfile(OneCamera(R"([{"kind": "slow-transfers", "bytesPerSecond": 5000000}])"));
    Contract contract;
    uint32_t ids[64], codes[64], error = 0;
    ASSERT_EQ(1u, contract.Detect(ids, codes));
    const vmc_device_handle handle = contract.Open(ids[0]);
    std::vector<uint8_t> frame(512 * 512 * 2);
    const auto started = std::chrono::steady_clock::now();
    ASSERT_EQ(1u, contract.Module().DEV_TransferLiveImage(handle, 1, 16, frame.data(), &error)) << error;
    EXPECT_GE(std::chrono::steady_clock::now() - started, std::chrono::milliseconds(100));
    FrameId id;
    EXPECT_TRUE(ReadStamp(frame.data(), &id));
    contract.Module().DEV_CloseDevice(handle, &error);
}

}  // namespace
}  // namespace vcam::test
