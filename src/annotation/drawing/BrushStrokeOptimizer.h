#pragma once

#include <QPointF>
#include <vector>

namespace kestrio {

/// Turns the samples of a pointer into a clean stroke. Image points and seconds.
class BrushStrokeOptimizer {
  public:
    static constexpr std::size_t minPointsForSmoothing = 3;
    static constexpr double catmullRomTension = 0.25;
    static constexpr int interpolationSegments = 4;
    static constexpr double minPointDistance = 2.0;
    static constexpr double maxPointDistance = 20.0;
    static constexpr double fastDrawingSpeedThreshold = 500.0;  ///< points per second
    static constexpr double slowDrawingSpeedThreshold = 100.0;  ///< points per second

    using Points = std::vector<QPointF>;

    /// Keeps points that are far enough apart: the faster the pointer, the farther. Falls back to
    /// distance alone where the lists differ in length. The last point always stays.
    static Points decimate(const Points& points, const std::vector<double>& timestamps);
    /// Keeps points at least `minPointDistance` apart, and the last one.
    static Points decimate(const Points& points);
    /// A cardinal spline through all points, in `interpolationSegments` steps a segment.
    static Points smooth(const Points& points);
    /// Ramer-Douglas-Peucker reduction: what is dropped lies within the tolerance of the line
    /// through its kept neighbours.
    static Points simplify(const Points& points, double tolerance);
    /// All three in turn. Two points are left as they are.
    static Points optimize(const Points& points, const std::vector<double>& timestamps,
                           double tolerance);
};

}  // namespace kestrio
