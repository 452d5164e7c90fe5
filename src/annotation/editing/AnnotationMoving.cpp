#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/model/AnnotationKind.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

/// The rectangle moved into the area, or to its top left corner where it is larger.
QRectF heldWithin(QRectF rect, const QRectF& area) {
    rect.moveLeft(std::max(area.left(), std::min(rect.left(), area.right() - rect.width())));
    rect.moveTop(std::max(area.top(), std::min(rect.top(), area.bottom() - rect.height())));
    return rect;
}

}  // namespace

AnyAnnotation AnnotationViewModel::movedTo(AnyAnnotation record, const QRectF& bounds) const {
    const bool isHeld = kindOf(record).isPictureBound && !pictureRect().isEmpty();
    const QRectF target = isHeld ? heldWithin(bounds, pictureRect()) : bounds;
    const QRectF before = record.bounds();
    if (identical(target, before)) return record;
    record.setBounds(target);
    // A straight stroke has no area to be stretched by.
    if (identical(record.bounds(), before)) record.translate(target.topLeft() - before.topLeft());
    return record;
}

std::vector<AlignmentGuide> AnnotationViewModel::guidesFor(const AnyAnnotation& record) const {
    std::vector<GuideSource> sources;
    for (const AnyAnnotation& annotation : annotations_)
        sources.push_back({annotation.id(), annotation.bounds()});
    return AlignmentGuideService::unique(
        AlignmentGuideService::guides(record.bounds(), record.id(), sources));
}

QPointF AnnotationViewModel::heldInPicture(const QPointF& point) const {
    const QRectF picture = pictureRect();
    if (picture.isEmpty()) return point;
    return {std::clamp(point.x(), picture.left(), picture.right()),
            std::clamp(point.y(), picture.top(), picture.bottom())};
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
