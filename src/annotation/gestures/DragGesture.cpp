#include "annotation/gestures/DragGesture.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

DragGesture::DragGesture(AnnotationViewModel& model, const QPointF& start, double deadZone)
    : model_(model),
      edit_(model, model.selectedAnnotation()->id()),
      start_(start),
      deadZone_(deadZone),
      hasLeft_(deadZone <= 0) {}

// Each step starts from the record as it was when the drag began, so that roundings do not add up
// and the way back to the start is no change.
void DragGesture::move(const GesturePoint& point) {
    hasLeft_ = hasLeft_ || distance(point.place, start_) > deadZone_;
    if (!hasLeft_ || !edit_.current()) return;
    const AnyAnnotation& before = edit_.before();
    const AnyAnnotation moved =
        model_.movedTo(before, before.bounds().translated(point.place - start_));
    edit_.apply(moved);
    guides_ = model_.guidesFor(moved);
}

void DragGesture::finish() {
    if (const AnyAnnotation* const record = edit_.current()) {
        edit_.apply(
            model_.movedTo(*record, AlignmentGuideService::snapped(record->bounds(), guides_)));
    }
    edit_.commit();
}

}  // namespace kestrio
