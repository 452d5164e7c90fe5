#include "annotation/editing/EditTransaction.h"

#include "annotation/editing/AnnotationViewModel.h"

namespace kestrio {

EditTransaction::EditTransaction(AnnotationViewModel& model, const QUuid& id)
    : model_(model), id_(id), before_(*model.annotation(id)) {}

const AnyAnnotation* EditTransaction::current() const {
    return model_.annotation(id_);
}

void EditTransaction::apply(const AnyAnnotation& changed) {
    model_.applyAnnotation(changed);
}

void EditTransaction::commit() {
    const AnyAnnotation* const after = current();
    if (after && *after != before_)
        model_.historyService().record({ModifyOperation{before_, *after}});
}

void EditTransaction::rollBack() {
    if (current()) apply(before_);
}

}  // namespace kestrio
