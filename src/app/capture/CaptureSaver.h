#pragma once

#include "app/capture/CaptureCollaborators.h"

namespace kestrio {

/// How the saving of a capture ended, where it did not fail for good.
struct CaptureSaving {
    QString path;  ///< of the file; empty where the editor is to have the picture
    bool opensEditor = false;
};

/// Saves captures into the user's folder. Where that fails it says why, and the picture is kept
/// until the user has found another place for it. Main thread.
class CaptureSaver {
  public:
    explicit CaptureSaver(CaptureCollaborators collaborators) : with_(std::move(collaborators)) {}

    /// `onFailure` is called before the user is asked, who may take long. Throws Cancelled where
    /// the user gives the picture up, and after a stop.
    Task<CaptureSaving> save(Image image, std::function<void()> onFailure, std::stop_token stop);

  private:
    CaptureCollaborators with_;
};

}  // namespace kestrio
