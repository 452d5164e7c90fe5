#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

namespace kestrio {

/// The longest time for which the main loop did nothing.
class LongestStall {
  public:
    LongestStall() {
        QObject::connect(&tick_, &QTimer::timeout, &tick_,
                         [this] { longest_ = std::max(longest_, sinceLast_.restart()); });
        sinceLast_.start();
        tick_.start(std::chrono::milliseconds(5));
    }

    qint64 milliseconds() const { return std::max(longest_, sinceLast_.elapsed()); }

  private:
    QTimer tick_;
    QElapsedTimer sinceLast_;
    qint64 longest_ = 0;
};

/// Milliseconds without the main loop that a user would notice, on a machine under load.
constexpr qint64 noticeableStall = 250;

}  // namespace kestrio
