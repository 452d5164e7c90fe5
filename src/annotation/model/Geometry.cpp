#include "annotation/model/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrio {

bool identical(const QPointF& a, const QPointF& b) {
    return a.x() == b.x() && a.y() == b.y();
}

bool identical(const QRectF& a, const QRectF& b) {
    return identical(a.topLeft(), b.topLeft()) && a.width() == b.width() &&
           a.height() == b.height();
}

bool identical(const std::vector<QPointF>& a, const std::vector<QPointF>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const QPointF& p, const QPointF& q) { return identical(p, q); });
}

QRectF enclosingRect(const std::vector<QPointF>& points) {
    if (points.empty()) return {};
    QPointF least = points.front();
    QPointF most = points.front();
    for (const QPointF& point : points) {
        least = {std::min(least.x(), point.x()), std::min(least.y(), point.y())};
        most = {std::max(most.x(), point.x()), std::max(most.y(), point.y())};
    }
    return {least, most};
}

QRectF enclosingRect(const QRectF& a, const QRectF& b) {
    return enclosingRect({a.topLeft(), a.bottomRight(), b.topLeft(), b.bottomRight()});
}

QRectF rectBetween(const QPointF& a, const QPointF& b) {
    return {std::min(a.x(), b.x()), std::min(a.y(), b.y()), std::abs(a.x() - b.x()),
            std::abs(a.y() - b.y())};
}

QRectF squareAround(const QPointF& center, double side) {
    return {center.x() - side * 0.5, center.y() - side * 0.5, side, side};
}

QRectF grown(const QRectF& rect, double margin) {
    return rect.normalized().adjusted(-margin, -margin, margin, margin);
}

bool contains(const QRectF& rect, const QPointF& point) {
    const QRectF upright = rect.normalized();
    return point.x() >= upright.left() && point.x() <= upright.right() &&
           point.y() >= upright.top() && point.y() <= upright.bottom();
}

namespace {

bool spansIntersect(double leastA, double mostA, double leastB, double mostB) {
    if (leastA == mostA || leastB == mostB) return leastA <= mostB && leastB <= mostA;
    return leastA < mostB && leastB < mostA;
}

}  // namespace

bool intersects(const QRectF& a, const QRectF& b) {
    const QRectF first = a.normalized();
    const QRectF second = b.normalized();
    return spansIntersect(first.left(), first.right(), second.left(), second.right()) &&
           spansIntersect(first.top(), first.bottom(), second.top(), second.bottom());
}

QPointF mapped(const QPointF& point, const QRectF& from, const QRectF& to) {
    return {to.x() + to.width() / from.width() * (point.x() - from.x()),
            to.y() + to.height() / from.height() * (point.y() - from.y())};
}

double distance(const QPointF& a, const QPointF& b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double distanceToSegment(const QPointF& point, const QPointF& start, const QPointF& end) {
    const QPointF along = end - start;
    const double squaredLength = QPointF::dotProduct(along, along);
    if (!(squaredLength > 0)) return distance(point, start);
    const double t = QPointF::dotProduct(point - start, along) / squaredLength;
    return distance(point, start + std::clamp(t, 0.0, 1.0) * along);
}

double distanceToRect(const QPointF& point, const QRectF& rect) {
    const QRectF upright = rect.normalized();
    return distance(point, {std::clamp(point.x(), upright.left(), upright.right()),
                            std::clamp(point.y(), upright.top(), upright.bottom())});
}

QPointF rotated(const QPointF& point, const QPointF& center, double degrees) {
    const double angle = degrees * (std::numbers::pi / 180);
    const QPointF arm = point - center;
    return {center.x() + arm.x() * std::cos(angle) - arm.y() * std::sin(angle),
            center.y() + arm.x() * std::sin(angle) + arm.y() * std::cos(angle)};
}

}  // namespace kestrio
