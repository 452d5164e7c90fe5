#pragma once

#include "core/Parallel.h"

#include <gtest/gtest.h>

#include <QThread>
#include <atomic>
#include <optional>
#include <thread>

namespace kestrio {

/// Keeps one core busy while it lives, so that bands are interrupted and finish in other orders.
class BusyCore {
  public:
    BusyCore()
        : thread_([this] {
              while (!isOver_.load(std::memory_order_relaxed)) {
              }
          }) {}
    ~BusyCore() {
        isOver_ = true;
        thread_.join();
    }
    BusyCore(const BusyCore&) = delete;
    BusyCore& operator=(const BusyCore&) = delete;

  private:
    std::atomic<bool> isOver_{false};
    std::thread thread_;
};

/// Does the same work 200 times on idle cores and 200 times beside a busy one and counts results
/// that differ from a single thread's. Races inside libraries show in no other way: sanitizers see
/// only code that was built with them. Two threads at least, whatever the machine has; they stay
/// warm from one run to the next.
template <typename Work>
void expectTheSameEveryTime(const Work& work) {
    constexpr int repetitions = 200;
    setParallelThreadLimit(1);
    const auto expected = work();
    setParallelThreadLimit(std::clamp(QThread::idealThreadCount(), 2, 4));
    for (const bool isBusy : {false, true}) {
        std::optional<BusyCore> busyCore;
        if (isBusy) busyCore.emplace();
        int different = 0;
        for (int i = 0; i < repetitions; ++i)
            different += work() == expected ? 0 : 1;
        EXPECT_EQ(different, 0) << "of " << repetitions << (isBusy ? " beside a busy core" : "");
    }
    setParallelThreadLimit(0);
}

}  // namespace kestrio
