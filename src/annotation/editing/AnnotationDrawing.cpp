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

void AnnotationViewModel::finishDrawing() {
    if (isDrawing() && drawingStartPoint() && drawingEndPoint()) {
        const DrawnGesture gesture{*drawingStartPoint(),   *drawingEndPoint(),
                                   currentDrawingPoints(), currentDrawingTimestamps(),
                                   toolSettings(),         nextNumber()};
        if (const auto made = annotationToolInfo(currentTool()).make(gesture)) {
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
    std::vector<QUuid> erased;
    for (const AnyAnnotation& annotation : annotations_) {
        if (isErased(annotation, point, radius)) erased.push_back(annotation.id());
    }
    for (const QUuid& id : erased)
        deleteAnnotation(id);
}

}  // namespace kestrio
