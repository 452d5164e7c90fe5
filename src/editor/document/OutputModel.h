#pragma once

#include "editor/document/EditorServices.h"
#include "editor/document/UnexportedChanges.h"

namespace kestrio {

class EditorViewModel;

/// The ways on which the finished picture of a document leaves. Each finishes a drawing in progress
/// first, takes a copy of the document and leaves the main thread. All throw
/// ExportError::renderingFailed without a screenshot. Main thread.
class OutputModel : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isExporting, false)

  public:
    OutputModel(EditorViewModel& editor, EditorServices services);

    Task<Image> prepareRenderedImage();
    /// Throws what rendering, encoding and writing throw; the document is untouched by it.
    Task<SavedFile> exportImage(SaveTarget target, ExportFormat format, EncodeHooks hooks = {});
    Task<> copyToClipboard();
    /// Floats the finished picture on the desktop. Does nothing without a screenshot.
    Task<> pinToDesktop();
    bool canPin() const { return services_.pins != nullptr; }

    /// Notes that the picture of this request has left the editor. Output does so by itself.
    void markExported(const CompositeRequest& picture);
    Q_SIGNAL void exported();
    /// Whether the user changed something since the picture was opened or last left the editor.
    bool hasUnexportedChanges() const;
    const UnexportedChanges& unexportedChanges() const { return unexported_; }

  private:
    friend class OutputUnderWay;

    EditorViewModel& editor_;
    EditorServices services_;
    UnexportedChanges unexported_;
    int outputsUnderWay_ = 0;
};

}  // namespace kestrio
