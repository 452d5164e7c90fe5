#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/EditTransaction.h"
#include "annotation/editing/Gesture.h"

namespace kestrio {

/// Moves the primary of the selected records, which snaps to the guides at the end.
class DragGesture : public Gesture {
  public:
    /// Some record has to be selected. The pointer has to travel further than `deadZone` image
    /// points before anything moves, so that a click on a text is no move.
    DragGesture(AnnotationViewModel& model, const QPointF& start, double deadZone = 0);

    void move(const GesturePoint& point) override;
    void finish() override;
    void cancel() override { edit_.rollBack(); }
    std::vector<AlignmentGuide> alignmentGuides() const override { return guides_; }
    bool isMovingRecord() const override { return hasLeft_; }

  private:
    AnnotationViewModel& model_;
    EditTransaction edit_;
    QPointF start_;
    double deadZone_;
    bool hasLeft_;  ///< the dead zone
    std::vector<AlignmentGuide> guides_;
};

}  // namespace kestrio
