#include <QColorSpace>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <tiffio.h>

#include "imaging/Image.h"
#include "imaging/codecs/ExifOrientation.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

struct TiffKind {
    bool isTiled = false;
    bool hasAlpha = false;
    int orientation = ORIENTATION_TOPLEFT;
    QByteArray profile = {};
};

constexpr int tileSide = 16;

// Straight alpha, 8 bits a sample.
QByteArray tiffOf(const QImage& bitmap, const TiffKind& kind) {
    const QImage samples =
        bitmap.convertToFormat(kind.hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    const int channels = kind.hasAlpha ? 4 : 3;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("picture.tiff")));
    TIFF* tiff = TIFFOpen(QFile::encodeName(file.fileName()).constData(), "w");
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, samples.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, samples.height());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, channels);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, kind.orientation);
    const uint16_t straight = EXTRASAMPLE_UNASSALPHA;
    if (kind.hasAlpha) TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &straight);
    if (!kind.profile.isEmpty()) {
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, static_cast<uint32_t>(kind.profile.size()),
                     kind.profile.constData());
    }
    if (kind.isTiled) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, tileSide);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, tileSide);
        for (int y = 0; y < samples.height(); y += tileSide) {
            for (int x = 0; x < samples.width(); x += tileSide) {
                const QImage tile = samples.copy(x, y, tileSide, tileSide);
                QByteArray packed;
                for (int row = 0; row < tileSide; ++row) {
                    packed.append(reinterpret_cast<const char*>(tile.constScanLine(row)),
                                  tileSide * channels);
                }
                TIFFWriteTile(tiff, packed.data(), static_cast<uint32_t>(x),
                              static_cast<uint32_t>(y), 0, 0);
            }
        }
    } else {
        for (int y = 0; y < samples.height(); ++y) {
            TIFFWriteScanline(tiff, const_cast<uchar*>(samples.constScanLine(y)),
                              static_cast<uint32_t>(y));
        }
    }
    TIFFClose(tiff);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(Tiff, ReadsStripsAndTilesWithAndWithoutAlpha) {
    for (const bool isTiled : {false, true}) {
        const QImage opaque = testPicture(45, 37, QImage::Format_RGB32);
        EXPECT_EQ(decodeImage(tiffOf(opaque, {.isTiled = isTiled})), opaque) << isTiled;
        const QImage clear = testPicture(45, 37, QImage::Format_ARGB32_Premultiplied);
        const QImage decoded = decodeImage(tiffOf(clear, {.isTiled = isTiled, .hasAlpha = true}));
        EXPECT_EQ(decoded.format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_LE(largestDifference(decoded, clear), 1) << isTiled;
    }
}

TEST(Tiff, AppliesTheNotedOrientation) {
    const QImage bitmap = testPicture(45, 37, QImage::Format_RGB32);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QImage decoded = decodeImage(tiffOf(bitmap, {.orientation = orientation}));
        EXPECT_EQ(decoded, uprightBitmap(bitmap, orientation)) << orientation;
    }
}

TEST(Tiff, ConvertsAnEmbeddedProfileToSrgb) {
    QImage source(24, 24, QImage::Format_RGB32);
    source.fill(QColor(200, 120, 100));
    const QImage untagged = source;
    source.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QByteArray bytes = tiffOf(source, {.profile = source.colorSpace().iccProfile()});
    const QImage expected = source.convertedToColorSpace(QColorSpace::SRgb);
    EXPECT_LE(largestDifference(decodeImage(bytes), expected), 1);
    EXPECT_GT(largestDifference(expected, untagged), 10);
}

}  // namespace
}  // namespace kestrio
