#include "annotation/gestures/HandleGesture.h"

#include "annotation/model/AnnotationKind.h"

namespace kestrio {

HandleGesture::HandleGesture(AnnotationViewModel& model, HandleRole role)
    : model_(model), edit_(model, model.selectedAnnotation()->id()), role_(role) {}

void HandleGesture::move(const GesturePoint& point) {
    if (!edit_.current()) return;
    const bool isHeld = kindOf(edit_.before()).isPictureBound && !model_.pictureRect().isEmpty();
    const QPointF place = isHeld ? model_.heldInPicture(point.place) : point.place;
    AnyAnnotation dragged =
        draggedByHandle(edit_.before(), HandleDrag{role_, place, point.isConstrained});
    // In proportion it may still reach beyond the picture.
    if (isHeld && !model_.pictureRect().contains(dragged.bounds())) {
        dragged.setBounds(dragged.bounds() & model_.pictureRect());
    }
    edit_.apply(dragged);
    hasMoved_ = true;
}

std::optional<QRectF> HandleGesture::resizedBounds() const {
    const AnyAnnotation* const record = edit_.current();
    if (!record || !hasMoved_ || role_ == HandleRole::rotation) return std::nullopt;
    return record->bounds();
}

}  // namespace kestrio
