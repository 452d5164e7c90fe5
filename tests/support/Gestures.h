#pragma once

#include "annotation/gestures/DragGesture.h"
#include "annotation/gestures/DrawGesture.h"
#include "annotation/gestures/RubberBandGesture.h"

namespace kestrio {

/// Begins to draw with the tool that is chosen.
inline void startDrawing(AnnotationViewModel& model, const QPointF& start) {
    model.begin(std::make_unique<DrawGesture>(model, start));
}

/// Draws from start to end; a click where these are the same.
inline void drawLine(AnnotationViewModel& model, const QPointF& start, const QPointF& end) {
    startDrawing(model, start);
    if (start != end) model.moveGesture({end});
    model.finishGesture();
}

/// Begins to drag what is selected, from the origin, so that points are offsets.
inline void startDrag(AnnotationViewModel& model) {
    model.begin(std::make_unique<DragGesture>(model, QPointF()));
}

inline void sweep(AnnotationViewModel& model, const QPointF& from, const QPointF& to) {
    model.begin(std::make_unique<RubberBandGesture>(model, from));
    model.moveGesture({to});
    model.finishGesture();
}

}  // namespace kestrio
