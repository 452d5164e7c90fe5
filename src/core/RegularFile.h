#pragma once

#include <QByteArray>
#include <QString>

namespace kestrio {

/// All bytes of a regular file of at most `limit` bytes. Never waits for a writer: pipes, devices
/// and folders are refused, unread. Throws FileError.
QByteArray readRegularFile(const QString& path, qint64 limit);

}  // namespace kestrio
