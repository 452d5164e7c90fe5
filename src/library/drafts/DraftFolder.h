#pragma once

#include "library/drafts/DraftError.h"
#include "library/drafts/DraftRecord.h"
#include "library/drafts/FolderLock.h"

#include <QDateTime>

namespace kestrio {

/// One draft on the disk: a folder with document.json and the pictures that it names. A changed
/// picture goes into a new file, and document.json is replaced after it, so that the two belong
/// together whenever the program ends. This process has the folder while the object lives.
/// One thread at a time.
class DraftFolder {
  public:
    /// A new one in the folder of drafts, which exists. Throws DraftError::noFolder.
    static std::unique_ptr<DraftFolder> create(const QString& drafts);
    /// Takes over what an earlier run has left; null where it is gone or somebody has it.
    static std::unique_ptr<DraftFolder> claim(const QString& path);
    /// A new one that never came to hold a document goes.
    ~DraftFolder();

    const QString& path() const { return path_; }
    /// False once somebody else has removed it.
    bool exists() const;

    /// Pictures that are on the disk already, by their cacheKey(), and documents that would look
    /// the same there are not written again. Throws FileError, DraftError and JsonError; what was
    /// written before then stays.
    void write(const DraftDocument& document);
    /// Throws DraftError::damaged where something is missing or cannot be decoded.
    DraftDocument read();
    /// When the document that read() gave was written.
    const QDateTime& changed() const { return changed_; }

    /// All of it goes; where it cannot, nothing is left that would be offered.
    void remove();
    /// Renames the folder, so that it is never offered again, for somebody who wants to save a
    /// part.
    void moveAside();

  private:
    struct KeptPicture {
        qint64 cacheKey = 0;
        QString file;
    };

    DraftFolder(QString path, std::unique_ptr<FolderLock> lock);

    DraftPictureRecord keep(const Image& image, const QString& base, KeptPicture& kept);
    Image load(const DraftPictureRecord& record, KeptPicture& kept) const;
    QString unusedFile(const QString& base) const;
    void removeUnnamedFiles() const;

    QString path_;
    std::unique_ptr<FolderLock> lock_;
    KeptPicture picture_, original_;
    QByteArray writtenDigest_;  ///< of document.json, but for its time
    bool isEmpty_ = false;      ///< new and without a document
    QDateTime changed_;
};

}  // namespace kestrio
