
#include <gtest/gtest.h>
#include <png.h>

#include "core/Parallel.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/LibpngWriter.h"
#include "imaging/codecs/PngEncoder.h"
#include "imaging/codecs/TestPictures.h"
#include "support/NoisePicture.h"

namespace kestrio {
namespace {

// Large enough for several pieces.
QImage largePicture(QImage::Format format) {
    return testPicture(1500, 900, format);
}

QImage libpngsView(const QByteArray& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, file.constData(),
                                          static_cast<size_t>(file.size()))) {
        return {};
    }
    image.format = PNG_FORMAT_BGRA;
    QImage bitmap(static_cast<int>(image.width), static_cast<int>(image.height),
                  QImage::Format_ARGB32);
    return png_image_finish_read(&image, nullptr, bitmap.bits(), 0, nullptr) ? bitmap : QImage();
}

TEST(PngEncoder, LibpngReadsBackExactlyThePixels) {
    const QSize sizes[] = {{1, 1}, {1, 70}, {333, 1}, {67, 129}};
    for (const QSize size : sizes) {
        const QImage opaque = testPicture(size.width(), size.height(), QImage::Format_RGB32);
        EXPECT_EQ(largestDifference(libpngsView(encodePng(opaque)), opaque), 0) << size.width();
    }
    for (const QImage& bitmap :
         {largePicture(QImage::Format_RGB32), noisePicture({900, 700}, QImage::Format_RGB32)}) {
        EXPECT_EQ(largestDifference(libpngsView(encodePng(bitmap)), bitmap), 0);
    }
}

TEST(PngEncoder, StoresStraightColoursThatPremultiplyBackExactly) {
    QImage bitmap(256, 256, QImage::Format_ARGB32_Premultiplied);
    for (int alpha = 0; alpha < 256; ++alpha) {
        auto* row = reinterpret_cast<quint32*>(bitmap.scanLine(alpha));
        for (int x = 0; x < 256; ++x) {
            const int colour = std::min(x, alpha);
            row[x] = qRgba(colour, colour / 2, alpha - colour, alpha);
        }
    }
    const QByteArray file = encodePng(bitmap);
    const QImage straight = libpngsView(file);
    for (int alpha = 1; alpha < 255; ++alpha) {
        for (int colour = 0; colour <= alpha; ++colour) {
            ASSERT_EQ(qRed(straight.pixel(colour, alpha)),
                      std::min(255, (colour * 255 + alpha / 2) / alpha));
        }
    }
    EXPECT_EQ(largestDifference(decodeImage(file), bitmap), 0);
}

TEST(PngEncoder, OpaquePicturesLeaveWithoutAlphaAndTaggedSrgb) {
    constexpr int colourTypeOffset = 25;
    QImage bitmap = testPicture(20, 20, QImage::Format_RGB32)
                        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QByteArray opaque = encodePng(bitmap);
    EXPECT_EQ(opaque[colourTypeOffset], PNG_COLOR_TYPE_RGB);
    EXPECT_TRUE(opaque.contains(QByteArray("\0\0\0\1sRGB\0", 9)));
    bitmap.setPixel(19, 19, qRgba(0, 0, 0, 254));
    EXPECT_EQ(encodePng(bitmap)[colourTypeOffset], PNG_COLOR_TYPE_RGBA);
}

TEST(PngEncoder, FilesAreNotMuchLargerThanLibpngs) {
    QImage flat(1500, 900, QImage::Format_RGB32);
    flat.fill(0xff336699);
    const QImage dashboard =
        loadImageFile(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"))
            .copy(0, 0, 1920, 1080);
    for (const QImage& bitmap : {flat, dashboard, noisePicture({300, 300}, QImage::Format_RGB32),
                                 largePicture(QImage::Format_RGB32)}) {
        const auto theirs = writtenByLibpng(bitmap, {PNG_COLOR_TYPE_RGB}).size();
        EXPECT_LE(encodePng(bitmap).size(), theirs * 1.1 + 100);
    }
    const QImage translucent = largePicture(QImage::Format_ARGB32_Premultiplied);
    const QImage straight = libpngsView(encodePng(translucent));
    EXPECT_LE(encodePng(translucent).size(),
              writtenByLibpng(straight, {PNG_COLOR_TYPE_RGBA}).size() * 1.1);
}

TEST(PngEncoder, BytesDoNotDependOnTheNumberOfThreads) {
    const QImage bitmap = largePicture(QImage::Format_ARGB32_Premultiplied);
    setParallelThreadLimit(1);
    const QByteArray alone = encodePng(bitmap);
    setParallelThreadLimit(5);
    const QByteArray together = encodePng(bitmap);
    setParallelThreadLimit(0);
    EXPECT_EQ(alone, together);
}

TEST(PngEncoder, ReportsProgressAndStops) {
    const QImage bitmap = largePicture(QImage::Format_RGB32);
    std::vector<double> reports;
    std::stop_source source;
    EncodeHooks hooks{[&](double fraction) { reports.push_back(fraction); }, source.get_token()};
    encodePng(bitmap, hooks);
    ASSERT_GE(reports.size(), 3u);
    EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
    EXPECT_EQ(reports.back(), 1.0);

    hooks.progress = [&](double) { source.request_stop(); };
    setParallelThreadLimit(1);
    try {
        encodePng(bitmap, hooks);
        ADD_FAILURE() << "went on after the stop";
    } catch (const ExportError& error) {
        EXPECT_EQ(error, ExportError::userCancelled());
    }
    setParallelThreadLimit(0);
}

}  // namespace
}  // namespace kestrio
