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
    /// Selects the badge, with the select tool; nothing happens where it is none.
    void start(const AnyAnnotation& annotation);
    /// What was typed so far.
    void setInput(const QString& text);
    /// Ends with the number that was typed, or goes on with an error where it is none.
    void commit();
    void cancel() { set_numberEditingState({}); }

  private:
    AnnotationViewModel& model_;
};

}  // namespace kestrio
