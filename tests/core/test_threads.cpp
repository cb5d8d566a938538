// Threads opening, closing and calling on different devices at once, and
// stress that would find a race: readers beside writers of the cached
// records, and the device and global locks taken from many threads.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

class Threads : public LibraryTest {};

// Two threads open and close cameras (one of the global-lock set) while a
// third calls on a camera that stays open all along.
TEST_F(Threads, OpenCloseAndCallOnDifferentDevices) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(16);
    ScriptCamera(258);
    ScriptCamera(1, 5);
    FAKE_SetAnswer(nullptr, "DEV_GetDeviceCaps", 0, VMC_CODE_LAST_ERROR, 0, 1, 2, kOk);
    const uint32_t steady = Open(1);
    std::atomic<int> failures{0};
    std::atomic<bool> done{false};
    std::thread caller([&] {
        while (!done.load()) {
            uint32_t rate = 0, cached = 0, error = 0;
            if (!VMC_ReqRecordRate(steady, 1, &rate, &error) || !VMC_GetRecordRate(steady, 1, &cached, &error) ||
                rate != 1000 || cached != 1000)
                ++failures;
            std::this_thread::sleep_for(std::chrono::microseconds(100));  // a caller, not a spinner
        }
    });
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
    done = true;
    caller.join();
    EXPECT_EQ(0, failures.load());
    uint32_t count = 9, error = 0;
    VMC_CloseDevice(steady, &error);
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

// ---- Stress: each bounded to a fraction of a second of work -----------------

// Runs body on n threads until the deadline and returns how many rounds ran.
template <class Body>
long RunFor(int n, std::chrono::milliseconds duration, Body body) {
    const auto deadline = std::chrono::steady_clock::now() + duration;
    std::atomic<long> rounds{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < n; ++t)
        threads.emplace_back([&, t] {
            while (std::chrono::steady_clock::now() < deadline) {
                body(t);
                ++rounds;
            }
        });
    for (auto& thread : threads) thread.join();
    return rounds.load();
}

void Report(const char* what, long operations, std::chrono::milliseconds duration) {
    std::printf("[ stress ] %s: %ld operations/s\n", what, operations * 1000 / duration.count());
}

bool OneOf(uint32_t value, std::initializer_list<uint32_t> allowed) {
    return std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

// Requests and the status poll rewrite a head's rate and resolution while
// lock-free readers load them; a reader holding the device lock, as a module
// may, sees the resolution pair as one request stored it.
TEST_F(Threads, CachedReadsSeeOnlyValuesThatWereWritten) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(1, 7, {1, 2}, 2);
    const uint32_t deviceNo = Open(1);
    // What a head answers to a poll besides what it answers at open.
    for (uint32_t code : {VMC_CODE_COLOR_TYPE, VMC_CODE_SEGMENT_POSITION, VMC_CODE_CAM_MODE, VMC_CODE_PARTITION_COUNT,
                          VMC_CODE_CURRENT_PARTITION})
        FAKE_SetAnswer("DMOD001", "DEV_GetDeviceCaps", FAKE_ANY, code, 0, 1, 0, kOk);
    const vmc_lock_slot deviceLock = FAKE_LockSlot("DMOD001", 7, 0);
    ASSERT_TRUE(deviceLock);
    constexpr uint32_t kRates[] = {2000, 0x7FFF8000u};
    constexpr uint32_t kSizes[][2] = {{640, 480}, {0xFFFF, 0x0001}};
    std::atomic<int> wrong{0};
    const auto duration = std::chrono::milliseconds(600);
    const long operations = RunFor(4, duration, [&](int t) {
        uint32_t a = 0, b = 0, error = 0;
        static thread_local int round = 0;
        const int i = ++round % 2;
        switch (t) {
        case 0:  // requests, each after the camera changed its answer
            FAKE_SetAnswer("DMOD001", "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_RECORD_RATE, 0, kRates[i], 0, kOk);
            FAKE_SetAnswer("DMOD001", "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_RESOLUTION, 0,
                           kSizes[i][0] << 16 | kSizes[i][1], 0, kOk);
            if (!VMC_ReqRecordRate(deviceNo, 1, &a, &error) || !VMC_ReqResolution(deviceNo, 1, &a, &b, &error))
                ++wrong;
            break;
        case 1:  // the poll refreshes both heads with whatever the camera says now
            if (!VMC_DeviceStatusUpdate(deviceNo, &error)) ++wrong;
            break;
        case 2: {  // lock-free readers: each field old or new, never a mix
            ChildRecord copy;
            if (!VMC_GetRecordRate(deviceNo, 1 + i, &a, &error) || !OneOf(a, {1000, kRates[0], kRates[1]})) ++wrong;
            if (!VMC_GetChildInfo(deviceNo, 1 + i, &copy, &error) || !OneOf(copy.recordRate, {1000, kRates[0], kRates[1]}) ||
                !OneOf(copy.width, {1024, kSizes[0][0], kSizes[1][0]}) || !OneOf(copy.height, {512, kSizes[0][1], kSizes[1][1]}))
                ++wrong;
            break;
        }
        case 3:  // under the device lock a pair is whole
            pthread_mutex_lock(*deviceLock);
            VMC_GetResolution(deviceNo, 1, &a, &b, &error);
            pthread_mutex_unlock(*deviceLock);
            if (!(a == 1024 && b == 512) && !(a == kSizes[0][0] && b == kSizes[0][1]) &&
                !(a == kSizes[1][0] && b == kSizes[1][1]))
                ++wrong;
            break;
        }
    });
    Report("cached reads beside requests and polls", operations, duration);
    EXPECT_EQ(0, wrong.load());
    EXPECT_FALSE(HeldElsewhere(deviceLock));
}

// Readers polling a device number while the camera is opened there see each
// field zero or loaded, the 64-bit serial number never half written.
TEST_F(Threads, TheStateLoadPublishesFieldsWhole) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(258, 7, {1, 2}, 2);
    // The test module answers the low word of the serial number; the high word stays 0.
    constexpr uint64_t kSerial = 0x89ABCDEFull;
    FAKE_SetAnswer("DMOD258", "DEV_GetDeviceCaps", FAKE_ANY, VMC_CODE_SERIAL_NUMBER, 0,
                   static_cast<uint32_t>(kSerial), 0, kOk);
    std::atomic<int> wrong{0};
    long reads = 0;
    for (int round = 0; round < 20; ++round) {
        std::atomic<bool> opened{false};
        std::vector<std::thread> readers;
        std::atomic<long> roundReads{0};
        for (int t = 0; t < 2; ++t)
            readers.emplace_back([&] {
                do {
                    uint64_t serial = 0;
                    uint32_t id = 0, rate = 0, error = 0;
                    VMC_GetSerialNumber(0, 0, &serial, &error);
                    VMC_GetDeviceID(0, &id, &error);
                    if (VMC_GetRecordRate(0, 2, &rate, &error) && !OneOf(rate, {0, 1000})) ++wrong;
                    if ((serial != 0 && serial != kSerial) || !OneOf(id, {0, 4258})) ++wrong;
                    ++roundReads;
                } while (!opened.load());
            });
        OpenParam param = {258, 1, VMC_INTERFACE_VIRTUAL};
        uint32_t deviceNo = VMC_MAX_DEVICES, error = 0;
        const uint32_t result = VMC_OpenDevice(&param, &deviceNo, &error);
        opened = true;
        for (auto& reader : readers) reader.join();
        reads += roundReads.load();
        ASSERT_EQ(1u, result);
        ASSERT_EQ(0u, deviceNo);
        VMC_CloseDevice(deviceNo, &error);  // only once every reader is done, as a close requires
    }
    std::printf("[ stress ] reads beside 20 opens: %ld\n", reads);
    EXPECT_EQ(0, wrong.load());
}

// Many threads take one device's lock, through calls and as a module does,
// and the global lock before it: one holder at a time, every wait ends with
// the lock, and nothing is held at the end.
TEST_F(Threads, LocksTakenFromManyThreadsAreExclusiveAndAllFreeAtTheEnd) {
    Detect(VMC_INTERFACE_VIRTUAL);
    ScriptCamera(1);
    ScriptCamera(16, 9);
    const uint32_t deviceNo = Open(1);
    Open(16);  // a member of the global-lock set: every open from now on takes the global lock
    const vmc_lock_slot deviceLock = FAKE_LockSlot("DMOD001", 7, 0);
    const vmc_lock_slot globalLock = FAKE_LockSlot("DMOD001", 7, FAKE_GLOBAL_LOCK);
    ASSERT_TRUE(deviceLock && globalLock);
    // Inside the module's answer the device lock is held by the caller.
    std::atomic<int> inside{0}, overlaps{0}, failures{0};
    auto enter = [&] {
        if (inside.fetch_add(1) != 0) ++overlaps;
        std::this_thread::yield();
        inside.fetch_sub(1);
    };
    FAKE_SetHook("DEV_GetDeviceCaps", VMC_CODE_RECORD_RATE, [](const FakeCall*, void* c) { (*static_cast<decltype(enter)*>(c))(); }, &enter);
    const auto duration = std::chrono::milliseconds(500);
    const long operations = RunFor(4, duration, [&](int t) {
        uint32_t value = 0, error = 0;
        if (t < 2) {  // through the library: the wait ends with the lock, never error 9
            if (!VMC_ReqRecordRate(deviceNo, 1, &value, &error) || error != kOk) ++failures;
            return;
        }
        // As a module holding both: global first, then the device, twice over (recursion).
        timespec deadline{};
        clock_gettime(CLOCK_REALTIME, &deadline);
        deadline.tv_sec += VMC_LOCK_TIMEOUT_MS / 1000;
        if (pthread_mutex_timedlock(*globalLock, &deadline) != 0) {
            ++failures;
            return;
        }
        if (pthread_mutex_timedlock(*deviceLock, &deadline) != 0 || pthread_mutex_lock(*deviceLock) != 0) {
            ++failures;
        } else {
            enter();
            pthread_mutex_unlock(*deviceLock);
            pthread_mutex_unlock(*deviceLock);
        }
        pthread_mutex_unlock(*globalLock);
    });
    Report("device and global lock takers", operations, duration);
    EXPECT_EQ(0, failures.load());
    EXPECT_EQ(0, overlaps.load());
    EXPECT_FALSE(HeldElsewhere(deviceLock));
    EXPECT_FALSE(HeldElsewhere(globalLock));
    FAKE_SetHook("DEV_GetDeviceCaps", VMC_CODE_RECORD_RATE, nullptr, nullptr);
}

}  // namespace
}  // namespace vmc::test
