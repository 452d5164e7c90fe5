#pragma once

#include <QString>

namespace kestrio {

/// Where the running program of this user on this display is reached.
struct InstanceAddress {
    QString lockFile;
    QString socket;

    /// Below $XDG_RUNTIME_DIR, else below the system's folder for temporary files; makes the folder,
    /// which only the user may enter.
    static InstanceAddress standard();
};

}  // namespace kestrio
