#include "core/Task.h"

#include "core/Localisation.h"
#include "core/Log.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QTimer>
#include <atomic>
#include <new>
#include <system_error>
#include <thread>

namespace kestrio {

QString TimeLimitExceeded::errorDescription() const {
    return Kestrio::tr("The time limit was exceeded");
}

namespace {

// A thread is as nice as the one that starts it. Were Qt's own pool started by a thread of ours,
// the main thread's painters would wait for threads that step back for everybody.
void startPaintersPool() {
    QThreadPool* const painters = QThreadPool::globalInstance();
    painters->setExpiryTimeout(-1);
    const int count = painters->maxThreadCount();
    const auto gate = std::make_shared<QSemaphore>();
    for (int i = 0; i < count; ++i)
        painters->start([gate] { gate->acquire(); });
    gate->release(count);
}

}  // namespace

QThreadPool* backgroundPool() {
    static QThreadPool pool;
    // What runs uses other statics and posts to the application, so it has to end before both.
    static const bool isReady = [] {
        qAddPostRoutine([] { pool.waitForDone(); });
        startPaintersPool();
        return true;
    }();
    Q_UNUSED(isReady)
    return &pool;
}

QString StorageTimeout::errorDescription() const {
    return Kestrio::tr("the disk or network folder does not answer");
}

namespace {

// Of runOnStorage(): more than these would only wait for the same hanging folder.
constexpr int mostStorageThreads = 32;
std::atomic<int> storageThreads = 0;

}  // namespace

void detail::startStorageWork(std::function<void()> work) {
    if (storageThreads.fetch_add(1) >= mostStorageThreads) {
        --storageThreads;
        throw StorageTimeout();
    }
    try {
        std::thread([work = std::move(work)]() mutable {
            work();
            work = {};
            --storageThreads;
        }).detach();
    } catch (const std::system_error&) {
        --storageThreads;
        throw std::bad_alloc();
    }
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
