#include "core/Task.h"

#include <gtest/gtest.h>
#include <QThread>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

Task<int> answer(std::stop_token) {
    auto work = [] { return 42; };
    const auto result = runInBackground(std::move(work));
    co_return co_await result;
}

Task<int> never(std::stop_token stop) {
    const auto asleep = sleepFor(1h, stop);
    co_await asleep;
    co_return 0;
}

TEST(Task, BackgroundWorkRunsElsewhereAndResumesHere) {
    QThread* const home = QThread::currentThread();
    QThread* worker = nullptr;
    const auto flow = [](QThread** where) -> Task<QThread*> {
        auto work = [where] { *where = QThread::currentThread(); };
        const auto done = runInBackground(std::move(work));
        co_await done;
        co_return QThread::currentThread();
    };
    EXPECT_EQ(runUntilDone(flow(&worker)), home);
    EXPECT_NE(worker, nullptr);
    EXPECT_NE(worker, home);
}

TEST(Task, FailuresOfTheWorkReachTheFlow) {
    const auto flow = []() -> Task<bool> {
        auto work = []() -> int { throw TimeLimitExceeded(); };
        const auto result = runInBackground(std::move(work));
        try {
            co_await result;
        } catch (const TimeLimitExceeded&) {
            co_return true;
        }
        co_return false;
    };
    EXPECT_TRUE(runUntilDone(flow()));
}

TEST(Task, CapturedOwnersAreReleasedOnce) {
    const auto owner = std::make_shared<int>(1);
    const auto flow = [](std::shared_ptr<int> shared) -> Task<int> {
        auto work = [shared] { return *shared; };
        const auto result = runInBackground(std::move(work));
        co_return co_await result;
    };
    EXPECT_EQ(runUntilDone(flow(owner)), 1);
    backgroundPool()->waitForDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(owner.use_count(), 1);
}

TEST(Task, TimeLimitEndsAFlowThatHangsAndLeavesAQuickOneAlone) {
    EXPECT_EQ(runUntilDone(withTimeLimit<int>(10s, {}, answer)), 42);
    EXPECT_THROW(runUntilDone(withTimeLimit<int>(10ms, {}, never)), TimeLimitExceeded);
}

TEST(Task, StopEndsASleepAndATimedFlow) {
    std::stop_source stop;
    auto sleeping = never(stop.get_token());
    auto timed = withTimeLimit<int>(1h, stop.get_token(), never);
    stop.request_stop();
    EXPECT_THROW(runUntilDone(std::move(sleeping)), Cancelled);
    EXPECT_THROW(runUntilDone(std::move(timed)), Cancelled);
    EXPECT_THROW(runUntilDone(never(stop.get_token())), Cancelled) << "stopped before it began";
}

TEST(Completion, TheFirstOutcomeWins) {
    const auto flow = [](Completion<int> done) -> Task<int> { co_return co_await done; };
    Completion<int> done;
    done.succeed(1);
    done.succeed(2);
    done.fail(std::make_exception_ptr(Cancelled()));
    EXPECT_EQ(runUntilDone(flow(done)), 1);
}

TEST(SerialQueue, RunsInOrderRethrowsAndRefusesReentry) {
    SerialQueue queue(QStringLiteral("com.kestrio.test"));
    std::vector<int> order;
    for (int i = 0; i < 100; ++i)
        queue.async([&order, i] { order.push_back(i); });
    EXPECT_EQ(queue.sync([&] { return order.size(); }), 100u);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_THROW(queue.sync([] { throw Cancelled(); }), Cancelled);
    EXPECT_THROW(queue.sync([&] { queue.sync([] {}); }), std::logic_error);
}

TEST(SerialQueue, EndsWithWhatIsQueued) {
    std::atomic<int> ran{0};
    {
        SerialQueue queue(QStringLiteral("com.kestrio.test"));
        for (int i = 0; i < 20; ++i)
            queue.async([&] { ++ran; });
    }
    EXPECT_EQ(ran, 20);
}

}  // namespace
}  // namespace kestrio
