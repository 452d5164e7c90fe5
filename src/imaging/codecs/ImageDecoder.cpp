#include "imaging/codecs/ImageDecoder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <cerrno>
#include <mutex>

#include "core/Localisation.h"
#include "imaging/codecs/DecodedBitmap.h"
#include "imaging/codecs/JpegDecoder.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/WebPDecoder.h"

namespace kestrio {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;

// What Qt decodes for us. Formats without an unmistakable beginning are left out: text is not to
// be taken for a picture.
struct PlainFormat {
    QByteArrayView magic;
    const char* name;
};
constexpr PlainFormat plainFormats[] = {
    {"BM", "bmp"},          {"GIF8", "gif"},        {"P1", "pbm"},
    {"P2", "pgm"},          {"P3", "ppm"},          {"P4", "pbm"},
    {"P5", "pgm"},          {"P6", "ppm"},          {{"\0\0\1\0", 4}, "ico"},
    {{"II*\0", 4}, "tiff"}, {{"MM\0*", 4}, "tiff"},
};

QImage decodeByQt(const QByteArray& bytes, const char* format, const DecodeLimits& limits) {
    static std::once_flag once;
    // The reader's own limit counts mebibytes, process-wide.
    std::call_once(once, [] {
        QImageReader::setAllocationLimit(static_cast<int>(DecodeLimits().pixels * 4 >> 20));
    });
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    if (!reader.canRead()) throw ImageLoadError::unsupportedFormat();
    if (const QSize claimed = reader.size(); claimed.isValid()) checkClaimedSize(claimed, limits);
    QImage bitmap = reader.read();
    if (bitmap.isNull()) throw ImageLoadError::damaged(reader.errorString());
    checkClaimedSize(bitmap.size(), limits);
    const QColorSpace profile = bitmap.colorSpace();
    const bool hasAlpha = bitmap.hasAlphaChannel();
    bitmap.setDotsPerMeterX(0);
    bitmap.setDotsPerMeterY(0);
    bitmap =
        std::move(bitmap).convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return finishedBitmap(std::move(bitmap), profile);
}

// Devices and pipes have no size to trust, so every file is read up to the limit and no further.
QByteArray readUpTo(QFile& file, qint64 limit) {
    constexpr qint64 step = qint64(1) << 20;
    QByteArray bytes;
    if (!file.isSequential()) bytes.reserve(std::min(file.size(), limit));
    while (bytes.size() <= limit) {
        const QByteArray part = file.read(step);
        if (part.isEmpty()) break;
        bytes += part;
    }
    return bytes;
}

}  // namespace

QImage decodeImage(const QByteArray& bytes, const DecodeLimits& limits) {
    if (bytes.isEmpty()) throw ImageLoadError::empty();
    if (bytes.startsWith("\x89PNG\r\n\x1a\n")) return decodePng(bytes, limits);
    if (bytes.startsWith("\xff\xd8\xff")) return decodeJpeg(bytes, limits);
    if (bytes.startsWith("RIFF") && bytes.size() >= 12 && bytes.sliced(8, 4) == "WEBP") {
        return decodeWebP(bytes, limits);
    }
    for (const PlainFormat& format : plainFormats) {
        if (bytes.startsWith(format.magic)) return decodeByQt(bytes, format.name, limits);
    }
    throw ImageLoadError::unsupportedFormat();
}

QImage decodeImageOrNull(const std::optional<QByteArray>& bytes) {
    if (!bytes) return {};
    try {
        return decodeImage(*bytes);
    } catch (const ImageLoadError&) {
        return {};
    }
}

QStringList readableSuffixes() {
    return {QStringLiteral("png"), QStringLiteral("jpg"),  QStringLiteral("jpeg"),
            QStringLiteral("webp"), QStringLiteral("bmp"), QStringLiteral("gif"),
            QStringLiteral("ico"),  QStringLiteral("ppm"), QStringLiteral("tiff"),
            QStringLiteral("tif")};
}

QByteArray readImageFile(const QString& path) {
    const QString shownPath = QDir::toNativeSeparators(path);
    if (QFileInfo(path).isDir()) {
        throw ImageLoadError::unreadable(shownPath, qt_error_string(EISDIR));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw ImageLoadError::unreadable(shownPath, file.errorString());
    }
    const QByteArray bytes = readUpTo(file, largestFile);
    if (file.error() != QFileDevice::NoError) {
        throw ImageLoadError::unreadable(shownPath, file.errorString());
    }
    if (bytes.size() > largestFile) {
        throw ImageLoadError::unreadable(shownPath, localised("it is larger than 1 GiB"));
    }
    return bytes;
}

QImage loadImageFile(const QString& path) {
    return decodeImage(readImageFile(path));
}

}  // namespace kestrio
