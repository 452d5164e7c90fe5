#pragma once

#include "core/Task.h"

#include <memory>

namespace kestrio {

/// Ends a choice that hangs: one that for `limit` neither ends nor hears of any input. Each call of
/// what `start` is given, an input of the user, gives it the whole time again. It then ends as a
/// choice that was cancelled does.
template <typename T>
Task<T> withIdleLimit(
    std::chrono::milliseconds limit, std::stop_token stop,
    std::function<Task<T>(std::function<void()> onInput, std::stop_token stop)> start) {
    std::stop_source inner;
    std::stop_callback relay(stop, [&inner] { inner.request_stop(); });
    Completion<T> done(stop);
    // Shared with an overlay, which may hear of input while it is being taken down.
    const auto timer = std::make_shared<QTimer>();
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [done, &inner] {
        done.fail(std::make_exception_ptr(Cancelled()));
        inner.request_stop();
    });
    timer->start(limit);
    const std::weak_ptr<QTimer> restarting = timer;
    auto task = start(
        [restarting] {
            if (const auto running = restarting.lock()) running->start();
        },
        inner.get_token());
    detail::forward<T>(std::move(task), done);
    co_return co_await done;
}

}  // namespace kestrio
