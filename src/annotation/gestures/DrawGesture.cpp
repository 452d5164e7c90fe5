#include "annotation/gestures/DrawGesture.h"

#include "annotation/drawing/DrawingConstraintService.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

/// The corner of the square on the pointer's side.
QPointF squareCorner(const QPointF& start, const QPointF& end) {
    const QRectF square = DrawingConstraintService::squareRect(start, end);
    return {end.x() < start.x() ? square.left() : square.right(),
            end.y() < start.y() ? square.top() : square.bottom()};
}

}  // namespace

DrawGesture::DrawGesture(AnnotationViewModel& model, const QPointF& start)
    : model_(model), tool_(annotationToolInfo(model.currentTool())) {
    input_.settings = model.toolSettings();
    input_.nextNumber = model.nextNumber();
    input_.start = tool_.isPictureBound ? model.heldInPicture(start) : start;
    append(input_.start);
}

void DrawGesture::append(const QPointF& point) {
    input_.end = point;
    if (!tool_.isFreehand) return;
    input_.points.push_back(point);
    input_.timestamps.push_back(model_.now());
}

QPointF DrawGesture::constrained(const GesturePoint& point) const {
    const QPointF place = tool_.isPictureBound ? model_.heldInPicture(point.place) : point.place;
    if (!point.isConstrained) return place;
    switch (tool_.constraint) {
        case DrawingConstraint::none:
            return place;
        case DrawingConstraint::angle:
            return DrawingConstraintService::constrainTo45Degrees(input_.start, place);
        case DrawingConstraint::square:
            return squareCorner(input_.start, place);
    }
    return place;
}

void DrawGesture::move(const GesturePoint& point) {
    append(constrained(point));
}

void DrawGesture::finish() {
    if (const auto made = tool_.make(input_)) model_.addDrawn(*made);
}

// Thinning the whole way of a stroke at every move would cost more than drawing it.
std::optional<AnyAnnotation> DrawGesture::recordBeingDrawn() const {
    return tool_.preview ? tool_.preview(input_) : tool_.make(input_);
}

}  // namespace kestrio
