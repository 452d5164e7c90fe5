#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

#include <gtest/gtest.h>

#include "imaging/ExportError.h"
#include "imaging/Image.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/JpegEncoder.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

QImage smoothPicture() {
    QImage bitmap(48, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 48; ++x)
            bitmap.setPixel(x, y, qRgb(x * 5, y * 7, 128));
    }
    return bitmap;
}

TEST(Jpeg, RoundTripStaysCloseAtAnySize) {
    EXPECT_LE(largestDifference(decodeImage(encodeJpeg(smoothPicture())), smoothPicture()), 8);
    for (const QSize size : {QSize(1, 1), QSize(1, 17), QSize(19, 3)}) {
        QImage bitmap(size, QImage::Format_RGB32);
        bitmap.fill(QColor(200, 30, 90));
        const QImage decoded = decodeImage(encodeJpeg(bitmap));
        EXPECT_EQ(decoded.format(), QImage::Format_RGB32);
        EXPECT_LE(largestDifference(decoded, bitmap), 3);
    }
}

TEST(Jpeg, KeepsTheColoursOfThinText) {
    QImage bitmap(32, 32, QImage::Format_RGB32);
    bitmap.fill(Qt::white);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; x += 4)
            bitmap.setPixel(x, y, qRgb(220, 0, 0));
    }
    // With halved chroma the strokes' red would bleed into the paper by dozens of steps.
    EXPECT_LE(largestDifference(decodeImage(encodeJpeg(bitmap)), bitmap), 24);
}

TEST(Jpeg, LaysTransparencyOverWhite) {
    QImage bitmap(16, 16, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(QColor(0, 0, 255, 51));
    const QRgb pixel = decodeImage(encodeJpeg(bitmap)).pixel(8, 8);
    EXPECT_NEAR(qRed(pixel), 204, 2);
    EXPECT_NEAR(qBlue(pixel), 255, 2);
}

TEST(Jpeg, RefusesTooLargeSidesAndStops) {
    QImage wide(65536, 1, QImage::Format_RGB32);
    wide.fill(Qt::white);
    EXPECT_THROW(encodeJpeg(wide), ExportError);
    std::stop_source source;
    const EncodeHooks hooks{[&](double) { source.request_stop(); }, source.get_token()};
    try {
        encodeJpeg(testPicture(40, 200, QImage::Format_RGB32), hooks);
        ADD_FAILURE() << "went on after the stop";
    } catch (const ExportError& error) {
        EXPECT_EQ(error, ExportError::userCancelled());
    }
}

// `file` with an Exif block after its first marker.
QByteArray withOrientation(const QByteArray& file, char orientation, bool bigEndian) {
    QByteArray exif = bigEndian
                          ? QByteArray("Exif\0\0MM\0*\0\0\0\x08\0\1\x01\x12\0\3\0\0\0\1\0", 25)
                          : QByteArray("Exif\0\0II*\0\x08\0\0\0\1\0\x12\x01\3\0\1\0\0\0", 24);
    exif += orientation;
    exif += QByteArray(8, 0);
    const QByteArray marker("\xff\xe1\0", 3);
    return file.first(2) + marker + char(exif.size() + 2) + exif + file.sliced(2);
}

TEST(Jpeg, AppliesTheNotedOrientation) {
    const QByteArray file = encodeJpeg(smoothPicture());
    for (const bool bigEndian : {false, true}) {
        for (int orientation = 0; orientation <= 9; ++orientation) {
            QByteArray bytes = withOrientation(file, char(orientation), bigEndian);
            QBuffer buffer(&bytes);
            QImageReader reader(&buffer);
            reader.setAutoTransform(true);
            EXPECT_LE(largestDifference(decodeImage(bytes), inCanonicalFormat(reader.read())), 3)
                << orientation << (bigEndian ? " MM" : " II");
        }
    }
}

TEST(Jpeg, ConvertsAnEmbeddedProfileToSrgb) {
    QImage source(24, 24, QImage::Format_RGB32);
    source.fill(QColor(200, 120, 100));
    const QImage untagged = source;
    source.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(source.save(&buffer, "JPEG", 100));
    const QImage expected = source.convertedToColorSpace(QColorSpace::SRgb);
    EXPECT_LE(largestDifference(decodeImage(bytes), expected), 3);
    EXPECT_GT(largestDifference(expected, untagged), 10);
}

}  // namespace
}  // namespace kestrio
