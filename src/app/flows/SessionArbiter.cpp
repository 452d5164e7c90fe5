#include "app/flows/SessionArbiter.h"

#include "core/Localisation.h"

#include <QDeadlineTimer>

namespace kestrio {

namespace {

// For captures that were asked for at the same moment, a hundred of them at most.
constexpr std::chrono::minutes turnLimit(2);

}  // namespace

void ScreenTurn::setUserChoosing(bool isChoosing) {
    if (arbiter_) arbiter_->set_isUserChoosing(isChoosing);
}

void ScreenTurn::end() {
    SessionArbiter* const arbiter = arbiter_;
    arbiter_.clear();
    if (!arbiter) return;
    arbiter->set_isUserChoosing(false);
    arbiter->set_isScreenTaken(false);
}

CaptureError SessionArbiter::busy() {
    return CaptureError::systemError(Kestrio::tr("another capture is under way"));
}

Completion<> SessionArbiter::nextChange(std::chrono::milliseconds limit, QObject* context,
                                        std::stop_token stop) {
    const Completion<> changed(std::move(stop));
    const auto goOn = [changed] { changed.succeed(); };
    connect(this, &SessionArbiter::isScreenTakenChanged, context, goOn);
    connect(this, &SessionArbiter::isUserChoosingChanged, context, goOn);
    QTimer::singleShot(limit, context, goOn);
    return changed;
}

Task<std::shared_ptr<ScreenTurn>> SessionArbiter::takeScreen(std::stop_token stop) {
    const QPointer<SessionArbiter> self(this);
    const QDeadlineTimer limit(turnLimit);
    while (isScreenTaken()) {
        if (isUserChoosing() || limit.hasExpired()) throw busy();
        QObject context;  // its end disconnects
        const auto left = std::chrono::milliseconds(limit.remainingTime());
        const Completion<> change = nextChange(left, &context, stop);
        co_await change;
        if (!self) throw Cancelled();
    }
    set_isScreenTaken(true);
    co_return std::make_shared<ScreenTurn>(*this);
}

}  // namespace kestrio
