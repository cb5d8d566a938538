// Threads opening, closing and calling on different devices at once.
#include <atomic>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Threads : public LibraryTest {};

TEST_F(Threads, OpenCloseAndCallOnDifferentDevices) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    ScriptCamera(258);
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", 0, VMC_CODE_LAST_ERROR, 0, 1, 2, kOk);
    std::atomic<int> failures{0};
    auto worker = [&](uint32_t deviceCode) {
        for (int round = 0; round < 150; ++round) {
            OpenParam param = {deviceCode, 1, VMC_INTERFACE_VIRTUAL};
            uint32_t deviceNo = 64, error = 0, a = 0, b = 0;
            if (!VMC_OpenDevice(&param, &deviceNo, &error)) {
                ++failures;
                continue;
            }
            for (int call = 0; call < 5; ++call)
                if (!VMC_GetLastError(deviceNo, &a, &b, &error) || a != 1) ++failures;
            DeviceRecord record;
            VMC_GetDeviceInfo(deviceNo, &record, &error);
            if (record.deviceCode != deviceCode) ++failures;
            if (!VMC_CloseDevice(deviceNo, &error)) ++failures;
            if (round % 16 == 0) FAKE_ClearLog();
        }
    };
    std::thread first(worker, 16u), second(worker, 258u);
    first.join();
    second.join();
    EXPECT_EQ(0, failures.load());
    uint32_t count = 9, error = 0;
    VMC_GetNumberOfDevice(&count, &error);
    EXPECT_EQ(0u, count);
    EXPECT_FALSE(Loaded("DMOD016"));
    EXPECT_FALSE(Loaded("DMOD258"));
}

TEST_F(Threads, OneDeviceFromManyThreadsStaysConsistent) {
    const uint32_t deviceNo = DetectAndOpen(16);
    // The module counts how many callers are inside at once under the device lock.
    struct Inside {
        std::atomic<int> now{0}, most{0};
    } inside;
    FAKE_SetHook("DEV_GetDeviceCaps", VMC_CODE_LAST_ERROR,
                 [](const FakeCall*, void* context) {
                     auto* in = static_cast<Inside*>(context);
                     int n = ++in->now;
                     int most = in->most.load();
                     while (n > most && !in->most.compare_exchange_weak(most, n)) {}
                     std::this_thread::yield();
                     --in->now;
                 },
                 &inside);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                uint32_t a = 0, b = 0, error = 0;
                VMC_GetLastError(deviceNo, &a, &b, &error);
            }
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(1, inside.most.load());
}

}  // namespace
}  // namespace vmc::test
