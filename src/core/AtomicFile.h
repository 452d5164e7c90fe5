#pragma once

#include "core/Error.h"

#include <QByteArrayView>
#include <functional>

namespace kestrio {

/// A file that cannot be read or written: which one and why.
class FileError : public Error {
  public:
    /// `code` is the system's number of the error.
    FileError(QString path, int code);
    FileError(QString path, QString reason) : path_(std::move(path)), reason_(std::move(reason)) {}

    const QString& path() const { return path_; }
    const QString& reason() const { return reason_; }
    QString errorDescription() const override;

  private:
    QString path_;
    QString reason_;
};

/// Who may read a file that is written: whoever the process's mask allows, or its owner alone.
enum class FileAccess { byUmask, ownerOnly };

/// Makes the bytes the content of a file, all of them or none: they are written beside it, flushed
/// to the disk and renamed over it, so that a full disk, a kill or a power cut leaves the old file.
/// A link is followed, an existing file keeps its permissions and must be writable itself. Devices
/// and pipes are written to directly, with a limit on how long their reader may stall. Throws
/// FileError. Blocks; any thread.
void replaceFile(const QString& path, QByteArrayView bytes,
                 FileAccess access = FileAccess::byUmask);

/// Writes a file under the first of the names pathFor(1), pathFor(2) … that is free, and returns
/// it. The name appears with its whole content, and is never one that another process took
/// meanwhile. Throws FileError. Blocks; any thread.
QString writeNewFile(const std::function<QString(int number)>& pathFor, QByteArrayView bytes,
                     FileAccess access = FileAccess::byUmask);

/// Makes a folder with those above it, where they do not exist. Throws FileError.
void makeFolders(const QString& path, FileAccess access = FileAccess::byUmask);

}  // namespace kestrio
