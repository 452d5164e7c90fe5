#pragma once

#include <QByteArray>
#include <QString>

namespace kestrio {

/// Writes the bytes to a file, replacing what it held. Throws ExportError::fileWriteFailed with the
/// reason that the system gave, a full disk included.
void writeFile(const QString& path, const QByteArray& bytes);

}  // namespace kestrio
