#pragma once

#include <QSocketNotifier>
#include <memory>
#include <stop_token>

namespace kestrio {

/// Turns Ctrl-C and a polite kill into a stop token while it lives, so that flows end cleanly. One
/// at a time.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();

    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    std::stop_token token() const { return stop_.get_token(); }

  private:
    std::stop_source stop_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace kestrio
