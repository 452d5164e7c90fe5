#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/Gesture.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

/// Adds what a rectangle crosses to the selection.
class RubberBandGesture : public Gesture {
  public:
    RubberBandGesture(AnnotationViewModel& model, const QPointF& start)
        : model_(model), start_(start), end_(start) {}

    void move(const GesturePoint& point) override { end_ = point.place; }
    void finish() override {
        constexpr double leastSize = 5.0;
        const QRectF rect = rectBetween(start_, end_);
        if (rect.width() > leastSize && rect.height() > leastSize) model_.selectInRect(rect);
    }
    void cancel() override {}
    std::optional<QRectF> selectionRect() const override { return rectBetween(start_, end_); }

  private:
    AnnotationViewModel& model_;
    QPointF start_, end_;
};

}  // namespace kestrio
