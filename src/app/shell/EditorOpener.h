#pragma once

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
    /// The document that was opened last; null where none is open.
    virtual EditorViewModel* currentEditorViewModel() = 0;
};

}  // namespace kestrio
