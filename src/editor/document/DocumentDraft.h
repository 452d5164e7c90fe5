#pragma once

#include "editor/document/EditorViewModel.h"
#include "library/drafts/DraftWriter.h"

#include <QDeadlineTimer>

namespace kestrio {

/// Keeps an open document on the disk while it has changes that were never exported, a second after
/// the last change and, while changes go on, at least every three. The draft stays where this
/// object goes without discard(), as when the program is ended by a signal. Main thread.
class DocumentDraft : public QObject {
    Q_OBJECT

  public:
    /// `name` heads the document's window. `taken` is the draft that the document was restored
    /// from.
    DocumentDraft(EditorViewModel& editor, QString name, std::shared_ptr<DraftService> drafts,
                  std::shared_ptr<DraftFolder> taken = {}, QObject* parent = nullptr);
    ~DocumentDraft() override;

    /// What has changed goes to the disk without further waiting, in the background.
    void writeNow();
    /// The user wants the document no longer, or has it: the draft goes for good.
    void discard();

  private:
    void connectDocument();
    void changed();
    void update();
    void reportFailure(const QString& reason);

    EditorViewModel& editor_;
    QString name_;
    DraftWriter writer_;
    QTimer delay_;
    QDeadlineTimer latest_;  ///< when a change is written although others follow
    bool isDiscarded_ = false;
    bool isFailureReported_ = false;
};

}  // namespace kestrio
