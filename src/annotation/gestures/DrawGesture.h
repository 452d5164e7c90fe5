#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/Gesture.h"

namespace kestrio {

/// Draws a record with the tool that is chosen when it begins.
class DrawGesture : public Gesture {
  public:
    DrawGesture(AnnotationViewModel& model, const QPointF& start);

    void move(const GesturePoint& point) override;
    void finish() override;
    void cancel() override {}
    std::optional<AnyAnnotation> recordBeingDrawn() const override;

  private:
    QPointF constrained(const GesturePoint& point) const;
    void append(const QPointF& point);

    AnnotationViewModel& model_;
    const AnnotationToolInfo& tool_;
    DrawingInput input_;
};

}  // namespace kestrio
