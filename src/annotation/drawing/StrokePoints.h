#pragma once

#include <QPointF>
#include <vector>

namespace kestrio {

/// The line through two points of a stroke; without direction where these are in one place.
struct Chord {
    double startX;
    double startY;
    double alongX;
    double alongY;
};

/// Some points, their coordinates in lists of their own.
struct PointsView {
    const double* x;
    const double* y;
    std::size_t count;
};

/// The points of a stroke in the form that is quick to measure.
class StrokePoints {
  public:
    explicit StrokePoints(const std::vector<QPointF>& points);

    std::size_t size() const { return x_.size(); }
    double x(std::size_t index) const { return x_[index]; }
    double y(std::size_t index) const { return y_[index]; }
    Chord chord(std::size_t first, std::size_t last) const;
    /// Those of [begin, end).
    PointsView view(std::size_t begin, std::size_t end) const {
        return {x_.data() + begin, y_.data() + begin, end - begin};
    }

  private:
    std::vector<double> x_;
    std::vector<double> y_;
};

/// The greatest distance from a chord in a measure that only compares for one chord: times the
/// chord's length, or squared where it has none. -1 for no points.
double farthestMeasure(const Chord& chord, const PointsView& points);
/// The place of the first point of just this measure.
std::size_t firstOfMeasure(const Chord& chord, const PointsView& points, double measure);

}  // namespace kestrio
