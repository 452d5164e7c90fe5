#pragma once

#include "core/Descriptor.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace kestrio {

/// A name in the kernel's abstract socket space, held as long as this lives. Unlike a lock file it
/// cannot be removed, so that a second program never starts because somebody cleaned up a folder.
class InstanceGuard {
  public:
    enum class State {
        held,     ///< this object holds the name
        taken,    ///< another process of this user does
        unknown,  ///< there are no such names, or another user has taken it
    };

    /// Tries to take the name; an empty one is unknown.
    explicit InstanceGuard(const QByteArray& name);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    State state() const { return state_; }
    /// Answers those who ask whether the name is held, and calls `onAsked` then: whoever asks did
    /// not find the program in the usual way. Needs an event loop.
    void serve(std::function<void()> onAsked);

    /// Whether a process of this user holds the name, without trying to take it.
    static bool isTaken(const QByteArray& name);

  private:
    Descriptor socket_;
    State state_ = State::unknown;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace kestrio
