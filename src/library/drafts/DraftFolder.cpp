#include "library/drafts/DraftFolder.h"

#include "core/AtomicFile.h"
#include "core/Localisation.h"
#include "core/RegularFile.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PngEncoder.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <QDir>
#include <QUuid>
#include <cerrno>

namespace kestrio {

namespace {

const QString documentFile = QStringLiteral("document.json");
const QString pictureBase = QStringLiteral("picture");
const QString originalBase = QStringLiteral("original");
constexpr qint64 largestDocument = qint64(512) << 20;

QString nextTo(const QString& path, const QString& prefix) {
    const QFileInfo info(path);
    return info.path() + u'/' + prefix + info.fileName();
}

bool renameFolder(const QString& from, const QString& to) {
    return ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

DraftRecord recordOf(const DraftDocument& document) {
    DraftRecord record;
    record.name = document.name;
    record.style = document.style;
    record.frameScale = document.frameScale;
    record.canvas = document.canvas;
    record.watermark = document.watermark;
    record.isWatermarkEnabled = document.isWatermarkEnabled;
    record.annotations = document.annotations;
    record.areAnnotationsVisible = document.areAnnotationsVisible;
    return record;
}

DraftDocument documentOf(const DraftRecord& record) {
    DraftDocument document;
    document.name = record.name;
    document.style = record.style;
    document.frameScale = record.frameScale;
    document.canvas = record.canvas;
    document.watermark = record.watermark;
    document.isWatermarkEnabled = record.isWatermarkEnabled;
    document.annotations = record.annotations;
    document.areAnnotationsVisible = record.areAnnotationsVisible;
    return document;
}

/// Nothing but a file of the folder itself.
bool isPlainName(const QString& file) {
    return !file.isEmpty() && !file.startsWith(u'.') && !file.contains(u'/');
}

}  // namespace

DraftFolder::DraftFolder(QString path, std::unique_ptr<FolderLock> lock)
    : path_(std::move(path)), lock_(std::move(lock)) {}

// Under a name that is not offered until it is locked: another program may look for drafts just
// now.
std::unique_ptr<DraftFolder> DraftFolder::create(const QString& drafts) {
    const auto refuse = [] { throw DraftError::noFolder(qt_error_string(errno)); };
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString path = drafts + u'/' + id;
    const QString unlocked = nextTo(path, QStringLiteral("."));
    const QByteArray encoded = QFile::encodeName(unlocked);
    if (::mkdir(encoded.constData(), S_IRWXU) != 0) refuse();
    auto lock = ::chmod(encoded.constData(), S_IRWXU) == 0 ? FolderLock::take(unlocked) : nullptr;
    if (!lock || !renameFolder(unlocked, path)) {
        const int reason = errno;
        QDir(unlocked).removeRecursively();
        errno = reason;
        refuse();
    }
    std::unique_ptr<DraftFolder> folder(new DraftFolder(path, std::move(lock)));
    folder->isEmpty_ = true;
    return folder;
}

DraftFolder::~DraftFolder() {
    if (isEmpty_) remove();
}

std::unique_ptr<DraftFolder> DraftFolder::claim(const QString& path) {
    auto lock = FolderLock::take(path);
    if (!lock) return nullptr;
    return std::unique_ptr<DraftFolder>(new DraftFolder(path, std::move(lock)));
}

bool DraftFolder::exists() const {
    return QFileInfo::exists(path_ + u'/' + QLatin1String(FolderLock::fileName));
}

void DraftFolder::write(const DraftDocument& document) {
    DraftRecord record = recordOf(document);
    record.picture = keep(document.picture, pictureBase, picture_);
    if (document.original) {
        record.original = keep(*document.original, originalBase, original_);
    } else {
        original_ = {};
    }
    JsonValue json = encodeJson(record);
    const QByteArray digest =
        QCryptographicHash::hash(jsonText(json), QCryptographicHash::Algorithm::Sha1);
    if (digest == writtenDigest_) return;
    json["changed"] = encodeJson(Date::now());
    replaceFile(path_ + u'/' + documentFile, jsonText(json), FileAccess::ownerOnly);
    writtenDigest_ = digest;
    isEmpty_ = false;
    removeUnnamedFiles();
}

DraftPictureRecord DraftFolder::keep(const Image& image, const QString& base, KeptPicture& kept) {
    const qint64 cacheKey = image.bitmap().cacheKey();
    if (kept.file.isEmpty() || kept.cacheKey != cacheKey) {
        const QString file = unusedFile(base);
        replaceFile(path_ + u'/' + file, encodePng(image.bitmap()), FileAccess::ownerOnly);
        kept = {cacheKey, file};
    }
    return {kept.file, image.pointSize(), image.isOpaque()};
}

QString DraftFolder::unusedFile(const QString& base) const {
    QString file = base + QStringLiteral(".png");
    for (int number = 2; QFileInfo::exists(path_ + u'/' + file); ++number)
        file = QStringLiteral("%1-%2.png").arg(base).arg(number);
    return file;
}

// Pictures of documents before, and what a write left that did not come to its end.
void DraftFolder::removeUnnamedFiles() const {
    const QStringList named = {documentFile, QLatin1String(FolderLock::fileName), picture_.file,
                               original_.file};
    const auto everything = QDir::Files | QDir::Hidden | QDir::System;
    for (const QString& file : QDir(path_).entryList(everything))
        if (!named.contains(file)) QFile::remove(path_ + u'/' + file);
}

DraftDocument DraftFolder::read() {
    try {
        const auto record = decodeJsonText<DraftRecord>(
            readRegularFile(path_ + u'/' + documentFile, largestDocument));
        DraftDocument document = documentOf(record);
        document.picture = load(record.picture, picture_);
        if (record.original) document.original = load(*record.original, original_);
        changed_ = record.changed.toDateTime();
        return document;
    } catch (const DraftError&) {
        throw;
    } catch (const std::exception& error) {
        throw DraftError::damaged(describeFailure(error));
    }
}

Image DraftFolder::load(const DraftPictureRecord& record, KeptPicture& kept) const {
    const QSizeF size = record.pointSize;
    if (!isPlainName(record.file) || !(size.width() > 0) || !(size.height() > 0)) {
        throw DraftError::damaged(Kestrio::tr("it does not name its picture"));
    }
    QImage bitmap = loadImageFile(path_ + u'/' + record.file);
    if (!record.isOpaque) {
        bitmap = std::move(bitmap).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    Image image(std::move(bitmap), size);
    kept = {image.bitmap().cacheKey(), record.file};
    return image;
}

void DraftFolder::remove() {
    isEmpty_ = false;
    const QString leaving = nextTo(path_, QStringLiteral("."));
    if (renameFolder(path_, leaving)) {
        path_ = leaving;
    } else {
        QFile::remove(path_ + u'/' + documentFile);
    }
    QDir(path_).removeRecursively();
}

void DraftFolder::moveAside() {
    const QString aside = nextTo(path_, QStringLiteral("damaged-"));
    if (renameFolder(path_, aside)) path_ = aside;
}

}  // namespace kestrio
