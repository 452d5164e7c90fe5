#pragma once

#include "core/Completion.h"
#include "core/Handover.h"
#include "core/Priority.h"
#include "core/SerialQueue.h"

#include <QCoroTask>
#include <QEventLoop>
#include <QThreadPool>
#include <QTimer>
#include <chrono>
#include <functional>
#include <stop_token>
#include <type_traits>

namespace kestrio {

/// A flow: a coroutine that starts at once, runs on the thread that called it and suspends at each
/// service call. It takes its parameters by value, is a named function and no capturing lambda, and
/// checks after each suspension that its owner lives and that no stop was asked for.
///
/// GCC 12 destroys temporaries of an awaiting expression twice (GCC bug 104031 and its kin), so a
/// flow first names what it starts and then awaits the name:
///     const auto picture = runInBackground(std::move(work));
///     show(co_await picture);
template <typename T = void>
using Task = QCoro::Task<T>;

/// The caller's work took longer than it was given.
class TimeLimitExceeded : public Error {
  public:
    QString errorDescription() const override;
};

/// Waits on the main loop. Throws Cancelled as soon as a stop is asked for.
Completion<> sleepFor(std::chrono::milliseconds duration, std::stop_token stop = {});

/// The pool of runInBackground(). Not Qt's global one: Qt's painters hand parts of large fills to
/// that and wait for them, which would never come while all of its threads wait for such a painter.
QThreadPool* backgroundPool();

/// Runs `work` on the background pool; awaiting the result resumes the caller on its own thread. A
/// stop does not interrupt work that runs; long work takes a token of its own.
template <typename Work>
Completion<std::invoke_result_t<Work>> runInBackground(Work work) {
    Completion<std::invoke_result_t<Work>> done;
    QThreadPool* const pool = backgroundPool();
    std::function<void()> job = [done, pool, work = std::move(work)]() mutable {
        takeOver(pool);
        stepBackForOthers();
        done.run(work);
    };
    handOver(pool);
    pool->start(std::move(job));
    return done;
}

/// Runs `work` on a serial queue; awaiting the result resumes the caller on its own thread. The
/// queue must outlive the work.
template <typename Work>
Completion<std::invoke_result_t<Work>> runOn(SerialQueue& queue, Work work) {
    Completion<std::invoke_result_t<Work>> done;
    queue.async([done, work = std::move(work)]() mutable { done.run(work); });
    return done;
}

/// A disk or a network folder did not answer in time.
class StorageTimeout : public Error {
  public:
    QString errorDescription() const override;
};

/// How long storage may take before it counts as hanging: reading, and writing with its flush.
inline constexpr std::chrono::seconds readLimit(20);
inline constexpr std::chrono::seconds writeLimit(60);

namespace detail {

/// Runs `work` on a thread of its own. Throws StorageTimeout where so many hang already that one
/// more would only hang too.
void startStorageWork(std::function<void()> work);

template <typename T>
struct Waiting {
    QEventLoop loop;
    bool isDone = false;
    std::optional<std::conditional_t<std::is_void_v<T>, std::monostate, T>> result;
    std::exception_ptr failure;
};

template <typename T>
Task<> finishWaiting(Task<T> task, Waiting<T>* waiting) {
    try {
        if constexpr (std::is_void_v<T>) {
            co_await task;
        } else {
            T result = co_await task;
            waiting->result.emplace(std::move(result));
        }
    } catch (...) {
        waiting->failure = std::current_exception();
    }
    waiting->isDone = true;
    waiting->loop.quit();
}

template <typename T>
Task<> forward(Task<T> task, Completion<T> done) {
    try {
        if constexpr (std::is_void_v<T>) {
            co_await task;
            done.succeed();
        } else {
            T result = co_await task;
            done.succeed(std::move(result));
        }
    } catch (...) {
        done.fail(std::current_exception());
    }
}

}  // namespace detail

/// Starts a flow with a stop token of its own and gives its result, or throws TimeLimitExceeded
/// once `limit` has passed; the flow is then asked to stop and what it still delivers is dropped.
/// A stop of the caller's token stops the flow too and throws Cancelled.
template <typename T>
Task<T> withTimeLimit(std::chrono::milliseconds limit, std::stop_token stop,
                      std::function<Task<T>(std::stop_token)> start) {
    std::stop_source inner;
    std::stop_callback relay(stop, [&inner] { inner.request_stop(); });
    Completion<T> done(stop);
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [done, &inner] {
        done.fail(std::make_exception_ptr(TimeLimitExceeded()));
        inner.request_stop();
    });
    timer.start(limit);
    auto task = start(inner.get_token());
    detail::forward<T>(std::move(task), done);
    co_return co_await done;
}

/// Runs `work`, which reads or writes files, beside the background pool: a network folder that
/// hangs must not take the pool's threads from everything else. Gives its result, or throws what it
/// threw, StorageTimeout once `limit` has passed, or Cancelled; work that is given up goes on by
/// itself, also while the process ends, and what it delivers is dropped, so it owns all that it
/// uses.
template <typename Work>
Task<std::invoke_result_t<Work>> runOnStorage(Work work, std::chrono::milliseconds limit,
                                              std::stop_token stop = {}) {
    Completion<std::invoke_result_t<Work>> done(std::move(stop));
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer,
                     [done] { done.fail(std::make_exception_ptr(StorageTimeout())); });
    timer.start(limit);
    detail::startStorageWork([done, work = std::move(work)]() mutable { done.run(work); });
    co_return co_await done;
}

/// Runs the calling thread's event loop until the flow ends, and gives its result or throws what it
/// threw. For command line verbs and tests; windows never wait. (QCoro 0.8's own waitFor() never
/// returns from a flow that throws.)
template <typename T>
T runUntilDone(Task<T> task) {
    detail::Waiting<T> waiting;
    detail::finishWaiting<T>(std::move(task), &waiting);
    if (!waiting.isDone) waiting.loop.exec();
    if (waiting.failure) std::rethrow_exception(waiting.failure);
    if constexpr (!std::is_void_v<T>) return std::move(*waiting.result);
}

/// The only way to start a flow that nobody awaits. What it throws is logged under the class name
/// of its owner; Cancelled is not. The flow keeps running when its owner dies; it must look.
void launch(Task<> task, const QObject* owner);

}  // namespace kestrio
