#include "annotation/editing/AnnotationViewModel.h"

namespace kestrio {

namespace {

/// No text is left empty, so one without words was just made.
bool isNew(const AnyAnnotation& text) {
    return text.as<TextAnnotation>()->text.isEmpty();
}

}  // namespace

void AnnotationViewModel::beginTextEditing(const QUuid& id) {
    if (editedTextId() == id) return;
    finishEditing();
    const AnyAnnotation* record = annotation(id);
    const auto* text = record ? record->as<TextAnnotation>() : nullptr;
    if (!text) return;
    const double right =
        pictureRect().isEmpty() ? text->bounds.normalized().right() : pictureRect().right();
    textGrowth_ = textGrowth(*text, right);
    textBefore_ = *record;
    set_editedTextId(id);
    set_isTextEditing(true);
}

void AnnotationViewModel::setEditedText(const QString& text) {
    const AnyAnnotation* record = editedTextId() ? annotation(*editedTextId()) : nullptr;
    const auto* edited = record ? record->as<TextAnnotation>() : nullptr;
    if (!edited || edited->text == text) return;
    TextAnnotation changed = *edited;
    changed.text = text;
    changed.bounds = grownBox(changed, textGrowth_);
    applyAnnotation(changed);
}

void AnnotationViewModel::endTextEditing() {
    const auto id = editedTextId();
    set_editedTextId(std::nullopt);
    set_isTextEditing(false);
    const auto before = std::exchange(textBefore_, std::nullopt);
    const AnyAnnotation* record = id ? annotation(*id) : nullptr;
    if (!record || !before) return;
    const AnyAnnotation after = *record;
    if (after.as<TextAnnotation>()->text.trimmed().isEmpty()) {
        dropEmptyText(*before);
    } else if (!(isNew(*before) && historyService_.amendAddition(after)) && *before != after) {
        historyService_.record({ModifyOperation{*before, after}});
    }
}

// An empty text would be invisible for ever. One that had words comes back with them by undo.
void AnnotationViewModel::dropEmptyText(const AnyAnnotation& before) {
    if (isNew(before) && historyService_.dropAddition(before.id())) {
        removeRecord(before.id());
        return;
    }
    applyAnnotation(before);
    deleteAnnotation(before.id());
}

void AnnotationViewModel::finishEditing() {
    endTextEditing();
    if (numberEditingState().isEditing) commitNumberEdit();
    if (numberEditingState().isEditing) cancelNumberEdit();
}

}  // namespace kestrio
