#pragma once

#include "annotation/drawing/StrokePoints.h"

#include <array>

namespace kestrio {

/// The convex hulls of a stroke's blocks: of every `leafSize` points in turn, of every two such
/// blocks, and so on. The point of a block that is farthest from a line is a corner of its hull, of
/// which there are few even in a stroke that folds back and forth thousands of times. Corners by
/// Andrew's monotone chain.
class BlockHulls {
  public:
    static constexpr std::size_t leafSize = 64;

    /// A block of `leafSize << level` points, the index-th of its level.
    struct Node {
        std::size_t level;
        std::size_t index;
    };

    /// Not for coordinates that are beyond pictures of any kind or no numbers at all.
    static bool isPossible(const StrokePoints& points);

    explicit BlockHulls(const StrokePoints& points);

    static std::size_t firstPoint(Node node) { return (leafSize * node.index) << node.level; }
    static std::size_t endPoint(Node node) { return (leafSize * (node.index + 1)) << node.level; }
    static std::array<Node, 2> children(Node node) {
        return {{{node.level - 1, 2 * node.index}, {node.level - 1, 2 * node.index + 1}}};
    }

    /// The largest block that begins with a leaf, has a hull and ends before another leaf.
    Node largestBlock(std::size_t firstLeaf, std::size_t endLeaf) const;
    /// The corners, from left to right; the last one more than once.
    PointsView hull(Node node) const;
    /// By how much a measure from a chord may be greater than that of every corner, for rounding; 0
    /// where coordinates are short binary fractions, with which nothing is rounded.
    double uncertainty() const { return uncertainty_; }

  private:
    struct Hull {
        std::size_t first;
        std::size_t count;  ///< 0 where there would be too many corners
    };
    class Builder;

    Hull appended(const Builder& builder);

    std::vector<std::vector<Hull>> levels_;
    std::vector<double> x_;
    std::vector<double> y_;
    double uncertainty_ = 0;
};

}  // namespace kestrio
