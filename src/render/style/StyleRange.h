#pragma once

#include "core/Clamp.h"

namespace kestrio {

/// What a number of the style may be and what it is at first. Records keep what was stored;
/// sliders, the fields of panels and the renderer take their limits from here.
struct StyleRange {
    double least;
    double greatest;
    double standard;

    /// What is no number counts as the least.
    double clamped(double value) const { return clampedOr(value, least, greatest); }
};

}  // namespace kestrio
