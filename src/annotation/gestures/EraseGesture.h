#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/Gesture.h"

namespace kestrio {

/// Deletes the records that a round eraser touches on its way.
class EraseGesture : public Gesture {
  public:
    /// `radius` is in image points.
    EraseGesture(AnnotationViewModel& model, const QPointF& start, double radius)
        : model_(model), radius_(radius) {
        erase(start);
    }

    void move(const GesturePoint& point) override { erase(point.place); }
    void finish() override {}
    void cancel() override {
        for (; erasedCount_ > 0; --erasedCount_)
            model_.undo();
    }

  private:
    void erase(const QPointF& point) { erasedCount_ += model_.eraseAt(point, radius_); }

    AnnotationViewModel& model_;
    double radius_;
    int erasedCount_ = 0;
};

}  // namespace kestrio
