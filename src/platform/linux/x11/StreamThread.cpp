#include "platform/linux/x11/StreamThread.h"

#include "core/Descriptor.h"
#include "platform/linux/x11/ScreenReading.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <QCoreApplication>
#include <atomic>
#include <condition_variable>

namespace kestrio {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patienceAtTheEnd(3);
// While the screen stands still; what ends it earlier is a wake or the server.
constexpr std::chrono::seconds longestSleep(1);

double secondsOf(Clock::time_point time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

}  // namespace

void FrameSink::setHandler(ScreenStream::FrameHandler handler) {
    const std::lock_guard lock(mutex_);
    handler_ =
        handler ? std::make_shared<const ScreenStream::FrameHandler>(std::move(handler)) : nullptr;
}

void FrameSink::deliver(StreamedFrame frame, const std::function<bool()>& isEnding) {
    const std::lock_guard lock(mutex_);
    const auto handler = handler_;
    if (handler && !isEnding()) (*handler)(std::move(frame));
}

/// What the thread and its owner share; the thread may outlive the owner.
struct StreamThread::State {
    std::shared_ptr<FrameSink> sink;
    ScreenStream::ErrorHandler ended;
    StreamPlace place;
    Descriptor wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};  ///< readable once it ends
    std::atomic<bool> isStopped = false;
    std::atomic<bool> isEnding = false;  ///< stopped or failed

    std::mutex mutex;  // of what follows
    std::condition_variable finished;
    bool isRunning = false;
    QString reason;  ///< why it failed
    std::vector<Completion<>> waiting;

    void endSoon() {
        isEnding = true;
        const std::uint64_t once = 1;
        [[maybe_unused]] const auto written = ::write(wake.number(), &once, sizeof once);
    }

    void fail(const QString& why) {
        {
            const std::lock_guard lock(mutex);
            if (reason.isEmpty()) reason = why;
        }
        endSoon();
    }

    void deliver(ScreenReading::Picture picture) {
        sink->deliver({std::move(picture.image), place.points, place.scale,
                       std::move(picture.dirtyRects), secondsOf(picture.time)},
                      [this] { return isEnding.load(); });
    }

    /// Until one of both descriptors becomes readable, and no longer than the duration.
    void sleep(int other, Clock::duration duration) const {
        pollfd waits[] = {{wake.number(), POLLIN, 0}, {other, POLLIN, 0}};
        const auto nanoseconds =
            std::chrono::duration_cast<std::chrono::nanoseconds>(duration).count();
        constexpr std::int64_t perSecond = 1'000'000'000;
        const timespec limit = {static_cast<time_t>(nanoseconds / perSecond),
                                static_cast<long>(nanoseconds % perSecond)};
        // A negative descriptor is passed over.
        ::ppoll(waits, std::size(waits), &limit, nullptr);
    }

    bool waitForChanges(ScreenReading& reading) const {
        while (!isEnding) {
            if (reading.hasHeardOfChanges()) return true;
            sleep(reading.descriptor(), longestSleep);
        }
        return false;
    }

    bool waitUntil(Clock::time_point time) const {
        for (auto now = Clock::now(); !isEnding; now = Clock::now()) {
            if (now >= time) return true;
            sleep(-1, time - now);
        }
        return false;
    }

    void stream(ScreenReading& reading, Clock::time_point lastRead) {
        const auto interval = std::chrono::duration_cast<Clock::duration>(
            std::chrono::duration<double>(1.0 / place.maximumRate));
        while (waitForChanges(reading) && waitUntil(lastRead + interval)) {
            // Where nothing in the region has changed, the next look takes its turn all the same.
            lastRead = Clock::now();
            ScreenReading::Picture picture = reading.readChanges();
            if (picture.image.isNull()) continue;
            lastRead = picture.time;
            deliver(std::move(picture));
        }
    }

    void run(const Completion<>& begun) {
        bool hasBegun = false;
        try {
            ScreenReading reading(place.pixels);
            ScreenReading::Picture first = reading.readAll();
            hasBegun = true;
            begun.succeed();
            const auto firstTime = first.time;
            deliver(std::move(first));
            stream(reading, firstTime);
        } catch (const std::exception& error) {
            if (hasBegun) fail(describeFailure(error));
            begun.fail(std::current_exception());
        }
    }
};

StreamThread::StreamThread(std::shared_ptr<FrameSink> sink, ScreenStream::ErrorHandler ended)
    : state_(std::make_shared<State>()) {
    state_->sink = std::move(sink);
    state_->ended = std::move(ended);
}

void StreamThread::end() {
    requestStop();
    if (!thread_.joinable()) return;
    std::unique_lock lock(state_->mutex);
    const bool hasFinished =
        state_->finished.wait_for(lock, patienceAtTheEnd, [this] { return !state_->isRunning; });
    lock.unlock();
    if (hasFinished) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

Completion<> StreamThread::begin(StreamPlace place) {
    Completion<> begun;
    if (state_->isEnding) {
        begun.succeed();
        return begun;
    }
    state_->place = place;
    // The thread takes the lock when it ends; one that could not be started never runs.
    const std::lock_guard lock(state_->mutex);
    thread_ = std::thread([state = state_, begun] {
        pthread_setname_np(pthread_self(), "screenstream");
        state->run(begun);
        finish(state);
    });
    state_->isRunning = true;
    return begun;
}

void StreamThread::finish(const std::shared_ptr<State>& state) {
    std::vector<Completion<>> waiting;
    {
        const std::lock_guard lock(state->mutex);
        QCoreApplication* const application = QCoreApplication::instance();
        if (!state->reason.isEmpty() && application)
            QMetaObject::invokeMethod(
                application,
                [state, reason = state->reason] {
                    // A stop that came meanwhile makes it nobody's business.
                    if (!state->isStopped && state->ended) state->ended(reason);
                },
                Qt::QueuedConnection);
        state->isRunning = false;
        waiting.swap(state->waiting);
    }
    state->finished.notify_all();
    for (const Completion<>& each : waiting)
        each.succeed();
}

void StreamThread::requestStop() {
    state_->isStopped = true;
    state_->endSoon();
}

void StreamThread::fail(const QString& reason) {
    state_->fail(reason);
}

Completion<> StreamThread::whenFinished() {
    Completion<> finished;
    const std::lock_guard lock(state_->mutex);
    if (state_->isRunning) {
        state_->waiting.push_back(finished);
    } else {
        finished.succeed();
    }
    return finished;
}

}  // namespace kestrio
