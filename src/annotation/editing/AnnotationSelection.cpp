#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/HitTest.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

void AnnotationViewModel::setPrimary(std::optional<AnyAnnotation> annotation) {
    if (!annotation && !selectedAnnotation_) return;
    selectedAnnotation_ = std::move(annotation);
    Q_EMIT selectedAnnotationChanged();
}

void AnnotationViewModel::set_hoveredAnnotation(std::optional<AnyAnnotation> annotation) {
    if (!annotation && !hoveredAnnotation_) return;
    hoveredAnnotation_ = std::move(annotation);
    Q_EMIT hoveredAnnotationChanged();
}

std::vector<AnyAnnotation> AnnotationViewModel::selectedRecords() const {
    std::vector<AnyAnnotation> records;
    std::ranges::copy_if(annotations_, std::back_inserter(records),
                         [this](const auto& each) { return isSelected(each.id()); });
    return records;
}

void AnnotationViewModel::selectAnnotation(const std::optional<AnyAnnotation>& annotation) {
    if (!isMultiSelectMode()) {
        set_selectedAnnotations(annotation ? std::set{annotation->id()} : std::set<QUuid>());
    }
    setPrimary(annotation);
    if (!annotation) return;
    annotation->visit([this](const auto& record) {
        if constexpr (requires { record.fillMode; }) {
            ToolSettings settings = toolSettings();
            settings.fillMode = record.fillMode;
            set_toolSettings(settings);
        }
    });
}

void AnnotationViewModel::addToSelection(const AnyAnnotation& annotation) {
    std::set<QUuid> selected = selectedAnnotations();
    selected.insert(annotation.id());
    set_selectedAnnotations(std::move(selected));
    setPrimary(annotation);
}

void AnnotationViewModel::removeFromSelection(const QUuid& id) {
    std::set<QUuid> selected = selectedAnnotations();
    selected.erase(id);
    set_selectedAnnotations(std::move(selected));
    if (!selectedAnnotation_ || selectedAnnotation_->id() != id) return;
    const auto rest = selectedRecords();
    setPrimary(rest.empty() ? std::nullopt : std::optional(rest.front()));
}

void AnnotationViewModel::toggleSelection(const AnyAnnotation& annotation) {
    if (isSelected(annotation.id())) {
        removeFromSelection(annotation.id());
    } else {
        addToSelection(annotation);
    }
}

void AnnotationViewModel::selectAll() {
    if (!annotationsVisible()) return;
    std::set<QUuid> selected;
    for (const AnyAnnotation& annotation : annotations_)
        selected.insert(annotation.id());
    set_selectedAnnotations(std::move(selected));
    setPrimary(annotations_.empty() ? std::nullopt : std::optional(annotations_.back()));
}

void AnnotationViewModel::selectInRect(const QRectF& rect) {
    if (!annotationsVisible()) return;
    std::set<QUuid> selected = selectedAnnotations();
    for (const AnyAnnotation& annotation : annotations_) {
        if (intersects(annotation.bounds(), rect)) selected.insert(annotation.id());
    }
    set_selectedAnnotations(std::move(selected));
    const auto records = selectedRecords();
    setPrimary(records.empty() ? std::nullopt : std::optional(records.back()));
}

std::optional<QRectF> AnnotationViewModel::combinedBounds() const {
    std::optional<QRectF> combined;
    for (const AnyAnnotation& record : selectedRecords()) {
        combined = combined ? enclosingRect(*combined, record.bounds()) : record.bounds();
    }
    return combined;
}

std::optional<std::size_t> AnnotationViewModel::hitBefore(std::size_t end,
                                                          const QPointF& point) const {
    if (!annotationsVisible()) return std::nullopt;
    if (!hitIndex_) hitIndex_.emplace(annotations_);
    auto candidate = hitIndex_->lastCandidate(point, end);
    while (candidate && !isHit(annotations_[*candidate], point))
        candidate = hitIndex_->lastCandidate(point, *candidate);
    return candidate;
}

std::optional<AnyAnnotation> AnnotationViewModel::annotationAt(const QPointF& point) const {
    const auto topmost = hitBefore(annotations_.size(), point);
    return topmost ? std::optional(annotations_[*topmost]) : std::nullopt;
}

std::vector<AnyAnnotation> AnnotationViewModel::annotationsAt(const QPointF& point) const {
    std::vector<AnyAnnotation> hit;
    for (auto i = hitBefore(annotations_.size(), point); i; i = hitBefore(*i, point))
        hit.push_back(annotations_[*i]);
    return hit;
}

bool AnnotationViewModel::cycleSelection(const QPointF& point) {
    const auto hit = annotationsAt(point);
    if (hit.empty()) {
        selectAnnotation(std::nullopt);
        return false;
    }
    std::size_t next = 0;
    if (selectedAnnotation_) {
        const auto current = std::ranges::find(hit, selectedAnnotation_->id(), &AnyAnnotation::id);
        if (current != hit.end()) {
            next = (static_cast<std::size_t>(current - hit.begin()) + 1) % hit.size();
        }
    }
    selectAnnotation(hit[next]);
    return true;
}

bool AnnotationViewModel::isFillPickerShown() const {
    return annotationToolInfo(currentTool()).hasFill;
}

std::optional<BlurAnnotation> AnnotationViewModel::selectedBlur() const {
    const auto* blur = selectedAnnotation_ ? selectedAnnotation_->as<BlurAnnotation>() : nullptr;
    return blur ? std::optional(*blur) : std::nullopt;
}

bool AnnotationViewModel::isToolCursorPreviewShown() const {
    return currentTool() != AnnotationTool::select && !gesture_ && cursorPosition() &&
           annotationsVisible() && !hoveredAnnotation_;
}

}  // namespace kestrio
