#include "annotation/editing/SelectionHandles.h"

#include "annotation/model/AnnotationKind.h"
#include "annotation/model/Geometry.h"

#include <cmath>
#include <numbers>

namespace kestrio {

namespace {

constexpr double leastSize = 4;      // points; smaller records could not be caught again
constexpr double rotationStep = 15;  // degrees

constexpr HandleRole corners[] = {HandleRole::topLeft, HandleRole::topRight, HandleRole::bottomLeft,
                                  HandleRole::bottomRight};
constexpr HandleRole edges[] = {HandleRole::top, HandleRole::left, HandleRole::right,
                                HandleRole::bottom};

/// Which sides of a rectangle a handle moves: -1 the left or top one, 1 the other, 0 none.
struct Sides {
    int x, y;
};

Sides sidesOf(HandleRole role) {
    switch (role) {
        case HandleRole::topLeft:
            return {-1, -1};
        case HandleRole::top:
            return {0, -1};
        case HandleRole::topRight:
            return {1, -1};
        case HandleRole::left:
            return {-1, 0};
        case HandleRole::right:
            return {1, 0};
        case HandleRole::bottomLeft:
            return {-1, 1};
        case HandleRole::bottom:
            return {0, 1};
        case HandleRole::bottomRight:
            return {1, 1};
        default:
            return {0, 0};
    }
}

QPointF placeOf(HandleRole role, const QRectF& rect) {
    const Sides sides = sidesOf(role);
    return {rect.center().x() + sides.x * rect.width() / 2,
            rect.center().y() + sides.y * rect.height() / 2};
}

template <typename Record>
concept Line = requires(Record line) {
    line.startPoint;
    line.endPoint;
};

std::vector<SelectionHandle> endHandles(const AnyAnnotation& annotation) {
    return annotation.visit([](const auto& record) -> std::vector<SelectionHandle> {
        if constexpr (Line<decltype(record)>) {
            return {{HandleRole::startPoint, record.startPoint},
                    {HandleRole::endPoint, record.endPoint}};
        }
        return {};
    });
}

void dragEnd(AnyAnnotation& annotation, const HandleDrag& drag) {
    annotation.visit([&drag](auto& record) {
        if constexpr (Line<decltype(record)>) {
            (drag.role == HandleRole::startPoint ? record.startPoint : record.endPoint) =
                drag.point;
        }
    });
}

/// One axis of the new rectangle, the side opposite to the moved one standing still.
struct Span {
    double low, high;
};

Span stretched(const Span& span, int side, double length) {
    if (side == 0) {
        const double middle = (span.low + span.high) / 2;
        return {middle - length / 2, middle + length / 2};
    }
    return side < 0 ? Span{span.high - length, span.high} : Span{span.low, span.low + length};
}

QRectF resized(const QRectF& rect, const HandleDrag& drag) {
    const Sides sides = sidesOf(drag.role);
    double width = rect.width(), height = rect.height();
    if (sides.x < 0) width = rect.right() - drag.point.x();
    if (sides.x > 0) width = drag.point.x() - rect.left();
    if (sides.y < 0) height = rect.bottom() - drag.point.y();
    if (sides.y > 0) height = drag.point.y() - rect.top();
    width = std::max(width, leastSize);
    height = std::max(height, leastSize);
    if (drag.isConstrained && rect.width() > 0 && rect.height() > 0) {
        const double byWidth = width / rect.width(), byHeight = height / rect.height();
        const double factor = sides.x == 0   ? byHeight
                              : sides.y == 0 ? byWidth
                                             : std::max(byWidth, byHeight);
        width = rect.width() * factor;
        height = rect.height() * factor;
    }
    const Span x = stretched({rect.left(), rect.right()}, sides.x, width);
    const Span y = stretched({rect.top(), rect.bottom()}, sides.y, height);
    return {QPointF(x.low, y.low), QPointF(x.high, y.high)};
}

/// Reshapes in the record's own turned frame and moves the result so that what stands still in
/// that frame stands still on the canvas too.
void dragBounds(AnyAnnotation& annotation, HandleDrag drag) {
    const QRectF before = annotation.bounds();
    const double degrees = rotationOf(annotation);
    drag.point = rotated(drag.point, before.center(), -degrees);
    // In proportion; else the record's own square would leave the opposite corner.
    drag.isConstrained |= kindOf(annotation).keepsProportion;
    QRectF after = resized(before, drag);
    after.moveCenter(rotated(after.center(), before.center(), degrees));
    annotation.setBounds(after);
}

void dragRotation(AnyAnnotation& annotation, const HandleDrag& drag) {
    const QPointF way = drag.point - annotation.bounds().center();
    double degrees = std::atan2(way.y(), way.x()) * 180 / std::numbers::pi + 90;
    if (drag.isConstrained) degrees = std::round(degrees / rotationStep) * rotationStep;
    degrees = std::fmod(degrees + 360, 360);
    setRotation(annotation, degrees);
}

}  // namespace

std::vector<SelectionHandle> selectionHandles(const AnyAnnotation& annotation,
                                              double rotationReach) {
    const AnnotationKind& kind = kindOf(annotation);
    if (kind.handles == HandleSet::ends) return endHandles(annotation);
    std::vector<SelectionHandle> handles;
    const QRectF rect = annotation.bounds();
    const auto add = [&](HandleRole role, const QPointF& place) {
        handles.push_back({role, rotated(place, rect.center(), rotationOf(annotation))});
    };
    for (const HandleRole role : corners)
        add(role, placeOf(role, rect));
    if (kind.handles == HandleSet::cornersAndEdges) {
        for (const HandleRole role : edges)
            add(role, placeOf(role, rect));
    }
    if (kind.canRotate) {
        add(HandleRole::rotation, placeOf(HandleRole::top, rect) - QPointF(0, rotationReach));
    }
    return handles;
}

AnyAnnotation draggedByHandle(const AnyAnnotation& start, const HandleDrag& drag) {
    AnyAnnotation annotation = start;
    switch (drag.role) {
        case HandleRole::startPoint:
        case HandleRole::endPoint:
            dragEnd(annotation, drag);
            break;
        case HandleRole::rotation:
            dragRotation(annotation, drag);
            break;
        default:
            dragBounds(annotation, drag);
            break;
    }
    return annotation;
}

}  // namespace kestrio
