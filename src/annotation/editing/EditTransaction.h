#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

class AnnotationViewModel;

/// A change of one record that goes on for a while, such as a drag or typing: the record changes
/// at once, and one step of undo leads from the end back to the start. Where the record goes
/// meanwhile, nothing more happens. Main thread.
class EditTransaction {
  public:
    /// The record has to be there.
    EditTransaction(AnnotationViewModel& model, const QUuid& id);

    const QUuid& id() const { return id_; }
    /// The record as it was when the change began.
    const AnyAnnotation& before() const { return before_; }
    /// The record as it is; null once it is gone.
    const AnyAnnotation* current() const;
    /// Replaces the record.
    void apply(const AnyAnnotation& changed);
    /// Ends the change with a step of undo, where there is a difference.
    void commit();
    void rollBack();

  private:
    AnnotationViewModel& model_;
    QUuid id_;
    AnyAnnotation before_;
};

}  // namespace kestrio
