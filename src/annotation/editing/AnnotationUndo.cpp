#include "annotation/editing/AnnotationViewModel.h"

namespace kestrio {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;  // Clang 14 does not deduce it by itself

}  // namespace

void AnnotationViewModel::undo() {
    if (gesture_) return cancelGesture();
    if (const auto operation = historyService_.popForUndo()) undoOperation(*operation);
}

void AnnotationViewModel::redo() {
    if (gesture_) return cancelGesture();
    if (const auto operation = historyService_.popForRedo()) redoOperation(*operation);
}

void AnnotationViewModel::undoOperation(const AnnotationOperation& operation) {
    std::visit(Overloaded{
                   [this](const AddOperation& added) { removeRecord(added.annotation.id()); },
                   [this](const DeleteOperation& deleted) { appendRecord(deleted.annotation); },
                   [this](const ModifyOperation& modified) { applyAnnotation(modified.before); },
                   [this](const ReorderOperation& moved) {
                       moveRecord(moved.annotationId, moved.fromIndex);
                   },
                   [this](const CompactedBatch& batch) {
                       const auto& operations = batch.operations;
                       for (auto each = operations.rbegin(); each != operations.rend(); ++each)
                           undoOperation(*each);
                   },
               },
               operation.step);
}

void AnnotationViewModel::redoOperation(const AnnotationOperation& operation) {
    std::visit(
        Overloaded{
            [this](const AddOperation& added) { appendRecord(added.annotation); },
            [this](const DeleteOperation& deleted) { removeRecord(deleted.annotation.id()); },
            [this](const ModifyOperation& modified) { applyAnnotation(modified.after); },
            [this](const ReorderOperation& moved) {
                moveRecord(moved.annotationId, moved.toIndex);
            },
            [this](const CompactedBatch& batch) {
                for (const AnnotationOperation& each : batch.operations)
                    redoOperation(each);
            },
        },
        operation.step);
}

}  // namespace kestrio
