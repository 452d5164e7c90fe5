#pragma once

#include "app/instance/InstanceAddress.h"
#include "app/instance/InstanceGuard.h"

#include <optional>

namespace kestrio {

/// Makes a program the only one: of all that try at the same moment one holds the lock. The system
/// lets go of it however the holder ends. Where the lock file cannot be made the guard's name alone
/// counts.
class InstanceLock {
  public:
    explicit InstanceLock(const InstanceAddress& address);

    bool isHeld() const { return isHeld_; }
    /// Answers those who ask whether the lock is held, and calls `onAsked` then. Needs an event
    /// loop.
    void serve(std::function<void()> onAsked);
    /// Makes and locks the file again where somebody removed it.
    void renew(const QString& lockFile);

    /// Whether a program holds the lock, or is about to; does not disturb those who try to take it.
    static bool isTaken(const InstanceAddress& address);

  private:
    Descriptor file_;
    std::optional<InstanceGuard> guard_;
    bool isHeld_ = false;
};

}  // namespace kestrio
