#pragma once

#include "core/Error.h"

#include <QString>

namespace kestrio {

/// The folder for the program's socket cannot be trusted: whoever made it would receive what is
/// sent to the running program.
class UntrustedFolder : public Error {
  public:
    explicit UntrustedFolder(QString folder) : folder_(std::move(folder)) {}
    QString errorDescription() const override;

  private:
    QString folder_;
};

/// Where the running program of this user on this display is reached.
struct InstanceAddress {
    QString lockFile;
    QString socket;
    /// In the system's own space of names, which nobody can remove; it guards the lock file.
    QByteArray guardName;

    /// Below $XDG_RUNTIME_DIR, else below the system's folder for temporary files; makes the
    /// folder, which only the user may enter. Where it cannot be made, the paths lead nowhere.
    /// Throws UntrustedFolder where it belongs to somebody else, is a link or is open to others.
    static InstanceAddress standard();
};

}  // namespace kestrio
