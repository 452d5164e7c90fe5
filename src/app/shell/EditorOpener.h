#pragma once

#include "core/Task.h"
#include "editor/document/EditorViewModel.h"
#include "imaging/CapturedImage.h"

namespace kestrio {

/// Shows pictures in the editor. Main thread.
class EditorOpener {
  public:
    virtual ~EditorOpener() = default;

    /// Opens an editor of its own on this picture, under the time of the capture where `name` is
    /// empty. Throws Error where its window cannot be made.
    virtual void open(const CapturedImage& image, const QString& name) = 0;
    /// A document that no window shows yet, for adopt(). Throws Error where it cannot be made.
    virtual std::shared_ptr<EditorViewModel> makeDocument() = 0;
    /// Opens a window on a document, whether or not it has its picture already; where it has a
    /// window, that comes to the front. Names and errors are those of open().
    virtual void adopt(std::shared_ptr<EditorViewModel> document, const QString& name) = 0;
    /// Closes the window of a document as its user would, who is asked about what would be lost.
    /// Ends with true as soon as the window is gone, also where there was none, and with false
    /// where the user keeps it open.
    virtual Task<bool> close(EditorViewModel& document) = 0;
    /// The document that was opened last; null where none is open.
    virtual EditorViewModel* currentEditorViewModel() = 0;
};

}  // namespace kestrio
