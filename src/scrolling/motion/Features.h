#pragma once

#include <array>
#include <cstdint>

#include "scrolling/motion/Corners.h"

namespace kestrio {

/// A corner and what its surroundings look like.
struct Feature {
    int x = 0, y = 0;
    std::array<std::uint64_t, 4> descriptor{};
};

/// A feature of the previous frame found again in the current one.
struct FeatureMatch {
    int previousIndex = 0, currentIndex = 0;
    int distance = 0;  ///< bits that differ
    int previousX = 0, previousY = 0;
    int dx = 0, dy = 0;  ///< from the current place to the previous one: positive where it moved up
};

std::vector<Feature> findFeatures(const GrayFrame& frame, const ScrollingMotionConfig& config);

/// Mutual best matches that are clearly better than the second best, in order of the previous
/// features. Places may differ by the config's horizontal offset in x and by anything in y.
std::vector<FeatureMatch> matchFeatures(const std::vector<Feature>& previous,
                                        const std::vector<Feature>& current,
                                        const ScrollingMotionConfig& config);

}  // namespace kestrio
