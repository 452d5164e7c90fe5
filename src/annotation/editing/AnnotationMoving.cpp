#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

void AnnotationViewModel::beginDrag() {
    if (!selectedAnnotation_) return;
    set_isDraggingAnnotation(true);
    set_dragStartBounds(selectedAnnotation_->bounds());
    dragStartAnnotation_ = selectedAnnotation_;
    Q_EMIT dragStartAnnotationChanged();
}

// Each step starts from the record as it was when the drag began, so that roundings do not add up
// and the way back to the start is no change.
void AnnotationViewModel::dragTo(const QPointF& offset) {
    if (!isDraggingAnnotation() || !selectedAnnotation_ || !dragStartAnnotation_) return;
    const bool isSame = dragStartAnnotation_->id() == selectedAnnotation_->id();
    applyAnnotation(movedTo(isSame ? *dragStartAnnotation_ : *selectedAnnotation_,
                            dragStartBounds()->translated(offset)));
}

namespace {

/// The rectangle moved into the area, or to its top left corner where it is larger.
QRectF heldWithin(QRectF rect, const QRectF& area) {
    rect.moveLeft(std::max(area.left(), std::min(rect.left(), area.right() - rect.width())));
    rect.moveTop(std::max(area.top(), std::min(rect.top(), area.bottom() - rect.height())));
    return rect;
}

}  // namespace

AnyAnnotation AnnotationViewModel::movedTo(AnyAnnotation record, const QRectF& bounds) const {
    const bool isHeld = record.as<BlurAnnotation>() && !pictureRect().isEmpty();
    const QRectF target = isHeld ? heldWithin(bounds, pictureRect()) : bounds;
    const QRectF before = record.bounds();
    if (identical(target, before)) return record;
    record.setBounds(target);
    // A straight stroke has no area to be stretched by.
    if (identical(record.bounds(), before)) record.translate(target.topLeft() - before.topLeft());
    return record;
}

void AnnotationViewModel::endDrag() {
    const bool isSame = dragStartAnnotation_ && selectedAnnotation_ &&
                        dragStartAnnotation_->id() == selectedAnnotation_->id();
    if (isSame && !identical(selectedAnnotation_->bounds(), dragStartAnnotation_->bounds())) {
        historyService_.record({ModifyOperation{*dragStartAnnotation_, *selectedAnnotation_}});
    }
    set_isDraggingAnnotation(false);
    set_dragStartBounds(std::nullopt);
    dragStartAnnotation_.reset();
    Q_EMIT dragStartAnnotationChanged();
}

void AnnotationViewModel::updateGuides() {
    if (!selectedAnnotation_) {
        set_activeAlignmentGuides({});
        return;
    }
    std::vector<GuideSource> sources;
    for (const AnyAnnotation& annotation : annotations_)
        sources.push_back({annotation.id(), annotation.bounds()});
    set_activeAlignmentGuides(AlignmentGuideService::unique(AlignmentGuideService::guides(
        selectedAnnotation_->bounds(), selectedAnnotation_->id(), sources)));
}

QRectF AnnotationViewModel::snappedRect(const QRectF& rect) const {
    return AlignmentGuideService::snapped(rect, activeAlignmentGuides());
}

void AnnotationViewModel::snapToGuides() {
    if (selectedAnnotation_) {
        applyAnnotation(movedTo(*selectedAnnotation_, snappedRect(selectedAnnotation_->bounds())));
    }
    set_activeAlignmentGuides({});
}

namespace {

std::vector<QRectF> boundsOf(const std::vector<AnyAnnotation>& records) {
    std::vector<QRectF> rects;
    for (const AnyAnnotation& record : records)
        rects.push_back(record.bounds());
    return rects;
}

}  // namespace

void AnnotationViewModel::moveRecordsTo(const std::vector<AnyAnnotation>& records,
                                        const std::vector<QRectF>& rects) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!identical(records[i].bounds(), rects[i])) {
            updateAnnotation(movedTo(records[i], rects[i]));
        }
    }
}

void AnnotationViewModel::align(AlignmentType type) {
    const auto records = selectedRecords();
    if (records.size() >= 2) moveRecordsTo(records, aligned(boundsOf(records), type));
}

void AnnotationViewModel::distribute(DistributionAxis axis) {
    const auto records = selectedRecords();
    if (records.size() >= 3) moveRecordsTo(records, distributed(boundsOf(records), axis));
}

}  // namespace kestrio
