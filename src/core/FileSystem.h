#pragma once

#include <QString>

namespace kestrio {

// Questions about paths whose names need not be UTF-8; see fromNativePath(). Links are followed.

enum class FileKind { missing, regular, folder, special };

/// What is at this path; `special` is a device, a pipe or a socket. Also `missing` where it cannot
/// be looked at.
FileKind fileKind(const QString& path);

/// Whether both names lead to one file, also by links of any kind.
bool isSameFile(const QString& a, const QString& b);

/// Whether the process may make files in this folder.
bool isWritableFolder(const QString& path);

/// The path counted from the present folder, unless it is absolute. Nothing is looked up.
QString absolutePath(const QString& path);

/// The folder that a file of this path lies in.
QString folderOf(const QString& path);

}  // namespace kestrio
