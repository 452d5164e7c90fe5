#include "annotation/drawing/BrushStrokeOptimizer.h"

#include "annotation/drawing/ChordOutliers.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

using Points = BrushStrokeOptimizer::Points;

/// How far a point must lie from the last kept one, given the time between the two.
double requiredDistance(double travelled, double seconds) {
    constexpr double least = BrushStrokeOptimizer::minPointDistance;
    constexpr double most = BrushStrokeOptimizer::maxPointDistance;
    constexpr double slow = BrushStrokeOptimizer::slowDrawingSpeedThreshold;
    constexpr double fast = BrushStrokeOptimizer::fastDrawingSpeedThreshold;
    if (!(seconds > 0)) return least;
    const double speed = travelled / seconds;
    if (speed > fast) return most;
    if (speed < slow) return least;
    return (speed - slow) / (fast - slow) * (most - least) + least;
}

/// `isKept(last, index)` says whether a point stays, given the index of the last one that did.
template <typename Predicate>
Points kept(const Points& points, Predicate isKept) {
    Points result = {points.front()};
    std::size_t last = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!isKept(last, i)) continue;
        result.push_back(points[i]);
        last = i;
    }
    if (last + 1 != points.size()) result.push_back(points.back());
    return result;
}

struct Range {
    std::size_t first;
    std::size_t last;
};

}  // namespace

Points BrushStrokeOptimizer::decimate(const Points& points, const std::vector<double>& timestamps) {
    if (points.size() != timestamps.size()) return decimate(points);
    if (points.size() < 3) return points;
    return kept(points, [&](std::size_t last, std::size_t i) {
        const double travelled = distance(points[last], points[i]);
        return travelled >= requiredDistance(travelled, timestamps[i] - timestamps[last]);
    });
}

Points BrushStrokeOptimizer::decimate(const Points& points) {
    if (points.size() < 3) return points;
    return kept(points, [&](std::size_t last, std::size_t i) {
        return distance(points[last], points[i]) >= minPointDistance;
    });
}

Points BrushStrokeOptimizer::smooth(const Points& points) {
    if (points.size() < minPointsForSmoothing) return points;
    constexpr double s = catmullRomTension;
    Points result = {points.front()};
    result.reserve(points.size() * interpolationSegments);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const QPointF& p0 = points[i == 0 ? 0 : i - 1];
        const QPointF& p1 = points[i];
        const QPointF& p2 = points[i + 1];
        const QPointF& p3 = points[std::min(i + 2, points.size() - 1)];
        for (int step = 1; step <= interpolationSegments; ++step) {
            const double t = static_cast<double>(step) / interpolationSegments;
            const double t2 = t * t;
            const double t3 = t2 * t;
            const double w0 = s * (-t3 + 2 * t2 - t);
            const double w1 = (2 - s) * t3 + (s - 3) * t2 + 1;
            const double w2 = (s - 2) * t3 + (3 - 2 * s) * t2 + s * t;
            const double w3 = s * (t3 - t2);
            result.push_back(w0 * p0 + w1 * p1 + w2 * p2 + w3 * p3);
        }
    }
    return result;
}

// A stack of its own instead of recursion: an adverse stroke splits once a point.
Points BrushStrokeOptimizer::simplify(const Points& points, double tolerance) {
    if (points.size() < 3) return points;
    ChordOutliers outliers(points);
    std::vector<bool> stays(points.size(), false);
    stays.front() = stays.back() = true;
    std::vector<Range> open = {{0, points.size() - 1}};
    while (!open.empty()) {
        const Range range = open.back();
        open.pop_back();
        if (range.last - range.first < 2) continue;
        const auto farthest = outliers.farthest(range.first, range.last);
        if (!(farthest.distance > tolerance)) continue;
        stays[farthest.index] = true;
        open.push_back({range.first, farthest.index});
        open.push_back({farthest.index, range.last});
    }
    Points result;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (stays[i]) result.push_back(points[i]);
    }
    return result;
}

Points BrushStrokeOptimizer::optimize(const Points& points, const std::vector<double>& timestamps,
                                      double tolerance) {
    if (points.size() == 2) return points;
    Points result = decimate(points, timestamps);
    if (result.size() > 2) result = smooth(result);
    if (result.size() > 2) result = simplify(result, tolerance);
    return result;
}

}  // namespace kestrio
