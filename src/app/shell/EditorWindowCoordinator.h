#pragma once

#include "app/shell/ActivationState.h"
#include "app/shell/EditorOpener.h"
#include "editor/document/EditorServices.h"
#include "library/drafts/DraftService.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace kestrio {

class DocumentDraft;
class EditorWindow;

/// An open document and the name that heads its window.
struct OpenDocument {
    QPointer<EditorViewModel> editor;
    QString name;
};

/// The program's editor windows, one for each open document. Main thread.
class EditorWindowCoordinator : public QObject, public EditorOpener {
    Q_OBJECT
    PUBLISHED(bool, isEditorOpen, false)

  public:
    /// `makeServices` is asked at the first editor: what an editor needs costs memory.
    EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                            std::shared_ptr<ActivationState> activation, QObject* parent = nullptr);
    ~EditorWindowCoordinator() override;

    void open(const CapturedImage& image, const QString& name) override;
    std::shared_ptr<EditorViewModel> makeDocument() override;
    void adopt(std::shared_ptr<EditorViewModel> document, const QString& name) override;
    Task<bool> close(EditorViewModel& document) override;
    EditorViewModel* currentEditorViewModel() override;
    /// The window of this document is gone for good; the document is still whole. What is to be
    /// kept of it is taken here.
    Q_SIGNAL void closing(EditorViewModel* document);
    Q_SIGNAL void documentClosed();
    /// Opens an editor on what was kept of a document; its draft goes on. Throws Error where the
    /// window cannot be made.
    void restore(const DraftDocument& document, const ClaimedDraft& draft);

    /// Those with changes that were never exported, in the order in which they were opened.
    std::vector<OpenDocument> unexportedDocuments() const;
    bool isExporting() const;
    /// Changes that are not on the disk yet go there now, for at most a second.
    void writeDrafts();
    /// The user has said that the program may end without the changes of all documents.
    void discardDrafts();

    /// Gives the window of the current document the focus; false where none is open.
    bool bringToFront();
    /// The same of this document.
    bool bringToFront(const EditorViewModel* document);
    /// Writes where the current window is, as the program ends. Nothing without a window.
    void saveFrame(UserDefaults& defaults) const;

  private:
    struct OpenEditor;

    const EditorServices& services();
    OpenEditor* find(const EditorViewModel& document);
    void show(OpenEditor editor);
    void watchClosing(EditorWindow& editor);
    void removeClosed();

    std::function<EditorServices()> makeServices_;
    std::optional<EditorServices> services_;
    std::shared_ptr<ActivationState> activation_;
    std::vector<OpenEditor> editors_;  // the current one last
    std::stop_source stop_;
};

}  // namespace kestrio
