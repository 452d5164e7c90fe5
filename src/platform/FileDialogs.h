#pragma once

#include "core/Task.h"
#include "platform/FileType.h"

#include <optional>

class QWindow;

namespace kestrio {

/// What an open panel shows. `folder` is where it starts; without types it offers every file.
/// `parent` is the window that the panel belongs to and that takes no input meanwhile; it is read
/// before the first suspension only. A folder that is missing or hangs is replaced by the home
/// folder.
struct OpenPanelRequest {
    QString title;
    QString folder;
    std::vector<FileType> types;
    QWindow* parent = nullptr;
};

/// The same of a save panel; `suggestedName` is a file's name without its folder. The first type is
/// chosen beforehand unless the name ends in a suffix of another.
struct SavePanelRequest {
    QString title;
    QString folder;
    QString suggestedName;
    std::vector<FileType> types;
    QWindow* parent = nullptr;
};

/// The desktop's panels for choosing files. The main loop goes on while one is open. Main thread
/// only. Destroying the service, or the parent of a panel, dismisses what is open.
class FileDialogs {
  public:
    virtual ~FileDialogs() = default;

    /// The absolute path of an existing file; none where the panel was dismissed. A stop closes the
    /// panel and throws Cancelled.
    virtual Task<std::optional<QString>> chooseOpen(OpenPanelRequest request,
                                                    std::stop_token stop = {}) = 0;
    /// The absolute path of an existing folder, which the user may make in the panel; else the
    /// same. Types do not count.
    virtual Task<std::optional<QString>> chooseFolder(OpenPanelRequest request,
                                                      std::stop_token stop = {}) = 0;
    /// The absolute path of a file to write, with a suffix of one of the types. The user has agreed
    /// to replace a file that exists.
    virtual Task<std::optional<QString>> chooseSave(SavePanelRequest request,
                                                    std::stop_token stop = {}) = 0;
};

}  // namespace kestrio
