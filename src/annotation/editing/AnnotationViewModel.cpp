#include "annotation/editing/AnnotationViewModel.h"

#include "annotation/editing/BadgeNumbers.h"

namespace kestrio {

AnnotationViewModel::AnnotationViewModel(std::vector<AnyAnnotation> annotations,
                                         MemoryPressure* memoryPressure, Clock clock,
                                         QObject* parent)
    : QObject(parent),
      annotations_(std::move(annotations)),
      historyService_(memoryPressure),
      clock_(std::move(clock)),
      textEditing_(*this),
      numberEditing_(*this) {}

double AnnotationViewModel::systemClock() {
    return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000;
}

std::size_t AnnotationViewModel::indexOf(const QUuid& id) const {
    const auto found = std::ranges::find(annotations_, id, &AnyAnnotation::id);
    return static_cast<std::size_t>(found - annotations_.begin());
}

const AnyAnnotation* AnnotationViewModel::annotation(const QUuid& id) const {
    const std::size_t index = indexOf(id);
    return index < annotations_.size() ? &annotations_[index] : nullptr;
}

AnyAnnotation* AnnotationViewModel::find(const QUuid& id) {
    const std::size_t index = indexOf(id);
    return index < annotations_.size() ? &annotations_[index] : nullptr;
}

void AnnotationViewModel::appendRecord(const AnyAnnotation& annotation) {
    hitIndex_.reset();
    annotations_.push_back(annotation);
    const auto number = numberOf(annotation);
    if (number && *number >= nextNumber()) set_nextNumber(successor(*number));
    Q_EMIT annotationsChanged();
}

void AnnotationViewModel::removeRecord(const QUuid& id) {
    hitIndex_.reset();
    if (std::erase_if(annotations_, [&](const auto& each) { return each.id() == id; }) == 0) return;
    if (selectedAnnotation_ && selectedAnnotation_->id() == id) setPrimary(std::nullopt);
    std::set<QUuid> selected = selectedAnnotations();
    selected.erase(id);
    set_selectedAnnotations(std::move(selected));
    Q_EMIT annotationsChanged();
}

void AnnotationViewModel::setAnnotations(std::vector<AnyAnnotation> annotations) {
    // Not cancelled: the list that it would restore is going.
    if (std::exchange(gesture_, nullptr)) Q_EMIT gestureChanged();
    textEditing_.drop();
    numberEditing_.cancel();
    set_selectedAnnotations({});
    setPrimary(std::nullopt);
    set_hoveredAnnotation(std::nullopt);
    set_newlyCreatedTextAnnotationId(std::nullopt);
    if (!areIdentical(annotations_, annotations)) historyService_.clear();
    hitIndex_.reset();
    annotations_ = std::move(annotations);
    recomputeNextNumber();
    Q_EMIT annotationsChanged();
}

void AnnotationViewModel::translateAll(const QPointF& offset) {
    std::vector<AnyAnnotation> moved = annotations_;
    for (AnyAnnotation& annotation : moved)
        annotation.translate(offset);
    historyService_.translate(offset);
    annotations_ = moved;
    setAnnotations(std::move(moved));
}

void AnnotationViewModel::addAnnotation(const AnyAnnotation& annotation) {
    appendRecord(annotation);
    historyService_.record({AddOperation{annotation}});
}

void AnnotationViewModel::addAnnotations(const std::vector<AnyAnnotation>& annotations) {
    CompactedBatch batch;
    for (const AnyAnnotation& annotation : annotations) {
        appendRecord(annotation);
        batch.operations.push_back({AddOperation{annotation}});
    }
    if (!batch.operations.empty()) historyService_.record({std::move(batch)});
}

void AnnotationViewModel::applyAnnotation(const AnyAnnotation& annotation) {
    AnyAnnotation* record = find(annotation.id());
    if (!record) return;
    hitIndex_.reset();
    *record = annotation;
    if (selectedAnnotation_ && selectedAnnotation_->id() == annotation.id()) setPrimary(annotation);
    Q_EMIT annotationsChanged();
}

void AnnotationViewModel::updateAnnotation(const AnyAnnotation& annotation) {
    const AnyAnnotation* record = find(annotation.id());
    if (!record) return;
    const AnyAnnotation before = *record;
    applyAnnotation(annotation);
    if (!(before == annotation)) historyService_.record({ModifyOperation{before, annotation}});
}

void AnnotationViewModel::deleteAnnotation(const QUuid& id) {
    const AnyAnnotation* record = find(id);
    if (!record) return;
    const AnyAnnotation removed = *record;
    removeRecord(id);
    historyService_.record({DeleteOperation{removed}});
    if (textEditing_.editedTextId() == id) textEditing_.end();
    if (numberOf(removed)) recomputeNextNumber();
}

void AnnotationViewModel::deleteSelected() {
    if (selectedAnnotations().size() < 2) {
        if (selectedAnnotation_) deleteAnnotation(selectedAnnotation_->id());
        return;
    }
    for (const AnyAnnotation& record : selectedRecords())
        deleteAnnotation(record.id());
    set_selectedAnnotations({});
    setPrimary(std::nullopt);
}

void AnnotationViewModel::changeSelection(const Change& change) {
    std::vector<AnyAnnotation> records;
    if (selectedAnnotations().size() >= 2) {
        records = selectedRecords();
    } else if (selectedAnnotation_) {
        records = {*selectedAnnotation_};
    }
    for (AnyAnnotation& record : records) {
        change(record);
        updateAnnotation(record);
    }
}

void AnnotationViewModel::setColor(const CodableColor& color) {
    ToolSettings settings = toolSettings();
    settings.color = color;
    set_toolSettings(settings);
    Q_EMIT toolSettingsChosen();
    changeSelection([&](AnyAnnotation& record) { record.setColor(color); });
}

void AnnotationViewModel::setStrokeSize(StrokeSize size) {
    ToolSettings settings = toolSettings();
    settings.strokeSize = size;
    set_toolSettings(settings);
    Q_EMIT toolSettingsChosen();
    changeSelection([&](AnyAnnotation& record) { record.setStrokeWidth(strokeWidth(size)); });
}

void AnnotationViewModel::setFillMode(FillMode mode) {
    ToolSettings settings = toolSettings();
    settings.fillMode = mode;
    set_toolSettings(settings);
    Q_EMIT toolSettingsChosen();
    if (!selectedAnnotation_) return;
    AnyAnnotation changed = *selectedAnnotation_;
    changed.visit([&](auto& record) {
        if constexpr (requires { record.fillMode; }) record.fillMode = mode;
    });
    updateAnnotation(changed);
}

void AnnotationViewModel::moveRecord(const QUuid& id, std::size_t toIndex) {
    const std::size_t from = indexOf(id);
    if (from >= annotations_.size()) return;
    hitIndex_.reset();
    const auto at = [this](std::size_t i) {
        return annotations_.begin() + static_cast<std::ptrdiff_t>(i);
    };
    const std::size_t to = std::min(toIndex, annotations_.size() - 1);
    if (from < to) std::rotate(at(from), at(from + 1), at(to + 1));
    if (to < from) std::rotate(at(to), at(from), at(from + 1));
    Q_EMIT annotationsChanged();
}

void AnnotationViewModel::reorder(const QUuid& id, std::size_t toIndex) {
    const std::size_t from = indexOf(id);
    if (from >= annotations_.size() || from == toIndex) return;
    moveRecord(id, toIndex);
    historyService_.record({ReorderOperation{id, from, toIndex}});
}

void AnnotationViewModel::bringToFront(const QUuid& id) {
    if (!annotations_.empty()) reorder(id, annotations_.size() - 1);
}

void AnnotationViewModel::sendToBack(const QUuid& id) {
    reorder(id, 0);
}

void AnnotationViewModel::bringSelectedToFront() {
    if (selectedAnnotation_) bringToFront(selectedAnnotation_->id());
}

void AnnotationViewModel::sendSelectedToBack() {
    if (selectedAnnotation_) sendToBack(selectedAnnotation_->id());
}

void AnnotationViewModel::toggleVisibility() {
    finishEditing();
    set_annotationsVisible(!annotationsVisible());
    if (annotationsVisible()) return;
    // What is not seen cannot be acted on.
    cancelGesture();
    set_selectedAnnotations({});
    setPrimary(std::nullopt);
    set_hoveredAnnotation(std::nullopt);
}

void AnnotationViewModel::finishEditing() {
    textEditing_.end();
    if (numberEditing_.isEditing()) numberEditing_.commit();
    if (numberEditing_.isEditing()) numberEditing_.cancel();
}

void AnnotationViewModel::renumber(const std::optional<QUuid>& from, qint64 startingAt) {
    for (const NumberAnnotation& badge : renumbered(annotations_, from, startingAt))
        updateAnnotation(badge);
    recomputeNextNumber();
}

void AnnotationViewModel::recomputeNextNumber() {
    set_nextNumber(nextNumberAfter(annotations_));
}

}  // namespace kestrio
