#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/BadgeNumbers.h"

namespace kestrio {

void AnnotationViewModel::startNumberEditing(const AnyAnnotation& annotation) {
    const auto* badge = annotation.as<NumberAnnotation>();
    if (!badge) return;
    finishEditing();
    set_currentTool(AnnotationTool::select);
    selectAnnotation(annotation);
    set_numberEditingState({true, badge->id, QString::number(badge->number), std::nullopt});
}

void AnnotationViewModel::commitNumberEdit() {
    NumberEditingState state = numberEditingState();
    const AnyAnnotation* record =
        state.editingAnnotationId ? annotation(*state.editingAnnotationId) : nullptr;
    const auto* badge = record ? record->as<NumberAnnotation>() : nullptr;
    if (!badge) {
        cancelNumberEdit();
        return;
    }
    const auto number = positiveInteger(state.inputValue);
    if (!number) {
        state.errorMessage = Kestrio::tr("Please enter a positive integer");
        set_numberEditingState(state);
        return;
    }
    NumberAnnotation changed = *badge;
    changed.number = *number;
    updateAnnotation(changed);
    cancelNumberEdit();
}

void AnnotationViewModel::cancelNumberEdit() {
    set_numberEditingState({});
}

void AnnotationViewModel::renumber(const std::optional<QUuid>& from, qint64 startingAt) {
    for (const NumberAnnotation& badge : renumbered(annotations_, from, startingAt))
        updateAnnotation(badge);
    recomputeNextNumber();
}

void AnnotationViewModel::recomputeNextNumber() {
    std::optional<qint64> highest;
    for (const AnyAnnotation& annotation : annotations_) {
        if (const auto* badge = annotation.as<NumberAnnotation>()) {
            highest = std::max(highest.value_or(badge->number), badge->number);
        }
    }
    set_nextNumber(highest ? successor(*highest) : 1);
}

}  // namespace kestrio
