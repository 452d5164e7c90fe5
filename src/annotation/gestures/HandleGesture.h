#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/EditTransaction.h"
#include "annotation/editing/Gesture.h"
#include "annotation/editing/SelectionHandles.h"

namespace kestrio {

/// Reshapes or turns the primary of the selected records by one of its handles.
class HandleGesture : public Gesture {
  public:
    /// Some record has to be selected.
    HandleGesture(AnnotationViewModel& model, HandleRole role);

    void move(const GesturePoint& point) override;
    void finish() override { edit_.commit(); }
    void cancel() override { edit_.rollBack(); }
    std::optional<QRectF> resizedBounds() const override;
    bool isMovingRecord() const override { return true; }

  private:
    AnnotationViewModel& model_;
    EditTransaction edit_;
    HandleRole role_;
    bool hasMoved_ = false;
};

}  // namespace kestrio
