#include "capture/region/RegionSelection.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

constexpr double dragThreshold = 5;
constexpr double leastSide = 10;
constexpr double handleReach = 15;

/// Which edges a handle drags: -1 the left or upper, 1 the right or lower, 0 neither.
struct HandleEdges {
    int x, y;
};

constexpr HandleEdges edgesOf(SelectionHandle handle) {
    constexpr HandleEdges table[] = {{-1, -1}, {0, -1}, {1, -1}, {1, 0},
                                     {1, 1},   {0, 1},  {-1, 1}, {-1, 0}};
    return table[static_cast<int>(handle)];
}

bool isLargeEnough(const QRectF& rect) {
    return rect.width() >= leastSide && rect.height() >= leastSide;
}

QPointF heldWithin(const QRectF& view, const QRectF& rect) {
    return {std::clamp(rect.x(), 0.0, std::max(0.0, view.width() - rect.width())),
            std::clamp(rect.y(), 0.0, std::max(0.0, view.height() - rect.height()))};
}

}  // namespace

QPointF handlePosition(SelectionHandle handle, const QRectF& selection) {
    const HandleEdges edges = edgesOf(handle);
    const QPointF half(selection.width() / 2, selection.height() / 2);
    return selection.center() + QPointF(edges.x * half.x(), edges.y * half.y());
}

RegionSelection::RegionSelection(QRectF bounds, std::vector<WindowInfo> windows, double pixel)
    : bounds_(bounds),
      view_(QPointF(), bounds.size()),
      pixel_(pixel),
      windows_(std::move(windows)) {}

QPointF RegionSelection::reachingEdges(QPointF point) const {
    return {point.x() >= view_.right() - pixel_ ? view_.right() : point.x(),
            point.y() >= view_.bottom() - pixel_ ? view_.bottom() : point.y()};
}

void RegionSelection::press(QPointF point) {
    pointer_ = point;
    if (phase_ == SelectionPhase::adjusting) {
        const auto handle = handleAt(point);
        if (handle || selection_.contains(point)) {
            grip_ = Grip{handle, selection_, point};
            return;
        }
        startOver();
        hover(point);
    }
    start_ = reachingEdges(point);
    isDragging_ = true;
    didDrag_ = false;
    selection_ = {};
    pendingSnap_ = std::exchange(snapRect_, {});
}

void RegionSelection::move(QPointF point) {
    pointer_ = point;
    if (grip_) {
        dragGrip(point);
    } else if (isDragging_) {
        const QPointF way = point - start_;
        if (!didDrag_ && std::hypot(way.x(), way.y()) > dragThreshold) {
            didDrag_ = true;
            pendingSnap_ = {};
        }
        selection_ = QRectF(start_, reachingEdges(point)).normalized() & view_;
    } else if (phase_ == SelectionPhase::selecting) {
        hover(point);
    }
}

RegionSelection::Release RegionSelection::release(QPointF point) {
    if (grip_) {
        grip_.reset();
        return Release::nothing;
    }
    if (!isDragging_) return Release::nothing;
    move(point);
    isDragging_ = false;
    const QRectF snap = std::exchange(pendingSnap_, {});
    if (didDrag_ && isLargeEnough(selection_)) return Release::chosen;
    selection_ = snap;
    if (!selection_.isEmpty()) return Release::chosen;
    hover(point);
    return Release::nothing;
}

void RegionSelection::selectAll() {
    grip_.reset();
    isDragging_ = false;
    pendingSnap_ = {};
    snapRect_ = {};
    selection_ = view_;
}

void RegionSelection::startOver() {
    phase_ = SelectionPhase::selecting;
    selection_ = {};
    grip_.reset();
    isDragging_ = false;
    hover(pointer_);
}

void RegionSelection::dragGrip(QPointF point) {
    QRectF moved = grip_->start;
    if (!grip_->handle) {
        moved.translate(point - grip_->from);
        selection_.moveTopLeft(heldWithin(view_, moved));
        return;
    }
    // From the rectangle that the drag began with, so that the far edges stay where they are when
    // the handle passes them.
    const HandleEdges edges = edgesOf(*grip_->handle);
    const QPointF to = reachingEdges(point);
    if (edges.x < 0) moved.setLeft(to.x());
    if (edges.x > 0) moved.setRight(to.x());
    if (edges.y < 0) moved.setTop(to.y());
    if (edges.y > 0) moved.setBottom(to.y());
    moved = moved.normalized() & view_;
    if (isLargeEnough(moved)) selection_ = moved;
}

void RegionSelection::moveBy(QPointF delta) {
    selection_.moveTopLeft(heldWithin(view_, selection_.translated(delta)));
}

void RegionSelection::growBy(QPointF delta) {
    QRectF grown = selection_;
    grown.setBottomRight(grown.bottomRight() + delta);
    grown &= view_;
    if (isLargeEnough(grown)) selection_ = grown;
}

void RegionSelection::hover(QPointF point) {
    const WindowInfo* const window = windowAt(point + bounds_.topLeft(), windows_);
    snapRect_ = window ? window->bounds.translated(-bounds_.topLeft()) & view_ : QRectF();
}

std::optional<SelectionHandle> RegionSelection::handleAt(QPointF point) const {
    for (const SelectionHandle handle : selectionHandles) {
        const QPointF away = handlePosition(handle, selection_) - point;
        if (std::abs(away.x()) <= handleReach && std::abs(away.y()) <= handleReach) return handle;
    }
    return std::nullopt;
}

Qt::CursorShape RegionSelection::cursor() const {
    if (phase_ == SelectionPhase::selecting) return Qt::CrossCursor;
    if (grip_ && !grip_->handle) return Qt::ClosedHandCursor;
    if (grip_ || handleAt(pointer_)) return Qt::CrossCursor;
    return selection_.contains(pointer_) ? Qt::OpenHandCursor : Qt::ArrowCursor;
}

}  // namespace kestrio
