#include "platform/event.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "eventually.h"
#include "platform/event_waiters.h"

using namespace vmc::platform;

namespace {

constexpr uint32_t kShortMs = 50;
// Long enough never to run out in a passing test; a lost wake-up shows as
// TimedOut instead of a hung run.
constexpr uint32_t kLongMs = 20000;

// Threads blocked in WaitEvent on one event, lined up before the test goes on.
class Waiters {
public:
    Waiters(EventHandle event, std::size_t count, uint32_t timeoutMs = kLongMs) : results_(count) {
        for (std::size_t i = 0; i < count; ++i)
            threads_.emplace_back([this, event, i, timeoutMs] {
                results_[i] = WaitEvent(event, timeoutMs);
                ++finished_;
            });
        lined_up_ = Eventually([&] { return EventWaiterCount(event) == count; });
    }
    ~Waiters() { Join(); }

    bool LinedUp() const { return lined_up_; }
    std::size_t Finished() const { return finished_; }
    const std::vector<WaitResult>& Join() {
        for (auto& thread : threads_)
            if (thread.joinable()) thread.join();
        return results_;
    }

private:
    std::vector<WaitResult> results_;
    std::vector<std::thread> threads_;
    std::atomic<std::size_t> finished_{0};
    bool lined_up_ = false;
};

std::vector<WaitResult> AllTaken(std::size_t count) { return std::vector<WaitResult>(count, WaitResult::Taken); }

class EventTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (EventHandle event : events_) CloseEvent(event);
    }
    EventHandle Make(bool manualReset, bool initiallySet) {
        EventHandle event = CreateEvent(nullptr, manualReset, initiallySet);
        EXPECT_NE(event, nullptr);
        events_.push_back(event);
        return event;
    }

private:
    std::vector<EventHandle> events_;
};

}  // namespace

TEST_F(EventTest, AutoResetSignalIsConsumedByOneWait) {
    EventHandle event = Make(false, true);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::Taken);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::TimedOut);
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::TimedOut);

    SetEvent(event);
    SetEvent(event);  // signals do not add up
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::Taken);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::TimedOut);
}

TEST_F(EventTest, ManualResetSignalStaysUntilReset) {
    EventHandle event = Make(true, false);
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::TimedOut);

    EXPECT_TRUE(SetEvent(event));
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::Taken);
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::Taken);

    EXPECT_TRUE(ResetEvent(event));
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::TimedOut);
}

TEST_F(EventTest, InfiniteWaitEndsWhenSet) {
    EventHandle event = Make(false, false);
    Waiters waiter(event, 1, kInfinite);
    ASSERT_TRUE(waiter.LinedUp());
    SetEvent(event);
    EXPECT_EQ(waiter.Join(), AllTaken(1));
}

TEST_F(EventTest, SetHandsAnAutoResetSignalToOneWaiter) {
    EventHandle event = Make(false, false);
    Waiters waiters(event, 2);
    ASSERT_TRUE(waiters.LinedUp());

    SetEvent(event);
    EXPECT_TRUE(Eventually([&] { return waiters.Finished() >= 1; }));
    EXPECT_EQ(EventWaiterCount(event), 1u);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::TimedOut) << "the released waiter consumed the signal";

    SetEvent(event);
    EXPECT_EQ(waiters.Join(), AllTaken(2));
}

TEST_F(EventTest, SetThenResetStillReleasesEveryManualWaiter) {
    // The waiters were waiting when the event was set; that they wake up only
    // after the reset must not cost them the signal.
    EventHandle event = Make(true, false);
    Waiters waiters(event, 3);
    ASSERT_TRUE(waiters.LinedUp());
    SetEvent(event);
    ResetEvent(event);
    EXPECT_EQ(waiters.Join(), AllTaken(3));
}

TEST_F(EventTest, PulseWithoutWaitersLeavesEventReset) {
    for (bool manual : {false, true}) {
        SCOPED_TRACE(manual ? "manual reset" : "auto reset");
        EventHandle unset = Make(manual, false);
        EXPECT_TRUE(PulseEvent(unset));
        EXPECT_EQ(WaitEvent(unset, kShortMs), WaitResult::TimedOut);

        EventHandle set = Make(manual, true);
        EXPECT_TRUE(PulseEvent(set));
        EXPECT_EQ(WaitEvent(set, 0), WaitResult::TimedOut);
    }
}

TEST_F(EventTest, PulseReleasesEveryManualWaiterAndLeavesEventReset) {
    EventHandle event = Make(true, false);
    Waiters waiters(event, 3);
    ASSERT_TRUE(waiters.LinedUp());
    PulseEvent(event);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::TimedOut);
    EXPECT_EQ(waiters.Join(), AllTaken(3));
}

TEST_F(EventTest, PulseReleasesOneAutoResetWaiter) {
    EventHandle event = Make(false, false);
    Waiters waiters(event, 3);
    ASSERT_TRUE(waiters.LinedUp());

    PulseEvent(event);
    EXPECT_TRUE(Eventually([&] { return waiters.Finished() >= 1; }));
    EXPECT_EQ(EventWaiterCount(event), 2u);
    EXPECT_EQ(WaitEvent(event, 0), WaitResult::TimedOut);

    SetEvent(event);
    SetEvent(event);
    EXPECT_EQ(waiters.Join(), AllTaken(3));
}

TEST_F(EventTest, TimedOutWaiterLeavesTheQueue) {
    // A waiter that gave up must not absorb a later signal meant for the next.
    EventHandle event = Make(false, false);
    EXPECT_EQ(WaitEvent(event, kShortMs), WaitResult::TimedOut);
    EXPECT_EQ(EventWaiterCount(event), 0u);
    Waiters waiter(event, 1);
    ASSERT_TRUE(waiter.LinedUp());
    PulseEvent(event);
    EXPECT_EQ(waiter.Join(), AllTaken(1));
}

TEST(NamedEvent, NameLivesAsLongAsItsLastHandle) {
    EventHandle created = CreateEvent("platform-test-lifetime", true, false);
    ASSERT_NE(created, nullptr);
    EventHandle opened = OpenEvent("platform-test-lifetime");
    ASSERT_NE(opened, nullptr);

    SetEvent(opened);
    EXPECT_EQ(WaitEvent(created, 0), WaitResult::Taken) << "both handles reach one event";

    CloseEvent(created);
    EventHandle reopened = OpenEvent("platform-test-lifetime");
    ASSERT_NE(reopened, nullptr) << "closing one handle kept the name";
    EXPECT_EQ(WaitEvent(reopened, 0), WaitResult::Taken) << "and the state";

    CloseEvent(opened);
    CloseEvent(reopened);
    EXPECT_EQ(OpenEvent("platform-test-lifetime"), nullptr);

    // A new event of the old name starts from its own arguments.
    EventHandle fresh = CreateEvent("platform-test-lifetime", false, false);
    EXPECT_EQ(WaitEvent(fresh, 0), WaitResult::TimedOut);
    CloseEvent(fresh);
}

TEST(NamedEvent, CreatingAnExistingNameOpensItUnchanged) {
    EventHandle first = CreateEvent("platform-test-existing", true, true);
    EventHandle second = CreateEvent("platform-test-existing", false, false);
    ASSERT_NE(second, nullptr);
    // Still set, and still manual: two waits both see it.
    EXPECT_EQ(WaitEvent(second, 0), WaitResult::Taken);
    EXPECT_EQ(WaitEvent(second, 0), WaitResult::Taken);
    CloseEvent(first);
    CloseEvent(second);
}

TEST(NamedEvent, UnnamedAndUnknownEventsCannotBeOpened) {
    EventHandle unnamed = CreateEvent("", true, false);
    ASSERT_NE(unnamed, nullptr);
    EXPECT_EQ(OpenEvent(""), nullptr);
    EXPECT_EQ(OpenEvent(nullptr), nullptr);
    EXPECT_EQ(OpenEvent("platform-test-never-created"), nullptr);
    CloseEvent(unnamed);
}

TEST(Event, NullHandleFailsWithoutHarm) {
    EXPECT_FALSE(SetEvent(nullptr));
    EXPECT_FALSE(ResetEvent(nullptr));
    EXPECT_FALSE(PulseEvent(nullptr));
    EXPECT_EQ(WaitEvent(nullptr, 0), WaitResult::Failed);
    CloseEvent(nullptr);
}
