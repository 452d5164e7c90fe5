#pragma once

#include "annotation/editing/EditTransaction.h"
#include "annotation/editing/TextGrowth.h"
#include "core/Published.h"

#include <QObject>

namespace kestrio {

/// The typing of one text in place. What is typed is in the record at once; the step of undo is
/// made at the end. Main thread.
class TextEditing : public QObject {
    Q_OBJECT
    /// The text that is being typed; none while none is.
    PUBLISHED(std::optional<QUuid>, editedTextId, std::nullopt)

  public:
    explicit TextEditing(AnnotationViewModel& model) : model_(model) {}

    bool isTextEditing() const { return editedTextId().has_value(); }
    /// Nothing happens where the id is no text's.
    void begin(const QUuid& id);
    /// The box grows with its text: to the right as long as its text was not wrapped when typing
    /// began, and downwards.
    void setText(const QString& text);
    /// One step of undo with what was typed; of a text that was just made, the step that made it. A
    /// text left empty goes, as if it had never been made where it is new.
    void end();
    /// Ends without a step of undo, as where another document is shown.
    void drop();

  private:
    void dropEmptyText();

    AnnotationViewModel& model_;
    std::optional<EditTransaction> edit_;
    TextGrowth growth_;
};

}  // namespace kestrio
