#include "imaging/codecs/ImageDecoder.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <mutex>
#include <span>

#include "core/AtomicFile.h"
#include "core/Localisation.h"
#include "core/RegularFile.h"
#include "imaging/codecs/BmpCheck.h"
#include "imaging/codecs/DecodedBitmap.h"
#include "imaging/codecs/GifCheck.h"
#include "imaging/codecs/JpegDecoder.h"
#include "imaging/codecs/LittleEndianView.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/TiffDecoder.h"
#include "imaging/codecs/WebPDecoder.h"

namespace kestrio {

namespace {

constexpr qint64 largestFile = qint64(512) << 20;

// What Qt decodes for us. Formats without an unmistakable beginning are left out: text is not to
// be taken for a picture. Qt's readers of BMP and GIF are content with less than a whole file.
constexpr QByteArrayView pngMagic = "\x89PNG\r\n\x1a\n";
constexpr QByteArrayView iconMagic("\0\0\1\0", 4);
struct PlainFormat {
    QByteArrayView magic;
    const char* name;
    void (*check)(QByteArrayView bytes) = nullptr;
};
constexpr PlainFormat plainFormats[] = {
    {"BM", "bmp", checkBmp}, {"GIF8", "gif", checkGif},
    {"P1", "pbm"},           {"P2", "pgm"},
    {"P3", "ppm"},           {"P4", "pbm"},
    {"P5", "pgm"},           {"P6", "ppm"},
    {iconMagic, "ico"},
};

constexpr QByteArrayView tiffMagics[] = {{"II*\0", 4}, {"MM\0*", 4}};
constexpr QByteArrayView bigTiffMagics[] = {{"II+\0", 4}, {"MM\0+", 4}};

bool startsWithAny(const QByteArray& bytes, std::span<const QByteArrayView> magics) {
    return std::ranges::any_of(magics,
                               [&](QByteArrayView magic) { return bytes.startsWith(magic); });
}

// What Qt's reader makes before it is converted; nothing where that is what we hand on.
qint64 bytesBeforeConversion(QSize size, QImage::Format format) {
    if (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32) return 0;
    constexpr int mostBits = 32;
    const int bits =
        format == QImage::Format_Invalid ? mostBits : QImage::toPixelFormat(format).bitsPerPixel();
    return bitmapBytes(size) / 32 * bits;
}

// Readers that know their bitmap's format draw into the one they are given: cleared, it holds
// nothing of the heap where they leave pixels out.
QImage readCleared(QImageReader& reader, QSize size) {
    QImage bitmap;
    if (size.isValid() && reader.imageFormat() != QImage::Format_Invalid) {
        bitmap = allocateBitmap(size, reader.imageFormat());
        bitmap.fill(0);
    }
    if (!reader.read(&bitmap)) throw ImageLoadError::damaged(reader.errorString());
    return bitmap;
}

QImage decodeByQt(const QByteArray& bytes, const PlainFormat& format, const DecodeLimits& limits) {
    static std::once_flag once;
    // The reader's own limit counts mebibytes, process-wide.
    std::call_once(once, [] {
        QImageReader::setAllocationLimit(static_cast<int>(DecodeLimits().memory >> 20));
    });
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format.name);
    reader.setAutoTransform(true);
    if (!reader.canRead()) throw ImageLoadError::unsupportedFormat();
    const QSize claimed = reader.size();
    if (claimed.isValid()) {
        checkClaimedSize(claimed, limits, bytesBeforeConversion(claimed, reader.imageFormat()));
    }
    if (format.check) format.check(bytes);
    QImage bitmap = readCleared(reader, claimed);
    checkClaimedSize(bitmap.size(), limits);
    const QColorSpace profile = bitmap.colorSpace();
    const bool hasAlpha = bitmap.hasAlphaChannel();
    bitmap.setDotsPerMeterX(0);
    bitmap.setDotsPerMeterY(0);
    bitmap =
        std::move(bitmap).convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return finishedBitmap(std::move(bitmap), profile);
}

// The PNG file that the first picture of an icon is, where it is one: Qt's reader of those prints.
std::optional<QByteArray> pngOfIcon(const QByteArray& bytes) {
    constexpr qint64 firstEntry = 6;
    const LittleEndianView view(bytes);
    const qint64 length = view.at<quint32>(firstEntry + 8).value_or(0);
    const qint64 offset = view.at<quint32>(firstEntry + 12).value_or(0);
    const QByteArray picture = bytes.mid(offset, length);
    return picture.startsWith(pngMagic) ? std::optional(picture) : std::nullopt;
}

}  // namespace

QImage decodeImage(const QByteArray& bytes, const DecodeLimits& limits) {
    if (bytes.isEmpty()) throw ImageLoadError::empty();
    if (bytes.startsWith(pngMagic)) return decodePng(bytes, limits);
    if (bytes.startsWith("\xff\xd8\xff")) return decodeJpeg(bytes, limits);
    if (bytes.startsWith("RIFF") && bytes.size() >= 12 && bytes.sliced(8, 4) == "WEBP") {
        return decodeWebP(bytes, limits);
    }
    if (startsWithAny(bytes, tiffMagics)) return decodeTiff(bytes, limits);
    if (startsWithAny(bytes, bigTiffMagics)) {
        throw ImageLoadError::unsupportedKind(Kestrio::tr("a BigTIFF"));
    }
    if (bytes.startsWith(iconMagic)) {
        if (const auto png = pngOfIcon(bytes)) return decodePng(*png, limits);
    }
    for (const PlainFormat& format : plainFormats) {
        if (bytes.startsWith(format.magic)) return decodeByQt(bytes, format, limits);
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
    return {QStringLiteral("png"),  QStringLiteral("jpg"), QStringLiteral("jpeg"),
            QStringLiteral("webp"), QStringLiteral("bmp"), QStringLiteral("gif"),
            QStringLiteral("ico"),  QStringLiteral("ppm"), QStringLiteral("tiff"),
            QStringLiteral("tif")};
}

QByteArray readImageFile(const QString& path) {
    try {
        return readRegularFile(path, largestFile);
    } catch (const FileError& error) {
        throw ImageLoadError::unreadable(error.path(), error.reason());
    }
}

QImage loadImageFile(const QString& path) {
    return decodeImage(readImageFile(path));
}

}  // namespace kestrio
