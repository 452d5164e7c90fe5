#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "core/Published.h"

#include <QObject>

namespace kestrio {

class AnnotationViewModel;

/// What is typed into one badge.
struct NumberEditingState {
    bool isEditing = false;
    std::optional<QUuid> editingAnnotationId;
    QString inputValue;
    std::optional<QString> errorMessage;

    bool operator==(const NumberEditingState&) const = default;
};

/// The editor of one badge's number. Main thread.
class NumberEditing : public QObject {
    Q_OBJECT
    PUBLISHED(NumberEditingState, numberEditingState, {})

  public:
    explicit NumberEditing(AnnotationViewModel& model) : model_(model) {}

    bool isEditing() const { return numberEditingState().isEditing; }
    /// Selects the badge, with the select tool; does nothing for other kinds.
    void start(const AnyAnnotation& annotation);
    /// What was typed so far.
    void setInput(const QString& text);
    /// Ends with the number that was typed; for any other text, sets an error and goes on.
    void commit();
    void cancel() { set_numberEditingState({}); }

  private:
    AnnotationViewModel& model_;
};

}  // namespace kestrio
