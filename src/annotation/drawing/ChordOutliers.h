#pragma once

#include "annotation/drawing/BlockHulls.h"

#include <optional>

namespace kestrio {

/// Finds the points of one stroke that lie farthest from its chords. A few chords are answered by
/// looking at every point below them; once that has cost much, by the convex hulls of blocks of
/// points, with the same answers.
class ChordOutliers {
  public:
    struct Outlier {
        std::size_t index;
        double distance;  ///< -1 where no point can be measured
    };

    explicit ChordOutliers(const std::vector<QPointF>& points);

    /// The point between two others that lies farthest from the line through these, or from the
    /// first of them where they are in one place; the first such.
    Outlier farthest(std::size_t first, std::size_t last);

  private:
    struct Block {
        BlockHulls::Node node;
        double most;  ///< the greatest measure of its points
    };
    class Search;

    StrokePoints points_;
    std::optional<BlockHulls> hulls_;
    std::vector<Block> blocks_;  ///< of the current search
    std::size_t looked_ = 0;
};

}  // namespace kestrio
