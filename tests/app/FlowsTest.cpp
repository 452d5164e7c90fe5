#include "app/flows/FlowFailure.h"
#include "app/flows/SessionArbiter.h"
#include "imaging/ExportError.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(FlowFailure, GivesEveryErrorItsCaseAndItsExitStatus) {
    using Case = FlowFailure::Case;
    const auto failure = [](const auto& error) {
        return FlowFailure::from(error, QStringLiteral("Title"));
    };
    for (const FlowFailure& each :
         {failure(Cancelled()), failure(CaptureError(CaptureError::Case::cancelled)),
          failure(ExportError::userCancelled())}) {
        EXPECT_EQ(each.which(), Case::cancelled);
        EXPECT_EQ(each.exitStatus(), ExitStatus::cancelled);
        EXPECT_TRUE(each.reason().isEmpty());
    }
    const FlowFailure denied = failure(CaptureError::permissionDenied(QStringLiteral("not here")));
    EXPECT_EQ(denied.which(), Case::permissionDenied);
    EXPECT_EQ(denied.exitStatus(), ExitStatus::failed);
    EXPECT_EQ(denied.reason(), u"not here");

    const ExportError full = ExportError::fileWriteFailed(QStringLiteral("/full"));
    const FlowFailure unwritten = failure(full);
    EXPECT_EQ(unwritten.which(), Case::alert);
    EXPECT_EQ(unwritten.exitStatus(), ExitStatus::failed);
    EXPECT_EQ(unwritten.title(), u"Title");
    EXPECT_EQ(unwritten.reason(), full.fullDescription());
    EXPECT_TRUE(unwritten.text().contains(full.errorDescription()));
    EXPECT_TRUE(failure(std::runtime_error("odd")).reason().contains(u"odd"));
}

using Turn = std::shared_ptr<ScreenTurn>;

/// Notes when it gets the screen, and keeps it until told.
Task<> takeTurn(SessionArbiter* arbiter, int number, std::vector<int>* order, Completion<> over) {
    auto waiting = arbiter->takeScreen({});
    const Turn turn = co_await waiting;
    order->push_back(number);
    co_await over;
}

TEST(SessionArbiter, GivesTheScreenToOneAfterTheOther) {
    SessionArbiter arbiter;
    std::vector<int> order;
    const Completion<> over[3];
    std::vector<Task<>> flows;
    for (int number = 0; number < 3; ++number)
        flows.push_back(takeTurn(&arbiter, number, &order, over[number]));
    for (int number = 0; number < 3; ++number) {
        EXPECT_EQ(order.size(), static_cast<std::size_t>(number + 1));
        EXPECT_EQ(order.back(), number) << "those that wait come in their order";
        EXPECT_TRUE(arbiter.isScreenTaken());
        over[number].succeed();
        runUntilDone(std::move(flows[static_cast<std::size_t>(number)]));
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    EXPECT_FALSE(arbiter.isScreenTaken());
}

TEST(SessionArbiter, KeepsNobodyWaitingForAUser) {
    SessionArbiter arbiter;
    const Turn choosing = runUntilDone(arbiter.takeScreen({}));
    auto waiting = arbiter.takeScreen({});
    choosing->setUserChoosing(true);
    EXPECT_THROW(runUntilDone(std::move(waiting)), CaptureError) << "who waits already";
    EXPECT_THROW(runUntilDone(arbiter.takeScreen({})), CaptureError) << "who comes later";
    choosing->end();
    EXPECT_FALSE(arbiter.isUserChoosing());
    const Turn next = runUntilDone(arbiter.takeScreen({}));
    choosing->setUserChoosing(true);
    choosing->end();
    EXPECT_TRUE(arbiter.isScreenTaken()) << "a turn that has ended is nobody's any more";
    EXPECT_FALSE(arbiter.isUserChoosing());
}

TEST(SessionArbiter, LetsWhoWaitsGo) {
    auto arbiter = std::make_unique<SessionArbiter>();
    const Turn held = runUntilDone(arbiter->takeScreen({}));
    std::stop_source stop;
    auto stopped = arbiter->takeScreen(stop.get_token());
    stop.request_stop();
    EXPECT_THROW(runUntilDone(std::move(stopped)), Cancelled);
    EXPECT_TRUE(arbiter->isScreenTaken());
    held->end();
    // Its flows end at their next step, and turns outlive it.
    const Turn last = runUntilDone(arbiter->takeScreen({}));
    arbiter.reset();
    last->end();
}

}  // namespace
}  // namespace kestrio
