#pragma once

#include "annotation/drawing/AlignmentGuideService.h"
#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// Where the pointer is, in image points, and whether the user wants the constrained form: squares,
/// steps of angles, sizes in proportion.
struct GesturePoint {
    QPointF place;
    bool isConstrained = false;
};

/// What one press of the pointer does to the annotations until its release. A gesture begins where
/// it is made; AnnotationViewModel holds the one that is under way. Main thread.
class Gesture {
  public:
    Gesture() = default;
    virtual ~Gesture() = default;
    Q_DISABLE_COPY_MOVE(Gesture)

    virtual void move(const GesturePoint& point) = 0;
    /// The pointer was released: what was done stays, as one step of undo for each record.
    virtual void finish() = 0;
    /// Everything is as if the gesture had never begun.
    virtual void cancel() = 0;

    // What views show meanwhile.

    /// What is being drawn as the record that it would become now; none where nothing is drawn, or
    /// too little.
    virtual std::optional<AnyAnnotation> recordBeingDrawn() const { return std::nullopt; }
    /// Between the corners of a rubber band.
    virtual std::optional<QRectF> selectionRect() const { return std::nullopt; }
    virtual std::vector<AlignmentGuide> alignmentGuides() const { return {}; }
    /// Bounds to show the size of; none where the size stays.
    virtual std::optional<QRectF> resizedBounds() const { return std::nullopt; }
    /// A record that exists already follows the pointer.
    virtual bool isMovingRecord() const { return false; }
};

}  // namespace kestrio
