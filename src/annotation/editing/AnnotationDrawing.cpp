#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/HitTest.h"

namespace kestrio {

void AnnotationViewModel::startDrawing(const QPointF& point) {
    if (!annotationsVisible()) return;
    set_isDrawing(true);
    set_drawingStartPoint(point);
    set_drawingEndPoint(point);
    if (!annotationToolInfo(currentTool()).isFreehand) return;
    set_currentDrawingPoints({point});
    set_currentDrawingTimestamps({clock_()});
}

void AnnotationViewModel::continueDrawing(const QPointF& point) {
    if (!isDrawing()) return;
    set_drawingEndPoint(point);
    if (!annotationToolInfo(currentTool()).isFreehand) return;
    // Appended in place: a stroke may have thousands of points.
    currentDrawingPoints_.push_back(point);
    currentDrawingTimestamps_.push_back(clock_());
    Q_EMIT currentDrawingPointsChanged();
    Q_EMIT currentDrawingTimestampsChanged();
}

DrawnGesture AnnotationViewModel::drawnGesture() const {
    return {*drawingStartPoint(),       *drawingEndPoint(), currentDrawingPoints(),
            currentDrawingTimestamps(), toolSettings(),     nextNumber()};
}

std::optional<AnyAnnotation> AnnotationViewModel::recordBeingDrawn() const {
    if (!isDrawing() || !drawingStartPoint() || !drawingEndPoint()) return std::nullopt;
    const AnnotationToolInfo& info = annotationToolInfo(currentTool());
    DrawnGesture gesture = drawnGesture();
    if (!info.isFreehand) return info.make(gesture);
    // Two points make the pen; thinning the whole way at every move would cost more than drawing.
    std::vector<QPointF> points = std::move(gesture.points);
    gesture.points = {gesture.start, gesture.end};
    gesture.timestamps.clear();
    auto stroke = info.make(gesture);
    if (stroke) stroke->as<BrushAnnotation>()->points = std::move(points);
    return stroke;
}

void AnnotationViewModel::finishDrawing() {
    if (isDrawing() && drawingStartPoint() && drawingEndPoint()) {
        if (const auto made = annotationToolInfo(currentTool()).make(drawnGesture())) {
            finishNewAnnotation(*made);
        }
    }
    clearDrawingState();
}

void AnnotationViewModel::finishNewAnnotation(const AnyAnnotation& annotation) {
    addAnnotation(annotation);
    selectAnnotation(annotation);
    if (annotation.as<TextAnnotation>()) set_newlyCreatedTextAnnotationId(annotation.id());
    if (autoSwitchToSelect()) set_currentTool(AnnotationTool::select);
}

void AnnotationViewModel::clearDrawingState() {
    set_isDrawing(false);
    set_drawingStartPoint(std::nullopt);
    set_drawingEndPoint(std::nullopt);
    set_currentDrawingPoints({});
    set_currentDrawingTimestamps({});
}

void AnnotationViewModel::addTextAnnotation(const QPointF& at) {
    constexpr QSizeF size(150, 40);
    clearDrawingState();
    finishNewAnnotation(newTextAnnotation({at, size}, toolSettings()));
}

void AnnotationViewModel::eraseAt(const QPointF& point, double radius) {
    set_eraserPosition(point);
    set_isErasing(true);
    if (!annotationsVisible()) return;
    std::vector<QUuid> erased;
    for (const AnyAnnotation& annotation : annotations_) {
        if (isErased(annotation, point, radius)) erased.push_back(annotation.id());
    }
    for (const QUuid& id : erased)
        deleteAnnotation(id);
}

}  // namespace kestrio
