#include "platform/thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "eventually.h"
#include "platform/event.h"
#include "platform/event_waiters.h"

using namespace vmc::platform;

namespace {

constexpr uint32_t kShortMs = 50;
constexpr uint32_t kLongMs = 20000;

// Shared with a worker: what it saw, and when it may return.
struct Worker {
    std::atomic<bool> started{false};
    std::atomic<bool> mayFinish{false};
    std::atomic<bool> terminationSeenAtStart{true};
    std::atomic<bool> sawTermination{false};
    uint32_t code = 0;
    EventHandle event = nullptr;
    std::atomic<WaitResult> waitResult{WaitResult::Taken};
};

void Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

uint32_t RunUntilAllowed(void* arg) {
    auto* worker = static_cast<Worker*>(arg);
    worker->terminationSeenAtStart = TerminationRequested();
    worker->started = true;
    while (!worker->mayFinish) Pause();
    return worker->code;
}

uint32_t RunUntilTerminated(void* arg) {
    auto* worker = static_cast<Worker*>(arg);
    worker->started = true;
    while (!TerminationRequested()) Pause();
    worker->sawTermination = true;
    return 7;
}

uint32_t WaitForEventForever(void* arg) {
    auto* worker = static_cast<Worker*>(arg);
    worker->waitResult = WaitEvent(worker->event, kInfinite);
    return 0;
}

// The threads of this process; a thread that never ends keeps its entry.
std::size_t ThreadCount() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) ++count;
    return count;
}

// The count before a test's own threads. A runtime may start a helper
// thread of its own with the first thread a process creates (the thread
// sanitizer does); one thread started and joined first makes sure that
// helper is counted here, not taken for a worker that never went.
std::size_t ThreadCountAtRest() {
    std::thread([] {}).join();
    return ThreadCount();
}

}  // namespace

TEST(Thread, SuspendedThreadRunsAfterResumeAndReportsItsCode) {
    Worker worker;
    worker.mayFinish = true;
    worker.code = 5;
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ASSERT_NE(thread, nullptr);

    EXPECT_FALSE(JoinThread(thread, kShortMs)) << "ran without being resumed";
    EXPECT_FALSE(worker.started);
    EXPECT_EQ(GetExitCodeThread(thread), kStillActive);

    EXPECT_TRUE(ResumeThread(thread));
    ASSERT_TRUE(JoinThread(thread, kLongMs));
    EXPECT_TRUE(worker.started);
    EXPECT_EQ(GetExitCodeThread(thread), 5u);
    CloseThread(thread);
}

TEST(Thread, ExitCodeReadsStillActiveUntilTheProcedureReturns) {
    Worker worker;
    worker.code = 0;  // a real code of 0 must not read as "running"
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ASSERT_NE(thread, nullptr);
    ResumeThread(thread);
    ASSERT_TRUE(Eventually([&] { return worker.started.load(); }));

    EXPECT_EQ(GetExitCodeThread(thread), kStillActive);
    EXPECT_FALSE(JoinThread(thread, kShortMs));
    EXPECT_FALSE(worker.terminationSeenAtStart);
    EXPECT_FALSE(TerminationRequested()) << "the test's own thread is no worker";

    worker.mayFinish = true;
    ASSERT_TRUE(JoinThread(thread, kInfinite));
    EXPECT_EQ(GetExitCodeThread(thread), 0u);
    CloseThread(thread);
}

TEST(Thread, TerminateRecordsTheCodeAtOnceAndTheWorkerSeesIt) {
    Worker worker;
    ThreadHandle thread = CreateThreadSuspended(RunUntilTerminated, &worker);
    ASSERT_NE(thread, nullptr);
    ResumeThread(thread);
    ASSERT_TRUE(Eventually([&] { return worker.started.load(); }));

    EXPECT_TRUE(TerminateThread(thread, 42));
    EXPECT_EQ(GetExitCodeThread(thread), 42u) << "recorded before the worker stops";

    ASSERT_TRUE(JoinThread(thread, kLongMs));
    EXPECT_TRUE(worker.sawTermination);
    EXPECT_EQ(GetExitCodeThread(thread), 42u) << "the worker's own return value must not replace it";

    TerminateThread(thread, 43);
    EXPECT_EQ(GetExitCodeThread(thread), 42u) << "a second terminate changes nothing";
    CloseThread(thread);
}

TEST(Thread, TerminatedSuspendedThreadEndsWithoutRunning) {
    Worker worker;
    worker.mayFinish = true;
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ASSERT_NE(thread, nullptr);

    TerminateThread(thread, 9);
    ASSERT_TRUE(JoinThread(thread, kLongMs));
    ResumeThread(thread);
    EXPECT_FALSE(worker.started);
    EXPECT_EQ(GetExitCodeThread(thread), 9u);
    CloseThread(thread);
}

TEST(Thread, TerminateAfterTheEndKeepsTheRealCode) {
    Worker worker;
    worker.mayFinish = true;
    worker.code = 3;
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ResumeThread(thread);
    ASSERT_TRUE(JoinThread(thread, kLongMs));
    TerminateThread(thread, 42);
    EXPECT_EQ(GetExitCodeThread(thread), 3u);
    CloseThread(thread);
}

TEST(Thread, TerminateWakesAWorkerFromAnUnboundedEventWait) {
    Worker worker;
    worker.event = CreateEvent(nullptr, false, false);
    ThreadHandle thread = CreateThreadSuspended(WaitForEventForever, &worker);
    ASSERT_NE(thread, nullptr);
    ResumeThread(thread);
    ASSERT_TRUE(Eventually([&] { return EventWaiterCount(worker.event) == 1; }));

    TerminateThread(thread, 203);
    ASSERT_TRUE(JoinThread(thread, kLongMs));
    EXPECT_EQ(worker.waitResult.load(), WaitResult::Failed);
    EXPECT_EQ(GetExitCodeThread(thread), 203u);

    // The signal is left for others, not taken by the stopping worker.
    SetEvent(worker.event);
    EXPECT_EQ(WaitEvent(worker.event, 0), WaitResult::Taken);
    CloseThread(thread);
    CloseEvent(worker.event);
}

// The two tests below see the worker's end only through /proc, so its Worker
// outlives the test rather than leave the stack to the next one.

TEST(Thread, ClosedRunningThreadFinishesAndGoes) {
    const std::size_t before = ThreadCountAtRest();
    static Worker worker;
    worker.code = 1;
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ASSERT_NE(thread, nullptr);
    ResumeThread(thread);
    ASSERT_TRUE(Eventually([&] { return worker.started.load(); }));

    CloseThread(thread);
    worker.mayFinish = true;
    EXPECT_TRUE(Eventually([&] { return ThreadCount() <= before; }));
}

TEST(Thread, ClosedSuspendedThreadEndsWithoutRunning) {
    const std::size_t before = ThreadCountAtRest();
    static Worker worker;
    worker.mayFinish = true;
    ThreadHandle thread = CreateThreadSuspended(RunUntilAllowed, &worker);
    ASSERT_NE(thread, nullptr);

    CloseThread(thread);
    ASSERT_TRUE(Eventually([&] { return ThreadCount() <= before; })) << "left waiting at its gate";
    EXPECT_FALSE(worker.started);
}

TEST(Thread, NullHandleFailsWithoutHarm) {
    EXPECT_EQ(CreateThreadSuspended(nullptr, nullptr), nullptr);
    EXPECT_FALSE(ResumeThread(nullptr));
    EXPECT_FALSE(TerminateThread(nullptr, 1));
    EXPECT_FALSE(JoinThread(nullptr, 0));
    CloseThread(nullptr);
}
