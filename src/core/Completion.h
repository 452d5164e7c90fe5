#pragma once

#include "core/Cancelled.h"
#include "core/ResumeGuard.h"

#include <QMetaObject>
#include <QObject>
#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <type_traits>
#include <variant>

namespace kestrio {

/// Turns a callback into something that a coroutine can await: the first of result, failure and
/// stop wins, the rest is ignored. May be completed from any thread; the awaiting coroutine resumes
/// from the event loop of the thread that made the Completion, never inside the completing call.
/// Copies share one state; one coroutine awaits it, once. Stop makes the await throw Cancelled.
template <typename T = void>
class Completion {
    using Stored = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

  public:
    explicit Completion(std::stop_token stop = {}) : state_(std::make_shared<State>()) {
        if (!stop.stop_possible()) return;
        std::weak_ptr<State> weak = state_;
        state_->stopCallback.emplace(std::move(stop), [weak] {
            if (const auto state = weak.lock()) {
                settle(state, std::make_exception_ptr(Cancelled()));
            }
        });
    }

    void succeed(Stored value = {}) const { settle(state_, std::move(value)); }
    void fail(std::exception_ptr failure) const { settle(state_, std::move(failure)); }

    /// Completes with what `work` returns or throws.
    template <typename Work>
    void run(Work& work) const {
        try {
            if constexpr (std::is_void_v<T>) {
                work();
                succeed();
            } else {
                succeed(work());
            }
        } catch (...) {
            fail(std::current_exception());
        }
    }

    auto operator co_await() const { return Awaiter{state_}; }

  private:
    static constexpr std::size_t valueIndex = 1;
    static constexpr std::size_t failureIndex = 2;

    struct State {
        ResumeGuard guard;
        std::mutex mutex;
        std::variant<std::monostate, std::optional<Stored>, std::exception_ptr> outcome;
        std::coroutine_handle<> waiting;
        QObject home;  // lives in the thread that awaits; resumption is queued to it
        std::optional<std::stop_callback<std::function<void()>>> stopCallback;
    };

    template <typename Result>
    static void settle(const std::shared_ptr<State>& state, Result result) {
        if (!state->guard.tryResume()) return;
        const std::lock_guard lock(state->mutex);
        if constexpr (std::is_same_v<Result, std::exception_ptr>) {
            state->outcome.template emplace<failureIndex>(std::move(result));
        } else {
            state->outcome.template emplace<valueIndex>(std::move(result));
        }
        if (state->waiting) resumeLater(state);
    }

    static void resumeLater(const std::shared_ptr<State>& state) {
        QMetaObject::invokeMethod(
            &state->home, [state] { state->waiting.resume(); }, Qt::QueuedConnection);
    }

    struct Awaiter {
        std::shared_ptr<State> state;

        bool await_ready() const noexcept { return false; }

        bool await_suspend(std::coroutine_handle<> handle) {
            const std::lock_guard lock(state->mutex);
            state->waiting = handle;
            if (state->outcome.index() != 0) resumeLater(state);
            return true;
        }

        T await_resume() {
            // Off the stop token before the state is read: its callback holds only a weak
            // reference.
            state->stopCallback.reset();
            const std::lock_guard lock(state->mutex);
            if (state->outcome.index() == failureIndex) {
                std::rethrow_exception(std::get<failureIndex>(state->outcome));
            }
            if constexpr (!std::is_void_v<T>) {
                return std::move(*std::get<valueIndex>(state->outcome));
            }
        }
    };

    std::shared_ptr<State> state_;
};

}  // namespace kestrio
