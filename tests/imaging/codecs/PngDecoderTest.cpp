#include <QBuffer>
#include <QColorSpace>

#include <gtest/gtest.h>
#include <png.h>

#include "imaging/Image.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/LibpngWriter.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

QImage straightPicture(int width, int height) {
    QImage bitmap(width, height, QImage::Format_ARGB32);
    const QImage colours = testPicture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = colours.pixel(x, y);
            bitmap.setPixel(x, y,
                            qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), (x * 5 + y) & 255));
        }
    }
    return bitmap;
}

// What a decoder must make of the written file, in plain steps.
QImage expectedBitmap(const QImage& straight, const PngVariant& variant) {
    const bool hasAlpha = variant.colourType & PNG_COLOR_MASK_ALPHA;
    const auto shown = [&](QRgb pixel) {
        return variant.colourType & PNG_COLOR_MASK_COLOR
                   ? pixel
                   : qRgba(qGreen(pixel), qGreen(pixel), qGreen(pixel), qAlpha(pixel));
    };
    const QRgb absent = shown(straight.pixel(0, 0)) | 0xff000000;
    QImage bitmap(straight.size(), hasAlpha || variant.transparentColour
                                       ? QImage::Format_ARGB32_Premultiplied
                                       : QImage::Format_RGB32);
    for (int y = 0; y < straight.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        for (int x = 0; x < straight.width(); ++x) {
            QRgb pixel = shown(straight.pixel(x, y));
            if (!hasAlpha) pixel |= 0xff000000;
            if (variant.transparentColour && pixel == absent) pixel &= 0xffffff;
            const int alpha = qAlpha(pixel);
            const auto times = [&](int colour) { return (colour * alpha + 127) / 255; };
            row[x] = qRgba(times(qRed(pixel)), times(qGreen(pixel)), times(qBlue(pixel)), alpha);
        }
    }
    return bitmap;
}

TEST(PngDecoder, ReadsEveryKindOfPicture) {
    const PngVariant variants[] = {
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_FILTER_NONE},
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_FILTER_SUB},
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_FILTER_UP},
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_FILTER_AVG},
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_FILTER_PAETH},
        {PNG_COLOR_TYPE_RGB, 8, false, PNG_ALL_FILTERS},
        {PNG_COLOR_TYPE_RGBA, 8, false, PNG_FILTER_NONE},
        {PNG_COLOR_TYPE_RGBA, 8, false, PNG_FILTER_SUB},
        {PNG_COLOR_TYPE_RGBA, 8, false, PNG_FILTER_AVG},
        {PNG_COLOR_TYPE_RGBA, 8, false, PNG_FILTER_PAETH},
        {PNG_COLOR_TYPE_RGBA, 8, false, PNG_ALL_FILTERS},
        {PNG_COLOR_TYPE_RGB, 8, true},
        {PNG_COLOR_TYPE_RGBA, 8, true},
        {PNG_COLOR_TYPE_RGB, 16, false},
        {PNG_COLOR_TYPE_RGBA, 16, true},
        {PNG_COLOR_TYPE_GRAY, 8, false},
        {PNG_COLOR_TYPE_GRAY, 16, true},
        {PNG_COLOR_TYPE_GRAY_ALPHA, 8, false},
        {PNG_COLOR_TYPE_RGB, 8, false, 0, true},
        {PNG_COLOR_TYPE_RGB, 16, false, 0, true},
        {PNG_COLOR_TYPE_GRAY, 8, true, 0, true},
    };
    for (const QSize size : {QSize(1, 1), QSize(1, 9), QSize(37, 101), QSize(130, 70)}) {
        const QImage straight = straightPicture(size.width(), size.height());
        for (const PngVariant& variant : variants) {
            const QImage decoded = decodeImage(writtenByLibpng(straight, variant));
            const QImage expected = expectedBitmap(straight, variant);
            EXPECT_EQ(decoded.format(), expected.format());
            EXPECT_EQ(largestDifference(decoded, expected), 0)
                << "type " << variant.colourType << " depth " << variant.bitDepth << " filters "
                << variant.filters << " of " << size.width() << "x" << size.height();
        }
    }
}

TEST(PngDecoder, ReadsPalettesWithAndWithoutTransparency) {
    QImage indexed(5, 3, QImage::Format_Indexed8);
    indexed.setColorTable({qRgb(1, 2, 3), qRgb(250, 100, 0), qRgb(9, 9, 9)});
    for (int x = 0; x < 5; ++x) {
        for (int y = 0; y < 3; ++y)
            indexed.setPixel(x, y, static_cast<uint>((x + y) % 3));
    }
    const auto saved = [](const QImage& bitmap) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        bitmap.save(&buffer, "PNG");
        return bytes;
    };
    const QImage opaque = decodeImage(saved(indexed));
    EXPECT_EQ(opaque.format(), QImage::Format_RGB32);
    EXPECT_EQ(opaque.pixel(1, 0), qRgb(250, 100, 0));
    indexed.setColor(1, qRgba(200, 100, 0, 51));
    const QImage translucent = decodeImage(saved(indexed));
    EXPECT_EQ(translucent.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(reinterpret_cast<const quint32*>(translucent.constScanLine(0))[1], 0x33281400u);
}

TEST(PngDecoder, ConvertsAnEmbeddedProfileToSrgb) {
    QImage source = testPicture(40, 30, QImage::Format_RGB32);
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    const QImage decoded =
        decodeImage(writtenByLibpng(source, {PNG_COLOR_TYPE_RGB, 8, false, 0, false, profile}));
    source.setColorSpace(QColorSpace::fromIccProfile(profile));
    source.convertToColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(largestDifference(decoded, source), 0);
    EXPECT_GT(largestDifference(decoded, testPicture(40, 30, QImage::Format_RGB32)), 10);
}

}  // namespace
}  // namespace kestrio
