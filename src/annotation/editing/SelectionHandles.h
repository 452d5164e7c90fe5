#pragma once

#include "annotation/model/AnyAnnotation.h"

#include <vector>

namespace kestrio {

/// What dragging a handle changes.
enum class HandleRole {
    topLeft,
    top,
    topRight,
    left,
    right,
    bottomLeft,
    bottom,
    bottomRight,
    startPoint,
    endPoint,
    rotation,
};

/// A handle of a selected record, in the record's own points.
struct SelectionHandle {
    HandleRole role;
    QPointF position;
};

/// The handles of a record, turned with it. `rotationReach` is how far the rotation handle stands
/// above the top edge, in the record's points.
std::vector<SelectionHandle> selectionHandles(const AnyAnnotation& annotation,
                                              double rotationReach);

/// A drag of a handle to a point.
struct HandleDrag {
    HandleRole role;
    QPointF point;
    bool isConstrained = false;  ///< keeps the proportion; turns by steps of 15 degrees
};

/// The record as it was when the drag began, reshaped: the opposite corner or edge stands still
/// and sizes never turn over.
AnyAnnotation draggedByHandle(const AnyAnnotation& start, const HandleDrag& drag);

}  // namespace kestrio
