#pragma once

#include <QString>

namespace kestrio {

// Why a path of a request makes no sense, for users; empty where nothing is wrong.

/// It must be absolute. Looks at no disk.
QString faultOfPath(const QString& path);

/// As a name for a picture: absolute, and it ends in the name of a picture format. Looks at no
/// disk.
QString faultOfOutputName(const QString& path);

/// Why no picture can be written to this path: its name, and what it leads to, which must be a file
/// or nothing in a folder that can be written to. Looks at the disk, which may hang.
QString faultOfOutput(const QString& path);

}  // namespace kestrio
