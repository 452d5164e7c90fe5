#include "annotation/drawing/StrokePoints.h"

#include "core/Simd.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

inline double fromLine(const Chord& chord, double x, double y) {
    return std::abs(chord.alongX * (y - chord.startY) - chord.alongY * (x - chord.startX));
}

inline double fromStart(const Chord& chord, double x, double y) {
    const double dx = x - chord.startX;
    const double dy = y - chord.startY;
    return dx * dx + dy * dy;
}

// Four coordinates at any place in a list.
using Lanes = double __attribute__((vector_size(32), aligned(8), may_alias));
constexpr std::size_t laneCount = 4;

KESTRIO_SIMD double farthestFromLine(const Chord& chord, const double* x, const double* y,
                                     std::size_t count) {
    const Chord line = chord;
    // Two vectors in turn, because each waits for the one before.
    Lanes even = {-1, -1, -1, -1};
    Lanes odd = even;
    std::size_t i = 0;
    for (; i + 2 * laneCount <= count; i += 2 * laneCount) {
        const auto* xs = reinterpret_cast<const Lanes*>(x + i);
        const auto* ys = reinterpret_cast<const Lanes*>(y + i);
        const Lanes first =
            line.alongX * (ys[0] - line.startY) - line.alongY * (xs[0] - line.startX);
        const Lanes second =
            line.alongX * (ys[1] - line.startY) - line.alongY * (xs[1] - line.startX);
        even = first > even ? first : even;
        even = -first > even ? -first : even;
        odd = second > odd ? second : odd;
        odd = -second > odd ? -second : odd;
    }
    double most = -1;
    for (; i < count; ++i)
        most = std::max(most, fromLine(line, x[i], y[i]));
    for (std::size_t lane = 0; lane < laneCount; ++lane)
        most = std::max({most, even[lane], odd[lane]});
    return most;
}

double farthestFromStart(const Chord& chord, const PointsView& points) {
    double most = -1;
    for (std::size_t i = 0; i < points.count; ++i)
        most = std::max(most, fromStart(chord, points.x[i], points.y[i]));
    return most;
}

bool isLine(const Chord& chord) {
    return chord.alongX != 0 || chord.alongY != 0;
}

}  // namespace

StrokePoints::StrokePoints(const std::vector<QPointF>& points) {
    x_.reserve(points.size());
    y_.reserve(points.size());
    for (const QPointF& point : points) {
        x_.push_back(point.x());
        y_.push_back(point.y());
    }
}

Chord StrokePoints::chord(std::size_t first, std::size_t last) const {
    return {x_[first], y_[first], x_[last] - x_[first], y_[last] - y_[first]};
}

double farthestMeasure(const Chord& chord, const PointsView& points) {
    return isLine(chord) ? farthestFromLine(chord, points.x, points.y, points.count)
                         : farthestFromStart(chord, points);
}

std::size_t firstOfMeasure(const Chord& chord, const PointsView& points, double measure) {
    const Chord from = chord;
    std::size_t i = 0;
    if (isLine(chord)) {
        while (i < points.count && fromLine(from, points.x[i], points.y[i]) != measure)
            ++i;
    } else {
        while (i < points.count && fromStart(from, points.x[i], points.y[i]) != measure)
            ++i;
    }
    return i;
}

}  // namespace kestrio
