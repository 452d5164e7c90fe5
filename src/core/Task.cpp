#include "core/Task.h"

#include "core/Localisation.h"
#include "core/Log.h"

#include <QTimer>

namespace kestrio {

QString TimeLimitExceeded::errorDescription() const { return localised("The time limit was exceeded"); }

Completion<> sleepFor(std::chrono::milliseconds duration, std::stop_token stop) {
    Completion<> done(std::move(stop));
    QTimer::singleShot(duration, [done] { done.succeed(); });
    return done;
}

namespace {

void logUnhandled(const char* flow, std::exception_ptr failure) {
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const Cancelled&) {
        return;
    } catch (const std::exception& error) {
        logLine(flow, QString::fromUtf8(error.what()));
    } catch (...) {
        logLine(flow, QStringLiteral("unknown exception"));
    }
}

Task<> logFailure(Task<> task, const char* flow) {
    try {
        co_await task;
    } catch (...) {
        logUnhandled(flow, std::current_exception());
    }
}

}  // namespace

namespace detail {

void failAfter(std::chrono::milliseconds limit, std::stop_source stop,
               std::function<void()> onExpiry) {
    QTimer::singleShot(limit, [stop, onExpiry = std::move(onExpiry)]() mutable {
        onExpiry();
        stop.request_stop();
    });
}

}  // namespace detail

void launch(Task<> task, const char* flow) { logFailure(std::move(task), flow); }

}  // namespace kestrio
