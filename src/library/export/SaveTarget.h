#pragma once

#include <QByteArrayView>
#include <QString>
#include <functional>

namespace kestrio {

/// Where a picture is written to: a file that is replaced where it exists, or the first free one of
/// numbered names.
class SaveTarget {
  public:
    /// The name, without its folder, that is tried as the `number`th, from 1.
    using Names = std::function<QString(int number)>;

    // NOLINTNEXTLINE(google-explicit-constructor): a path is the usual target.
    SaveTarget(QString path) : path_(std::move(path)) {}
    /// A new file in `folder`, which is made where it is missing.
    static SaveTarget newFile(QString folder, Names names);

    /// The path that is written to unless it is taken.
    const QString& path() const { return path_; }
    bool replaces() const { return !names_; }

    /// Writes the whole file or nothing, and returns its path. Throws ExportError::fileWriteFailed
    /// with the reason that the system gave. Blocks.
    QString write(QByteArrayView bytes) const;

  private:
    QString path_;
    QString folder_;  ///< of a new file
    Names names_;     ///< empty where the file is replaced
};

}  // namespace kestrio
