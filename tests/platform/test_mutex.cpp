#include "platform/mutex.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace vmc::platform;

namespace {

constexpr uint32_t kShortMs = 50;

// What a wait from another thread gets; that thread releases what it takes.
WaitResult WaitFromOtherThread(MutexHandle mutex, uint32_t timeoutMs) {
    WaitResult result = WaitResult::Failed;
    std::thread([&] {
        result = WaitMutex(mutex, timeoutMs);
        if (result == WaitResult::Taken) ReleaseMutex(mutex);
    }).join();
    return result;
}

bool ReleaseFromOtherThread(MutexHandle mutex) {
    bool released = true;
    std::thread([&] { released = ReleaseMutex(mutex); }).join();
    return released;
}

class MutexTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(mutex, nullptr); }
    void TearDown() override { CloseMutex(mutex); }
    MutexHandle mutex = CreateMutex();
};

}  // namespace

TEST_F(MutexTest, OwnerRetakesAndNeedsOneReleasePerTake) {
    ASSERT_EQ(WaitMutex(mutex, kShortMs), WaitResult::Taken);
    ASSERT_EQ(WaitMutex(mutex, kShortMs), WaitResult::Taken);
    ASSERT_EQ(WaitMutex(mutex, kShortMs), WaitResult::Taken);

    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitFromOtherThread(mutex, kShortMs), WaitResult::TimedOut) << "one level still held";

    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitFromOtherThread(mutex, kShortMs), WaitResult::Taken);
    EXPECT_FALSE(ReleaseMutex(mutex)) << "released more often than taken";
}

TEST_F(MutexTest, OnlyTheOwnerReleases) {
    EXPECT_FALSE(ReleaseMutex(mutex)) << "nobody owns it";

    ASSERT_EQ(WaitMutex(mutex), WaitResult::Taken);
    EXPECT_FALSE(ReleaseFromOtherThread(mutex));
    EXPECT_EQ(WaitFromOtherThread(mutex, kShortMs), WaitResult::TimedOut) << "still owned after a foreign release";
    EXPECT_TRUE(ReleaseMutex(mutex));
}

TEST_F(MutexTest, WaiterGetsItOnceTheHolderReleases) {
    std::promise<void> taken, release;
    std::thread holder([&] {
        WaitMutex(mutex);
        taken.set_value();
        release.get_future().wait();
        ReleaseMutex(mutex);
    });
    taken.get_future().wait();

    EXPECT_EQ(WaitMutex(mutex, kShortMs), WaitResult::TimedOut);
    EXPECT_EQ(WaitMutex(mutex, 0), WaitResult::TimedOut);

    release.set_value();
    EXPECT_EQ(WaitMutex(mutex, 10000), WaitResult::Taken);
    EXPECT_TRUE(ReleaseMutex(mutex));
    holder.join();
}

TEST_F(MutexTest, MutexOfADeadOwnerIsTakenAtDepthOne) {
    // The owner dies three levels deep; the next owner starts afresh.
    std::thread([&] {
        for (int i = 0; i < 3; ++i) ASSERT_EQ(WaitMutex(mutex), WaitResult::Taken);
    }).join();

    ASSERT_EQ(WaitMutex(mutex, kShortMs), WaitResult::Taken);
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_FALSE(ReleaseMutex(mutex));

    // Still usable, by anyone, after the recovery.
    EXPECT_EQ(WaitFromOtherThread(mutex, kShortMs), WaitResult::Taken);
    EXPECT_EQ(WaitMutex(mutex, kShortMs), WaitResult::Taken);
    EXPECT_TRUE(ReleaseMutex(mutex));
}

TEST(Mutex, NullHandleFailsWithoutHarm) {
    EXPECT_EQ(WaitMutex(nullptr, kShortMs), WaitResult::Failed);
    EXPECT_FALSE(ReleaseMutex(nullptr));
    CloseMutex(nullptr);
}
