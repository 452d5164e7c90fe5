#pragma once

#include "capture/WindowPicker.h"

#include <QRectF>
#include <Qt>
#include <optional>
#include <vector>

namespace kestrio {

enum class SelectionPhase { selecting, adjusting };

/// In the order in which they are tried.
enum class SelectionHandle { topLeft, top, topRight, right, bottomRight, bottom, bottomLeft, left };

inline constexpr SelectionHandle selectionHandles[] = {
    SelectionHandle::topLeft,    SelectionHandle::top,         SelectionHandle::topRight,
    SelectionHandle::right,      SelectionHandle::bottomRight, SelectionHandle::bottom,
    SelectionHandle::bottomLeft, SelectionHandle::left,
};

/// Where a handle sits on a rectangle.
QPointF handlePosition(SelectionHandle handle, const QRectF& selection);

/// Choosing a region of one display, without any window or pixel. Points are of the display, from
/// its top left corner.
class RegionSelection {
  public:
    /// What a release of the pointer came to.
    enum class Release { nothing, chosen };

    /// `bounds` of the display in points of the desktop. `windows` are those to snap to, from front
    /// to back. `pixel` is the side of the display's pixels in points: the pointer cannot go beyond
    /// the last one, so that there it stands for the display's edge.
    RegionSelection(QRectF bounds, std::vector<WindowInfo> windows, double pixel = 1);

    void press(QPointF point);
    void move(QPointF point);
    Release release(QPointF point);
    /// A chosen region becomes one to adjust.
    void beginAdjusting() { phase_ = SelectionPhase::adjusting; }
    /// Selects the whole display.
    void selectAll();
    /// Drops the selection.
    void startOver();
    /// Moves an adjusted selection, within the display.
    void moveBy(QPointF delta);
    /// Moves its lower right corner, down to the least size and within the display.
    void growBy(QPointF delta);

    SelectionPhase phase() const { return phase_; }
    bool isDragging() const { return isDragging_ || grip_; }
    QPointF pointer() const { return pointer_; }
    /// Empty where there is none.
    const QRectF& selection() const { return selection_; }
    /// The part of the window that a click would take; empty where there is none.
    const QRectF& snapRect() const { return snapRect_; }
    /// What is shown undimmed: the selection, else the window to snap to.
    QRectF cutOut() const { return selection_.isEmpty() ? snapRect_ : selection_; }
    bool isSnapping() const { return selection_.isEmpty() && !snapRect_.isEmpty(); }
    Qt::CursorShape cursor() const;

  private:
    /// An adjusted selection being dragged by a handle or, without one, as a whole.
    struct Grip {
        std::optional<SelectionHandle> handle;
        QRectF start;
        QPointF from;
    };

    std::optional<SelectionHandle> handleAt(QPointF point) const;
    void dragGrip(QPointF point);
    void hover(QPointF point);
    QPointF reachingEdges(QPointF point) const;

    QRectF bounds_;
    QRectF view_;
    double pixel_;
    std::vector<WindowInfo> windows_;
    SelectionPhase phase_ = SelectionPhase::selecting;
    QPointF pointer_;
    QPointF start_;
    QRectF selection_;
    // Of the window that a click would take, and of the one that this press began on.
    QRectF snapRect_;
    QRectF pendingSnap_;
    bool isDragging_ = false;
    bool didDrag_ = false;
    std::optional<Grip> grip_;
};

}  // namespace kestrio
