#include "annotation/editing/TextEditing.h"

#include "annotation/editing/AnnotationViewModel.h"

namespace kestrio {

namespace {

const TextAnnotation* textOf(const AnyAnnotation* record) {
    return record ? record->as<TextAnnotation>() : nullptr;
}

/// No text is left empty, so one without words was just made.
bool isNew(const AnyAnnotation& text) {
    return textOf(&text)->text.isEmpty();
}

}  // namespace

void TextEditing::begin(const QUuid& id) {
    if (editedTextId() == id) return;
    model_.finishEditing();
    const TextAnnotation* const text = textOf(model_.annotation(id));
    if (!text) return;
    const QRectF picture = model_.pictureRect();
    growth_ =
        textGrowth(*text, picture.isEmpty() ? text->bounds.normalized().right() : picture.right());
    edit_.emplace(model_, id);
    set_editedTextId(id);
}

void TextEditing::setText(const QString& text) {
    const TextAnnotation* const edited = edit_ ? textOf(edit_->current()) : nullptr;
    if (!edited || edited->text == text) return;
    TextAnnotation changed = *edited;
    changed.text = text;
    changed.bounds = grownBox(changed, growth_);
    edit_->apply(changed);
}

void TextEditing::end() {
    set_editedTextId(std::nullopt);
    const TextAnnotation* const text = edit_ ? textOf(edit_->current()) : nullptr;
    if (text && text->text.trimmed().isEmpty()) {
        dropEmptyText();
    } else if (text && !(isNew(edit_->before()) && model_.historyService().amendAddition(*text))) {
        edit_->commit();
    }
    edit_.reset();
}

void TextEditing::drop() {
    edit_.reset();
    set_editedTextId(std::nullopt);
}

// An empty text would be invisible for ever. One that had words comes back with them by undo.
void TextEditing::dropEmptyText() {
    const QUuid id = edit_->id();
    if (isNew(edit_->before()) && model_.historyService().dropAddition(id)) {
        model_.removeRecord(id);
        return;
    }
    edit_->rollBack();
    model_.deleteAnnotation(id);
}

}  // namespace kestrio
