#include "annotation/drawing/BlockHulls.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

struct Corner {
    double x;
    double y;

    bool operator==(const Corner&) const = default;
    bool operator<(const Corner& other) const {
        return x < other.x || (x == other.x && y < other.y);
    }
};

using Corners = std::vector<Corner>;

// Where blocks have more, the stroke is round, and round strokes split in the middle.
constexpr std::size_t mostCorners = 256;

// Hulls are filled up to whole vectors.
constexpr std::size_t vectorLength = 8;

constexpr double mostCoordinate = 1e9;

// With at most 26 bits a coordinate every measure fits the 53 bits of a double.
constexpr double exactFraction = 1024;
constexpr double mostExact = 32768;

bool isExact(double coordinate) {
    const double units = coordinate * exactFraction;
    return units == std::trunc(units) && std::abs(coordinate) < mostExact;
}

bool turnsLeft(const Corner& a, const Corner& b, const Corner& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x) > 0;
}

/// The lower chain of points in order from left to right, or the upper one for the reverse order.
template <typename Iterator>
void chain(Iterator begin, Iterator end, Corners& corners) {
    corners.clear();
    for (; begin != end; ++begin) {
        while (corners.size() > 1 &&
               !turnsLeft(corners[corners.size() - 2], corners.back(), *begin)) {
            corners.pop_back();
        }
        corners.push_back(*begin);
    }
}

}  // namespace

/// Builds one hull after the other, reusing its lists.
class BlockHulls::Builder {
  public:
    /// Around some points.
    void build(const PointsView& points) {
        sorted_.clear();
        append(points);
        std::sort(sorted_.begin(), sorted_.end());
        buildFromSorted();
    }

    /// Around two hulls; nothing where one of them is missing.
    void build(const PointsView& a, const PointsView& b) {
        sorted_.clear();
        if (a.count > 0 && b.count > 0) {
            append(a);
            append(b);
            std::inplace_merge(sorted_.begin(),
                               sorted_.begin() + static_cast<std::ptrdiff_t>(a.count),
                               sorted_.end());
        }
        buildFromSorted();
    }

    /// From left to right.
    const Corners& corners() const { return hull_; }

  private:
    void append(const PointsView& points) {
        for (std::size_t i = 0; i < points.count; ++i)
            sorted_.push_back({points.x[i], points.y[i]});
    }

    void buildFromSorted() {
        chain(sorted_.begin(), sorted_.end(), lower_);
        chain(sorted_.rbegin(), sorted_.rend(), upper_);
        hull_.clear();
        std::merge(lower_.begin(), lower_.end(), upper_.rbegin(), upper_.rend(),
                   std::back_inserter(hull_));
        hull_.erase(std::unique(hull_.begin(), hull_.end()), hull_.end());
    }

    Corners sorted_;
    Corners lower_;
    Corners upper_;
    Corners hull_;
};

bool BlockHulls::isPossible(const StrokePoints& points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        // Written so that what is no number fails.
        if (!(std::abs(points.x(i)) < mostCoordinate && std::abs(points.y(i)) < mostCoordinate)) {
            return false;
        }
    }
    return true;
}

BlockHulls::BlockHulls(const StrokePoints& points) {
    bool allExact = true;
    double extent = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        allExact = allExact && isExact(points.x(i)) && isExact(points.y(i));
        extent = std::max({extent, std::abs(points.x(i)), std::abs(points.y(i))});
    }
    if (!allExact) uncertainty_ = 1e-12 * extent * extent;

    Builder builder;
    levels_.emplace_back();
    for (std::size_t begin = 0; begin + leafSize <= points.size(); begin += leafSize) {
        builder.build(points.view(begin, begin + leafSize));
        levels_.back().push_back(appended(builder));
    }
    while (levels_.back().size() > 1) {
        const std::size_t below = levels_.size() - 1;
        std::vector<Hull> level;
        for (std::size_t i = 0; i + 1 < levels_[below].size(); i += 2) {
            builder.build(hull({below, i}), hull({below, i + 1}));
            level.push_back(appended(builder));
        }
        levels_.push_back(std::move(level));
    }
}

BlockHulls::Hull BlockHulls::appended(const Builder& builder) {
    const std::size_t first = x_.size();
    const Corners& corners = builder.corners();
    if (corners.empty() || corners.size() > mostCorners) return {first, 0};
    const std::size_t count = (corners.size() + vectorLength - 1) / vectorLength * vectorLength;
    for (std::size_t i = 0; i < count; ++i) {
        const Corner& corner = corners[std::min(i, corners.size() - 1)];
        x_.push_back(corner.x);
        y_.push_back(corner.y);
    }
    return {first, count};
}

BlockHulls::Node BlockHulls::largestBlock(std::size_t firstLeaf, std::size_t endLeaf) const {
    Node node{0, firstLeaf};
    for (std::size_t level = 1; level < levels_.size(); ++level) {
        const std::size_t size = std::size_t(1) << level;
        if (firstLeaf % size != 0 || firstLeaf + size > endLeaf) break;
        if (levels_[level][firstLeaf / size].count == 0) break;
        node = {level, firstLeaf / size};
    }
    return node;
}

PointsView BlockHulls::hull(Node node) const {
    const Hull& hull = levels_[node.level][node.index];
    return {x_.data() + hull.first, y_.data() + hull.first, hull.count};
}

}  // namespace kestrio
