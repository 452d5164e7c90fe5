#include "core/Task.h"

#include "core/Localisation.h"
#include "core/Log.h"

#include <QCoreApplication>
#include <QTimer>

namespace kestrio {

QString TimeLimitExceeded::errorDescription() const {
    return localised("The time limit was exceeded");
}

QThreadPool* backgroundPool() {
    static QThreadPool pool;
    // What runs uses other statics and posts to the application, so it has to end before both.
    static const bool isWaitedFor = [] {
        qAddPostRoutine([] { pool.waitForDone(); });
        return true;
    }();
    Q_UNUSED(isWaitedFor)
    return &pool;
}

Completion<> sleepFor(std::chrono::milliseconds duration, std::stop_token stop) {
    Completion<> done(std::move(stop));
    QTimer::singleShot(duration, [done] { done.succeed(); });
    return done;
}

namespace {

void logUnhandled(const char* owner, std::exception_ptr failure) {
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const Cancelled&) {
        return;
    } catch (const std::exception& error) {
        logLine(owner, QString::fromUtf8(error.what()));
    } catch (...) {
        logLine(owner, QStringLiteral("unknown exception"));
    }
}

Task<> logFailure(Task<> task, const char* owner) {
    try {
        co_await task;
    } catch (...) {
        logUnhandled(owner, std::current_exception());
    }
}

}  // namespace

void launch(Task<> task, const QObject* owner) {
    logFailure(std::move(task), owner->metaObject()->className());
}

}  // namespace kestrio
