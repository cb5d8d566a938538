// A fault swept over the open: each module call of one full open fails in
// turn, once, and whether the open then fails or carries on, once it is
// over (and the device closed) nothing of the device may remain: no record,
// no open count, no module, no lock. Under the sanitizers the same sweep
// finds what a failure path leaks or touches after freeing.
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/core/library_test.h"

namespace vmc::test {
namespace {

// A camera of the set whose opens take the library-wide lock once one of
// them has been open, so that every failure path must give that lock back.
constexpr uint32_t kDeviceCode = 15;
constexpr uint32_t kHandle = 7;

// Tries a lock from a thread of its own, which is what "held" means for a
// recursive lock. One thread for the whole sweep: one for each check makes
// the sweep slow under the sanitizers.
class LockProbe {
public:
    LockProbe() : thread_([this] { Serve(); }) {}
    ~LockProbe() {
        {
            const std::lock_guard lock(mutex_);
            stop_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    bool Held(vmc_lock_slot slot) {
        std::unique_lock lock(mutex_);
        asked_ = slot;
        changed_.notify_all();
        changed_.wait(lock, [&] { return !asked_; });
        return held_;
    }

private:
    void Serve() {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [&] { return stop_ || asked_; });
            if (stop_) return;
            const int rc = pthread_mutex_trylock(*asked_);
            if (rc == 0) pthread_mutex_unlock(*asked_);
            held_ = rc == EBUSY;
            asked_ = nullptr;
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    vmc_lock_slot asked_ = nullptr;
    bool held_ = false, stop_ = false;
    std::thread thread_;
};

class OpenFaults : public LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        ASSERT_EQ(kOk, Detect(VMC_INTERFACE_VIRTUAL));
    }

    // Two heads in two slots, so that the heads are loaded too.
    static void ScriptFullCamera() { ScriptCamera(kDeviceCode, kHandle, {1, 2}, 2); }

    static uint32_t TryOpen(uint32_t* deviceNo) {
        OpenParam param = {kDeviceCode, 4000 + kDeviceCode, VMC_INTERFACE_VIRTUAL};
        uint32_t error = 0;
        *deviceNo = VMC_MAX_DEVICES;
        return VMC_OpenDevice(&param, deviceNo, &error);
    }

    // The module calls of one open that nothing fails, oldest first.
    static std::vector<std::string> CallsOfOneOpen() {
        FAKE_Reset();
        ScriptFullCamera();
        uint32_t deviceNo = 0, error = 0;
        EXPECT_EQ(1u, TryOpen(&deviceNo));
        const std::vector<std::string> calls = Calls();
        ChildRecord head;
        EXPECT_EQ(1u, VMC_GetChildInfo(deviceNo, 2, &head, &error)) << "the heads were loaded";
        EXPECT_EQ(1u, VMC_CloseDevice(deviceNo, &error));
        return calls;
    }

    void ExpectNothingLeft(const std::string& module, bool moduleStays) {
        uint32_t count = 1, error = 0;
        VMC_GetNumberOfDevice(&count, &error);
        EXPECT_EQ(0u, count) << "open devices";
        // With nothing else open, every open takes record 0.
        static const DeviceRecord kFree = {};
        const DeviceRecord record = Info(0);
        EXPECT_EQ(0, std::memcmp(&kFree, &record, sizeof kFree)) << "record 0";
        EXPECT_EQ(moduleStays, Loaded(module.c_str())) << "module file";
        // Close frees the device's locks, also one a failing step kept; the library-wide one stays.
        for (uint32_t which = 0; which < 4; ++which) {
            vmc_lock_slot slot = FAKE_LockSlot(module.c_str(), kHandle, which);
            EXPECT_TRUE(!slot || !*slot) << "device lock " << which << " not freed";
        }
        vmc_lock_slot global = FAKE_LockSlot(module.c_str(), kHandle, FAKE_GLOBAL_LOCK);
        EXPECT_FALSE(global && *global && probe_.Held(global)) << "library-wide lock held";
        // Detection refuses a virtual link that still counts a device open on it.
        EXPECT_EQ(kOk, Detect(VMC_INTERFACE_VIRTUAL)) << "link open count";
    }

    LockProbe probe_;
};

TEST_F(OpenFaults, EveryCallOfTheOpenFailsInTurn) {
    // 21 marks a function the camera lacks and the load goes on; 9 ends the
    // load, but where a name read takes a stand-in name, which only 202 ends.
    const uint32_t errors[] = {VMC_ERR_NOT_SUPPORTED, VMC_ERR_LOCK_TIMEOUT, VMC_ERR_MODULE_FATAL};
    const std::string module = ModuleOf(kDeviceCode);
    const std::vector<std::string> calls = CallsOfOneOpen();
    ASSERT_GT(calls.size(), 20u);
    for (const uint32_t code : errors) {
        for (uint32_t n = 0; n < calls.size(); ++n) {
            SCOPED_TRACE(module + " call " + std::to_string(n) + " (" + calls[n] + ") fails with " +
                         std::to_string(code));
            FAKE_Reset();
            ScriptFullCamera();
            FAKE_FailCall(n, code);
            uint32_t deviceNo = 0, error = 0;
            const uint32_t opened = TryOpen(&deviceNo);
            // Up to call n the open is the full one, so the fault hits the call it was meant for.
            FakeCall failed;
            ASSERT_TRUE(FAKE_GetCall(n, &failed));
            ASSERT_EQ(calls[n], Describe(failed));
            ASSERT_EQ(code, failed.error);
            if (opened) {
                EXPECT_EQ(1u, VMC_CloseDevice(deviceNo, &error));
            }
            // A module whose DEV_OpenDevice failed stays loaded, unused, for the next open.
            const bool moduleStays = !opened && calls[n] == "DEV_OpenDevice";
            ExpectNothingLeft(module, moduleStays);
            if (moduleStays) CallsOfOneOpen();  // unloads it again
            if (HasFailure()) return;  // one broken path, not a cascade after it
        }
    }
}

}  // namespace
}  // namespace vmc::test
