#include "annotation/editing/HitTest.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

struct Eraser {
    QPointF point;
    double radius;

    bool touchesSegment(const QPointF& start, const QPointF& end, double width) const {
        const bool isPoint = identical(start, end);
        return distanceToSegment(point, start, end) <= radius + (isPoint ? 0 : width / 2);
    }
};

template <typename Line>
requires requires(Line line) {
    line.startPoint, line.endPoint;
}
bool touches(const Eraser& eraser, const Line& line) {
    return eraser.touchesSegment(line.startPoint, line.endPoint, line.strokeWidth);
}

bool touches(const Eraser& eraser, const RectangleAnnotation& rectangle) {
    const QRectF& bounds = rectangle.bounds;
    if (isFilled(rectangle.fillMode) && contains(grown(bounds, eraser.radius), eraser.point)) {
        return true;
    }
    const QPointF corners[] = {bounds.topLeft(), bounds.topRight(), bounds.bottomRight(),
                               bounds.bottomLeft()};
    const double reach = eraser.radius + rectangle.strokeWidth / 2;
    for (std::size_t i = 0; i < std::size(corners); ++i) {
        const QPointF& next = corners[(i + 1) % std::size(corners)];
        if (distanceToSegment(eraser.point, corners[i], next) <= reach) return true;
    }
    return false;
}

bool touches(const Eraser& eraser, const CircleAnnotation& circle) {
    const double toCenter = distance(eraser.point, circle.center);
    if (isFilled(circle.fillMode) && toCenter <= eraser.radius + circle.radius) return true;
    const double half = circle.strokeWidth / 2;
    return toCenter >= circle.radius - half - eraser.radius &&
           toCenter <= eraser.radius + circle.radius + half;
}

/// Badges and emojis.
template <typename Round>
requires requires(Round round) {
    round.center, round.size;
}
bool touches(const Eraser& eraser, const Round& round) {
    return distance(eraser.point, round.center) <= eraser.radius + round.size / 2;
}

bool touches(const Eraser& eraser, const BrushAnnotation& stroke) {
    const auto& points = stroke.points;
    if (points.size() == 1) return eraser.touchesSegment(points[0], points[0], stroke.strokeWidth);
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (eraser.touchesSegment(points[i - 1], points[i], stroke.strokeWidth)) return true;
    }
    return false;
}

bool touches(const Eraser& eraser, const TextAnnotation& text) {
    return distanceToRect(eraser.point, text.bounds) <= eraser.radius;
}

bool touches(const Eraser& eraser, const BlurAnnotation& blur) {
    return distanceToRect(eraser.point, blur.bounds) <= eraser.radius;
}

}  // namespace

bool isErased(const AnyAnnotation& annotation, const QPointF& point, double radius) {
    if (!contains(grown(annotation.bounds(), radius), point)) return false;
    return annotation.visit(
        [eraser = Eraser{point, radius}](const auto& record) { return touches(eraser, record); });
}

}  // namespace kestrio
