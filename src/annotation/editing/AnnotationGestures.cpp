#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/HitTest.h"
#include "annotation/model/AnnotationKind.h"

namespace kestrio {

void AnnotationViewModel::begin(std::unique_ptr<Gesture> gesture) {
    cancelGesture();
    if (!annotationsVisible()) return;
    gesture_ = std::move(gesture);
    Q_EMIT gestureChanged();
}

void AnnotationViewModel::moveGesture(const GesturePoint& point) {
    if (!gesture_) return;
    gesture_->move(point);
    Q_EMIT gestureChanged();
}

// Taken out first: what a gesture does at its end may look at the model.
void AnnotationViewModel::finishGesture() {
    const auto ending = std::exchange(gesture_, nullptr);
    if (!ending) return;
    ending->finish();
    Q_EMIT gestureChanged();
}

void AnnotationViewModel::cancelGesture() {
    const auto ending = std::exchange(gesture_, nullptr);
    if (!ending) return;
    ending->cancel();
    Q_EMIT gestureChanged();
}

std::optional<AnyAnnotation> AnnotationViewModel::recordBeingDrawn() const {
    return gesture_ ? gesture_->recordBeingDrawn() : std::nullopt;
}

std::optional<QRectF> AnnotationViewModel::selectionRect() const {
    return gesture_ ? gesture_->selectionRect() : std::nullopt;
}

std::vector<AlignmentGuide> AnnotationViewModel::activeAlignmentGuides() const {
    return gesture_ ? gesture_->alignmentGuides() : std::vector<AlignmentGuide>();
}

void AnnotationViewModel::addDrawn(const AnyAnnotation& annotation) {
    addAnnotation(annotation);
    selectAnnotation(annotation);
    if (kindOf(annotation).editor == InPlaceEditor::text) {
        set_newlyCreatedTextAnnotationId(annotation.id());
    }
    if (autoSwitchToSelect()) set_currentTool(AnnotationTool::select);
}

int AnnotationViewModel::eraseAt(const QPointF& point, double radius) {
    if (!annotationsVisible()) return 0;
    std::vector<QUuid> erased;
    for (const AnyAnnotation& annotation : annotations_)
        if (isErased(annotation, point, radius)) erased.push_back(annotation.id());
    for (const QUuid& id : erased)
        deleteAnnotation(id);
    return static_cast<int>(erased.size());
}

}  // namespace kestrio
