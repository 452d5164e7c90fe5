#pragma once

#include "platform/linux/share/DesktopFile.h"

namespace kestrio {

/// The ids of the desktop entries that open a MIME type, the preferred ones first: what the user
/// and the desktop chose, added and removed in mimeapps.list, then what programs say of themselves.
/// An id is the name of the entry's file.
QStringList programIdsFor(const QString& mimeType);

/// The entry of this id, with the user's own before the system's; empty where there is none.
DesktopFile desktopEntry(const QString& id);

}  // namespace kestrio
