#pragma once

#include <chrono>

namespace kestrio {

/// Times consecutive stretches of work.
class Stopwatch {
  public:
    /// Milliseconds since the last call, or since construction.
    double lap() {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double, std::milli> passed = now - last_;
        last_ = now;
        return passed.count();
    }

  private:
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace kestrio
