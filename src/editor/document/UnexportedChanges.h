#pragma once

#include "render/CompositeRequest.h"

namespace kestrio {

/// Whether a document would finish as another picture than the one that was opened or last left the
/// editor, as a file, on the clipboard, as a pin or otherwise. Compares values, so that what was
/// undone counts as unchanged; zoom and pan do not count.
class UnexportedChanges {
  public:
    /// The user has this picture: it was just opened, or has left the editor.
    void settle(const CompositeRequest& picture);
    /// Whether closing now would lose something. False before the first settle().
    bool wouldLose(const CompositeRequest& picture) const;

  private:
    // Without the bitmap, which would stay in memory after it was replaced.
    std::optional<CompositeRequest> settled_;
    qint64 settledBitmap_ = 0;
};

}  // namespace kestrio
