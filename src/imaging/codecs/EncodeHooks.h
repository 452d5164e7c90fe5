#pragma once

#include <functional>
#include <stop_token>

namespace kestrio {

/// How a caller follows and ends a long encoding.
struct EncodeHooks {
    /// Called with the done part from 0 to 1, never decreasing, from one thread at a time, which
    /// may be a worker of the encoder.
    std::function<void(double fraction)> progress;
    std::stop_token stop;

    void report(double fraction) const {
        if (progress) progress(fraction);
    }
};

}  // namespace kestrio
