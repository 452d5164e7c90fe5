#pragma once

#include <mutex>
#include <utility>

namespace kestrio {

/// Lets exactly one of several racing sides (result, time limit, failure, stop) go on.
class ResumeGuard {
  public:
    /// True for the first caller, on whatever thread; false for all later ones.
    bool tryResume() {
        const std::lock_guard lock(mutex_);
        return !std::exchange(hasResumed_, true);
    }

    bool hasResumed() const {
        const std::lock_guard lock(mutex_);
        return hasResumed_;
    }

  private:
    mutable std::mutex mutex_;
    bool hasResumed_ = false;
};

}  // namespace kestrio
