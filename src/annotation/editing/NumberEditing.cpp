#include "annotation/editing/NumberEditing.h"

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/BadgeNumbers.h"

namespace kestrio {

void NumberEditing::start(const AnyAnnotation& annotation) {
    const auto* badge = annotation.as<NumberAnnotation>();
    if (!badge) return;
    model_.finishEditing();
    model_.set_currentTool(AnnotationTool::select);
    model_.selectAnnotation(annotation);
    set_numberEditingState({true, badge->id, QString::number(badge->number), std::nullopt});
}

void NumberEditing::setInput(const QString& text) {
    NumberEditingState state = numberEditingState();
    if (!state.isEditing) return;
    state.inputValue = text;
    set_numberEditingState(state);
}

void NumberEditing::commit() {
    NumberEditingState state = numberEditingState();
    const AnyAnnotation* record =
        state.editingAnnotationId ? model_.annotation(*state.editingAnnotationId) : nullptr;
    const auto* badge = record ? record->as<NumberAnnotation>() : nullptr;
    if (!badge) {
        cancel();
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
    model_.updateAnnotation(changed);
    cancel();
}

}  // namespace kestrio
