// A recording made through the module contract and read back: frames carry
// the numbers the library asks for, also before the trigger, and the side
// data of neighbouring frames is one frame period apart.
#include <chrono>
#include <cstring>
#include <thread>
#include <vector>

#include "camera/image.h"
#include "contract.h"

namespace vcam::test {
namespace {

class Recording : public ::testing::Test {
protected:
    void SetUp() override {
        uint32_t ids[64], codes[64];
        ASSERT_EQ(2u, contract_.Detect(ids, codes));
        handle_ = contract_.Open(ids[0]);
    }
    void TearDown() override {
        uint32_t error = 0;
        dev().DEV_CloseDevice(handle_, &error);
    }
    const DeviceModule& dev() const { return contract_.Module(); }

    uint32_t Caps(uint32_t child, uint32_t code, uint32_t* second = nullptr) {
        uint32_t value = 0, error = 0;
        EXPECT_EQ(1u, dev().DEV_GetDeviceCaps(handle_, child, code, 0, &value, second, &error)) << code;
        return value;
    }
    void Set(uint32_t code, uint32_t value1, uint32_t value2 = 0) {
        uint32_t error = 0;
        EXPECT_EQ(1u, dev().DEV_SetDeviceCaps(handle_, 0, code, 0, value1, value2, &error)) << code << " " << error;
    }
    // Starts a recording in a trigger mode (armed with 2 to wait for the
    // trigger, or endless with 4 to record ahead of it), triggers, lets the
    // camera record a moment, stops what still runs, and shows it.
    uint32_t Record(uint32_t mode, uint32_t start = 2) {
        Set(VMC_CODE_TRIGGER_MODE, mode, 0);
        Set(VMC_CODE_STATUS, start);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Set(VMC_CODE_STATUS, 8);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        if (Caps(0, VMC_CODE_STATUS) != 0) Set(VMC_CODE_STATUS, 0);  // still going: stop it
        Set(VMC_CODE_STATUS, 1);
        return Caps(1, VMC_CODE_RECORDED_FRAMES);
    }
    // The caller's frame number read back from the stamp of memory frame `index`.
    int32_t NumberAt(uint32_t index, uint32_t depth) {
        const uint32_t resolution = Caps(1, VMC_CODE_RESOLUTION);
        std::vector<uint8_t> frame(size_t(resolution >> 16) * (resolution & 0xFFFF) * (depth > 8 ? 2 : 1));
        uint32_t error = 0;
        EXPECT_EQ(1u, dev().DEV_TransferMemImage(handle_, 1, index, depth, frame.data(), &error)) << error;
        FrameId id;
        EXPECT_TRUE(ReadStamp(frame.data(), &id));
        return id.number;
    }

    Contract contract_;
    vmc_device_handle handle_ = 0;
};

TEST_F(Recording, StartModeFramesReadBackByNumberAtBothDepths) {
    const uint32_t recorded = Record(0);
    ASSERT_GT(recorded, 2u);
    EXPECT_EQ(1, NumberAt(1, 8));
    EXPECT_EQ(1, NumberAt(1, 16));
    EXPECT_EQ(static_cast<int32_t>(recorded), NumberAt(recorded, 16));
    uint32_t error = 0;
    std::vector<uint8_t> frame(4 << 20);
    EXPECT_EQ(0u, dev().DEV_TransferMemImage(handle_, 1, recorded + 1, 16, frame.data(), &error));
    EXPECT_EQ(VMC_ERR_BAD_ARGUMENT, error);
}

TEST_F(Recording, EndModeFramesBeforeTheTriggerAreNegative) {
    const uint32_t recorded = Record(0x2000000, 4);
    ASSERT_GT(recorded, 10u);
    // The library's numbering: start 1 - R, end 1 without frame zero; a
    // negative frame f goes to the module as |start| + 1 + f + end.
    const int32_t start = 1 - static_cast<int32_t>(recorded), end = 1;
    for (int32_t frame : {-1, -5, start}) {
        const uint32_t index = static_cast<uint32_t>(-start + 1 + frame + end);
        EXPECT_EQ(frame, NumberAt(index, 16)) << "index " << index;
    }
}

TEST_F(Recording, IrigOfNeighbouringFramesIsOneFramePeriodApart) {
    Record(0);
    const uint32_t rate = Caps(1, VMC_CODE_RECORD_RATE);
    ASSERT_GT(rate, 0u);
    uint8_t records[2 * 20] = {};
    uint32_t scratch = 0, error = 0;
    ASSERT_EQ(1u, dev().DEV_GetData(handle_, 1, VMC_DATA_MEM_IRIG, 2, 2, records, &scratch, &error)) << error;
    auto micros = [&](const uint8_t* record) {
        uint32_t days, sub;
        std::memcpy(&days, record, 4);
        std::memcpy(&sub, record + 8, 4);
        return ((uint64_t(days) * 24 + record[4]) * 3600 + record[5] * 60u + record[6]) * 1000000ull + sub;
    };
    EXPECT_EQ(1000000ull / rate, micros(records + 20) - micros(records));
}

TEST_F(Recording, SplitTransfersWithAndWithoutReadAhead) {
    const uint32_t recorded = Record(0);
    ASSERT_GT(recorded, 3u);
    const uint32_t resolution = Caps(1, VMC_CODE_RESOLUTION);
    std::vector<uint8_t> frame(size_t(resolution >> 16) * (resolution & 0xFFFF) * 2);
    uint32_t error = 0;
    FrameId id;

    ASSERT_EQ(1u, dev().DEV_TransferMemImageStart(handle_, 1, 2, 16, 0, &error)) << error;
    EXPECT_EQ(0u, dev().DEV_TransferMemImageStart(handle_, 1, 3, 16, 0, &error));
    EXPECT_EQ(VMC_ERR_TRANSFER_STATE, error);  // one open pair a channel
    ASSERT_EQ(1u, dev().DEV_TransferMemImageEnd(handle_, 1, 16, frame.data(), &error));
    ASSERT_TRUE(ReadStamp(frame.data(), &id));
    EXPECT_EQ(2, id.number);
    EXPECT_EQ(0u, dev().DEV_TransferMemImageEnd(handle_, 1, 16, frame.data(), &error));
    EXPECT_EQ(VMC_ERR_TRANSFER_STATE, error);

    // Reading ahead, the frame travels in the background under the channel's
    // lock: while the caller holds that lock the transfer waits, then completes.
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_t mutex;
    pthread_mutex_init(&mutex, &attributes);
    vmc_lock_handle lock = &mutex;
    uint32_t scratch = 0;
    ASSERT_EQ(1u, dev().DEV_SetData(handle_, 0, VMC_DATA_DEVICE_MUTEX, 2, 0, &lock, &scratch, &error));
    Set(VMC_CODE_READ_AHEAD_TRANSFER, 1);
    pthread_mutex_lock(&mutex);
    ASSERT_EQ(1u, dev().DEV_TransferMemImageStart2(handle_, 1, 3, 16, 3, 0, &error)) << error;
    pthread_mutex_unlock(&mutex);
    ASSERT_EQ(1u, dev().DEV_TransferMemImageEnd2(handle_, 1, 16, 3, frame.data(), &error)) << error;
    ASSERT_TRUE(ReadStamp(frame.data(), &id));
    EXPECT_EQ(3, id.number);
    pthread_mutex_destroy(&mutex);
}

}  // namespace
}  // namespace vcam::test
