#include "annotation/painting/SmoothStroke.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

// How far the segments may lie from the curve, in units of the points.
constexpr double flatness = 0.2;

double dot(const QPointF& a, const QPointF& b) {
    return QPointF::dotProduct(a, b);
}

double lengthOf(const QPointF& vector) {
    return std::sqrt(dot(vector, vector));
}

QPointF unitOf(const QPointF& vector) {
    const double length = lengthOf(vector);
    return length > 0 ? vector / length : QPointF();
}

/// So that every piece has a direction.
std::vector<QPointF> distinctPoints(std::span<const QPointF> points) {
    std::vector<QPointF> distinct;
    distinct.reserve(points.size());
    for (const QPointF& point : points) {
        if (!std::isfinite(point.x()) || !std::isfinite(point.y())) continue;
        if (!distinct.empty() && lengthOf(point - distinct.back()) < 1e-6) continue;
        distinct.push_back(point);
    }
    return distinct;
}

/// The arm of a cubic that leaves its chord in direction `tangent`. An arm that stands off by d
/// bends a piece by about 3/4 d, where the arm at the other end does the same.
QPointF arm(const QPointF& tangent, const QPointF& chord, double slack) {
    const double length = lengthOf(chord);
    const double along = dot(tangent, chord) / length;
    if (!(along > 0)) return {};
    const double standOff = std::sqrt(std::max(0.0, 1 - along * along));
    double reach = length / 3;
    if (reach * standOff * 0.75 > slack) reach = slack / (standOff * 0.75);
    return tangent * reach;
}

struct Cubic {
    QPointF from, leaving, arriving, to;

    QPointF at(double t) const {
        const double s = 1 - t;
        return from * (s * s * s) + leaving * (3 * s * s * t) + arriving * (3 * s * t * t) +
               to * (t * t * t);
    }

    /// So many equal steps keep to `flatness`: a step's chord lies within 1/8 of the curve's second
    /// derivative from it, which is at most six times the larger second difference.
    int steps() const {
        constexpr int most = 64;
        const double bend = std::max(lengthOf(from - 2 * leaving + arriving),
                                     lengthOf(leaving - 2 * arriving + to));
        return std::clamp(static_cast<int>(std::ceil(std::sqrt(0.75 * bend / flatness))), 1, most);
    }
};

}  // namespace

std::vector<QPointF> smoothStroke(std::span<const QPointF> points, double slack) {
    const std::vector<QPointF> way = distinctPoints(points);
    if (way.size() < 3) return way;
    std::vector<QPointF> line{way.front()};
    const auto chordAfter = [&](std::size_t i) { return way[i + 1] - way[i]; };
    QPointF leaving = unitOf(chordAfter(0));
    for (std::size_t i = 0; i + 1 < way.size(); ++i) {
        const QPointF chord = chordAfter(i);
        const QPointF arriving =
            i + 2 < way.size() ? unitOf(unitOf(chord) + unitOf(chordAfter(i + 1))) : unitOf(chord);
        const Cubic piece{way[i], way[i] + arm(leaving, chord, slack),
                          way[i + 1] - arm(arriving, chord, slack), way[i + 1]};
        const int steps = piece.steps();
        for (int step = 1; step <= steps; ++step)
            line.push_back(piece.at(double(step) / steps));
        leaving = arriving;
    }
    return line;
}

}  // namespace kestrio
