#pragma once

#include <QObject>
#include <chrono>
#include <stop_token>

namespace kestrio {

/// Turns Ctrl-C and a polite kill into a stop token while it lives, so that flows end cleanly. A
/// process that has not ended by itself shortly after such a signal, because its main loop or a
/// disk hangs, is ended as cancelled, also when this object has gone by then. One at a time; main
/// thread.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();

    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    std::stop_token token() const { return stop_.get_token(); }

  private:
    QObject receiver_;  // of the signals, on the main loop
    std::stop_source stop_;
};

/// Ends the process with this status once `limit` has passed, if it has not ended until then. For
/// its last steps, which may wait for a disk that does not answer.
void endProcessWithin(std::chrono::milliseconds limit, int status);

}  // namespace kestrio
