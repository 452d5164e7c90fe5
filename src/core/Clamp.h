#pragma once

#include <cmath>

namespace kestrio {

/// `value` limited to [low, high]; `low` for what is not a number.
inline double clampedOr(double value, double low, double high) {
    if (std::isnan(value) || value < low) return low;
    return value > high ? high : value;
}

}  // namespace kestrio
